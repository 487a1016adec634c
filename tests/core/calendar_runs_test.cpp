// The runs of a calendar interval against those that launchd's arithmetic yields.
#include "core/calendar_runs.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace frimbolate::test {
namespace {

using namespace std::chrono;

constexpr std::size_t rowCount = 229;

struct Row {
    std::string text;
    CalendarInterval interval;
    LocalMinute now;
    std::vector<LocalMinute> runs; ///< three, one after the other
};

/// "-" for a missing key.
std::optional<int> optionalNumber(const std::string& text) {
    return text == "-" ? std::nullopt : std::optional(std::stoi(text));
}

/// "YYYY-MM-DDTHH:MM"
LocalMinute momentOf(const std::string& text) {
    const auto number = [&text](std::size_t at, std::size_t length) {
        return std::stoi(text.substr(at, length));
    };
    const auto date = year(number(0, 4)) / number(5, 2) / number(8, 2);
    return local_days(date) + hours(number(11, 2)) + minutes(number(14, 2));
}

std::string textOfMoment(LocalMinute moment) {
    const auto day = floor<days>(moment);
    const year_month_day date(day);
    std::ostringstream text;
    text << static_cast<int>(date.year()) << '-' << unsigned(date.month()) << '-'
         << unsigned(date.day()) << ' ' << (moment - day).count() / 60 << ':'
         << (moment - day).count() % 60;
    return text.str();
}

/// The file's columns are month, day, weekday, hour, minute, now and three runs.
std::vector<Row> readRows() {
    std::ifstream file(FRIMBOLATE_CALENDAR_ROWS);
    std::vector<Row> rows;
    for (std::string line; std::getline(file, line);) {
        std::istringstream columns(line);
        std::string month, day, weekday, hour, minute, now, runs[3];
        columns >> month >> day >> weekday >> hour >> minute >> now >> runs[0] >> runs[1] >>
            runs[2];
        rows.push_back({line,
                        {optionalNumber(month), optionalNumber(day), optionalNumber(weekday),
                         optionalNumber(hour), optionalNumber(minute)},
                        momentOf(now),
                        {momentOf(runs[0]), momentOf(runs[1]), momentOf(runs[2])}});
    }
    return rows;
}

TEST(CalendarRuns, AgreeWithEveryRowOfLaunchdsArithmetic) {
    const auto rows = readRows();
    ASSERT_EQ(rows.size(), rowCount);
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        LocalMinute now = row.now;
        for (const LocalMinute expected : row.runs) {
            const auto run = nextCalendarRun(row.interval, now);
            ASSERT_TRUE(run);
            EXPECT_EQ(textOfMoment(*run), textOfMoment(expected));
            now = expected;
        }
    }
}

TEST(CalendarRuns, AreFoundForTheWholeRangeOfEachKeyAndNoFurther) {
    const LocalMinute now = momentOf("2026-11-21T09:41");
    struct Range {
        std::optional<int> CalendarInterval::*key;
        int least, greatest;
    };
    constexpr Range ranges[] = {{&CalendarInterval::month, 1, 12},
                                {&CalendarInterval::day, 1, 31},
                                {&CalendarInterval::weekday, 0, 7},
                                {&CalendarInterval::hour, 0, 23},
                                {&CalendarInterval::minute, 0, 59}};
    for (const auto& [key, least, greatest] : ranges) {
        for (int value = least; value <= greatest; ++value) {
            CalendarInterval interval;
            interval.*key = value;
            EXPECT_GT(nextCalendarRun(interval, now), now) << value;
        }
        for (const int value : {least - 1, greatest + 1}) {
            CalendarInterval interval;
            interval.*key = value;
            EXPECT_EQ(nextCalendarRun(interval, now), std::nullopt) << value;
        }
    }
}

TEST(CalendarRuns, TakeSevenForSunday) {
    const LocalMinute now = momentOf("2026-11-21T09:41"); // a Saturday
    CalendarInterval sunday{.weekday = 0, .hour = 7, .minute = 30};
    const auto run = nextCalendarRun(sunday, now);
    EXPECT_EQ(run, momentOf("2026-11-22T07:30"));
    sunday.weekday = 7;
    EXPECT_EQ(nextCalendarRun(sunday, now), run);
}

TEST(CalendarRuns, ComeEveryMinuteWithoutAnyKey) {
    EXPECT_EQ(nextCalendarRun({}, momentOf("2026-12-31T23:59")), momentOf("2027-01-01T00:00"));
}

TEST(CalendarRuns, AreLaterThanNow) {
    const CalendarInterval nine{.hour = 9, .minute = 0};
    EXPECT_EQ(nextCalendarRun(nine, momentOf("2026-11-21T08:59")), momentOf("2026-11-21T09:00"));
    EXPECT_EQ(nextCalendarRun(nine, momentOf("2026-11-21T09:00")), momentOf("2026-11-22T09:00"));
}

} // namespace
} // namespace frimbolate::test
