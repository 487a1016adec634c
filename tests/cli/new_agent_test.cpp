// The word "new" against the form of the window.
#include "cli/new_agent.h"

#include "core/agent_plist.h"
#include "core/agent_sentence.h"
#include "core/form_model.h"
#include "core/form_summary.h"
#include "core/validation.h"
#include "plist/xml_writer.h"
#include "posix/local_files.h"
#include "tests/cli/terminal_run.h"
#include "tests/support/recording_log.h"
#include "tests/support/rows.h"
#include "tests/support/temporary_folder.h"
#include "tests/ui/generated_forms.h"

#include <gmock/gmock.h>

namespace frimbolate::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

constexpr int formCount = 500;
/// Writing to the disk takes its time: every tenth form is also written to a file.
constexpr int filesEach = 10;

/// Whether the options can say what the form says. The window also holds values of rows that are
/// not used, and indexes that mean nothing.
bool canBeSaid(const AgentForm& form) {
    const bool isTarget =
        form.targetType == TargetType::File || form.targetType == TargetType::Script;
    const bool isAction =
        form.action >= AgentAction::OnSchedule && form.action <= AgentAction::VolumeMounted;
    const bool isUsed = form.action <= AgentAction::KeepRunning;
    const int type = form.scheduleType;
    const bool isSchedule =
        type == ScheduleType::EveryDay ||
        (type >= ScheduleType::EverySunday && type <= ScheduleType::EverySaturday) ||
        type == ScheduleType::OnceAMonth || type == ScheduleType::AtLoad ||
        type == ScheduleType::OnInterval;
    const bool isUnit =
        form.intervalUnit >= IntervalUnit::Seconds && form.intervalUnit <= IntervalUnit::Hours;
    const bool isPriority =
        form.priorityLevel == PriorityLevel::Low || form.priorityLevel == PriorityLevel::Normal;
    const bool isNice = form.niceLevel >= -20 && form.niceLevel <= 20;
    return isTarget && isAction && (!isUsed || isSchedule) && isUnit && isPriority && isNice;
}

/// The unused rows as a new form has them.
AgentForm withoutUnusedRows(AgentForm form) {
    const AgentForm fresh;
    if (form.action > AgentAction::KeepRunning)
        form.scheduleType = fresh.scheduleType;
    return form;
}

void addSchedule(std::vector<std::string>& arguments, const AgentForm& form) {
    const char* units[] = {"s", "m", "h"};
    const char* days[] = {"sun", "Monday", "tue", "wedn", "thu", "FRI", "saturday"};
    const auto time = formatTimeOfDay({form.scheduleTime.hour, form.scheduleTime.minute},
                                      ClockFormat::TwentyFourHours);
    if (form.scheduleType == ScheduleType::OnInterval)
        arguments.push_back("--every=" + form.intervalText + units[form.intervalUnit]);
    else if (form.scheduleType == ScheduleType::AtLoad)
        arguments.emplace_back("--at-load");
    else
        arguments.insert(arguments.end(), {"--at", time});
    if (form.scheduleType == ScheduleType::OnceAMonth)
        arguments.insert(arguments.end(), {"--on", form.dayOfMonthText});
    else if (form.scheduleType == ScheduleType::EveryDay)
        arguments.insert(arguments.end(), {"--on", "day"});
    else if (form.scheduleType <= ScheduleType::EverySaturday)
        arguments.insert(arguments.end(),
                         {"--on", days[form.scheduleType - ScheduleType::EverySunday]});
}

