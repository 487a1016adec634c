// What launchd does with a row beyond its schedule: runs missed while asleep, interpreters that
// macOS lacks, and the shorter wording of long hints.
#include "core/agent_plist.h"
#include "core/script_types.h"
#include "tests/core/rendered_form.h"
#include "tests/support/rows.h"

#include <gmock/gmock.h>

namespace frimbolate::test {
namespace {

AgentForm scheduled(int type, std::string number = "10") {
    AgentForm form;
    form.name = "Backup";
    form.targetType = TargetType::Script;
    form.action = AgentAction::OnSchedule;
    form.scheduleType = type;
    form.scheduleTime.hour = 7;
    form.dayOfMonthText = form.intervalText = std::move(number);
    return form;
}

AgentForm kept(int type, bool allowSuccessfulExit) {
    auto form = scheduled(type, "31");
    form.action = AgentAction::KeepRunning;
    form.allowSuccessfulExit = allowSuccessfulExit;
    return form;
}

AgentForm onMount() {
    auto form = scheduled(ScheduleType::OnceAMonth, "31");
    form.action = AgentAction::VolumeMounted;
    return form;
}

AgentForm launching(std::string path, int type = TargetType::File) {
    auto form = scheduled(ScheduleType::EveryDay);
    form.targetType = type;
    form.targetPath = std::move(path);
    form.scriptText = "ls";
    return form;
}

struct MissedRow {
    std::string_view name;
    AgentForm form;
    std::string_view hint;
};

class MissedRun : public testing::TestWithParam<MissedRow> {};

TEST_P(MissedRun, IsMadeUpForACalendarAlone) {
    EXPECT_EQ(hintsOf(GetParam().form).schedule, GetParam().hint);
}

const MissedRow missedRows[] = {
    {"Daily", scheduled(ScheduleType::EveryDay),
     "Every day at 07:00; made up once if missed while asleep"},
    {"NoSelection", scheduled(ScheduleType::NoSelection),
     "Every day at 07:00; made up once if missed while asleep"},
    {"Weekly", scheduled(ScheduleType::EverySaturday),
     "Every Saturday at 07:00; made up once if missed while asleep"},
    {"Monthly", scheduled(ScheduleType::OnceAMonth),
     "On the 10th of every month at 07:00; made up once if missed while asleep"},
    {"FaultyDay", scheduled(ScheduleType::OnceAMonth, "32"), "Once a month at 07:00"},
    {"Interval", scheduled(ScheduleType::OnInterval),
     "Every 10 seconds; not made up if missed while asleep"},
    {"FaultyInterval", scheduled(ScheduleType::OnInterval, "9"), "At an interval"},
    {"AtLoad", scheduled(ScheduleType::AtLoad), "When the agent is loaded, such as at login"},
    {"Reserved", scheduled(9), "Never"},
    {"KeptRunning", kept(ScheduleType::EveryDay, false),
     "Not used: the agent waits for a first start"},
    {"Mount", onMount(), "Not used: the condition above launches the agent"},
};

INSTANTIATE_TEST_SUITE_P(Table, MissedRun, testing::ValuesIn(missedRows), NamedAfterRow());

struct TargetRow {
    std::string_view name;
    AgentForm form;
    bool warns;
    std::string_view hint, shortHint;
};

class TargetHint : public testing::TestWithParam<TargetRow> {};

TEST_P(TargetHint, WarnsOfTheInterpreterThatMacOSLacks) {
    const auto& [name, form, warns, hint, shortHint] = GetParam();
    const auto hints = hintsOf(form);
    EXPECT_EQ(hints.target, hint);
    EXPECT_EQ(hints.shortTarget, shortHint);
    EXPECT_EQ(hints.targetWarns, warns);
    const auto file = buildAgentPlist(form, "label");
    const Value program = file.at("ProgramArguments").array()->front();
    EXPECT_EQ(program == Value(removedInterpreter), warns);
}

constexpr std::string_view noPython =
    "macOS no longer has /usr/bin/python; choose a script with its own interpreter line and no "
    ".py, or type one";
constexpr std::string_view noPythonInShort =
    "macOS no longer has /usr/bin/python; choose a script without .py, or type one";

const TargetRow targetRows[] = {
    {"Python", launching("/bin/tool.py"), true, noPython, noPythonInShort},
    {"OtherCase", launching("/bin/tool.PY"), false, "/bin/tool.PY", ""},
    {"NoExtension", launching("/bin/tool"), false, "/bin/tool", ""},
    {"Ruby", launching("/bin/tool.rb"), false, "/bin/tool.rb", ""},
    {"Shell", launching("/bin/tool.sh"), false, "/bin/tool.sh", ""},
    {"TypedScript", launching("/bin/tool.py", TargetType::Script), false, "Script: ls", ""},
};

INSTANTIATE_TEST_SUITE_P(Table, TargetHint, testing::ValuesIn(targetRows), NamedAfterRow());

struct ShortRow {
    std::string_view name;
    AgentForm form;
    std::string RowHints::*hint;
    std::string_view expected;
};

class ShortHint : public testing::TestWithParam<ShortRow> {};

TEST_P(ShortHint, IsGivenForALongHintAlone) {
    EXPECT_EQ(hintsOf(GetParam().form).*GetParam().hint, GetParam().expected);
}

const ShortRow shortRows[] = {
    {"KeptRunning", kept(ScheduleType::EveryDay, false), &RowHints::shortAction,
     "Kept running once started; nothing in this form starts it"},
    {"KeptRunningUntilItSucceeds", kept(ScheduleType::EveryDay, true), &RowHints::shortAction,
     "Kept running until it succeeds, once started; nothing in this form starts it"},
    {"KeptRunningFromLoad", kept(ScheduleType::AtLoad, true), &RowHints::shortAction, ""},
    {"OnSchedule", scheduled(ScheduleType::EveryDay), &RowHints::shortAction, ""},
    {"The29th", scheduled(ScheduleType::OnceAMonth, "29"), &RowHints::shortSchedule,
     "On the 29th at 07:00 or after a shorter month's end; made up once if asleep"},
    {"The28th", scheduled(ScheduleType::OnceAMonth, "28"), &RowHints::shortSchedule, ""},
    {"FaultyDay", scheduled(ScheduleType::OnceAMonth, "32"), &RowHints::shortSchedule, ""},
    {"Weekly", scheduled(ScheduleType::EveryMonday), &RowHints::shortSchedule, ""},
    {"UnusedMonthly", onMount(), &RowHints::shortSchedule, ""},
    {"MonthlyOfKeptRunning", kept(ScheduleType::OnceAMonth, false), &RowHints::shortSchedule, ""},
};

INSTANTIATE_TEST_SUITE_P(Table, ShortHint, testing::ValuesIn(shortRows), NamedAfterRow());

} // namespace
} // namespace frimbolate::test
