// The next run of an agent against rows that next_run_rows.py computed minute by minute.
#include "core/next_run.h"

#include "tests/core/zone_rows.h"
#include "tests/support/rows.h"

#include <fstream>
#include <sstream>

namespace frimbolate::test {
namespace {

using namespace std::chrono;

constexpr std::size_t leastRows = 230;

Value calendarValue(const std::string& columns) {
    constexpr const char* keys[] = {"Month", "Day", "Weekday", "Hour", "Minute"};
    Dictionary calendar;
    std::istringstream values(columns);
    for (const char* key : keys) {
        std::string value;
        std::getline(values, value, ',');
        if (value != "-")
            calendar[key] = std::stoi(value);
    }
    return calendar;
}

/// One calendar as a dictionary, several as an array.
Dictionary agentWithCalendars(const std::string& columns) {
    Array calendars;
    std::istringstream parts(columns);
    for (std::string part; std::getline(parts, part, ';');)
        calendars.push_back(calendarValue(part));
    if (calendars.size() == 1)
        return {{"StartCalendarInterval", calendars.front()}};
    return {{"StartCalendarInterval", calendars}};
}

TEST(NextRun, AgreesWithEveryRowThatWasComputedMinuteByMinute) {
    const auto zones = readZones();
    std::ifstream file(FRIMBOLATE_NEXT_RUN_ROWS);
    std::size_t rows = 0;
    for (std::string line; std::getline(file, line); ++rows) {
        SCOPED_TRACE(line);
        std::istringstream columns(line);
        std::string zone, now, calendars, expected;
        columns >> zone >> now >> calendars >> expected;
        ASSERT_TRUE(zones.contains(zone));
        const WallClock clock(worldMinute(now), zones.at(zone));
        const auto run = nextRun(agentWithCalendars(calendars), clock);
        EXPECT_EQ(run ? localText(*run) : "never", expected);
    }
    EXPECT_GE(rows, leastRows);
}

const LocalMinute now = localMinute("2026-11-21T09:41"); // a Saturday
const Dictionary seven = {{"Hour", 7}, {"Minute", 5}};

struct AgentRow {
    const char* name;
    Dictionary keys; ///< beside a calendar for 07:05
    bool isKnown;
};

void PrintTo(const AgentRow& row, std::ostream* out) { *out << row.name; }

class NextRunOfAgent : public testing::TestWithParam<AgentRow> {};

TEST_P(NextRunOfAgent, IsClaimedOnlyWhereItIsKnown) {
    Dictionary agent = GetParam().keys;
    agent.try_emplace("StartCalendarInterval", seven);
    const auto run = nextRun(agent, now);
    EXPECT_EQ(run ? localText(*run) : "unknown",
              GetParam().isKnown ? "2026-11-22T07:05" : "unknown");
}

const Dictionary noKeys;
const AgentRow agents[] = {
    {"CalendarAlone", {}, true},
    {"AtLoadToo", {{"RunAtLoad", true}}, true},
    {"WatchedPathToo", {{"WatchPaths", Array{Value("/a")}}}, true},
    {"MountToo", {{"StartOnMount", true}}, true},
    {"Interval", {{"StartInterval", 60}}, false},
    {"IntervalBeyond63Bits", {{"StartInterval", std::uint64_t{1} << 63}}, false},
    {"IntervalOfZero", {{"StartInterval", 0}}, true},
    {"IntervalBelowZero", {{"StartInterval", -5}}, true},
    {"IntervalThatIsAText", {{"StartInterval", "60"}}, true},
    {"SwitchedOff", {{"Enabled", false}}, false},
    {"SwitchedOffByText", {{"Enabled", "NO"}}, false},
    {"SwitchWithoutTruth", {{"Enabled", noKeys}}, false},
    {"SwitchedOn", {{"Enabled", true}}, true},
    {"Disabled", {{"Disabled", true}}, false},
    {"NotDisabled", {{"Disabled", false}}, true},
    {"KeptAlive", {{"KeepAlive", true}}, false},
    {"NotKeptAlive", {{"KeepAlive", false}}, true},
    {"KeptAliveByCondition", {{"KeepAlive", Dictionary{{"SuccessfulExit", false}}}}, false},
    {"KeptAliveByNothing", {{"KeepAlive", noKeys}}, false},
    {"NotOnDemand", {{"OnDemand", false}}, false},
    {"OnDemand", {{"OnDemand", true}}, true},
    {"OnceUntilRestart", {{"LaunchOnlyOnce", true}}, false},
    {"WaitsForDebugger", {{"WaitForDebugger", true}}, false},
    {"CalendarThatIsAText", {{"StartCalendarInterval", "07:05"}}, false},
    {"NoCalendars", {{"StartCalendarInterval", Array{}}}, false},
    {"HourThatIsAText",
     {{"StartCalendarInterval", Dictionary{{"Hour", "7"}, {"Minute", 5}}}},
     false},
    {"HourThatIsAReal",
     {{"StartCalendarInterval", Dictionary{{"Hour", 7.0}, {"Minute", 5}}}},
     false},
    {"HourThatIsABoolean",
     {{"StartCalendarInterval", Dictionary{{"Hour", true}, {"Minute", 5}}}},
     false},
    {"HourBeyond32Bits",
     {{"StartCalendarInterval", Dictionary{{"Hour", std::int64_t{7} << 32}, {"Minute", 5}}}},
     false},
    {"OtherKeyInCalendar",
     {{"StartCalendarInterval", Dictionary{{"Hour", 7}, {"Minute", 5}, {"Second", 90}}}},
     true},
    {"OneCalendarInArray", {{"StartCalendarInterval", Array{Value(seven)}}}, true},
    {"EarlierOfTwo",
     {{"StartCalendarInterval",
       Array{Value(Dictionary{{"Hour", 8}, {"Minute", 0}}), Value(seven)}}},
     true},
    {"BesideOneOutOfRange",
     {{"StartCalendarInterval", Array{Value(Dictionary{{"Minute", 60}}), Value(seven)}}},
     true},
    {"BesideOneThatIsNone", {{"StartCalendarInterval", Array{Value("x"), Value(seven)}}}, true},
};

INSTANTIATE_TEST_SUITE_P(Table, NextRunOfAgent, testing::ValuesIn(agents), NamedAfterRow());

TEST(NextRun, IsUnknownWithoutACalendar) {
    EXPECT_EQ(nextRun({{"WatchPaths", Array{Value("/a")}}}, now), std::nullopt);
    EXPECT_EQ(nextRun({}, now), std::nullopt);
}

TEST(NextRun, IsTheNextMinuteForACalendarWithoutKeys) {
    EXPECT_EQ(nextRun({{"StartCalendarInterval", Dictionary{}}}, now), now + minutes(1));
}

struct TextRow {
    const char* name;
    const char* run;
    const char* longText;
    const char* shortText;
    const char* longTwelve;
    const char* shortTwelve;
};

void PrintTo(const TextRow& row, std::ostream* out) { *out << row.name; }

class NextRunText : public testing::TestWithParam<TextRow> {};

TEST_P(NextRunText, FollowsTheClock) {
    const auto& row = GetParam();
    const auto run = localMinute(row.run);
    EXPECT_EQ(nextRunText(run, now, ClockFormat::TwentyFourHours), row.longText);
    EXPECT_EQ(shortRunText(run, now, ClockFormat::TwentyFourHours), row.shortText);
    EXPECT_EQ(nextRunText(run, now, ClockFormat::TwelveHours), row.longTwelve);
    EXPECT_EQ(shortRunText(run, now, ClockFormat::TwelveHours), row.shortTwelve);
}

const TextRow texts[] = {
    {"Today", "2026-11-21T19:30", "Next: Saturday 21 November, 19:30", "Today 19:30",
     "Next: Saturday 21 November, 07:30 PM", "07:30 PM"},
    {"AfterMidnight", "2026-11-22T00:00", "Next: Sunday 22 November, 00:00", "Sun 00:00",
     "Next: Sunday 22 November, 12:00 AM", "Sun 12:00 AM"},
    {"Wednesday", "2026-11-25T07:05", "Next: Wednesday 25 November, 07:05", "Wed 07:05",
     "Next: Wednesday 25 November, 07:05 AM", "Wed 07:05 AM"},
    {"LastOfTheWeek", "2026-11-27T07:05", "Next: Friday 27 November, 07:05", "Fri 07:05",
     "Next: Friday 27 November, 07:05 AM", "Fri 07:05 AM"},
    {"InAWeek", "2026-11-28T07:05", "Next: Saturday 28 November, 07:05", "28 Nov 07:05",
     "Next: Saturday 28 November, 07:05 AM", "28 Nov"},
    {"NextYear", "2027-01-01T07:05", "Next: Friday 1 January 2027, 07:05", "1 Jan 07:05",
     "Next: Friday 1 January 2027, 07:05 AM", "1 Jan"},
    {"DayBeforeElevenMonths", "2027-10-21T23:59", "Next: Thursday 21 October 2027, 23:59",
     "21 Oct 23:59", "Next: Thursday 21 October 2027, 11:59 PM", "21 Oct"},
    {"ElevenMonths", "2027-10-22T07:05", "Next: Friday 22 October 2027, 07:05", "22 Oct 2027",
     "Next: Friday 22 October 2027, 07:05 AM", "22 Oct 2027"},
    {"LeapDay", "2028-02-29T07:05", "Next: Tuesday 29 February 2028, 07:05", "29 Feb 2028",
     "Next: Tuesday 29 February 2028, 07:05 AM", "29 Feb 2028"},
};

INSTANTIATE_TEST_SUITE_P(Table, NextRunText, testing::ValuesIn(texts), NamedAfterRow());

} // namespace
} // namespace frimbolate::test
