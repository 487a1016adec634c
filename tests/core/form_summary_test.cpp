#include "core/form_summary.h"
#include "tests/core/rendered_form.h"

#include <gmock/gmock.h>

#include <functional>

namespace frimbolate {

namespace {

using test::faultyRows;
using test::hintsOf;
using test::sentenceOf;

using Change = std::function<void(AgentForm&)>;

constexpr std::string_view home = "/Users/ada";

/// A valid form: backup.sh every Wednesday at 07:05.
AgentForm soundForm() {
    AgentForm form;
    form.name = "Backup";
    form.targetType = TargetType::File;
    form.targetPath = "/Users/ada/bin/backup.sh";
    form.action = AgentAction::OnSchedule;
    form.scheduleType = ScheduleType::EveryWednesday;
    form.scheduleTime.hour = 7;
    form.scheduleTime.minute = 5;
    return form;
}

AgentForm changed(const Change& change) {
    auto form = soundForm();
    change(form);
    return form;
}

Change schedule(int type) {
    return [type](AgentForm& form) { form.scheduleType = type; };
}

Change onDay(std::string day) {
    return [day = std::move(day)](AgentForm& form) {
        form.scheduleType = ScheduleType::OnceAMonth;
        form.dayOfMonthText = day;
    };
}

Change every(std::string number, int unit) {
    return [number = std::move(number), unit](AgentForm& form) {
        form.scheduleType = ScheduleType::OnInterval;
        form.intervalText = number;
        form.intervalUnit = unit;
    };
}

Change keepRunning(int type, bool allowSuccessfulExit) {
    return [=](AgentForm& form) {
        form.action = AgentAction::KeepRunning;
        form.scheduleType = type;
        form.allowSuccessfulExit = allowSuccessfulExit;
    };
}

Change target(std::string path) {
    return [path = std::move(path)](AgentForm& form) { form.targetPath = path; };
}

Change script(std::string text) {
    return [text = std::move(text)](AgentForm& form) {
        form.targetType = TargetType::Script;
        form.scriptText = text;
    };
}

Change action(int type, std::string watchPath = {}) {
    return [type, watchPath = std::move(watchPath)](AgentForm& form) {
        form.action = type;
        form.scheduleType = ScheduleType::NoSelection;
        form.watchPath = watchPath;
    };
}

Change alsoOnChangeOf(std::string path) {
    return [path = std::move(path)](AgentForm& form) {
        form.alsoRunOnPathChange = true;
        form.alsoRunPath = path;
    };
}

Change all(std::vector<Change> changes) {
    return [changes = std::move(changes)](AgentForm& form) {
        for (const auto& change : changes)
            change(form);
    };
}

void nothing(AgentForm&) {}
void newAgent(AgentForm& form) { form = {}; }
void dropName(AgentForm& form) { form.name = ""; }
void spoilName(AgentForm& form) { form.name = "back-up"; }
void dropTarget(AgentForm& form) { form.targetType = TargetType::None; }
void dropAction(AgentForm& form) { form.action = AgentAction::None; }
void alsoOnMount(AgentForm& form) { form.alsoRunOnVolumeMount = true; }
void alsoAtLoad(AgentForm& form) { form.alsoRunAtLoad = true; }
void queue(AgentForm& form) { form.queueDirectory = "/Users/ada/Queue"; }
void midnight(AgentForm& form) { form.scheduleTime.hour = form.scheduleTime.minute = 0; }
void lastMinute(AgentForm& form) { form.scheduleTime.hour = 23, form.scheduleTime.minute = 59; }

struct SentenceRow {
    std::string_view name;
    Change change;
    std::string_view expected;
};

std::string rowName(const testing::TestParamInfo<SentenceRow>& info) {
    return std::string(info.param.name);
}

class FormSummary : public testing::TestWithParam<SentenceRow> {};

TEST_P(FormSummary, SaysWhatWillHappen) {
    EXPECT_EQ(sentenceOf(changed(GetParam().change), home), GetParam().expected);
}

const SentenceRow sentences[] = {
    {"Weekly", nothing, "Runs backup.sh every Wednesday at 07:05."},
    {"Sunday", schedule(ScheduleType::EverySunday), "Runs backup.sh every Sunday at 07:05."},
    {"Saturday", schedule(ScheduleType::EverySaturday), "Runs backup.sh every Saturday at 07:05."},
    {"Daily", schedule(ScheduleType::EveryDay), "Runs backup.sh every day at 07:05."},
    {"NoSelectionIsDaily", schedule(ScheduleType::NoSelection),
     "Runs backup.sh every day at 07:05."},
    {"Midnight", midnight, "Runs backup.sh every Wednesday at 00:00."},
    {"LastMinute", lastMinute, "Runs backup.sh every Wednesday at 23:59."},
    {"ReservedActionIsSchedule", [](AgentForm& form) { form.action = 1; },
     "Runs backup.sh every Wednesday at 07:05."},

    {"First", onDay("1"), "Runs backup.sh on the 1st of every month at 07:05."},
    {"Second", onDay("2"), "Runs backup.sh on the 2nd of every month at 07:05."},
    {"Third", onDay("03"), "Runs backup.sh on the 3rd of every month at 07:05."},
    {"Eleventh", onDay("11"), "Runs backup.sh on the 11th of every month at 07:05."},
    {"TwentyFirst", onDay("21"), "Runs backup.sh on the 21st of every month at 07:05."},
    {"EveryMonthHasThe28th", onDay("28"), "Runs backup.sh on the 28th of every month at 07:05."},
    {"TwentyNinth", onDay("29"),
     "Runs backup.sh on the 29th of every month at 07:05, in shorter months on a day after the "
     "month's end."},
    {"ThirtyFirst", onDay("31"),
     "Runs backup.sh on the 31st of every month at 07:05, in shorter months on a day after the "
     "month's end."},

    {"Seconds", every("15", IntervalUnit::Seconds), "Runs backup.sh every 15 seconds."},
    {"SixtySeconds", every("60", IntervalUnit::Seconds), "Runs backup.sh every minute."},
    {"Minutes", every("90", IntervalUnit::Minutes), "Runs backup.sh every 90 minutes."},
    {"SecondsThatAreHours", every("7200", IntervalUnit::Seconds), "Runs backup.sh every 2 hours."},
    {"Hour", every("1", IntervalUnit::Hours), "Runs backup.sh every hour."},
    {"UnknownUnitIsSeconds", every("15", 7), "Runs backup.sh every 15 seconds."},
    {"IntervalOfZero", every("0", IntervalUnit::Minutes),
     "Never runs backup.sh: nothing launches it."},
    {"IntervalThatOverflows", every("600000", IntervalUnit::Hours),
     "Never runs backup.sh: nothing launches it."},
    {"IntervalOfZeroAndMount", all({every("0", IntervalUnit::Hours), alsoOnMount}),
     "Runs backup.sh when a volume is mounted."},

    {"AtLoad", schedule(ScheduleType::AtLoad),
     "Runs backup.sh when the agent is loaded, such as at login."},
    {"AtLoadIsSaidOnce", all({schedule(ScheduleType::AtLoad), alsoAtLoad}),
     "Runs backup.sh when the agent is loaded, such as at login."},
    {"ReservedSchedule", schedule(9), "Never runs backup.sh: nothing launches it."},
    {"BeyondAllSchedules", schedule(15), "Never runs backup.sh: nothing launches it."},

    {"KeepRunning", keepRunning(ScheduleType::AtLoad, false),
     "Runs backup.sh when the agent is loaded, such as at login, and keeps it running."},
    {"KeepRunningDaily", keepRunning(ScheduleType::EveryDay, false),
     "Kept running once it has been started; nothing in this form starts it."},
    {"KeepRunningUntilSuccess", keepRunning(ScheduleType::EveryDay, true),
     "Kept running until it succeeds, once it has been started; nothing in this form starts it."},
    {"KeepRunningUntilSuccessFromLoad", keepRunning(ScheduleType::AtLoad, true),
     "Runs backup.sh when the agent is loaded, such as at login, and keeps it running until it "
     "succeeds."},
    {"KeepRunningOnInterval",
     all({every("90", IntervalUnit::Minutes), keepRunning(ScheduleType::OnInterval, false)}),
     "Kept running once it has been started; nothing in this form starts it."},
    {"KeepRunningMonthly", all({onDay("31"), keepRunning(ScheduleType::OnceAMonth, false)}),
     "Kept running once it has been started; nothing in this form starts it."},
    {"KeepRunningAndAlsoAtLoad", all({keepRunning(ScheduleType::EveryDay, false), alsoAtLoad}),
     "Kept running once it has been started; nothing in this form starts it."},
    {"KeepRunningAndAlsoOnPathChange",
     all({keepRunning(ScheduleType::EveryDay, false), alsoOnChangeOf("/a"), alsoOnMount}),
     "Runs backup.sh when /a changes, and keeps it running."},
    {"KeepRunningAndQueue", all({keepRunning(ScheduleType::EveryDay, true), queue}),
     "Runs backup.sh as long as ~/Queue is not empty, and keeps it running until it succeeds."},
    {"KeepRunningFromLoadAndMount", all({keepRunning(ScheduleType::AtLoad, false), alsoOnMount}),
     "Runs backup.sh when the agent is loaded, such as at login, and when a volume is mounted, and "
     "keeps it running."},
    {"SuccessfulExitNeedsKeepRunning", [](AgentForm& form) { form.allowSuccessfulExit = true; },
     "Runs backup.sh every Wednesday at 07:05."},

    {"PathChange", action(AgentAction::PathModified, "/Users/ada/Pictures"),
     "Runs backup.sh when ~/Pictures changes."},
    {"PathOfAnotherHome", action(AgentAction::PathModified, "/Users/adam/Pictures"),
     "Runs backup.sh when /Users/adam/Pictures changes."},
    {"HomeItself", action(AgentAction::PathModified, "/Users/ada"),
     "Runs backup.sh when ~ changes."},
    {"AdditionalPathReplacesTheMainOne",
     all({action(AgentAction::PathModified, "/a"), alsoOnChangeOf("/b")}),
     "Runs backup.sh when /b changes."},
    {"Mount", action(AgentAction::VolumeMounted), "Runs backup.sh when a volume is mounted."},
    {"MountIsSaidOnce", all({action(AgentAction::VolumeMounted), alsoOnMount}),
     "Runs backup.sh when a volume is mounted."},
    {"UnknownAction", action(6), "Never runs backup.sh: nothing launches it."},
    {"UnknownActionAndMount", all({action(6), alsoOnMount}),
     "Runs backup.sh when a volume is mounted."},

    {"AlsoOnMount", alsoOnMount,
     "Runs backup.sh every Wednesday at 07:05, and when a volume is mounted."},
    {"AlsoOnPathChange", alsoOnChangeOf("/Users/ada/Pictures"),
     "Runs backup.sh every Wednesday at 07:05, and when ~/Pictures changes."},
    {"AlsoAtLoad", alsoAtLoad,
     "Runs backup.sh every Wednesday at 07:05, and when the agent is loaded, such as at login."},
    {"AlsoTwo", all({alsoOnMount, alsoOnChangeOf("/etc/hosts")}),
     "Runs backup.sh every Wednesday at 07:05, when a volume is mounted, and when /etc/hosts "
     "changes."},
    {"AlsoQueue", queue,
     "Runs backup.sh every Wednesday at 07:05, and as long as ~/Queue is not empty."},
    {"TypedTildeIsNotTheHomeFolder",
     all({queue, [](AgentForm& form) { form.queueDirectory = "~/Queue"; }}),
     "Runs backup.sh every Wednesday at 07:05, and as long as \u201c~/Queue\u201d is not empty."},
    {"AlsoAndKeepRunning", all({keepRunning(ScheduleType::EveryDay, false), alsoOnMount}),
     "Kept running once it has been started; nothing in this form starts it."},

    {"TypedScript", script("ls"), "Runs a script every Wednesday at 07:05."},
    {"EmptyScript", script(""), "Runs an empty script every Wednesday at 07:05."},
    {"Application", target("/Applications/Clock.app/Contents/MacOS/clock"),
     "Runs Clock every Wednesday at 07:05."},
    {"ApplicationBundle", target("/Applications/Clock.app"),
     "Runs Clock every Wednesday at 07:05."},
    {"TrailingSlash", target("/Applications/Clock.app/"), "Runs Clock every Wednesday at 07:05."},
    {"OnlyAnExtension", target("/tmp/.app"), "Runs .app every Wednesday at 07:05."},
    {"FolderWithADot", target("/Users/ada/my.scripts/run"), "Runs run every Wednesday at 07:05."},
    {"Root", target("/"), "Runs / every Wednesday at 07:05."},

    {"NewAgent", newAgent,
     "Still needs a name, something to launch and a choice of when to launch it."},
    {"NoName", dropName, "Still needs a name."},
    {"NoTarget", dropTarget, "Still needs something to launch."},
    {"NoPath", target(""), "Still needs something to launch."},
    {"NoAction", dropAction, "Still needs a choice of when to launch it."},
    {"NoNameNorAction", all({dropName, dropAction}),
     "Still needs a name and a choice of when to launch it."},
    {"NoWatchPath", action(AgentAction::PathModified), "Still needs a path to watch."},
    {"NoAdditionalPath", alsoOnChangeOf(""), "Still needs a path to watch."},
    {"NoDay", onDay(""), "Still needs a day of the month."},
    {"NoInterval", every("", IntervalUnit::Hours), "Still needs an interval."},
    {"BadName", spoilName, "The name may hold only a to z, A to Z, 0 to 9 and _."},
    {"BadDay", onDay("-1"), "The day of the month must be a number."},
    {"DayZero", onDay("0"), "The day of the month must be 1 to 31."},
    {"Day32", onDay("32"), "The day of the month must be 1 to 31."},
    {"BadInterval", every("1.5", IntervalUnit::Hours), "The interval must be a whole number."},
    {"ShortInterval", every("9", IntervalUnit::Seconds),
     "The interval must be at least 10 seconds."},
    {"MissingAndWrong", all({spoilName, dropTarget}),
     "Still needs something to launch; the name may hold only a to z, A to Z, 0 to 9 and _."},
    {"TwoWrong", all({spoilName, onDay("32")}),
     "The name may hold only a to z, A to Z, 0 to 9 and _; the day of the month must be 1 to 31."},
};

INSTANTIATE_TEST_SUITE_P(Table, FormSummary, testing::ValuesIn(sentences), rowName);

TEST(FormSummaryAlone, ShowsPathsInFullWithoutAHome) {
    EXPECT_EQ(sentenceOf(changed(action(AgentAction::PathModified, "/Users/ada/Pictures"))),
              "Runs backup.sh when /Users/ada/Pictures changes.");
}

struct HintRow {
    std::string_view name;
    Change change;
    std::string RowHints::*hint;
    std::string_view expected;      ///< while no marker is shown
    std::string_view expectedFault; ///< once the markers are shown
};

std::string hintRowName(const testing::TestParamInfo<HintRow>& info) {
    return std::string(info.param.name);
}

class RowHint : public testing::TestWithParam<HintRow> {};

TEST_P(RowHint, SaysWhatTheRowMeans) {
    const auto hints = hintsOf(changed(GetParam().change), {}, home);
    EXPECT_EQ(hints.*GetParam().hint, GetParam().expected);
}

TEST_P(RowHint, SaysTheFaultOnceItIsMarked) {
    const auto form = changed(GetParam().change);
    const auto hints = hintsOf(form, faultyRows(form), home);
    EXPECT_EQ(hints.*GetParam().hint, GetParam().expectedFault);
}

/// A valid row, whose hint does not depend on the markers.
HintRow sound(std::string_view name, Change change, std::string RowHints::*hint,
              std::string_view expected) {
    return {name, std::move(change), hint, expected, expected};
}

const HintRow hintRows[] = {
    sound("Name", nothing, &RowHints::name, "com.frimbolate.Backup.plist"),
    {"NoName", dropName, &RowHints::name, "com.frimbolate.<name>.plist", "The agent needs a name"},
    {"BadName", spoilName, &RowHints::name, "com.frimbolate.back-up.plist",
     "The name may hold only a to z, A to Z, 0 to 9 and _"},

    sound("Target", nothing, &RowHints::target, "~/bin/backup.sh"),
    sound("NoPath", target(""), &RowHints::target,
          "Choose an application or a script, or drop one on the box"),
    sound("Script", script("ls -l\ndate"), &RowHints::target, "Script: ls -l date"),
    sound("EmptyScript", script(""), &RowHints::target, "An empty script"),
    {"NoTarget", dropTarget, &RowHints::target,
     "Choose an application or a script, or drop one on the box",
     "Choose an application or a script"},

    {"NoAction", dropAction, &RowHints::action,
     "Choose a schedule or an event that starts the agent", "Choose when the agent starts"},
    sound("OnSchedule", nothing, &RowHints::action, "Launched as scheduled below"),
    sound("ReservedAction", action(1), &RowHints::action, "Launched as scheduled below"),
    sound("KeepRunning", keepRunning(ScheduleType::EveryDay, false), &RowHints::action,
          "Kept running once it has been started; nothing in this form starts it"),
    sound("KeepRunningFromLoad", keepRunning(ScheduleType::AtLoad, false), &RowHints::action,
          "Launched as scheduled, and again whenever it ends"),
    sound("KeepRunningFromLoadUntilSuccess", keepRunning(ScheduleType::AtLoad, true),
          &RowHints::action, "Launched as scheduled, and again whenever it fails"),
    sound("KeepRunningByQueue", all({keepRunning(ScheduleType::EveryDay, false), queue}),
          &RowHints::action, "Kept running once it has been started"),
    sound("KeepRunningUntilSuccess", keepRunning(ScheduleType::EveryDay, true), &RowHints::action,
          "Kept running until it succeeds, once it has been started; nothing in this form starts "
          "it"),
    sound("PathChange", action(AgentAction::PathModified, "/Users/ada/Pictures"), &RowHints::action,
          "Watches ~/Pictures"),
    sound("NoWatchPath", action(AgentAction::PathModified), &RowHints::action,
          "Choose the file or folder to watch"),
    sound("Mount", action(AgentAction::VolumeMounted), &RowHints::action,
          "Launched whenever a file system is mounted"),
    sound("UnknownAction", action(6), &RowHints::action, "Never launched"),

    sound("Weekly", schedule(ScheduleType::EveryMonday), &RowHints::schedule,
          "Every Monday at 07:05; made up once if missed while asleep"),
    sound("Monthly", onDay("30"), &RowHints::schedule,
          "On the 30th of every month at 07:05, in shorter months on a day after the month's end; "
          "made up once if missed while asleep"),
    sound("AtLoad", schedule(ScheduleType::AtLoad), &RowHints::schedule,
          "When the agent is loaded, such as at login"),
    sound("Interval", every("90", IntervalUnit::Minutes), &RowHints::schedule,
          "Every 90 minutes; not made up if missed while asleep"),
    sound("IntervalOfZero", every("0", IntervalUnit::Minutes), &RowHints::schedule, "Never"),
    sound("ScheduleOfPathChange", action(AgentAction::PathModified, "/a"), &RowHints::schedule,
          "Not used: the condition above launches the agent"),
    sound("ScheduleOfKeepRunning", keepRunning(ScheduleType::EveryDay, false), &RowHints::schedule,
          "Not used: the agent waits for a first start"),
    sound("ScheduleOfKeepRunningFromLoad", keepRunning(ScheduleType::AtLoad, false),
          &RowHints::schedule, "When the agent is loaded, such as at login"),
    sound("ScheduleOfMount", action(AgentAction::VolumeMounted), &RowHints::schedule,
          "Not used: the condition above launches the agent"),
    {"BadDay", onDay("x"), &RowHints::schedule, "Once a month at 07:05",
     "The day of the month must be a number"},
    {"NoDay", onDay(""), &RowHints::schedule, "Once a month at 07:05",
     "The schedule needs a day of the month"},
    {"Day32", onDay("32"), &RowHints::schedule, "Once a month at 07:05",
     "The day of the month must be 1 to 31"},
    {"BadInterval", every("x", IntervalUnit::Hours), &RowHints::schedule, "At an interval",
     "The interval must be a whole number"},
    {"NoInterval", every("", IntervalUnit::Hours), &RowHints::schedule, "At an interval",
     "The schedule needs an interval"},
    {"ShortInterval", every("9", IntervalUnit::Seconds), &RowHints::schedule, "At an interval",
     "The interval must be at least 10 seconds"},
};

INSTANTIATE_TEST_SUITE_P(Table, RowHint, testing::ValuesIn(hintRows), hintRowName);

TEST(RowHintAlone, GoesBackToItsMeaningWhenTheFaultIsMended) {
    const RowFlags shownMarkers = {true, false, false, false};
    EXPECT_EQ(hintsOf(soundForm(), shownMarkers).name, "com.frimbolate.Backup.plist");
}

/// A fault that has no hint would leave a marked row without an explanation.
TEST(RowHintAlone, LeavesNoMarkedRowWithoutItsFault) {
    for (const auto& row : hintRows) {
        const auto form = changed(row.change);
        const auto faulty = faultyRows(form);
        const auto marked = hintsOf(form, faulty, home);
        const auto plain = hintsOf(form, {}, home);
        EXPECT_EQ(faulty[0], marked.name != plain.name) << row.name;
        EXPECT_EQ(faulty[1], marked.target != plain.target) << row.name;
        EXPECT_EQ(faulty[2], marked.action != plain.action) << row.name;
        EXPECT_EQ(faulty[3], marked.schedule != plain.schedule) << row.name;
    }
}

} // namespace

} // namespace frimbolate
