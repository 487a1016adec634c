#include "core/validation.h"

#include "tests/support/rows.h"

#include <gmock/gmock.h>

#include <functional>
#include <set>

namespace frimbolate {

namespace {

using test::NamedAfterRow;
using Change = std::function<void(AgentForm&)>;

/// A form without a fault.
AgentForm validForm() {
    AgentForm form;
    form.name = "Backup";
    form.targetType = TargetType::File;
    form.action = AgentAction::OnSchedule;
    return form;
}

struct ValidationRow {
    std::string_view name;
    Change change;
    std::string_view report;
    std::set<FormRow> faulty = {}; ///< the rows that get a marker
};

class Validation : public testing::TestWithParam<ValidationRow> {};

TEST_P(Validation, Reports) {
    auto form = validForm();
    GetParam().change(form);
    const auto faults = validate(form);
    EXPECT_EQ(errorReport(faults), GetParam().report);
    std::set<FormRow> faulty;
    for (const auto row : formRows)
        if (faultOfRow(faults, row))
            faulty.insert(row);
    EXPECT_EQ(faulty, GetParam().faulty);
}

Change named(std::string name) {
    return [name = std::move(name)](AgentForm& form) { form.name = name; };
}

Change withAction(int index) {
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

const ValidationRow names[] = {
    {"Sound", [](AgentForm&) {}, ""},
    {"Underscore", named("my_agent2"), ""},
    {"EveryAllowedCharacter",
     named("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890_"), ""},
    {"Blank", named("my agent"), badName, {FormRow::Name}},
    {"Hyphen", named("Agent-1"), badName, {FormRow::Name}},
    {"Dot", named("agent.x"), badName, {FormRow::Name}},
    {"NotAscii", named("\u00e9t\u00e9"), badName, {FormRow::Name}},
    {"FullWidthDigit", named("\uff11"), badName, {FormRow::Name}},
    {"Slash", named("a/b"), badName, {FormRow::Name}},
    {"LineBreakAtTheEnd", named("agent\n"), badName, {FormRow::Name}},
    {"Nul", named(std::string("a\0b", 3)), badName, {FormRow::Name}},
    {"OnlyABlankIsNotBlank", named(" "), badName, {FormRow::Name}},
    {"BeforeUpperCase", named("@"), badName, {FormRow::Name}},
    {"AfterUpperCase", named("["), badName, {FormRow::Name}},
    {"BeforeLowerCase", named("`"), badName, {FormRow::Name}},
    {"AfterLowerCase", named("{"), badName, {FormRow::Name}},
    {"AfterDigits", named(":"), badName, {FormRow::Name}},
    {"Empty", named(""), noName, {FormRow::Name}},
};

const ValidationRow selections[] = {
    {"NoAction", withAction(0), noAction, {FormRow::Action}},
    {"ActionWithoutSelectionPasses", withAction(-1), ""},
    {"ReservedActionPasses", withAction(1), ""},
    {"KeepRunning", withAction(3), ""},
    {"PathModifiedWithoutPath", withAction(4), ""},
    {"VolumeMounted", withAction(5), ""},
    {"ActionBeyond", withAction(6), ""},
    {"NoTarget", target(0), noTarget, {FormRow::Target}},
    {"TargetWithoutSelectionPasses", target(-1), ""},
    {"ReservedTargetPasses", target(1), ""},
    {"FileWithoutPath", target(2), ""},
    {"ScriptWithoutText", target(3), ""},
    {"TargetBeyond", target(4), ""},
    {"NewAgent",
     [](AgentForm& form) { form = {}; },
     "\u2022 Name cannot be left blank\n\u2022 Condition for launch not selected\n"
     "\u2022 No app or script to launch selected\n",
     {FormRow::Name, FormRow::Target, FormRow::Action}},
    {"EveryFault",
     [](AgentForm& form) {
         form = {};
         form.name = "-";
         form.scheduleType = ScheduleType::OnInterval;
     },
     "\u2022 Name can only contain alphanumeric characters\n"
     "\u2022 Condition for launch not selected\n\u2022 No app or script to launch selected\n"
     "\u2022 Launch on interval cannot be left blank\n",
     {FormRow::Name, FormRow::Target, FormRow::Action, FormRow::Schedule}},
};

const ValidationRow days[] = {
    {"DayEmpty", day(""), noDay, {FormRow::Schedule}},
    {"DayWithLetter", day("3a"), dayNotNumeric, {FormRow::Schedule}},
    {"DayWithMinus", day("-1"), dayNotNumeric, {FormRow::Schedule}},
    {"DayWithPoint", day("1.5"), dayNotNumeric, {FormRow::Schedule}},
    {"DayBlank", day(" "), dayNotNumeric, {FormRow::Schedule}},
    {"DayForeignDigit", day("\u0663"), dayNotNumeric, {FormRow::Schedule}},
    {"Day0", day("0"), badDay, {FormRow::Schedule}},
    {"Day1", day("1"), ""},
    {"Day31", day("31"), ""},
    {"Day031", day("031"), ""},
    {"Day32", day("32"), badDay, {FormRow::Schedule}},
    {"DayThatWrapsToOne", day("4294967297"), ""},
    {"DayThatWrapsToZero", day("4294967296"), badDay, {FormRow::Schedule}},
    {"DayThatWrapsBelow", day("2147483648"), badDay, {FormRow::Schedule}},
    {"DayThatSaturates", day("99999999999999999999"), badDay, {FormRow::Schedule}},
    {"DayOfAnotherAction",
     schedule(10, "", 0, AgentAction::PathModified),
     noDay,
     {FormRow::Schedule}},
    {"DayBeforeTheMonth", schedule(9, "x"), ""},
    {"DayAfterTheMonth", schedule(11, "x"), ""},
};

const ValidationRow intervals[] = {
    {"IntervalEmpty", interval(""), noInterval, {FormRow::Schedule}},
    {"IntervalEmptyInHours", interval("", IntervalUnit::Hours), noInterval, {FormRow::Schedule}},
    {"IntervalNegative", interval("-5"), intervalNotNumeric, {FormRow::Schedule}},
    {"IntervalWithBlank", interval(" 12"), intervalNotNumeric, {FormRow::Schedule}},
    {"IntervalWithPoint",
     interval("1.5", IntervalUnit::Hours),
     intervalNotNumeric,
     {FormRow::Schedule}},
    {"Seconds0", interval("0"), shortInterval, {FormRow::Schedule}},
    {"Seconds9", interval("9"), shortInterval, {FormRow::Schedule}},
    {"Seconds10", interval("10"), ""},
    {"Seconds010", interval("010"), ""},
    {"Minutes0", interval("0", IntervalUnit::Minutes), ""},
    {"Minutes1", interval("1", IntervalUnit::Minutes), ""},
    {"Hours0", interval("0", IntervalUnit::Hours), ""},
    {"UnitWithoutSelection", interval("9", -1), shortInterval, {FormRow::Schedule}},
    {"UnitBeyond", interval("9", 3), ""},
    {"SecondsThatWrapToTen", interval("4294967306"), ""},
    {"SecondsThatWrapToNine", interval("4294967305"), shortInterval, {FormRow::Schedule}},
    {"SecondsThatWrapBelow", interval("2147483648"), shortInterval, {FormRow::Schedule}},
    {"SecondsThatSaturate", interval("99999999999999999999"), shortInterval, {FormRow::Schedule}},
    {"SecondsTruncated", interval("99999999999"), ""},
    {"IntervalOfAnotherAction",
     schedule(14, "9", 0, AgentAction::VolumeMounted),
     shortInterval,
     {FormRow::Schedule}},
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
