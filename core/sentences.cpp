#include "core/sentences.h"

#include "core/agent_file.h"
#include "core/conversions.h"
#include "core/schedule_words.h"

#include <array>
#include <cctype>
#include <vector>

namespace frimbolate {

namespace {

using Words = std::vector<std::string>;

/// The rows of the form from top to bottom, each by its marker.
constexpr std::array<bool ErrorReport::*, 4> rowsOfForm = {
    &ErrorReport::name, &ErrorReport::target, &ErrorReport::action, &ErrorReport::schedule};

/// A line of the error report in other words.
struct Fault {
    std::string_view line;
    bool ErrorReport::*marker;
    std::string_view hint;
    std::string_view missing; ///< what the form lacks; empty where something is wrong instead
};

constexpr std::array<Fault, 10> faults = {{
    {"Name can only contain alphanumeric characters", &ErrorReport::name,
     "The name may hold only a to z, A to Z, 0 to 9 and _", ""},
    {"Name cannot be left blank", &ErrorReport::name, "The agent needs a name", "a name"},
    {"No app or script to launch selected", &ErrorReport::target,
     "Choose an application or a script", "something to launch"},
    {"Condition for launch not selected", &ErrorReport::action, "Choose when the agent starts",
     "a choice of when to launch it"},
    {"Day of the month must be numeric", &ErrorReport::schedule,
     "The day of the month must be a number", ""},
    {"Day of the month cannot be left blank", &ErrorReport::schedule,
     "The schedule needs a day of the month", "a day of the month"},
    {"Valid days of the month are 1 through 31", &ErrorReport::schedule,
     "The day of the month must be 1 to 31", ""},
    {"Launch on interval must be numeric", &ErrorReport::schedule,
     "The interval must be a whole number", ""},
    {"Launch on interval cannot be left blank", &ErrorReport::schedule,
     "The schedule needs an interval", "an interval"},
    {"Minimum launch on interval is 10 seconds", &ErrorReport::schedule,
     "The interval must be at least 10 seconds", ""},
}};

bool reports(const ErrorReport& report, const Fault& fault) {
    return report.text.find(fault.line) != std::string::npos;
}

std::string joined(const Words& words, std::string_view separator, std::string_view last) {
    std::string text;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (i > 0)
            text += i + 1 == words.size() ? last : separator;
        text += words[i];
    }
    return text;
}

std::string withFirst(int (*letterCase)(int), std::string text) {
    if (!text.empty())
        text[0] = static_cast<char>(letterCase(static_cast<unsigned char>(text[0])));
    return text;
}

std::string shownPath(std::string_view path, std::string_view home) {
    const bool inHome = !home.empty() && path.substr(0, home.size()) == home;
    const auto rest = inHome ? path.substr(home.size()) : path;
    if (inHome && (rest.empty() || rest[0] == '/'))
        return std::string("~").append(rest);
    return std::string(path);
}

/// What a person calls the target: an application by its name, any other file by its file name.
std::string targetName(const AgentForm& form) {
    if (form.targetType != TargetType::File)
        return form.scriptText.empty() ? "an empty script" : "a script";
    auto path = firstPiece(form.targetPath, "/Contents/MacOS/");
    while (path.size() > 1 && path.back() == '/')
        path.remove_suffix(1);
    const auto name = path == "/" ? path : lastPiece(path, "/");
    constexpr std::string_view bundle = ".app";
    const bool isBundle = name.size() > bundle.size() && lastPiece(name, ".") == "app";
    return std::string(isBundle ? name.substr(0, name.size() - bundle.size()) : name);
}

bool usesSchedule(const AgentForm& form) { return form.action <= AgentAction::KeepRunning; }

/// The additional path replaces the main one in the file, so it does here.
const std::string& watchedPath(const AgentForm& form) {
    return form.alsoRunOnPathChange ? form.alsoRunPath : form.watchPath;
}

bool watchesPath(const AgentForm& form) {
    return form.action == AgentAction::PathModified || form.alsoRunOnPathChange;
}

Words launchConditions(const AgentForm& form, std::string_view home, ClockFormat clock) {
    Words words;
    if (usesSchedule(form) && !scheduleWords(form).empty())
        words.push_back(scheduleWords(form, clock));
    const bool alreadyAtLoad = usesSchedule(form) && form.scheduleType == ScheduleType::AtLoad;
    if (form.alsoRunAtLoad && !alreadyAtLoad)
        words.emplace_back("when the agent is loaded, such as at login");
    if (form.action == AgentAction::VolumeMounted || form.alsoRunOnVolumeMount)
        words.emplace_back("when a volume is mounted");
    if (watchesPath(form))
        words.push_back("when " + shownPath(watchedPath(form), home) + " changes");
    if (!form.queueDirectory.empty())
        words.push_back("as long as " + shownPath(form.queueDirectory, home) + " is not empty");
    return words;
}

/// A path that no rule insists on but the row cannot do without; empty where there is none.
std::string_view missingPath(const AgentForm& form, bool ErrorReport::*row) {
    if (row == &ErrorReport::target && form.targetType == TargetType::File &&
        form.targetPath.empty())
        return "something to launch";
    if (row == &ErrorReport::action && form.action == AgentAction::PathModified &&
        watchedPath(form).empty())
        return "a path to watch";
    return "";
}

/// What the form lacks, in the order of its rows.
Words missingParts(const AgentForm& form, const ErrorReport& report) {
    Words words;
    for (const auto row : rowsOfForm) {
        for (const auto& fault : faults)
            if (fault.marker == row && !fault.missing.empty() && reports(report, fault))
                words.emplace_back(fault.missing);
        if (const auto path = missingPath(form, row); !path.empty())
            words.emplace_back(path);
    }
    // The additional path belongs to the drawer, which stands after all rows.
    if (form.action != AgentAction::PathModified && watchesPath(form) && watchedPath(form).empty())
        words.emplace_back("a path to watch");
    return words;
}

/// What is missing, then what is wrong; empty for a form that can be told.
std::string shortcomings(const AgentForm& form) {
    const auto report = validate(form);
    const Words missing = missingParts(form, report);
    Words parts;
    if (!missing.empty())
        parts.push_back("still needs " + joined(missing, ", ", " and "));
    for (const auto& fault : faults)
        if (fault.missing.empty() && reports(report, fault))
            parts.push_back(withFirst(std::tolower, std::string(fault.hint)));
    return joined(parts, "; ", "; ");
}

std::string targetHint(const AgentForm& form, std::string_view home) {
    if (form.targetType == TargetType::None ||
        (form.targetType == TargetType::File && form.targetPath.empty()))
        return "Choose an application or a script, or drop one on the box";
    if (form.targetType == TargetType::File)
        return shownPath(form.targetPath, home);
    return form.scriptText.empty() ? "An empty script"
                                   : "Script: " + replacedAll(form.scriptText, "\n", " ");
}

std::string actionHint(const AgentForm& form, std::string_view home) {
    switch (form.action) {
    case AgentAction::None:
        return "Choose a schedule or an event that starts the agent";
    case AgentAction::KeepRunning:
        return form.allowSuccessfulExit ? "Launched as scheduled, and again whenever it fails"
                                        : "Launched as scheduled, and again whenever it ends";
    case AgentAction::PathModified:
        return form.watchPath.empty() ? "Choose the file or folder to watch"
                                      : "Watches " + shownPath(form.watchPath, home);
    case AgentAction::VolumeMounted:
        return "Launched when a disk or a share appears in /Volumes";
    default:
        return usesSchedule(form) ? "Launched as scheduled below" : "Never launched";
    }
}

std::string scheduleHint(const AgentForm& form, ClockFormat clock) {
    if (!usesSchedule(form))
        return "Not used: the condition above launches the agent";
    const auto words = scheduleWords(form, clock);
    return words.empty() ? "Never" : withFirst(std::toupper, words);
}

} // namespace

