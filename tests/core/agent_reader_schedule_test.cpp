// The schedule: calendar, interval, and what an agent without either is started by.
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

/// What is set of any calendar, and of none.
const Snapshot anyCalendar = {{"agentIntervalField.hidden", "yes"},
                              {"agentScheduleDatePicker.width", "146"}};

Snapshot at(const std::string& time) {
    return anyCalendar + Snapshot{{"agentScheduleDatePicker.dateValue", "2000-1-1 " + time + ":0"}};
}

/// What a calendar that can be read shows.
const Snapshot shown = {{"agentScheduleDatePicker.hidden", "no"},
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

std::vector<ReaderRow> days() {
    const Lines everyDay = {"log: Agent runs on every day on a schedule"};
    const auto daily = [](const std::string& time) {
        return at(time) + shown + selected(ScheduleType::EveryDay) +
               Snapshot{{"onMonthTextBox.hidden", "yes"}};
    };
    const auto row = [&](const char* name, Value hour, Value minute, const std::string& time) {
        const auto lines = hourAndMinute(description(hour), description(minute)) + everyDay;
        return ReaderRow{name, calendar(Dictionary{{"Hour", hour}, {"Minute", minute}}),
                         daily(time), lines};
    };
    return {row("every_day", 7, 5, "7:5"),
            row("midnight", 0, 0, "0:0"),
            row("last_minute", 23, 59, "23:59"),
            row("texts", "6", " 30 minutes", "6:30"),
            row("fractions", 6.9, 30.5, "6:30"),
            row("minutes_beyond_the_hour", 6, 75, "7:15"),
            row("hours_beyond_the_day", 25, 0, "1:0"),
            row("negative", 0, -1, "23:59"),
            row("huge", std::numeric_limits<std::int64_t>::max(), 0, "7:0"),
            row("least", 0, std::numeric_limits<std::int64_t>::min(), "5:52"),
            {"any_two_entries", calendar(Dictionary{{"Day", 3}, {"Weekday", 4}}), daily("0:0"),
             hourAndMinute("(null)", "(null)") + everyDay}};
}
INSTANTIATE_TEST_SUITE_P(Calendar, ScheduleKeys, testing::ValuesIn(days()), NamedAfterRow());

// Three entries

ReaderRow weekly(const char* name, Value weekday, const Snapshot& selection) {
    const auto lines = hourAndMinute("7", "5") + specificDay +
                       Lines{"log: Agent runs once a week on day : " + description(weekday)};
    return {name, calendar(Dictionary{{"Hour", 7}, {"Minute", 5}, {"Weekday", weekday}}),
            at("7:5") + shown + selection, lines};
}

ReaderRow monthly(const char* name, Value day, const std::string& text) {
    const auto lines = hourAndMinute("7", "5") + specificDay +
                       Lines{"log: Agent runs once a month " + description(day)};
    return {name, calendar(Dictionary{{"Hour", 7}, {"Minute", 5}, {"Day", day}}),
            at("7:5") + shown + selected(ScheduleType::OnceAMonth) +
                Snapshot{{"onMonthTextField.stringValue", '"' + text + '"'},
                         {"onMonthTextBox.hidden", "no"},
                         {"agentScheduleDatePicker.width", "90"}},
            lines};
}

std::vector<ReaderRow> weekdays() {
    const Snapshot nothing; // the selection stays as it was
    return {weekly("sunday", 0, selected(ScheduleType::EverySunday)),
            weekly("monday", 1, selected(ScheduleType::EveryMonday)),
            weekly("tuesday", 2, selected(ScheduleType::EveryTuesday)),
            weekly("wednesday", 3, selected(ScheduleType::EveryWednesday)),
            weekly("thursday", 4, selected(ScheduleType::EveryThursday)),
            weekly("friday", 5, selected(ScheduleType::EveryFriday)),
            weekly("saturday", 6, selected(ScheduleType::EverySaturday)),
            weekly("sunday_as_seven", 7, selected(ScheduleType::EverySunday)),
            weekly("eighth_day", 8, nothing),
            weekly("day_before_sunday", -1, nothing),
            weekly("beyond_64_bits", std::numeric_limits<std::uint64_t>::max(), nothing),
            weekly("text", "3", selected(ScheduleType::EveryWednesday)),
            weekly("word", "Friday", selected(ScheduleType::EverySunday)),
            weekly("fraction", 5.9, selected(ScheduleType::EveryFriday)),
            weekly("boolean", true, selected(ScheduleType::EveryMonday)),
            {"no_weekday", calendar(Dictionary{{"Hour", 7}, {"Minute", 5}, {"Month", 2}}),
             at("7:5") + shown + selected(ScheduleType::EverySunday),
             hourAndMinute("7", "5") + specificDay +
                 Lines{"log: Agent runs once a week on day : (null)"}}};
}
INSTANTIATE_TEST_SUITE_P(Weekday, ScheduleKeys, testing::ValuesIn(weekdays()), NamedAfterRow());

std::vector<ReaderRow> monthDays() {
    return {monthly("first", 1, "1"),
            monthly("last", 31, "31"),
            monthly("beyond_the_month", 99, "99"),
            monthly("negative_day", -3, "-3"),
            monthly("day_text", "12", "12"),
            monthly("day_word", "none", "none"),
            monthly("day_fraction", 2.5, "2.5"),
            {"day_and_weekday", calendar(Dictionary{{"Hour", 7}, {"Weekday", 2}, {"Day", 9}}),
             monthly("", 9, "9").sets +
                 Snapshot{{"agentScheduleDatePicker.dateValue", "2000-1-1 7:0:0"}},
             hourAndMinute("7", "(null)") + specificDay + Lines{"log: Agent runs once a month 9"}}};
}
INSTANTIATE_TEST_SUITE_P(MonthDay, ScheduleKeys, testing::ValuesIn(monthDays()), NamedAfterRow());

// Any other number, and what is no calendar

std::vector<ReaderRow> oddCalendars() {
    const Value one = Dictionary{{"Minute", 5}};
    const Value four = Dictionary{{"Hour", 7}, {"Minute", 5}, {"Day", 1}, {"Weekday", 2}};
    const auto broken = [](const char* key, Value value, const Lines& lines) {
        Dictionary dictionary{{"Hour", 7}, {"Minute", 5}};
        dictionary.insert_or_assign(key, std::move(value));
        return ReaderRow{"", calendar(dictionary), anyCalendar + interval(""), lines};
    };
    auto hour = broken("Hour", Array{}, hourAndMinute("(\n)", "5") + asInterval);
    hour.name = "hour_without_a_number";
    auto minute = broken("Minute", Data{{1}}, hourAndMinute("7", "<01>") + asInterval);
    minute.name = "minute_without_a_number";
    auto day = broken("Day", Data{{1}},
                      hourAndMinute("7", "5") + specificDay +
                          Lines{"log: Agent runs once a month <01>"} + asInterval);
    day.name = "day_without_a_number", day.sets = at("7:5") + interval("");
    auto weekday = broken("Weekday", Data{{1}},
                          hourAndMinute("7", "5") + specificDay +
                              Lines{"log: Agent runs once a week on day : <01>"} + asInterval);
    weekday.name = "weekday_without_a_number", weekday.sets = at("7:5") + interval("");
    return {{"one_entry", calendar(one), at("0:5"), hourAndMinute("(null)", "5")},
            {"four_entries", calendar(four), at("7:5"), hourAndMinute("7", "5")},
            {"an_array", calendar(Array{one, four}), interval(""), asInterval},
            {"a_text", calendar("daily"), interval(""), asInterval},
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
    return {row("an_hour", 3600, "3600"),
            row("seconds", 15, "15"),
            row("zero", 0, "0"),
            row("negative_seconds", -294967296, "-294967296"),
            row("greatest", std::numeric_limits<std::uint64_t>::max(), "18446744073709551615"),
            row("a_fraction", 1.5, "1.5"),
            row("seconds_as_text", "300", "300"),
            row("an_empty_text", "", ""),
            row("true_is_a_number", true, "1"),
            {"before_the_calendar",
             {{"StartInterval", 60}, {"StartCalendarInterval", daily()}},
             interval("60"),
             asInterval},
            {"a_dictionary_is_none", with(calendar(daily()), "StartInterval", Dictionary{{"a", 1}}),
             dailyPicture(), dailyLines()},
            {"an_empty_dictionary_is_none", with(calendar(daily()), "StartInterval", Dictionary{}),
             dailyPicture(), dailyLines()}};
}
INSTANTIATE_TEST_SUITE_P(Interval, ScheduleKeys, testing::ValuesIn(intervals()), NamedAfterRow());

// Neither

Snapshot watched(const std::string& path) {
    return wide(ScheduleType::NoSelection) + at("0:0") +
           Snapshot{{"agentScheduleTypeButton.enabled", "no"},
                    {"agentActionButton.selectedItem", "4"},
                    {"agentWatchPathImageWell.toolTip", '"' + path + '"'},
                    {"agentWatchPathImageWell.image", "icon of " + path},
                    {"agentWatchPathImageWell.hidden", "no"}};
}

const Snapshot mounted =
    wide(ScheduleType::NoSelection) + at("0:0") +
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
    return {{"nothing_at_all", {}, atLoad + at("0:0"), onDemand},
            {"an_empty_calendar", calendar(Dictionary{}), atLoad + at("0:0"), onDemand},
            {"an_empty_interval", {{"StartInterval", Dictionary{}}}, atLoad + at("0:0"), onDemand},
            {"an_odd_interval", {{"StartInterval", Dictionary{{"a", 1}}}}, at("0:0"), noCalendar},
            {"at_load", {{"RunAtLoad", true}}, atLoad + at("0:0"), noCalendar},
            {"at_load_though_false", {{"RunAtLoad", false}}, atLoad + at("0:0"), noCalendar},
            {"at_load_and_watching",
             {{"RunAtLoad", true}, {"WatchPaths", paths}},
             atLoad + at("0:0") + alsoWatched,
             noCalendar,
             {"drawer"}},
            {"at_load_and_mounting",
             {{"RunAtLoad", true}, {"StartOnMount", true}},
             atLoad + at("0:0") + alsoMounted,
             noCalendar,
             {"drawer"}},
            {"watching", {{"WatchPaths", paths}}, watched("/b"), watchLines("/b")},
            {"watching_nothing", {{"WatchPaths", Array{}}}, watched(""), watchLines("(null)")},
            {"watching_and_mounting",
             {{"WatchPaths", paths}, {"StartOnMount", true}},
             watched("/b") + alsoMounted,
             watchLines("/b"),
             {"drawer"}},
            {"watching_though_kept_alive",
             {{"WatchPaths", paths}, {"KeepAlive", true}},
             watched("/b") + keptAlive,
             kept + watchLines("/b")},
            {"mounting", {{"StartOnMount", true}}, mounted, mountLines("1")},
            {"mounting_though_false", {{"StartOnMount", false}}, mounted, mountLines("0")},
            {"mounting_by_a_text", {{"StartOnMount", "no"}}, mounted, mountLines("no")},
            {"mounting_by_an_empty_text", {{"StartOnMount", ""}}, atLoad + at("0:0"), onDemand},
            {"watching_a_text",
             {{"WatchPaths", "/b"}},
             at("0:0") + interval(""),
             onDemand + asInterval,
             {keysAlert}},
            {"watching_a_number",
             {{"WatchPaths", Array{Value(5)}}},
             at("0:0") + interval("") +
                 Snapshot{{"agentActionButton.selectedItem", "4"},
                          {"agentScheduleTypeButton.enabled", "no"}},
             watchLines("5") + asInterval}};
}
INSTANTIATE_TEST_SUITE_P(Trigger, ScheduleKeys, testing::ValuesIn(triggers()), NamedAfterRow());

/// Run at load is read first, and whatever schedule there is takes its place.
std::vector<ReaderRow> afterRunAtLoad() {
    const Snapshot also = {{"alsoRunAtLoadCheckbox.state", "1"},
                           {"alsoRunAtLoadCheckbox.enabled", "yes"},
                           {"advancedDrawer.open", "yes"}};
    auto weekday = weekly("weekly", 3, selected(ScheduleType::EveryWednesday));
    auto monthDay = monthly("monthly", 3, "3");
    ReaderRow seconds{"interval", {{"StartInterval", 60}}, interval("60"), asInterval};
    std::vector<ReaderRow> rows = {weekday, monthDay, seconds};
    for (auto& row : rows) {
        row.keys.emplace("RunAtLoad", true);
        row.sets = row.sets + also;
        row.advanced = {"drawer"};
    }
    // An eighth day and a fourth entry select nothing, so that run at load stays selected.
    auto eighth = weekly("eighth_day_after", 8, {});
    eighth.sets = atLoad + eighth.sets;
    const Value one = Dictionary{{"Minute", 5}};
    ReaderRow single{"one_entry_after", calendar(one), atLoad + at("0:5"),
                     hourAndMinute("(null)", "5")};
    for (auto* row : {&eighth, &single}) {
        row->keys.emplace("RunAtLoad", true);
        rows.push_back(*row);
    }
    return rows;
}
INSTANTIATE_TEST_SUITE_P(RunAtLoad, ScheduleKeys, testing::ValuesIn(afterRunAtLoad()),
                         NamedAfterRow());

TEST(TheTimeOfAFile, replacesATextThatCouldNotBeRead) {
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
