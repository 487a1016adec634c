// Reading the schedule: calendar, interval, and the triggers of an agent without either.
#include "tests/core/recording_host.h"
#include "tests/support/rows.h"

#include <gmock/gmock.h>

#include <limits>

namespace frimbolate::test {

namespace {

class ScheduleKeys : public testing::TestWithParam<ReaderRow> {};

TEST_P(ScheduleKeys, ReadAs) { expectReads(GetParam()); }

Dictionary calendar(Value value) { return {{"StartCalendarInterval", std::move(value)}}; }

Dictionary with(Dictionary keys, const char* key, Value value) {
    keys.insert_or_assign(key, std::move(value));
    return keys;
}

/// The properties that every calendar sets, and a missing one too.
const Snapshot anyCalendar = {{"agentIntervalField.hidden", "yes"},
                              {"agentScheduleDatePicker.width", "146"}};

Snapshot atTime(const std::string& time) {
    return anyCalendar + Snapshot{{"agentScheduleDatePicker.dateValue", "2000-1-1 " + time + ":0"}};
}

/// The properties that a readable calendar sets.
const Snapshot shownCalendar = {{"agentScheduleDatePicker.hidden", "no"},
                                {"agentScheduleTypeButton.width", "160"}};

Snapshot selected(int item) {
    return {{"agentScheduleTypeButton.selectedItem", std::to_string(item)}};
}

Lines hourAndMinute(const std::string& hour, const std::string& minute) {
    return {"log: Agent Hour key is: " + hour, "log: Agent Minute key is: " + minute};
}

const Lines specificDay = {"log: Agent runs on a specific day - or monthly - on a schedule"};
const Lines asInterval = {"log: Agent runs on interval"};
const Lines onDemand = hourAndMinute("(null)", "(null)") +
                       Lines{"log: Agent has no schedule and runs on demand instead."};

Snapshot interval(const std::string& text) {
    return selected(ScheduleType::OnInterval) +
           Snapshot{{"agentScheduleDatePicker.hidden", "yes"},
                    {"agentIntervalTypeButton.hidden", "no"},
                    {"agentIntervalField.hidden", "no"},
                    {"agentIntervalField.stringValue", '"' + text + '"'},
                    {"agentScheduleTypeButton.width", "160"},
                    {"onMonthTextBox.hidden", "yes"}};
}

Snapshot wide(int schedule) {
    return selected(schedule) + Snapshot{{"agentScheduleDatePicker.hidden", "yes"},
                                         {"agentScheduleTypeButton.width", "311"}};
}

const Snapshot atLoad =
    wide(ScheduleType::AtLoad) +
    Snapshot{{"alsoRunAtLoadCheckbox.state", "0"}, {"alsoRunAtLoadCheckbox.enabled", "no"}};

// Two entries

std::vector<ReaderRow> calendarDays() {
    const Lines everyDay = {"log: Agent runs on every day on a schedule"};
    const auto daily = [](const std::string& time) {
        return atTime(time) + shownCalendar + selected(ScheduleType::EveryDay) +
               Snapshot{{"onMonthTextBox.hidden", "yes"}};
    };
    const auto row = [&](const char* name, Value hour, Value minute, const std::string& time) {
        const auto lines = hourAndMinute(description(hour), description(minute)) + everyDay;
        return ReaderRow{name, calendar(Dictionary{{"Hour", hour}, {"Minute", minute}}),
                         daily(time), lines};
    };
    return {row("EveryDay", 7, 5, "7:5"),
            row("Midnight", 0, 0, "0:0"),
            row("LastMinute", 23, 59, "23:59"),
            row("Texts", "6", " 30 minutes", "6:30"),
            row("Fractions", 6.9, 30.5, "6:30"),
            row("MinutesBeyondTheHour", 6, 75, "7:15"),
            row("HoursBeyondTheDay", 25, 0, "1:0"),
            row("Negative", 0, -1, "23:59"),
            row("Huge", std::numeric_limits<std::int64_t>::max(), 0, "7:0"),
            row("Least", 0, std::numeric_limits<std::int64_t>::min(), "5:52"),
            {"AnyTwoEntries", calendar(Dictionary{{"Day", 3}, {"Weekday", 4}}), daily("0:0"),
             hourAndMinute("(null)", "(null)") + everyDay}};
}
INSTANTIATE_TEST_SUITE_P(Calendar, ScheduleKeys, testing::ValuesIn(calendarDays()),
                         NamedAfterRow());

// Three entries

ReaderRow weekly(const char* name, Value weekday, const Snapshot& selection) {
    const auto lines = hourAndMinute("7", "5") + specificDay +
                       Lines{"log: Agent runs once a week on day : " + description(weekday)};
    return {name, calendar(Dictionary{{"Hour", 7}, {"Minute", 5}, {"Weekday", weekday}}),
            atTime("7:5") + shownCalendar + selection, lines};
}

ReaderRow monthly(const char* name, Value day, const std::string& text) {
    const auto lines = hourAndMinute("7", "5") + specificDay +
                       Lines{"log: Agent runs once a month " + description(day)};
    return {name, calendar(Dictionary{{"Hour", 7}, {"Minute", 5}, {"Day", day}}),
            atTime("7:5") + shownCalendar + selected(ScheduleType::OnceAMonth) +
                Snapshot{{"onMonthTextField.stringValue", '"' + text + '"'},
                         {"onMonthTextBox.hidden", "no"},
                         {"agentScheduleDatePicker.width", "90"}},
            lines};
}

std::vector<ReaderRow> weekdays() {
    const Snapshot nothing; // keeps the selection
    return {weekly("Sunday", 0, selected(ScheduleType::EverySunday)),
            weekly("Monday", 1, selected(ScheduleType::EveryMonday)),
            weekly("Tuesday", 2, selected(ScheduleType::EveryTuesday)),
            weekly("Wednesday", 3, selected(ScheduleType::EveryWednesday)),
            weekly("Thursday", 4, selected(ScheduleType::EveryThursday)),
            weekly("Friday", 5, selected(ScheduleType::EveryFriday)),
            weekly("Saturday", 6, selected(ScheduleType::EverySaturday)),
            weekly("SundayAsSeven", 7, selected(ScheduleType::EverySunday)),
            weekly("EighthDay", 8, nothing),
            weekly("DayBeforeSunday", -1, nothing),
            weekly("Beyond64Bits", std::numeric_limits<std::uint64_t>::max(), nothing),
            weekly("Text", "3", selected(ScheduleType::EveryWednesday)),
            weekly("Word", "Friday", selected(ScheduleType::EverySunday)),
            weekly("Fraction", 5.9, selected(ScheduleType::EveryFriday)),
            weekly("Boolean", true, selected(ScheduleType::EveryMonday)),
            {"NoWeekday", calendar(Dictionary{{"Hour", 7}, {"Minute", 5}, {"Month", 2}}),
             atTime("7:5") + shownCalendar + selected(ScheduleType::EverySunday),
             hourAndMinute("7", "5") + specificDay +
                 Lines{"log: Agent runs once a week on day : (null)"}}};
}
INSTANTIATE_TEST_SUITE_P(Weekday, ScheduleKeys, testing::ValuesIn(weekdays()), NamedAfterRow());

std::vector<ReaderRow> monthDays() {
    return {monthly("First", 1, "1"),
            monthly("Last", 31, "31"),
            monthly("BeyondTheMonth", 99, "99"),
            monthly("NegativeDay", -3, "-3"),
            monthly("DayText", "12", "12"),
            monthly("DayWord", "none", "none"),
            monthly("DayFraction", 2.5, "2.5"),
            {"DayAndWeekday", calendar(Dictionary{{"Hour", 7}, {"Weekday", 2}, {"Day", 9}}),
             monthly("", 9, "9").sets +
                 Snapshot{{"agentScheduleDatePicker.dateValue", "2000-1-1 7:0:0"}},
             hourAndMinute("7", "(null)") + specificDay + Lines{"log: Agent runs once a month 9"}}};
}
INSTANTIATE_TEST_SUITE_P(MonthDay, ScheduleKeys, testing::ValuesIn(monthDays()), NamedAfterRow());

// Any other number of entries, and values that are no calendar

std::vector<ReaderRow> oddCalendars() {
    const Value one = Dictionary{{"Minute", 5}};
    const Value four = Dictionary{{"Hour", 7}, {"Minute", 5}, {"Day", 1}, {"Weekday", 2}};
    const auto broken = [](const char* key, Value value, const Lines& lines) {
        Dictionary dictionary{{"Hour", 7}, {"Minute", 5}};
        dictionary.insert_or_assign(key, std::move(value));
        return ReaderRow{"", calendar(dictionary), anyCalendar + interval(""), lines};
    };
    auto hour = broken("Hour", Array{}, hourAndMinute("(\n)", "5") + asInterval);
    hour.name = "HourWithoutANumber";
    auto minute = broken("Minute", Data{{1}}, hourAndMinute("7", "<01>") + asInterval);
    minute.name = "MinuteWithoutANumber";
    auto day = broken("Day", Data{{1}},
                      hourAndMinute("7", "5") + specificDay +
                          Lines{"log: Agent runs once a month <01>"} + asInterval);
    day.name = "DayWithoutANumber", day.sets = atTime("7:5") + interval("");
    auto weekday = broken("Weekday", Data{{1}},
                          hourAndMinute("7", "5") + specificDay +
                              Lines{"log: Agent runs once a week on day : <01>"} + asInterval);
    weekday.name = "WeekdayWithoutANumber", weekday.sets = atTime("7:5") + interval("");
    return {{"OneEntry", calendar(one), atTime("0:5"), hourAndMinute("(null)", "5")},
            {"FourEntries", calendar(four), atTime("7:5"), hourAndMinute("7", "5")},
            {"AnArray", calendar(Array{one, four}), interval(""), asInterval},
            {"AText", calendar("daily"), interval(""), asInterval},
            hour,
            minute,
            day,
            weekday};
}
INSTANTIATE_TEST_SUITE_P(Odd, ScheduleKeys, testing::ValuesIn(oddCalendars()), NamedAfterRow());

// Interval

std::vector<ReaderRow> intervals() {
    const auto row = [](const char* name, Value seconds, const std::string& text) {
        return ReaderRow{name, {{"StartInterval", seconds}}, interval(text), asInterval};
    };
    return {row("AnHour", 3600, "3600"),
            row("Seconds", 15, "15"),
            row("Zero", 0, "0"),
            row("NegativeSeconds", -294967296, "-294967296"),
            row("Greatest", std::numeric_limits<std::uint64_t>::max(), "18446744073709551615"),
            row("AFraction", 1.5, "1.5"),
            row("SecondsAsText", "300", "300"),
            row("AnEmptyText", "", ""),
            row("TrueIsANumber", true, "1"),
            {"BeforeTheCalendar",
             {{"StartInterval", 60}, {"StartCalendarInterval", daily()}},
             interval("60"),
             asInterval},
            {"ADictionaryIsNone", with(calendar(daily()), "StartInterval", Dictionary{{"a", 1}}),
             dailySnapshot(), dailyLines()},
            {"AnEmptyDictionaryIsNone", with(calendar(daily()), "StartInterval", Dictionary{}),
             dailySnapshot(), dailyLines()}};
}
INSTANTIATE_TEST_SUITE_P(Interval, ScheduleKeys, testing::ValuesIn(intervals()), NamedAfterRow());

// Neither calendar nor interval

Snapshot watched(const std::string& path) {
    return wide(ScheduleType::NoSelection) + atTime("0:0") +
           Snapshot{{"agentScheduleTypeButton.enabled", "no"},
                    {"agentActionButton.selectedItem", "4"},
                    {"agentWatchPathImageWell.toolTip", '"' + path + '"'},
                    {"agentWatchPathImageWell.image", "icon of " + path},
                    {"agentWatchPathImageWell.hidden", "no"}};
}

const Snapshot mounted =
    wide(ScheduleType::NoSelection) + atTime("0:0") +
    Snapshot{{"agentScheduleTypeButton.enabled", "no"}, {"agentActionButton.selectedItem", "5"}};

Lines watchLines(const std::string& path) {
    return onDemand + Lines{"log: Agent contains a WatchPath key: " + path};
}

Lines mountLines(const std::string& value) {
    return onDemand + Lines{"log: Agent contains StartOnMount key: " + value};
}

std::vector<ReaderRow> triggers() {
    const Value paths = Array{Value("/a"), Value("/b")};
    const Snapshot alsoWatched = {{"alsoRunPathChangeCheckbox.state", "1"},
                                  {"alsoRunPathChangeImageWell.toolTip", "\"/b\""},
                                  {"alsoRunPathChangeImageWell.image", "icon of /b"},
                                  {"alsoRunPathChangeImageWell.hidden", "no"},
                                  {"advancedDrawer.open", "yes"}};
    const Snapshot alsoMounted = {{"alsoRunVolumeCheckbox.state", "1"},
                                  {"advancedDrawer.open", "yes"}};
    const Snapshot keptAlive = {{"allowSuccessfulExitCheckbox.enabled", "yes"},
                                {"allowSuccessfulExitCheckbox.state", "0"}};
    const Lines kept = {
        "log: KeepAlive key is bool, key is true and does not allow successful exit"};
    const Lines noCalendar = hourAndMinute("(null)", "(null)");
    return {
        {"NothingAtAll", {}, atLoad + atTime("0:0"), onDemand},
        {"AnEmptyCalendar", calendar(Dictionary{}), atLoad + atTime("0:0"), onDemand},
        {"AnEmptyInterval", {{"StartInterval", Dictionary{}}}, atLoad + atTime("0:0"), onDemand},
        {"AnOddInterval", {{"StartInterval", Dictionary{{"a", 1}}}}, atTime("0:0"), noCalendar},
        {"AtLoad", {{"RunAtLoad", true}}, atLoad + atTime("0:0"), noCalendar},
        {"AtLoadThoughFalse", {{"RunAtLoad", false}}, atLoad + atTime("0:0"), noCalendar},
        {"AtLoadAndWatching",
         {{"RunAtLoad", true}, {"WatchPaths", paths}},
         atLoad + atTime("0:0") + alsoWatched,
         noCalendar,
         {"drawer"}},
        {"AtLoadAndMounting",
         {{"RunAtLoad", true}, {"StartOnMount", true}},
         atLoad + atTime("0:0") + alsoMounted,
         noCalendar,
         {"drawer"}},
        {"Watching", {{"WatchPaths", paths}}, watched("/b"), watchLines("/b")},
        {"WatchingNothing", {{"WatchPaths", Array{}}}, watched(""), watchLines("(null)")},
        {"WatchingAndMounting",
         {{"WatchPaths", paths}, {"StartOnMount", true}},
         watched("/b") + alsoMounted,
         watchLines("/b"),
         {"drawer"}},
        {"WatchingThoughKeptAlive",
         {{"WatchPaths", paths}, {"KeepAlive", true}},
         watched("/b") + keptAlive,
         kept + watchLines("/b")},
        {"Mounting", {{"StartOnMount", true}}, mounted, mountLines("1")},
        {"MountingThoughFalse", {{"StartOnMount", false}}, mounted, mountLines("0")},
        {"MountingByAText", {{"StartOnMount", "no"}}, mounted, mountLines("no")},
        {"MountingByAnEmptyText", {{"StartOnMount", ""}}, atLoad + atTime("0:0"), onDemand},
        {"WatchingAText",
         {{"WatchPaths", "/b"}},
         atTime("0:0") + interval(""),
         onDemand + asInterval,
         {keysAlert}},
        {"WatchingANumber",
         {{"WatchPaths", Array{Value(5)}}},
         atTime("0:0") + interval("") +
             Snapshot{{"agentActionButton.selectedItem", "4"},
                      {"agentScheduleTypeButton.enabled", "no"}},
         watchLines("5") + asInterval}};
}
INSTANTIATE_TEST_SUITE_P(Trigger, ScheduleKeys, testing::ValuesIn(triggers()), NamedAfterRow());

/// RunAtLoad is read first, and any schedule replaces its selection.
std::vector<ReaderRow> afterRunAtLoad() {
    const Snapshot also = {{"alsoRunAtLoadCheckbox.state", "1"},
                           {"alsoRunAtLoadCheckbox.enabled", "yes"},
                           {"advancedDrawer.open", "yes"}};
    auto weekday = weekly("Weekly", 3, selected(ScheduleType::EveryWednesday));
    auto monthDay = monthly("Monthly", 3, "3");
    ReaderRow seconds{"Interval", {{"StartInterval", 60}}, interval("60"), asInterval};
    std::vector<ReaderRow> rows = {weekday, monthDay, seconds};
    for (auto& row : rows) {
        row.keys.emplace("RunAtLoad", true);
        row.sets = row.sets + also;
        row.advanced = {"drawer"};
    }
    // An eighth weekday and a single entry select nothing, so "At Load" stays selected.
    auto eighth = weekly("EighthDayAfter", 8, {});
    eighth.sets = atLoad + eighth.sets;
    const Value one = Dictionary{{"Minute", 5}};
    ReaderRow single{"OneEntryAfter", calendar(one), atLoad + atTime("0:5"),
                     hourAndMinute("(null)", "5")};
    for (auto* row : {&eighth, &single}) {
        row->keys.emplace("RunAtLoad", true);
        rows.push_back(*row);
    }
    return rows;
}
INSTANTIATE_TEST_SUITE_P(RunAtLoad, ScheduleKeys, testing::ValuesIn(afterRunAtLoad()),
                         NamedAfterRow());

TEST(TheTimeOfAFile, ReplacesATextThatCouldNotBeRead) {
    for (const Dictionary& schedule :
         {calendar(daily()), Dictionary{{"StartInterval", 60}}, Dictionary{{"RunAtLoad", true}},
          Dictionary{{"WatchPaths", Array{Value("/a")}}}}) {
        RecordingHost editor;
        editor.form().agentScheduleDatePicker.unreadableText = "25:00";
        AgentPlist file = {{"Label", "com.frimbolate.Backup"}};
        file.insert(schedule.begin(), schedule.end());
        AgentReader(editor).read(file);
        EXPECT_EQ(editor.form().agentScheduleDatePicker.unreadableText, std::nullopt)
            << schedule.begin()->first;
    }
}

} // namespace

} // namespace frimbolate::test
