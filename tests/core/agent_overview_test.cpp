#include "core/agent_sentence.h"

#include "core/agent_overview.h"
#include "tests/support/rows.h"

#include <gtest/gtest.h>

namespace frimbolate::test {
namespace {

using namespace std::chrono;

const Array sync = {Value("/usr/local/bin/sync")};

Dictionary calendar(std::initializer_list<std::pair<const char*, int>> keys) {
    Dictionary result;
    for (const auto& [key, number] : keys)
        result[key] = number;
    return result;
}

Array calendars(std::initializer_list<Dictionary> elements) {
    Array result;
    for (const auto& element : elements)
        result.emplace_back(element);
    return result;
}

struct OverviewRow {
    const char* name;
    Dictionary keys; ///< beside the program
    const char* sentence;
};

void PrintTo(const OverviewRow& row, std::ostream* out) { *out << row.name; }

class AgentSentence : public testing::TestWithParam<OverviewRow> {};

TEST_P(AgentSentence, SaysWhatLaunchdDoes) {
    Dictionary agent = GetParam().keys;
    agent.try_emplace("ProgramArguments", sync);
    EXPECT_EQ(agentSentence(agent, {.home = "/Users/ada"}), GetParam().sentence);
}

const OverviewRow overviewRows[] = {
    {"Nothing", {}, "Never runs sync: nothing launches it."},
    {"AtLoad", {{"RunAtLoad", true}}, "Runs sync when the agent is loaded, such as at login."},
    {"NotAtLoad", {{"RunAtLoad", false}}, "Never runs sync: nothing launches it."},
    {"Interval", {{"StartInterval", 1800}}, "Runs sync every 30 minutes."},
    {"LongInterval", {{"StartInterval", std::int64_t{1} << 32}}, "Runs sync at an interval."},
    {"IntervalOfZero", {{"StartInterval", 0}}, "Never runs sync: nothing launches it."},
    {"IntervalThatIsAText", {{"StartInterval", "60"}}, "Never runs sync: nothing launches it."},
    {"Daily",
     {{"StartCalendarInterval", calendar({{"Hour", 7}, {"Minute", 5}})}},
     "Runs sync every day at 07:05."},
    {"Weekly",
     {{"StartCalendarInterval", calendar({{"Weekday", 3}, {"Hour", 7}, {"Minute", 5}})}},
     "Runs sync every Wednesday at 07:05."},
    {"SundayAsSeven",
     {{"StartCalendarInterval", calendar({{"Weekday", 7}, {"Hour", 7}, {"Minute", 5}})}},
     "Runs sync every Sunday at 07:05."},
    {"WeekdayOfAMonth",
     {{"StartCalendarInterval",
       calendar({{"Month", 1}, {"Weekday", 3}, {"Hour", 7}, {"Minute", 5}})}},
     "Runs sync every Wednesday at 07:05."},
    {"Monthly",
     {{"StartCalendarInterval", calendar({{"Day", 22}, {"Hour", 7}, {"Minute", 5}})}},
     "Runs sync on the 22nd of every month at 07:05."},
    {"MonthsEnd",
     {{"StartCalendarInterval", calendar({{"Day", 31}, {"Hour", 7}, {"Minute", 5}})}},
     "Runs sync on the 31st of every month at 07:05, in shorter months on a day after the month's "
     "end."},
    {"Yearly",
     {{"StartCalendarInterval", calendar({{"Month", 1}, {"Day", 2}, {"Hour", 7}, {"Minute", 5}})}},
     "Runs sync every year on 2 January at 07:05."},
    {"EveryDayOfAMonth",
     {{"StartCalendarInterval", calendar({{"Month", 12}, {"Hour", 7}, {"Minute", 5}})}},
     "Runs sync every day of December at 07:05."},
    {"DayAndWeekday",
     {{"StartCalendarInterval",
       calendar({{"Day", 1}, {"Weekday", 1}, {"Hour", 7}, {"Minute", 5}})}},
     "Runs sync on the 1st of every month and every Monday at 07:05."},
    {"MinuteAlone",
     {{"StartCalendarInterval", calendar({{"Minute", 15}})}},
     "Runs sync at minute 15 of every hour."},
    {"HourAlone",
     {{"StartCalendarInterval", calendar({{"Hour", 7}})}},
     "Runs sync every minute from 07:00 to 07:59."},
    {"MinuteOfAWeekday",
     {{"StartCalendarInterval", calendar({{"Weekday", 1}, {"Minute", 0}})}},
     "Runs sync every Monday, at minute 0 of every hour."},
    {"NoCalendarKey", {{"StartCalendarInterval", Dictionary{}}}, "Runs sync every minute."},
    {"OutOfRange",
     {{"StartCalendarInterval", calendar({{"Hour", 24}})}},
     "Never runs sync: nothing launches it."},
    {"WorkingDays",
     {{"StartCalendarInterval",
       calendars({calendar({{"Weekday", 1}, {"Hour", 9}, {"Minute", 0}}),
                  calendar({{"Weekday", 2}, {"Hour", 9}, {"Minute", 0}}),
                  calendar({{"Weekday", 5}, {"Hour", 9}, {"Minute", 0}})})}},
     "Runs sync every Monday, Tuesday and Friday at 09:00."},
    {"SeveralTimesADay",
     {{"StartCalendarInterval",
       calendars({calendar({{"Hour", 8}, {"Minute", 0}}), calendar({{"Hour", 12}, {"Minute", 30}}),
                  calendar({{"Hour", 18}, {"Minute", 0}})})}},
     "Runs sync every day at 08:00, 12:30 and 18:00."},
    {"SeveralDaysOfTheMonth",
     {{"StartCalendarInterval", calendars({calendar({{"Day", 1}, {"Hour", 8}, {"Minute", 0}}),
                                           calendar({{"Day", 15}, {"Hour", 8}, {"Minute", 0}})})}},
     "Runs sync on the 1st and 15th of every month at 08:00."},
    {"UnlikeCalendars",
     {{"StartCalendarInterval", calendars({calendar({{"Weekday", 1}, {"Hour", 9}, {"Minute", 0}}),
                                           calendar({{"Day", 1}, {"Hour", 8}, {"Minute", 0}}),
                                           calendar({{"Minute", 45}})})}},
     "Runs sync every Monday at 09:00, on the 1st of every month at 08:00, and at minute 45 of "
     "every hour."},
    {"ManyCalendars",
     {{"StartCalendarInterval",
       calendars({calendar({{"Minute", 1}}), calendar({{"Minute", 2}}), calendar({{"Minute", 3}}),
                  calendar({{"Minute", 4}}), calendar({{"Minute", 5}}), calendar({{"Minute", 6}}),
                  calendar({{"Minute", 7}})})}},
     "Runs sync at minute 1 of every hour, at minute 2 of every hour, at minute 3 of every hour, "
     "at minute 4 of every hour, at minute 5 of every hour, and at 2 other times."},
    {"WatchedPaths",
     {{"WatchPaths", Array{Value("/Users/ada/a"), Value("/b")}}},
     "Runs sync when ~/a or /b changes."},
    {"WatchPathsOfNumbers",
     {{"WatchPaths", Array{Value(1)}}},
     "Never runs sync: nothing launches it."},
    {"Queue", {{"QueueDirectories", Array{Value("/q")}}}, "Runs sync as long as /q is not empty."},
    {"Mount", {{"StartOnMount", true}}, "Runs sync when a volume is mounted."},
    {"Socket", {{"Sockets", Dictionary{{"Listeners", Dictionary{}}}}}, "Runs sync on demand."},
    {"NoSocket", {{"Sockets", Dictionary{}}}, "Never runs sync: nothing launches it."},
    {"ServiceAndAtLoad",
     {{"MachServices", Dictionary{{"a", true}}}, {"RunAtLoad", true}},
     "Runs sync when the agent is loaded, such as at login, and on demand."},
    {"KeptAlive",
     {{"KeepAlive", true}},
     "Runs sync when the agent is loaded, such as at login, and keeps it running."},
    {"NotKeptAlive", {{"KeepAlive", false}}, "Never runs sync: nothing launches it."},
    {"NotOnDemand",
     {{"OnDemand", false}},
     "Runs sync when the agent is loaded, such as at login, and keeps it running."},
    {"UntilItSucceeds",
     {{"KeepAlive", Dictionary{{"SuccessfulExit", false}}}},
     "Runs sync when the agent is loaded, such as at login, and keeps it running until it "
     "succeeds."},
    {"WhileItSucceeds",
     {{"KeepAlive", Dictionary{{"SuccessfulExit", true}}}},
     "Runs sync when the agent is loaded, such as at login, and again each time it succeeds."},
    {"AfterACrash",
     {{"KeepAlive", Dictionary{{"Crashed", true}}}, {"RunAtLoad", true}},
     "Runs sync when the agent is loaded, such as at login, and again after a crash."},
    {"WhilePathsExist",
     {{"KeepAlive", Dictionary{{"PathState", Dictionary{{"/a", true}, {"/b", false}}}}}},
     "Runs sync as long as /a exists, and as long as /b does not exist."},
    {"WaitsForNothing",
     {{"KeepAlive", Dictionary{{"AfterInitialDemand", true}}}, {"RunAtLoad", true}},
     "Kept running once it has been started; nothing starts it."},
    {"WaitsForAPath",
     {{"KeepAlive", Dictionary{{"AfterInitialDemand", true}}}, {"WatchPaths", Array{Value("/a")}}},
     "Runs sync when /a changes, and keeps it running."},
    {"Program",
     {{"Program", "/Applications/Notes.app/Contents/MacOS/Notes"}, {"RunAtLoad", true}},
     "Runs Notes when the agent is loaded, such as at login."},
    {"ProgramBesideItsName",
     {{"Program", "/usr/bin/python3"},
      {"ProgramArguments", Array{Value("worker"), Value("-u"), Value("/a/job.py")}},
      {"RunAtLoad", true}},
     "Runs job.py when the agent is loaded, such as at login."},
    {"TypedScript",
     {{"ProgramArguments", Array{Value("/bin/sh"), Value("-c"), Value("say hello")}},
      {"RunAtLoad", true}},
     "Runs a script when the agent is loaded, such as at login."},
    {"EmptyScript",
     {{"ProgramArguments", Array{Value("/bin/sh"), Value("-c"), Value("")}}, {"RunAtLoad", true}},
     "Runs an empty script when the agent is loaded, such as at login."},
    {"Environment",
     {{"ProgramArguments", Array{Value("/usr/bin/env"), Value("python3"), Value("/a/job.py")}},
      {"RunAtLoad", true}},
     "Runs job.py when the agent is loaded, such as at login."},
    {"InterpreterAlone",
     {{"ProgramArguments", Array{Value("/bin/bash"), Value("-l")}}, {"RunAtLoad", true}},
     "Runs bash when the agent is loaded, such as at login."},
    {"NoArguments",
     {{"ProgramArguments", Array{}}, {"RunAtLoad", true}},
     "Runs nothing: the agent names no program."},
    {"ArgumentsThatAreAText",
     {{"ProgramArguments", "/bin/ls -l"}, {"RunAtLoad", true}},
     "Runs nothing: the agent names no program."},
};

INSTANTIATE_TEST_SUITE_P(Table, AgentSentence, testing::ValuesIn(overviewRows), NamedAfterRow());

TEST(AgentSentences, FollowTheClock) {
    const Dictionary agent = {{"ProgramArguments", sync},
                              {"StartCalendarInterval", calendar({{"Hour", 19}})}};
    EXPECT_EQ(agentSentence(agent, {.clock = ClockFormat::TwelveHours}),
              "Runs sync every minute from 07:00 PM to 07:59 PM.");
}

struct KindRow {
    const char* name;
    const char* path;
    const char* label; ///< null for none
    AgentKind kind;
    const char* shownName;
};

void PrintTo(const KindRow& row, std::ostream* out) { *out << row.name; }

class AgentKinds : public testing::TestWithParam<KindRow> {};

TEST_P(AgentKinds, AreToldApartByThePath) {
    Dictionary agent = {{"ProgramArguments", sync}};
    if (GetParam().label)
        agent["Label"] = GetParam().label;
    const auto overview = agentOverview(agent, GetParam().path, {}, {});
    EXPECT_EQ(overview.kind, GetParam().kind);
    EXPECT_EQ(overview.name, GetParam().shownName);
    EXPECT_EQ(overview.path, GetParam().path);
}

const KindRow overviewKinds[] = {
    {"Own", "/a/com.frimbolate.Backup.plist", "com.frimbolate.Backup", AgentKind::Own, "Backup"},
    {"OwnWithoutLabel", "/a/com.frimbolate.Backup.plist", nullptr, AgentKind::Own, "Backup"},
    {"OwnUnlikeItsFile", "/a/com.frimbolate.Backup.plist", "com.frimbolate.Sync", AgentKind::Own,
     "Sync"},
    {"Earlier", "/a/com.fr\u0131mbolate.Backup.plist", "com.fr\u0131mbolate.Backup",
     AgentKind::EarlierVersion, "Backup"},
    {"Other", "/a/org.example.sync.plist", "org.example.sync", AgentKind::OtherProgram,
     "org.example.sync"},
    {"OtherWithoutLabel", "/a/org.example.sync.plist", nullptr, AgentKind::OtherProgram,
     "org.example.sync.plist"},
    {"OtherWithOwnLabel", "/a/copy.plist", "com.frimbolate.Backup", AgentKind::OtherProgram,
     "com.frimbolate.Backup"},
};

INSTANTIATE_TEST_SUITE_P(Table, AgentKinds, testing::ValuesIn(overviewKinds), NamedAfterRow());

TEST(AgentOverviews, HoldStateSentenceRunAndFindings) {
    const Dictionary agent = {{"Label", "org.example.sync"},
                              {"ProgramArguments", sync},
                              {"StartIntervall", 5},
                              {"StartCalendarInterval", calendar({{"Hour", 7}, {"Minute", 5}})}};
    TextStyle style;
    style.now = LocalMinute(local_days(2026y / November / 21));
    const auto overview = agentOverview(agent, "/a/org.example.sync.plist", {}, style);
    EXPECT_EQ(overview.isOn, true);
    EXPECT_EQ(overview.sentence, "Runs sync every day at 07:05.");
    EXPECT_EQ(overview.nextRun, local_days(2026y / November / 21) + hours(7) + minutes(5));
    EXPECT_EQ(overview.findings, checkAgent(agent, {}));
    EXPECT_FALSE(overview.findings.empty());
}

TEST(AgentOverviews, ClaimNoRunWithoutAClockAndOfAnAgentThatIsOff) {
    Dictionary agent = {{"ProgramArguments", sync}, {"StartCalendarInterval", Dictionary{}}};
    EXPECT_EQ(agentOverview(agent, "/a.plist", {}, {}).nextRun, std::nullopt);
    TextStyle style;
    style.now = LocalMinute(local_days(2026y / November / 21));
    EXPECT_NE(agentOverview(agent, "/a.plist", {}, style).nextRun, std::nullopt);
    agent["Enabled"] = false;
    const auto off = agentOverview(agent, "/a.plist", {}, style);
    EXPECT_EQ(off.nextRun, std::nullopt);
    EXPECT_EQ(off.isOn, false);
}

TEST(AgentOverviews, GiveTheReasonOfAnUnreadableFile) {
    const auto overview = unreadableOverview("/a/b.plist", "it is not a regular file");
    EXPECT_EQ(overview.kind, AgentKind::Unreadable);
    EXPECT_EQ(overview.name, "b.plist");
    EXPECT_EQ(overview.sentence, "Cannot be read: it is not a regular file.");
    EXPECT_EQ(overview.isOn, std::nullopt);
    EXPECT_EQ(agentOverview(Value(5), "/a/b.plist", {}, {}).kind, AgentKind::Unreadable);
}

} // namespace
} // namespace frimbolate::test
