#include "core/validation.h"

#include "tests/support/rows.h"

#include <gmock/gmock.h>

#include <functional>

namespace frimbolate {

namespace {

using test::NamedAfterRow;
using Change = std::function<void(AgentForm&)>;

/// Nothing is wrong with it.
AgentForm soundForm() {
    AgentForm form;
    form.name = "Backup";
    form.targetType = TargetType::File;
    form.action = AgentAction::OnSchedule;
    return form;
}

struct Row {
    std::string_view name;
    Change change;
    std::string_view report;
    std::string_view markers = ""; ///< of "nats": name, action, target, schedule
};

class Validation : public testing::TestWithParam<Row> {};

TEST_P(Validation, reports) {
    auto form = soundForm();
    GetParam().change(form);
    const auto report = validate(form);
    EXPECT_EQ(report.text, GetParam().report);
    EXPECT_EQ(report.passed(), GetParam().report.empty());
    const std::string markers = std::string(report.name ? "n" : "") + (report.action ? "a" : "") +
                                (report.target ? "t" : "") + (report.schedule ? "s" : "");
    EXPECT_EQ(markers, GetParam().markers);
}

Change named(std::string name) {
    return [name = std::move(name)](AgentForm& form) { form.name = name; };
}

Change action(int index) {
    return [index](AgentForm& form) { form.action = index; };
}

Change target(int index) {
    return [index](AgentForm& form) { form.targetType = index; };
}

Change schedule(int index, std::string text, int unit = IntervalUnit::Seconds,
                int launchedBy = AgentAction::OnSchedule) {
    return [=, text = std::move(text)](AgentForm& form) {
        form.action = launchedBy;
        form.scheduleType = index;
        form.dayOfMonthText = text;
        form.intervalText = text;
        form.intervalUnit = unit;
    };
}

Change day(std::string text) { return schedule(ScheduleType::OnceAMonth, std::move(text)); }

Change interval(std::string text, int unit = IntervalUnit::Seconds) {
    return schedule(ScheduleType::OnInterval, std::move(text), unit);
}

constexpr auto badName = "\u2022 Name can only contain alphanumeric characters\n";
constexpr auto noName = "\u2022 Name cannot be left blank\n";
constexpr auto noAction = "\u2022 Condition for launch not selected\n";
constexpr auto noTarget = "\u2022 No app or script to launch selected\n";
constexpr auto dayNotNumeric = "\u2022 Day of the month must be numeric\n";
constexpr auto noDay = "\u2022 Day of the month cannot be left blank\n";
constexpr auto badDay = "\u2022 Valid days of the month are 1 through 31\n";
constexpr auto intervalNotNumeric = "\u2022 Launch on interval must be numeric\n";
constexpr auto noInterval = "\u2022 Launch on interval cannot be left blank\n";
constexpr auto shortInterval = "\u2022 Minimum launch on interval is 10 seconds\n";

const Row names[] = {
    {"Sound", [](AgentForm&) {}, ""},
    {"Underscore", named("my_agent2"), ""},
    {"EveryAllowedCharacter",
     named("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890_"), ""},
    {"Blank", named("my agent"), badName, "n"},
    {"Hyphen", named("Agent-1"), badName, "n"},
    {"Dot", named("agent.x"), badName, "n"},
    {"NotAscii", named("\u00e9t\u00e9"), badName, "n"},
    {"FullWidthDigit", named("\uff11"), badName, "n"},
    {"Slash", named("a/b"), badName, "n"},
    {"LineBreakAtTheEnd", named("agent\n"), badName, "n"},
    {"Nul", named(std::string("a\0b", 3)), badName, "n"},
    {"OnlyABlankIsNotBlank", named(" "), badName, "n"},
    {"BeforeUpperCase", named("@"), badName, "n"},
    {"AfterUpperCase", named("["), badName, "n"},
    {"BeforeLowerCase", named("`"), badName, "n"},
    {"AfterLowerCase", named("{"), badName, "n"},
    {"AfterDigits", named(":"), badName, "n"},
    {"Empty", named(""), noName, "n"},
};

const Row selections[] = {
    {"NoAction", action(0), noAction, "a"},
    {"ActionWithoutSelectionPasses", action(-1), ""},
    {"ReservedActionPasses", action(1), ""},
    {"KeepRunning", action(3), ""},
    {"PathModifiedWithoutPath", action(4), ""},
    {"VolumeMounted", action(5), ""},
    {"ActionBeyond", action(6), ""},
    {"NoTarget", target(0), noTarget, "t"},
    {"TargetWithoutSelectionPasses", target(-1), ""},
    {"ReservedTargetPasses", target(1), ""},
    {"FileWithoutPath", target(2), ""},
    {"ScriptWithoutText", target(3), ""},
    {"TargetBeyond", target(4), ""},
    {"NewAgent", [](AgentForm& form) { form = {}; },
     "\u2022 Name cannot be left blank\n\u2022 Condition for launch not selected\n"
     "\u2022 No app or script to launch selected\n",
     "nat"},
    {"EveryFault",
     [](AgentForm& form) {
         form = {};
         form.name = "-";
         form.scheduleType = ScheduleType::OnInterval;
     },
     "\u2022 Name can only contain alphanumeric characters\n"
     "\u2022 Condition for launch not selected\n\u2022 No app or script to launch selected\n"
     "\u2022 Launch on interval cannot be left blank\n",
     "nats"},
};

const Row days[] = {
    {"DayEmpty", day(""), noDay, "s"},
    {"DayWithLetter", day("3a"), dayNotNumeric, "s"},
    {"DayWithMinus", day("-1"), dayNotNumeric, "s"},
    {"DayWithPoint", day("1.5"), dayNotNumeric, "s"},
    {"DayBlank", day(" "), dayNotNumeric, "s"},
    {"DayForeignDigit", day("\u0663"), dayNotNumeric, "s"},
    {"Day0", day("0"), badDay, "s"},
    {"Day1", day("1"), ""},
    {"Day31", day("31"), ""},
    {"Day031", day("031"), ""},
    {"Day32", day("32"), badDay, "s"},
    {"DayThatWrapsToOne", day("4294967297"), ""},
    {"DayThatWrapsToZero", day("4294967296"), badDay, "s"},
    {"DayThatWrapsBelow", day("2147483648"), badDay, "s"},
    {"DayThatSaturates", day("99999999999999999999"), badDay, "s"},
    {"DayOfAnotherAction", schedule(10, "", 0, AgentAction::PathModified), noDay, "s"},
    {"DayBeforeTheMonth", schedule(9, "x"), ""},
    {"DayAfterTheMonth", schedule(11, "x"), ""},
};

const Row intervals[] = {
    {"IntervalEmpty", interval(""), noInterval, "s"},
    {"IntervalEmptyInHours", interval("", IntervalUnit::Hours), noInterval, "s"},
    {"IntervalNegative", interval("-5"), intervalNotNumeric, "s"},
    {"IntervalWithBlank", interval(" 12"), intervalNotNumeric, "s"},
    {"IntervalWithPoint", interval("1.5", IntervalUnit::Hours), intervalNotNumeric, "s"},
    {"Seconds0", interval("0"), shortInterval, "s"},
    {"Seconds9", interval("9"), shortInterval, "s"},
    {"Seconds10", interval("10"), ""},
    {"Seconds010", interval("010"), ""},
    {"Minutes0", interval("0", IntervalUnit::Minutes), ""},
    {"Minutes1", interval("1", IntervalUnit::Minutes), ""},
    {"Hours0", interval("0", IntervalUnit::Hours), ""},
    {"UnitWithoutSelection", interval("9", -1), shortInterval, "s"},
    {"UnitBeyond", interval("9", 3), ""},
    {"SecondsThatWrapToTen", interval("4294967306"), ""},
    {"SecondsThatWrapToNine", interval("4294967305"), shortInterval, "s"},
    {"SecondsThatWrapBelow", interval("2147483648"), shortInterval, "s"},
    {"SecondsThatSaturate", interval("99999999999999999999"), shortInterval, "s"},
    {"SecondsTruncated", interval("99999999999"), ""},
    {"IntervalOfAnotherAction", schedule(14, "9", 0, AgentAction::VolumeMounted), shortInterval,
     "s"},
    {"BeforeTheInterval", schedule(13, "x"), ""},
    {"BeyondTheInterval", schedule(15, "x"), ""},
    {"NoSchedule", schedule(-1, "x"), ""},
    {"Weekly", schedule(8, "x"), ""},
    {"AtLoad", schedule(12, "x"), ""},
};

INSTANTIATE_TEST_SUITE_P(Names, Validation, testing::ValuesIn(names), NamedAfterRow());
INSTANTIATE_TEST_SUITE_P(Selections, Validation, testing::ValuesIn(selections), NamedAfterRow());
INSTANTIATE_TEST_SUITE_P(Days, Validation, testing::ValuesIn(days), NamedAfterRow());
INSTANTIATE_TEST_SUITE_P(Intervals, Validation, testing::ValuesIn(intervals), NamedAfterRow());

} // namespace

} // namespace frimbolate