std::vector<std::string> argumentsOf(const AgentForm& form) {
    std::vector<std::string> arguments = {"new", "--name", form.name};
    const auto text = [&](const char* option, const std::string& value, bool isSaid) {
        if (isSaid)
            arguments.insert(arguments.end(), {option, value});
    };
    const auto flag = [&](const char* option, bool isSaid) {
        if (isSaid)
            arguments.emplace_back(option);
    };
    const bool isFile = form.targetType == TargetType::File;
    text(isFile ? "--run" : "--script", isFile ? form.targetPath : form.scriptText, true);
    if (form.action <= AgentAction::KeepRunning)
        addSchedule(arguments, form);
    flag("--keep-running", form.action == AgentAction::KeepRunning);
    text("--watch", form.watchPath, form.action == AgentAction::PathModified);
    flag("--on-mount", form.action == AgentAction::VolumeMounted);
    flag("--allow-successful-exit", form.allowSuccessfulExit);
    flag("--globbing", form.enableGlobbing);
    flag("--low-priority", form.priorityLevel == PriorityLevel::Low);
    text("--nice", std::to_string(form.niceLevel), form.niceLevel != 0);
    text("--stdin", form.standardInPath, !form.standardInPath.empty());
    text("--stdout", form.standardOutPath, !form.standardOutPath.empty());
    text("--stderr", form.standardErrorPath, !form.standardErrorPath.empty());
    text("--working-directory", form.workingDirectory, !form.workingDirectory.empty());
    text("--root-directory", form.rootDirectory, !form.rootDirectory.empty());
    text("--queue", form.queueDirectory, !form.queueDirectory.empty());
    flag("--also-at-load", form.alsoRunAtLoad);
    flag("--also-on-mount", form.alsoRunOnVolumeMount);
    text("--also-watch", form.alsoRunPath, form.alsoRunOnPathChange);
    return arguments;
}

/// The file that the window's service writes, and the one of the option --output.
void expectEqualFiles(const AgentPlist& agent, std::vector<std::string> arguments,
                      const std::string& name) {
    const TemporaryFolder folder;
    RecordingLog log;
    ASSERT_TRUE(LocalFiles(log).writeDictionary(folder / "window.plist", agent));
    arguments.insert(arguments.end(), {"--output", folder / name});
    ASSERT_EQ(run(arguments).code, 0);
    EXPECT_EQ(bytesOf(folder / name), bytesOf(folder / "window.plist"));
}

TEST(NewAgents, HaveTheBytesThatTheWindowSaves) {
    RandomValues random(20261121);
    int written = 0, rejected = 0, sentences = 0;
    while (written < formCount) {
        const AgentForm form = withoutUnusedRows(generatedForm(random));
        if (!canBeSaid(form))
            continue;
        FormModel model;
        show(form, model);
        const auto faults = validate(agentForm(model));
        const auto result = run(argumentsOf(form));
        EXPECT_EQ(result.code == 0, faults.empty()) << result.err;
        EXPECT_EQ(std::ranges::count(result.err, '\n'), std::ranges::ssize(faults)) << result.err;
        for (const Fault fault : faults)
            EXPECT_THAT(result.err, HasSubstr(std::string(faultText(fault).report) + "\n"));
        rejected += faults.empty() ? 0 : 1;
        if (!faults.empty())
            continue;
        const auto name = proposedFileName(form.name);
        const auto agent = buildAgentPlist(agentForm(model), labelForFileName(name));
        EXPECT_EQ(result.out, xmlPropertyList(agent));
        if (written % filesEach == 0)
            expectEqualFiles(agent, argumentsOf(form), name);
        const auto said = summary(agentForm(model), faults, {.home = "/Users/maya"});
        EXPECT_EQ(said.isComplete ? agentSentence(agent, {.home = "/Users/maya"}) : said.sentence,
                  said.sentence);
        sentences += said.isComplete ? 1 : 0;
        ++written;
    }
    EXPECT_GT(rejected, formCount / 10);
    EXPECT_GT(sentences, formCount / 10);
}

struct NewAgentRow {
    const char* name;
    std::vector<std::string> arguments; ///< beside a name and a program
    const char* says;                   ///< the sentence, or the fault
    bool isFault = false;
};

void PrintTo(const NewAgentRow& row, std::ostream* out) { *out << row.name; }

class NewAgent : public testing::TestWithParam<NewAgentRow> {};

