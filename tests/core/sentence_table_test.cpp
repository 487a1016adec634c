// The sentence of every combination of action, schedule and additional conditions, and what launchd
// makes of the file that the same form writes.
#include "core/agent_plist.h"
#include "core/calendar_runs.h"
#include "tests/core/rendered_form.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <vector>

namespace frimbolate::test {
namespace {

constexpr std::string_view home = "/Users/ada";

const std::map<std::string, std::pair<int, bool>, std::less<>> actions = {
    {"none", {AgentAction::None, false}},
    {"schedule", {AgentAction::OnSchedule, false}},
    {"keep", {AgentAction::KeepRunning, false}},
    {"keep-until-success", {AgentAction::KeepRunning, true}},
    {"path", {AgentAction::PathModified, false}},
    {"mount", {AgentAction::VolumeMounted, false}},
};

const std::map<std::string, int, std::less<>> schedules = {
    {"none", ScheduleType::NoSelection},       {"daily", ScheduleType::EveryDay},
    {"Sunday", ScheduleType::EverySunday},     {"Monday", ScheduleType::EveryMonday},
    {"Tuesday", ScheduleType::EveryTuesday},   {"Wednesday", ScheduleType::EveryWednesday},
    {"Thursday", ScheduleType::EveryThursday}, {"Friday", ScheduleType::EveryFriday},
    {"Saturday", ScheduleType::EverySaturday}, {"15th", ScheduleType::OnceAMonth},
    {"31st", ScheduleType::OnceAMonth},        {"load", ScheduleType::AtLoad},
    {"interval", ScheduleType::OnInterval},
};

/// A row of sentences.tsv: the columns action, schedule, additional conditions and sentence.
struct Row {
    std::string line;
    AgentForm form;
    std::string sentence;
};

/// \param also the conditions joined by "+": load, mount, path, queue; "-" for none
AgentForm formOf(const std::string& action, const std::string& schedule, const std::string& also) {
    AgentForm form;
    form.name = "Backup";
    form.targetType = TargetType::File;
    form.targetPath = "/Users/ada/bin/backup.sh";
    std::tie(form.action, form.allowSuccessfulExit) = actions.at(action);
    form.watchPath = form.action == AgentAction::PathModified ? "/Users/ada/Pictures" : "";
    form.scheduleType = schedules.at(schedule);
    form.scheduleTime.hour = 7;
    form.scheduleTime.minute = 5;
    form.dayOfMonthText = schedule == "31st" ? "31" : "15";
    form.intervalText = "90";
    form.intervalUnit = IntervalUnit::Minutes;
    std::istringstream conditions(also == "-" ? "" : also);
    for (std::string condition; std::getline(conditions, condition, '+');) {
        form.alsoRunAtLoad |= condition == "load";
        form.alsoRunOnVolumeMount |= condition == "mount";
        form.alsoRunOnPathChange |= condition == "path";
        if (condition == "queue")
            form.queueDirectory = "/Users/ada/Queue";
    }
    form.alsoRunPath = form.alsoRunOnPathChange ? "/etc/hosts" : "";
    return form;
}

std::vector<Row> readRows() {
    std::ifstream file(FRIMBOLATE_SENTENCE_ROWS);
    std::vector<Row> rows;
    for (std::string line; std::getline(file, line);) {
        std::istringstream columns(line);
        std::string action, schedule, also, sentence;
        std::getline(columns, action, '\t');
        std::getline(columns, schedule, '\t');
        std::getline(columns, also, '\t');
        std::getline(columns, sentence);
        rows.push_back({line, formOf(action, schedule, also), sentence});
    }
    return rows;
}

TEST(SentenceTable, HoldsEveryCombinationOnce) {
    constexpr std::size_t additionalConditions = 1 << 4; // sets of four
    std::set<std::string> combinations;
    for (const Row& row : readRows()) {
        const auto& form = row.form;
        const auto number = [](int value) { return std::to_string(value) + " "; };
        combinations.insert(number(form.action) + number(form.allowSuccessfulExit) +
                            number(form.scheduleType) + form.dayOfMonthText + " " +
                            number(form.alsoRunAtLoad) + number(form.alsoRunOnVolumeMount) +
                            number(form.alsoRunOnPathChange) + form.queueDirectory);
    }
    EXPECT_EQ(combinations.size(), actions.size() * schedules.size() * additionalConditions);
    EXPECT_EQ(readRows().size(), combinations.size());
}

TEST(SentenceTable, IsWhatTheFormSays) {
    for (const Row& row : readRows())
        EXPECT_EQ(sentenceOf(row.form, home), row.sentence) << row.line;
}

/// What launchd does with a file, from its keys alone.
struct Launches {
    explicit Launches(const AgentPlist& file) {
        const auto has = [&file](const char* key) { return file.contains(key); };
        if (has("KeepAlive")) {
            const Value& keepAlive = file.at("KeepAlive");
            const auto* conditions = keepAlive.dictionary();
            keepsRunning = conditions || keepAlive == Value(true);
            // No condition counts before a first start by demand, which a path or a queue makes.
            waitsForDemand = conditions && conditions->contains("AfterInitialDemand");
            untilSuccess = conditions && conditions->contains("SuccessfulExit");
        }
        byCalendar = has("StartCalendarInterval") && !waitsForDemand;
        byInterval = has("StartInterval") && !waitsForDemand;
        atLoad = has("RunAtLoad") && !waitsForDemand;
        onMount = has("StartOnMount") && !waitsForDemand;
        if (has("WatchPaths"))
            path = *file.at("WatchPaths").asArray().front().string();
        byQueue = has("QueueDirectories");
        if (byCalendar)
            lacksDays = runsAfterAMonthsEnd(*file.at("StartCalendarInterval").dictionary());
    }
    static bool runsAfterAMonthsEnd(const Dictionary& calendar) {
        using namespace std::chrono;
        if (!calendar.contains("Day"))
            return false;
        const auto day = static_cast<int>(*calendar.at("Day").integer());
        LocalMinute now = local_days(2026y / January / 1);
        for (int run = 0; run < 12; ++run) {
            now = *nextCalendarRun({.day = day, .hour = 7, .minute = 5}, now);
            if (year_month_day(floor<days>(now)).day() != std::chrono::day(unsigned(day)))
                return true;
        }
        return false;
    }
    bool any() const {
        return byCalendar || byInterval || atLoad || onMount || byQueue || !path.empty();
    }

