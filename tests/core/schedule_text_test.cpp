// Times of day in the 12-hour and the 24-hour clock, and the message about an unreadable time.
#include "core/schedule_text.h"

#include "core/calendar_runs.h"
#include "tests/core/rendered_form.h"
#include "tests/support/rows.h"

#include <gmock/gmock.h>

namespace frimbolate {

namespace {

using test::hintsOf;
using test::NamedAfterRow;
using test::sentenceOf;

struct ClockRow {
    std::string_view name;
    int scheduleType;
    int hour;
    std::string_view in24Hours, in12Hours;
};

AgentForm formOf(const ClockRow& row) {
    AgentForm form;
    form.name = "Backup";
    form.targetType = TargetType::Script;
    form.scriptText = "ls";
    form.action = AgentAction::OnSchedule;
    form.scheduleType = row.scheduleType;
    form.scheduleTime.hour = row.hour;
    form.scheduleTime.minute = 5;
    form.dayOfMonthText = "31";
    return form;
}

class ScheduleClock : public testing::TestWithParam<ClockRow> {};

TEST_P(ScheduleClock, IsThatOfAllWords) {
    const auto form = formOf(GetParam());
    for (const auto& [clock, expected] :
         {std::pair(ClockFormat::TwentyFourHours, GetParam().in24Hours),
          std::pair(ClockFormat::TwelveHours, GetParam().in12Hours)}) {
        EXPECT_EQ(scheduleText(form, validate(form), clock), expected);
        EXPECT_EQ(sentenceOf(form, {}, clock), "Runs a script " + std::string(expected) + ".");
        // Only the first letter differs: the hint begins with a capital.
        EXPECT_THAT(hintsOf(form, {}, {}, clock).schedule.substr(1),
                    testing::StartsWith(std::string(expected.substr(1))));
    }
}

const ClockRow clocks[] = {
    {"Daily", ScheduleType::EveryDay, 7, "every day at 07:05", "every day at 07:05 AM"},
    {"Weekly", ScheduleType::EveryMonday, 19, "every Monday at 19:05", "every Monday at 07:05 PM"},
    {"Monthly", ScheduleType::OnceAMonth, 0,
     "on the 31st of every month at 00:05, in shorter months on a day after the month's end",
     "on the 31st of every month at 12:05 AM, in shorter months on a day after the month's end"},
    {"Noon", ScheduleType::EveryDay, 12, "every day at 12:05", "every day at 12:05 PM"},
    {"AtLoad", ScheduleType::AtLoad, 7, "when the agent is loaded, such as at login",
     "when the agent is loaded, such as at login"},
};

INSTANTIATE_TEST_SUITE_P(Table, ScheduleClock, testing::ValuesIn(clocks), NamedAfterRow());

TEST(ScheduleClocks, TellAFaultyDayInBoth) {
    AgentForm form;
    form.scheduleType = ScheduleType::OnceAMonth;
    form.scheduleTime.hour = 19;
    EXPECT_EQ(scheduleText(form, validate(form), ClockFormat::TwentyFourHours),
              "once a month at 19:00");
    EXPECT_EQ(scheduleText(form, validate(form), ClockFormat::TwelveHours),
              "once a month at 07:00 PM");
}

TEST(ScheduleText, TellsOfTheDaysThatAMonthLacksAsTheyAreRun) {
    using namespace std::chrono;
    for (int day = 1; day <= 31; ++day) {
        AgentForm form;
        form.scheduleType = ScheduleType::OnceAMonth;
        form.dayOfMonthText = std::to_string(day);
        const auto text = scheduleText(form, {});
        CalendarInterval interval;
        interval.day = day;
        interval.hour = 7;
        interval.minute = 5;
        bool runsAfterTheMonthsEnd = false;
        LocalMinute now = local_days(2026y / January / 1);
        for (int run = 0; run < 12; ++run) {
            now = *nextCalendarRun(interval, now);
            const year_month_day date(floor<days>(now));
            runsAfterTheMonthsEnd |= date.day() != std::chrono::day(static_cast<unsigned>(day));
        }
        EXPECT_EQ(text.find("after the month's end") != std::string::npos, runsAfterTheMonthsEnd)
            << text;
    }
}

struct UnreadableRow {
    std::string_view name;
    std::string_view typed;
    std::string_view expected; ///< the message up to the time that is kept
};

class UnreadableTime : public testing::TestWithParam<UnreadableRow> {};

TEST_P(UnreadableTime, IsReportedWithTheTimeThatIsKept) {
    const std::string expected(GetParam().expected);
    EXPECT_EQ(unreadableTimeWords(GetParam().typed, {19, 30}, ClockFormat::TwentyFourHours),
              expected + "; the field keeps 19:30");
    EXPECT_EQ(unreadableTimeWords(GetParam().typed, {19, 30}, ClockFormat::TwelveHours),
              expected + "; the field keeps 07:30 PM");
}

const UnreadableRow unreadable[] = {
    {"Time", "25:00", "\u201c25:00\u201d is not a time of day"},
    {"Word", "abc", "\u201cabc\u201d is not a time of day"},
    {"Nothing", "", "No time was given"},
    {"Blanks", " \t\n", "No time was given"},
    {"BlanksAround", "  25:00 \n", "\u201c25:00\u201d is not a time of day"},
    {"LineBreak", "7:30\n8:30", "\u201c7:30 8:30\u201d is not a time of day"},
    {"TwentyCharacters", "aaaaaaaaaaaaaaaaaaaa",
     "\u201caaaaaaaaaaaaaaaaaaaa\u201d is not a time of day"},
    {"MoreCharacters", "aaaaaaaaaaaaaaaaaaaab",
     "\u201caaaaaaaaaaaaaaaaaaaa\u2026\u201d is not a time of day"},
    {"CharactersOfSeveralBytes",
     "\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc",
     "\u201c\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u201d is not "
     "a time of day"},
    {"CutBetweenCharacters",
     "\u4e03\u4e03\u4e03\u4e03\u4e03\u4e03\u4e03\u4e03\u4e03\u4e03\u4e03\u4e03\u4e03\u4e03\u4e03"
     "\u4e03\u4e03\u4e03\u4e03\u4e03\u4e03",
     "\u201c\u4e03\u4e03\u4e03\u4e03\u4e03\u4e03\u4e03\u4e03\u4e03\u4e03\u4e03\u4e03\u4e03\u4e03"
     "\u4e03\u4e03\u4e03\u4e03\u4e03\u4e03\u2026\u201d is not a time of day"},
};

INSTANTIATE_TEST_SUITE_P(Table, UnreadableTime, testing::ValuesIn(unreadable), NamedAfterRow());

} // namespace

} // namespace frimbolate