TEST_P(NewAgent, IsMadeOrRejected) {
    std::vector<std::string> arguments = {"new", "--name", "Sync", "--run", "/bin/sync"};
    arguments.insert(arguments.end(), GetParam().arguments.begin(), GetParam().arguments.end());
    auto result = run(arguments);
    EXPECT_EQ(result.code != 0, GetParam().isFault);
    if (result.code == 0)
        result = run({"explain", "-"}, {.in = result.out});
    EXPECT_THAT(result.out + result.err, HasSubstr(GetParam().says));
}

const NewAgentRow newAgentRows[] = {
    {"Daily", {"--at", "07:05"}, "every day at 07:05."},
    {"TwelveHours", {"--at", "7:05 pm"}, "every day at 19:05."},
    {"Weekly", {"--at", "07:05", "--on", "wed"}, "every Wednesday at 07:05."},
    {"Monthly", {"--at", "07:05", "--on", "3"}, "on the 3rd of every month at 07:05."},
    {"TwoLettersAreNoWeekday", {"--at", "7", "--on", "we"}, "--on: Day of the month must be", true},
    {"DayOutOfRange", {"--at", "7", "--on", "32"}, "--on: Valid days of the month", true},
    {"NoTimeOfDay", {"--at", "25:00"}, "new: --at: \u201c25:00\u201d is not a time", true},
    {"DayWithoutTime", {"--on", "wed"}, "--on requires --at", true},
    {"Seconds", {"--every", "45"}, "every 45 seconds."},
    {"Minutes", {"--every", "15m"}, "every 15 minutes."},
    {"Hours", {"--every", "2h"}, "every 2 hours."},
    {"TooShort", {"--every", "9s"}, "--every: Minimum launch on interval is 10", true},
    {"AtLoad", {"--at-load"}, "when the agent is loaded, such as at login."},
    {"Watch", {"--watch", "/a"}, "when /a changes."},
    {"Mount", {"--on-mount"}, "when a volume is mounted."},
    {"KeptRunning", {"--keep-running"}, "such as at login, and keeps it running."},
    {"NoStart", {}, "--at: Condition for launch not selected", true},
    {"TwoStarts", {"--at", "7:00", "--watch", "/a"}, "excludes", true},
    {"ScriptBesideProgram", {"--script", "x", "--at-load"}, "excludes", true},
    {"Nicest", {"--at-load", "--nice", "20"}, "when the agent is loaded"},
    {"LeastNice", {"--at-load", "--nice=-20"}, "when the agent is loaded"},
    {"NiceBelowRange", {"--at-load", "--nice=-21"}, "--nice: \u201c-21\u201d is no number", true},
    {"NiceOutOfRange", {"--at-load", "--nice", "21"}, "--nice: \u201c21\u201d is no number", true},
    {"NiceThatIsNoNumber", {"--at-load", "--nice", "1x"}, "--nice: \u201c1x\u201d is", true},
};

INSTANTIATE_TEST_SUITE_P(Table, NewAgent, testing::ValuesIn(newAgentRows), NamedAfterRow());

TEST(NewAgents, NeedAName) {
    EXPECT_THAT(run({"new", "--run", "/a", "--at-load"}).err, StartsWith("new: --name: "));
}

TEST(NewAgents, ReplaceAFileOnlyWhenTold) {
    const TemporaryFolder folder;
    const auto path = folder / "a.plist";
    writeBytes(path, "kept");
    const std::vector<std::string> arguments = {"new",  "--name",    "A",        "--script",
                                                "true", "--at-load", "--output", path};
    EXPECT_EQ(run(arguments).code, 2);
    EXPECT_EQ(bytesOf(path), "kept");
    auto forced = arguments;
    forced.emplace_back("--force");
    EXPECT_EQ(run(forced).code, 0);
    EXPECT_THAT(bytesOf(path), HasSubstr("<string>a</string>"));
}

TEST(NewAgents, RejectATextThatNoReaderWouldReturn) {
    const auto result = run({"new", "--name", "A", "--script", "a\x01", "--at-load"});
    EXPECT_EQ(result.code, 1);
    EXPECT_NE(result.err, "");
}

} // namespace
} // namespace frimbolate::test
