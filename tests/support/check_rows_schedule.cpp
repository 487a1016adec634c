#include "tests/support/check_rows.h"

namespace frimbolate::test {

namespace {

Dictionary timed(Dictionary date) {
    date.emplace("Hour", 7);
    date.emplace("Minute", 5);
    return date;
}

Dictionary atDate(Dictionary date) { return at(timed(std::move(date))); }

Dictionary atEach(const std::vector<Dictionary>& calendars) {
    Array array;
    for (const auto& calendar : calendars)
        array.emplace_back(calendar);
    return at(std::move(array));
}

std::vector<CheckRow> rangeRows() {
    const auto outside = [](const std::string& name, int value, const std::string& bounds) {
        return "calendar-range StartCalendarInterval." + name + ": is " + std::to_string(value) +
               ", not between " + bounds;
    };
    const auto row = [&](const char* name, const char* key, int value, const char* bounds) {
        return CheckRow{
            name, "calendar-range", atDate({{key, value}}), {outside(key, value, bounds)}};
    };
    const auto time = [&](const char* name, int hour, int minute,
                          std::vector<std::string> findings) {
        return CheckRow{name, "calendar-range", at(Dictionary{{"Hour", hour}, {"Minute", minute}}),
                        std::move(findings)};
    };
    return {
        time("MinuteBelow", 7, -1, {outside("Minute", -1, "0 and 59")}),
        time("MinuteAbove", 7, 60, {outside("Minute", 60, "0 and 59")}),
        time("HourBelow", -1, 5, {outside("Hour", -1, "0 and 23")}),
        time("HourAbove", 24, 5, {outside("Hour", 24, "0 and 23")}),
        time("BothAbove", 24, 60,
             {outside("Hour", 24, "0 and 23"), outside("Minute", 60, "0 and 59")}),
        row("DayBelow", "Day", 0, "1 and 31"),
        row("DayAbove", "Day", 32, "1 and 31"),
        row("WeekdayBelow", "Weekday", -1, "0 and 7"),
        row("WeekdayAbove", "Weekday", 8, "0 and 7"),
        row("MonthBelow", "Month", 0, "1 and 12"),
        row("MonthAbove", "Month", 13, "1 and 12"),
        {"HourBeyond64Bits",
         "calendar-range",
         at(Dictionary{{"Hour", UINT64_MAX}, {"Minute", 5}}),
         {"calendar-range StartCalendarInterval.Hour: is 18446744073709551615, not between 0 and "
          "23"}},
        {"HourAboveInArray",
         "calendar-range",
         atEach({timed({}), {{"Hour", 25}, {"Minute", 5}}}),
         {"calendar-range StartCalendarInterval[1].Hour: is 25, not between 0 and 23"}},
        time("FirstMinute", 0, 0, {}),
        time("LastMinute", 23, 59, {}),
        {"FirstDay", "calendar-range", atDate({{"Day", 1}}), {}},
        {"FirstWeekday", "calendar-range", atDate({{"Weekday", 0}}), {}},
        {"LastWeekday", "calendar-range", atDate({{"Weekday", 7}}), {}},
        {"FirstMonth", "calendar-range", atDate({{"Month", 1}, {"Day", 31}}), {}},
        {"LastMonth", "calendar-range", atDate({{"Month", 12}, {"Day", 31}}), {}},
    };
}

std::vector<CheckRow> dayRows() {
    const auto row = [](const char* name, int month, int day, const char* monthName,
                        const char* instead) {
        return CheckRow{
            name,
            "calendar-missing-day",
            atDate({{"Month", month}, {"Day", day}}),
            {"calendar-missing-day StartCalendarInterval: never comes: " + std::string(monthName) +
             " has no day " + std::to_string(day) + ", and launchd runs it on " + instead}};
    };
    const auto kept = [](const char* name, int month, int day) {
        return CheckRow{name, "calendar-missing-day", atDate({{"Month", month}, {"Day", day}}), {}};
    };
    const auto shortMonth = [](const char* name, int day) {
        return CheckRow{name,
                        "calendar-short-month",
                        atDate({{"Day", day}}),
                        {"calendar-short-month StartCalendarInterval.Day: is " +
                         std::to_string(day) +
                         "; for a shorter month, launchd runs it early in the next one"}};
    };
    return {
        row("ThirtyFirstOfFebruary", 2, 31, "February", "3 March (2 March in a leap year)"),
        row("ThirtiethOfFebruary", 2, 30, "February", "2 March (1 March in a leap year)"),
        row("ThirtyFirstOfApril", 4, 31, "April", "1 May"),
        row("ThirtyFirstOfJune", 6, 31, "June", "1 July"),
        row("ThirtyFirstOfSeptember", 9, 31, "September", "1 October"),
        row("ThirtyFirstOfNovember", 11, 31, "November", "1 December"),
        kept("ThirtyFirstOfMarch", 3, 31),
        kept("ThirtyFirstOfMay", 5, 31),
        kept("ThirtyFirstOfJuly", 7, 31),
        kept("ThirtyFirstOfAugust", 8, 31),
        kept("ThirtyFirstOfOctober", 10, 31),
        kept("ThirtiethOfApril", 4, 30),
        {"LeapDay",
         "calendar-leap-day",
         atDate({{"Month", 2}, {"Day", 29}}),
         {"calendar-leap-day StartCalendarInterval: comes in leap years; in other years launchd "
          "runs it on 1 March"}},
        {"LastOfFebruary", "calendar-leap-day", atDate({{"Month", 2}, {"Day", 28}}), {}},
        {"TwentyNinthOfMarch", "calendar-leap-day", atDate({{"Month", 3}, {"Day", 29}}), {}},
        shortMonth("TwentyNinth", 29),
        shortMonth("Thirtieth", 30),
        shortMonth("ThirtyFirst", 31),
        {"TwentyEighth", "calendar-short-month", atDate({{"Day", 28}}), {}},
    };
}

std::vector<CheckRow> fieldRows() {
    const std::string calendar = " StartCalendarInterval: ";
    const auto everyMinute =
        "calendar-wildcard" + calendar +
        "has no Minute: launchd runs it at each minute of the times that match";
    const auto everyHour = "calendar-wildcard" + calendar +
                           "has no Hour: launchd runs it at each hour of the days that match";
    const auto either = "calendar-day-and-weekday" + calendar +
                        "has Day and Weekday: launchd runs it on either of them";
    const auto everyMonth = "calendar-weekday-and-month" + calendar +
                            "has Weekday and Month: launchd runs it on the weekday in every month";
    return {
        {"HourAlone", "calendar-wildcard", at(Dictionary{{"Hour", 7}}), {everyMinute}},
        {"WeekdayAlone", "calendar-wildcard", at(Dictionary{{"Weekday", 1}}), {everyMinute}},
        {"DayAndHour", "calendar-wildcard", at(Dictionary{{"Day", 1}, {"Hour", 7}}), {everyMinute}},
        {"MonthAlone", "calendar-wildcard", at(Dictionary{{"Month", 1}}), {everyMinute}},
        {"WeekdayAndMinute",
         "calendar-wildcard",
         at(Dictionary{{"Weekday", 1}, {"Minute", 0}}),
         {everyHour}},
        {"DayAndMinute",
         "calendar-wildcard",
         at(Dictionary{{"Day", 1}, {"Minute", 0}}),
         {everyHour}},
        {"MonthAndMinute",
         "calendar-wildcard",
         at(Dictionary{{"Month", 1}, {"Minute", 0}}),
         {everyHour}},
        {"EmptyCalendar",
         "calendar-wildcard",
         at(Dictionary{}),
         {"calendar-wildcard" + calendar + "is empty: launchd runs it every minute"}},
        {"MinuteAlone", "calendar-wildcard", at(Dictionary{{"Minute", 5}}), {}},
        {"HourAndMinute", "calendar-wildcard", at(timed({})), {}},
        {"MinuteInOtherCase",
         "calendar-wildcard",
         at(Dictionary{{"Hour", 7}, {"minute", 5}}),
         {"misspelt-key StartCalendarInterval.minute: is spelt Minute in launchd's manual"}},

        {"DayAndWeekday",
         "calendar-day-and-weekday",
         atDate({{"Day", 1}, {"Weekday", 1}}),
         {either}},
        {"Day", "calendar-day-and-weekday", atDate({{"Day", 2}}), {}},
        {"Weekday", "calendar-day-and-weekday", atDate({{"Weekday", 2}}), {}},
        {"WeekdayAndMonth",
         "calendar-weekday-and-month",
         atDate({{"Weekday", 1}, {"Month", 4}}),
         {everyMonth}},
        {"DayAndWeekdayAndMonth",
         "calendar-weekday-and-month",
         atDate({{"Day", 1}, {"Weekday", 1}, {"Month", 4}}),
         {either, everyMonth}},
        {"DayAndMonth", "calendar-weekday-and-month", atDate({{"Day", 1}, {"Month", 4}}), {}},
    };
}

std::vector<CheckRow> shadowRows() {
    const auto row = [](const char* name, const std::vector<Dictionary>& calendars,
                        const std::vector<std::pair<int, int>>& shadowed) {
        CheckRow result{name, "calendar-shadowed", atEach(calendars), {}};
        for (const auto& [index, by] : shadowed)
            result.findings.push_back(
                "calendar-shadowed StartCalendarInterval[" + std::to_string(index) +
                "]: adds no run to those of StartCalendarInterval[" + std::to_string(by) + "]");
        return result;
    };
    const Dictionary hourly{{"Minute", 5}};
    auto wildcard = [](CheckRow made) {
        made.findings.insert(made.findings.begin(),
                             "calendar-wildcard StartCalendarInterval[1]: has no Minute: launchd "
                             "runs it at each minute of the times that match");
        return made;
    };
    return {
        row("SameTwice", {timed({}), timed({})}, {{1, 0}}),
        row("SameThreeTimes", {timed({}), timed({}), timed({})}, {{1, 0}, {2, 0}}),
        row("SundayTwice", {timed({{"Weekday", 0}}), timed({{"Weekday", 7}})}, {{1, 0}}),
        row("WithinAnHourlyOne", {timed({}), hourly}, {{0, 1}}),
        row("WithinADailyOne", {timed({{"Weekday", 1}}), timed({}), timed({{"Day", 3}})},
            {{0, 1}, {2, 1}}),
        {"WithinEveryMinute",
         "calendar-shadowed",
         atEach({timed({{"Day", 31}, {"Month", 1}}), {}}),
         {"calendar-wildcard StartCalendarInterval[1]: is empty: launchd runs it every minute",
          "calendar-shadowed StartCalendarInterval[0]: adds no run to those of "
          "StartCalendarInterval[1]"}},
        row("OtherMinute", {timed({}), {{"Minute", 6}}}, {}),
        row("OtherHour", {timed({}), {{"Hour", 8}, {"Minute", 5}}}, {}),
        row("OtherWeekday", {timed({{"Weekday", 1}}), timed({{"Weekday", 2}})}, {}),
        row("WorkingDays",
            {timed({{"Weekday", 1}}), timed({{"Weekday", 2}}), timed({{"Weekday", 3}})}, {}),
        row("DaysOfMonths", {timed({{"Month", 3}, {"Day", 1}}), timed({{"Day", 1}, {"Month", 5}})},
            {}),
        wildcard(row("WithinAnHourOfTheDay", {timed({{"Day", 28}}), {{"Day", 28}, {"Hour", 7}}},
                     {{0, 1}})),
        row("One", {timed({})}, {}),
    };
}

} // namespace

std::vector<CheckRow> scheduleCheckRows() {
    const auto every = [](std::int64_t seconds) {
        return edited(poller(), {{"StartInterval", seconds}});
    };
    const auto ignored = [](const char* number) {
        return "interval-not-positive StartInterval: is " + std::string(number) +
               "; launchd ignores an interval of 0 and less";
    };
    const std::string none = "no-trigger : has no key that starts it";
    std::vector<CheckRow> rows = {
        {"NoSeconds", "interval-not-positive", every(0), {none, ignored("0")}},
        {"NegativeSeconds", "interval-not-positive", every(-60), {none, ignored("-60")}},
        {"OneSecond", "interval-not-positive", every(1), {}},
        {"SecondsBeyond64Bits",
         "interval-not-positive",
         edited(poller(), {{"StartInterval", UINT64_MAX}}),
         {}},
    };
    for (const auto& more : {rangeRows(), dayRows(), fieldRows(), shadowRows()})
        rows.insert(rows.end(), more.begin(), more.end());
    return rows;
}

} // namespace frimbolate::test