std::string planSentence(const AgentForm& form, std::string_view home, ClockFormat clock) {
    if (const auto lacking = shortcomings(form); !lacking.empty())
        return withFirst(std::toupper, lacking) + ".";
    const auto conditions = launchConditions(form, home, clock);
    if (conditions.empty())
        return "Never runs " + targetName(form) + ": nothing launches it.";
    std::string sentence = "Runs " + targetName(form) + " " + joined(conditions, ", ", ", and ");
    if (form.action == AgentAction::KeepRunning)
        sentence += form.allowSuccessfulExit ? ", and keeps it running until it succeeds"
                                             : ", and keeps it running";
    return sentence + ".";
}

bool isPlanComplete(const AgentForm& form) {
    return shortcomings(form).empty() && !launchConditions(form, {}, {}).empty();
}

RowHints rowHints(const AgentForm& form, const ErrorReport& markers, std::string_view home,
                  ClockFormat clock) {
    struct Row {
        bool ErrorReport::*marker;
        std::string RowHints::*hint;
    };
    constexpr std::array<Row, 4> rows = {{{&ErrorReport::name, &RowHints::name},
                                          {&ErrorReport::target, &RowHints::target},
                                          {&ErrorReport::action, &RowHints::action},
                                          {&ErrorReport::schedule, &RowHints::schedule}}};
    RowHints hints{proposedFileName(form.name.empty() ? "<name>" : form.name),
                   targetHint(form, home), actionHint(form, home), scheduleHint(form, clock)};
    const auto report = validate(form);
    for (const auto& row : rows)
        for (const auto& fault : faults)
            if (markers.*row.marker && fault.marker == row.marker && reports(report, fault))
                hints.*row.hint = fault.hint;
    return hints;
}

} // namespace frimbolate
