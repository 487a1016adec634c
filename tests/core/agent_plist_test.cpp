#include "core/agent_plist.h"

#include "tests/core/written_forms.h"
#include "tests/support/rows.h"

#include <gmock/gmock.h>

#include <limits>

namespace frimbolate {

namespace {

using test::ConditionRow;
using test::fileOf;
using test::idleForm;
using test::joined;
using test::label;
using test::launched;
using test::NamedAfterRow;
using test::starts;

struct ArgumentsRow {
    std::string_view name;
    int targetType;
    std::string path;
    std::vector<std::string> arguments;
};

class ProgramArguments : public testing::TestWithParam<ArgumentsRow> {};

TEST_P(ProgramArguments, AreWritten) {
    for (const auto& start : starts()) {
        SCOPED_TRACE(start.name);
        const auto file = fileOf(start.form, [](AgentForm& form) {
            form.targetType = GetParam().targetType;
            form.targetPath = GetParam().path;
            form.scriptText = " echo 'a'\n";
            form.scriptLanguage = 1;
        });
        auto expected = start.file;
        expected["ProgramArguments"] =
            Array(GetParam().arguments.begin(), GetParam().arguments.end());
        EXPECT_EQ(file, expected);
    }
}

constexpr auto bundled = "/Applications/Example.app/Contents/MacOS/Example";

const ArgumentsRow arguments[] = {
    {"Shell", 2, "/Users/u/run.sh", {"/bin/sh", "/Users/u/run.sh"}},
    {"Python", 2, "/Users/u/tool.py", {"/usr/bin/python", "/Users/u/tool.py"}},
    {"Ruby", 2, "/Users/u/tool.rb", {"/usr/bin/ruby", "/Users/u/tool.rb"}},
    {"Perl", 2, "/Users/u/tool.pl", {"/usr/bin/perl", "/Users/u/tool.pl"}},
    {"Workflow", 2, "/Users/u/Flow.workflow", {"/usr/bin/automator", "/Users/u/Flow.workflow"}},
    {"AppleScript", 2, "/Users/u/a.scpt", {"/usr/bin/osascript", "/Users/u/a.scpt"}},
    {"Bundle", 2, "/Applications/Example.app", {"/Applications/Example.app"}},
    {"Executable", 2, bundled, {bundled}},
    {"UpperCase", 2, "/Users/u/run.SH", {"/Users/u/run.SH"}},
    {"NoDot", 2, "/usr/bin/true", {"/usr/bin/true"}},
    {"NoDotButTheName", 2, "sh", {"/bin/sh", "sh"}},
    {"DotInTheFolder", 2, "/Users/u/my.scripts/run", {"/Users/u/my.scripts/run"}},
    {"DotInTheFolderAndName", 2, "/my.d/run.sh", {"/bin/sh", "/my.d/run.sh"}},
    {"SeveralDots", 2, "/backup.tar.sh", {"/bin/sh", "/backup.tar.sh"}},
    {"TrailingDot", 2, "/run.sh.", {"/run.sh."}},
    {"TrailingSlash", 2, "/run.sh/", {"/run.sh/"}},
    {"TrailingBlank", 2, "/run.sh ", {"/run.sh "}},
    {"OnlyAnExtension", 2, "/.sh", {"/bin/sh", "/.sh"}},
    {"LongerExtension", 2, "/run.shx", {"/run.shx"}},
    {"NoPath", 2, "", {""}},
    {"TypedScript", 3, "/Users/u/run.py", {"/bin/sh", "-c", " echo 'a'\n"}},
    {"NoTarget", 0, "/Users/u/run.py", {"/bin/sh", "-c", " echo 'a'\n"}},
    {"ReservedTarget", 1, "/Users/u/run.py", {"/bin/sh", "-c", " echo 'a'\n"}},
    {"NoSelection", -1, "/Users/u/run.py", {"/bin/sh", "-c", " echo 'a'\n"}},
    {"BeyondTargets", 4, "/Users/u/run.py", {"/bin/sh", "-c", " echo 'a'\n"}},
};

INSTANTIATE_TEST_SUITE_P(Targets, ProgramArguments, testing::ValuesIn(arguments), NamedAfterRow());

class LaunchCondition : public testing::TestWithParam<ConditionRow> {};

TEST_P(LaunchCondition, IsWritten) {
    for (const auto& start : starts()) {
        SCOPED_TRACE(start.name);
        const auto expected = joined(joined(start.file, GetParam().keys), start.additional);
        EXPECT_EQ(fileOf(start.form, GetParam().change), expected);
    }
}

test::Change kept(int schedule, bool successfulExit) {
    return [=](AgentForm& form) {
        launched(AgentAction::KeepRunning, schedule)(form);
        form.allowSuccessfulExit = successfulExit;
    };
}

Dictionary calendar(Dictionary extra = {}) {
    extra["Hour"] = 7;
    extra["Minute"] = 5;
    return {{"StartCalendarInterval", extra}};
}

Dictionary weekday(int day) { return calendar({{"Weekday", day}}); }
Dictionary dayOfMonth(int day) { return calendar({{"Day", day}}); }
Dictionary seconds(int number) { return {{"StartInterval", number}}; }

Dictionary keptAlive(Value how, Dictionary schedule) {
    schedule["KeepAlive"] = std::move(how);
    return schedule;
}

const Dictionary onDemand = {{"AfterInitialDemand", true}};
const Dictionary untilSuccess = {{"SuccessfulExit", false}};
const Dictionary onDemandUntilSuccess = {{"AfterInitialDemand", true}, {"SuccessfulExit", false}};

const ConditionRow schedules[] = {
    {"NoSelection", launched(2, -1), calendar()},
    {"FarBelow", launched(2, -7), calendar()},
    {"EveryDay", launched(2, 0), calendar()},
    {"Reserved1", launched(2, 1), calendar()},
    {"EverySunday", launched(2, 2), weekday(0)},
    {"EveryMonday", launched(2, 3), weekday(1)},
    {"EveryTuesday", launched(2, 4), weekday(2)},
    {"EveryWednesday", launched(2, 5), weekday(3)},
    {"EveryThursday", launched(2, 6), weekday(4)},
    {"EveryFriday", launched(2, 7), weekday(5)},
    {"EverySaturday", launched(2, 8), weekday(6)},
    {"Reserved9", launched(2, 9), {}},
    {"OnceAMonth", launched(2, 10, "31"), dayOfMonth(31)},
    {"OnceAMonthWithLeadingZero", launched(2, 10, "07"), dayOfMonth(7)},
    {"OnceAMonthTruncated", launched(2, 10, "4294967297"), dayOfMonth(1)},
    {"OnceAMonthSaturated", launched(2, 10, "9999999999999999999999"), dayOfMonth(-1)},
    {"OnceAMonthWithoutNumber", launched(2, 10, ""), dayOfMonth(0)},
    {"Reserved11", launched(2, 11), {}},
    {"AtLoad", launched(2, 12), {{"RunAtLoad", true}}},
    {"Reserved13", launched(2, 13), {}},
    {"Seconds", launched(2, 14, "15"), seconds(15)},
    {"Minutes", launched(2, 14, "5", 1), seconds(300)},
    {"Hours", launched(2, 14, "2", 2), seconds(7200)},
    {"NoUnit", launched(2, 14, "15", -1), seconds(15)},
    {"BeyondUnits", launched(2, 14, "15", 3), seconds(15)},
    {"LargestInMinutes", launched(2, 14, "35791394", 1), seconds(2147483640)},
    {"TruncatedMinutes", launched(2, 14, "35791395", 1), seconds(-2147483596)},
    {"TruncatedHours", launched(2, 14, "600000", 2), seconds(-2134967296)},
    {"TruncatedSeconds", launched(2, 14, "99999999999"), seconds(1215752191)},
    {"SaturatedSeconds", launched(2, 14, "99999999999999999999"), seconds(-1)},
    {"SaturatedHours", launched(2, 14, "99999999999999999999", 2), seconds(-3600)},
    {"Reserved15", launched(2, 15), {}},
};

const ConditionRow actions[] = {
    {"NoAction", launched(0, 5), weekday(3)},
    {"ActionWithoutSelection", launched(-1, 12), {{"RunAtLoad", true}}},
    {"ReservedAction", launched(1, 14, "15"), seconds(15)},
    {"OnSchedule", launched(2, 0), calendar()},
    {"OnScheduleNeverKeepsAlive",
     [](AgentForm& form) {
         launched(2, 0)(form);
         form.allowSuccessfulExit = true;
     },
     calendar()},
    {"PathModified", launched(4, -1), {{"WatchPaths", Array{Value("/watched")}}}},
    {"PathModifiedIgnoresTheSchedule", launched(4, 12), {{"WatchPaths", Array{Value("/watched")}}}},
    {"VolumeMounted", launched(5, -1), {{"StartOnMount", true}}},
    {"VolumeMountedIgnoresTheSchedule", launched(5, 0), {{"StartOnMount", true}}},
    {"BeyondActions", launched(6, 0), {}},
    {"FarBeyondActions", launched(100, 12), {}},
};

const ConditionRow keepAlive[] = {
    {"AtLoad", kept(12, false), keptAlive(true, {{"RunAtLoad", true}})},
    {"AtLoadUntilSuccess", kept(12, true), keptAlive(untilSuccess, {{"RunAtLoad", true}})},
    {"Daily", kept(0, false), keptAlive(onDemand, calendar())},
    {"DailyUntilSuccess", kept(0, true), keptAlive(onDemandUntilSuccess, calendar())},
    {"Weekly", kept(8, false), keptAlive(onDemand, weekday(6))},
    {"Monthly", kept(10, true), keptAlive(onDemandUntilSuccess, dayOfMonth(5))},
    {"OnInterval", kept(14, false), keptAlive(onDemand, seconds(5))},
    {"NoSelection", kept(-1, true), keptAlive(onDemandUntilSuccess, calendar())},
    {"Reserved11", kept(11, false), keptAlive(onDemand, {})},
    {"Reserved13", kept(13, true), keptAlive(onDemandUntilSuccess, {})},
};

INSTANTIATE_TEST_SUITE_P(Schedules, LaunchCondition, testing::ValuesIn(schedules), NamedAfterRow());
INSTANTIATE_TEST_SUITE_P(Actions, LaunchCondition, testing::ValuesIn(actions), NamedAfterRow());
INSTANTIATE_TEST_SUITE_P(KeepAlive, LaunchCondition, testing::ValuesIn(keepAlive), NamedAfterRow());

TEST(AgentPlist, WritesTheTimeOfDayAlone) {
    auto form = idleForm();
    form.action = AgentAction::OnSchedule;
    form.scheduleTime = {1999, 12, 31, 23, 59, 59};
    const Dictionary expected = {{"Hour", 23}, {"Minute", 59}};
    EXPECT_EQ(buildAgentPlist(form, "x").at("StartCalendarInterval"), Value(expected));
}

TEST(AgentPlist, DoesNotDependOnTheScriptLanguageOrTheName) {
    auto form = idleForm();
    const auto before = buildAgentPlist(form, label);
    form.scriptLanguage = 3;
    form.name = "Other";
    EXPECT_EQ(buildAgentPlist(form, label), before);
}

TEST(AgentPlist, TakesAnyLabel) {
    EXPECT_EQ(buildAgentPlist(idleForm(), "").at("Label"), Value(""));
    EXPECT_EQ(buildAgentPlist(idleForm(), "renamed").at("Label"), Value("renamed"));
}

struct LabelRow {
    std::string_view name;
    std::string_view fileName;
    std::string_view expected;
};

class LabelOfFile : public testing::TestWithParam<LabelRow> {};

TEST_P(LabelOfFile, LosesItsLastSuffix) {
    EXPECT_EQ(labelForFileName(GetParam().fileName), GetParam().expected);
}

const LabelRow labels[] = {
    {"AsProposed", "com.frimbolate.Backup.plist", "com.frimbolate.Backup"},
    {"InTheMiddle", "x.plist.old", "x.old"},
    {"OnlyTheLast", "x.plist.plist", "x.plist"},
    {"LastOfThose", "a.plist.b.plist.c", "a.plist.b.c"},
    {"None", "x", "x"},
    {"UpperCase", "x.PLIST", "x.PLIST"},
    {"OnlyTheSuffix", ".plist", ""},
    {"LongerSuffix", "x.plists", "xs"},
    {"NoDot", "xplist", "xplist"},
    {"Empty", "", ""},
};

INSTANTIATE_TEST_SUITE_P(Names, LabelOfFile, testing::ValuesIn(labels), NamedAfterRow());

TEST(AgentPlist, IsProposedUnderThePrefix) {
    EXPECT_EQ(proposedFileName("Backup"), "com.frimbolate.Backup.plist");
    EXPECT_EQ(proposedFileName(" as typed"), "com.frimbolate. as typed.plist");
    EXPECT_EQ(proposedFileName(""), "com.frimbolate..plist");
    EXPECT_EQ(labelForFileName(proposedFileName("Backup")), label);
}

TEST(AgentPlist, KnowsBothPrefixes) {
    EXPECT_EQ(labelPrefix, "com.frimbolate.");
    EXPECT_EQ(earlierLabelPrefix, "com.fr\xC4\xB1mbolate.");
}

} // namespace

} // namespace frimbolate
