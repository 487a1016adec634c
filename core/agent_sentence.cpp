#include "core/agent_sentence.h"

#include "core/agent_plist.h"
#include "core/calendar_text.h"
#include "core/conversions.h"
#include "core/next_run.h"
#include "core/schedule_text.h"
#include "core/script_types.h"
#include "core/sentence_words.h"

#include <algorithm>
#include <array>
#include <limits>

namespace frimbolate {

namespace {

bool isSet(const Dictionary& keys, std::string_view key) {
    const Value* value = find(keys, key);
    return value && toBoolOrFalse(*value);
}

/// The texts of an array; empty where it is no array of texts.
Words textsOf(const Dictionary& agent, std::string_view key) {
    Words words;
    const Value* value = find(agent, key);
    const Array* elements = value ? value->array() : nullptr;
    for (const Value& element : elements ? *elements : Array{}) {
        if (!element.string())
            return {};
        words.push_back(*element.string());
    }
    return words;
}

/// Programs that run the file or the text that follows them.
bool runsItsArgument(std::string_view path) {
    constexpr std::array<std::string_view, 14> names = {
        "sh",   "bash", "zsh",  "dash",      "ksh", "python",    "python3",
        "ruby", "perl", "node", "osascript", "php", "automator", "env"};
    return std::ranges::find(names, afterLast(path, "/")) != names.end();
}

/// The words of a command line; an interpreter is named by what it runs.
std::string commandName(const Words& command) {
    if (!runsItsArgument(command.front()))
        return programName(command.front());
    for (std::size_t i = 1; i < command.size(); ++i) {
        const auto& argument = command[i];
        if ((argument == "-c" || argument == "-e" || argument == "-lc") && i + 1 < command.size())
            return command[i + 1].empty() ? "an empty script" : "a script";
        if (!argument.empty() && !argument.starts_with('-'))
            return runsItsArgument(argument)
                       ? commandName({command.begin() + static_cast<long>(i), command.end()})
                       : programName(argument);
    }
    return programName(command.front());
}

/// The command line that launchd runs; empty where the agent names no program.
Words commandLine(const Dictionary& agent) {
    Words command = textsOf(agent, "ProgramArguments");
    const Value* program = find(agent, "Program");
    if (program && program->string()) {
        if (command.empty())
            command.emplace_back();
        command.front() = *program->string();
    }
    if (command.size() == 1 && command.front().empty())
        return {};
    return command;
}

std::string intervalWords(const Dictionary& agent) {
    const Value* value = find(agent, "StartInterval");
    const std::int64_t* seconds = value ? value->integer() : nullptr;
    if (!seconds || *seconds <= 0)
        return "";
    if (*seconds > std::numeric_limits<std::int32_t>::max())
        return "at an interval";
    AgentForm form;
    form.scheduleType = ScheduleType::OnInterval;
    form.intervalText = std::to_string(*seconds);
    return scheduleText(form, {});
}

/// launchd starts the agent for those who ask for one of its services.
bool isOnDemand(const Dictionary& agent) {
    return std::ranges::any_of(
        std::array{"Sockets", "MachServices", "LaunchEvents"}, [&agent](const char* key) {
            const Value* value = find(agent, key);
            return value && value->dictionary() && !value->dictionary()->empty();
        });
}

/// What the agent's KeepAlive says.
struct Keeping {
    bool always = false;
    bool waitsForDemand = false;
    bool runsAtLoad = false;
    std::string ending; ///< ", and keeps it running"
    Words conditions;   ///< "as long as ~/a exists"
};

void readConditions(const Dictionary& conditions, Keeping& keeping, std::string_view home) {
    keeping.waitsForDemand = isSet(conditions, "AfterInitialDemand");
    if (find(conditions, "SuccessfulExit")) {
        keeping.runsAtLoad = true;
        keeping.ending = isSet(conditions, "SuccessfulExit")
                             ? ", and again each time it succeeds"
                             : ", and keeps it running until it succeeds";
    } else if (find(conditions, "Crashed")) {
        keeping.ending = isSet(conditions, "Crashed") ? ", and again after a crash"
                                                      : ", and again unless it crashes";
    } else if (keeping.waitsForDemand) {
        keeping.ending = ", and keeps it running";
    }
    const Value* paths = find(conditions, "PathState");
    if (!paths || !paths->dictionary())
        return;
    for (const auto& [path, exists] : *paths->dictionary())
        keeping.conditions.push_back("as long as " + shownPath(path, home) +
                                     (toBoolOrFalse(exists) ? " exists" : " does not exist"));
}

Keeping readKeepAlive(const Dictionary& agent, std::string_view home) {
    Keeping keeping;
    const Value* value = find(agent, "KeepAlive");
    const bool isNotOnDemand = find(agent, "OnDemand") && !isSet(agent, "OnDemand");
    if (value && value->dictionary())
        readConditions(*value->dictionary(), keeping, home);
    else if (isSet(agent, "KeepAlive") || isNotOnDemand)
        keeping = {.always = true,
                   .runsAtLoad = true,
                   .ending = ", and keeps it running",
                   .conditions = {}};
    return keeping;
}

Words demands(const Dictionary& agent, std::string_view home) {
    const auto paths = [&](std::string_view key) {
        Words shown = textsOf(agent, key);
        for (auto& path : shown)
            path = shownPath(path, home);
        return joined(shown, ", ", " or ");
    };
    Words words;
    if (const auto watched = paths("WatchPaths"); !watched.empty())
        words.push_back("when " + watched + " changes");
    if (const auto queue = paths("QueueDirectories"); !queue.empty())
        words.push_back("as long as " + queue + " is not empty");
    if (isOnDemand(agent))
        words.emplace_back("on demand");
    return words;
}

Words startConditions(const Dictionary& agent, const Keeping& keeping, const TextStyle& style) {
    Words words;
    if (!keeping.waitsForDemand) {
        if (const Value* calendar = find(agent, "StartCalendarInterval"))
            words = calendarWords(calendarIntervals(*calendar), style.clock);
        if (auto interval = intervalWords(agent); !interval.empty())
            words.push_back(std::move(interval));
        if (isSet(agent, "RunAtLoad") || keeping.runsAtLoad)
            words.emplace_back("when the agent is loaded, such as at login");
        if (isSet(agent, "StartOnMount"))
            words.emplace_back("when a volume is mounted");
    }
    const Words demand = demands(agent, style.home);
    words.insert(words.end(), demand.begin(), demand.end());
    words.insert(words.end(), keeping.conditions.begin(), keeping.conditions.end());
    return words;
}

} // namespace

std::string agentSentence(const Dictionary& agent, const TextStyle& style) {
    const Words command = commandLine(agent);
    if (command.empty())
        return "Runs nothing: the agent names no program.";
    const auto name = commandName(command);
    const auto keeping = readKeepAlive(agent, style.home);
    const auto conditions = startConditions(agent, keeping, style);
    if (!conditions.empty())
        return "Runs " + name + " " + joined(conditions, ", ", ", and ") + keeping.ending + ".";
    if (keeping.waitsForDemand)
        return "Kept running once it has been started; nothing starts it.";
    return "Never runs " + name + ": nothing launches it.";
}

std::string agentProgram(const Dictionary& agent) {
    const Words command = commandLine(agent);
    return command.empty() ? "" : joined(command, " ", " ");
}

} // namespace frimbolate