    bool keepsRunning = false, waitsForDemand = false, untilSuccess = false;
    bool byCalendar = false, byInterval = false, atLoad = false, onMount = false, byQueue = false;
    bool lacksDays = false;
    std::string path;
};

/// Fails unless the text has those words exactly if they hold.
void expectWords(const std::string& text, std::string_view words, bool hold) {
    EXPECT_EQ(text.find(words) != std::string::npos, hold) << words;
}

TEST(SentenceTable, SaysWhatLaunchdDoesWithTheFile) {
    int checked = 0;
    for (const Row& row : readRows()) {
        if (row.form.action == AgentAction::None)
            continue; // not written
        SCOPED_TRACE(row.line);
        const Launches launches(buildAgentPlist(row.form, "label"));
        const std::string& text = row.sentence;
        expectWords(text, "Runs backup.sh ", launches.any());
        expectWords(text, "nothing in this form starts it", !launches.any());
        expectWords(text, " at 07:05", launches.byCalendar);
        expectWords(text, "after the month's end", launches.lacksDays);
        expectWords(text, "every 90 minutes", launches.byInterval);
        expectWords(text, "when the agent is loaded", launches.atLoad);
        expectWords(text, "when a volume is mounted", launches.onMount);
        expectWords(text, " changes", !launches.path.empty());
        expectWords(text, "when /etc/hosts changes", launches.path == "/etc/hosts");
        expectWords(text, "as long as ~/Queue is not empty", launches.byQueue);
        expectWords(text, "and keeps it running", launches.keepsRunning && launches.any());
        expectWords(text, "Kept running", launches.keepsRunning && !launches.any());
        expectWords(text, "until it succeeds", launches.untilSuccess);
        ++checked;
    }
    EXPECT_GT(checked, 1000);
}

TEST(SentenceTable, KeepsNothingRunningThatNothingStarts) {
    for (const Row& row : readRows()) {
        SCOPED_TRACE(row.line);
        const bool waits = row.form.action == AgentAction::KeepRunning &&
                           row.form.scheduleType != ScheduleType::AtLoad;
        for (const char* trigger : {"every", "loaded", "mounted"})
            EXPECT_FALSE(waits && row.sentence.find(trigger) != std::string::npos) << trigger;
    }
}

TEST(SentenceTable, HasHintsThatSayWhatBecomesOfAMissedRun) {
    int calendars = 0, intervals = 0;
    for (const Row& row : readRows()) {
        SCOPED_TRACE(row.line);
        const Launches launches(buildAgentPlist(row.form, "label"));
        const auto hints = hintsOf(row.form);
        expectWords(hints.schedule, "; made up once if missed while asleep", launches.byCalendar);
        expectWords(hints.schedule, "; not made up if missed while asleep", launches.byInterval);
        expectWords(hints.shortSchedule, "; made up once if asleep", launches.lacksDays);
        for (const auto hint : {&RowHints::name, &RowHints::target, &RowHints::action})
            expectWords(hints.*hint, "made up", false);
        calendars += launches.byCalendar;
        intervals += launches.byInterval;
    }
    EXPECT_GT(calendars, 0);
    EXPECT_GT(intervals, 0);
}

} // namespace
} // namespace frimbolate::test
