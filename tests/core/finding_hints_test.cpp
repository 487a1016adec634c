// What the window shows of the findings: in the hints of the rows and for the drawer.
#include "core/finding_hints.h"

#include "core/form_presentation.h"
#include "tests/support/check_rows.h"
#include "tests/support/rows.h"

#include <gmock/gmock.h>

#include <functional>

namespace frimbolate::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const TextStyle hintStyle{.home = "/Users/maya"};

/// A daily agent without a finding.
FormModel dailyModel() {
    FormModel model;
    model.agentNameTextField.stringValue = "Backup";
    model.agentTargetButton.selectedItem = TargetType::File;
    model.agentTargetImageWell.toolTip = "/usr/bin/tool";
    model.agentActionButton.selectedItem = AgentAction::OnSchedule;
    model.agentScheduleDatePicker.dateValue.hour = 7;
    return model;
}

struct FindingHintRow {
    std::string_view name;
    std::function<void(FormModel&)> change;
    FormRow row;
    std::string_view hint, shortHint;
    bool warns;
};

class FindingHints : public testing::TestWithParam<FindingHintRow> {};

TEST_P(FindingHints, AreAddedToARowWithoutAMessage) {
    auto model = dailyModel();
    GetParam().change(model);
    const auto shown = present(model, hintStyle, machine().pathState).row(GetParam().row);
    EXPECT_EQ(shown.hint, GetParam().hint);
    EXPECT_EQ(shown.shortHint, GetParam().shortHint);
    EXPECT_EQ(shown.warns, GetParam().warns);
}

void launchMissing(FormModel& model) { model.agentTargetImageWell.toolTip = "/usr/bin/none"; }

void keepAlive(FormModel& model, int schedule) {
    model.agentActionButton.selectedItem = AgentAction::KeepRunning;
    model.agentScheduleTypeButton.selectedItem = schedule;
}

void watchFromHome(FormModel& model) {
    model.agentActionButton.selectedItem = AgentAction::PathModified;
    model.agentWatchPathImageWell.toolTip = "~/x";
}

void overflow(FormModel& model) {
    model.agentScheduleTypeButton.selectedItem = ScheduleType::OnInterval;
    model.agentIntervalTypeButton.selectedItem = IntervalUnit::Minutes;
    model.agentIntervalField.stringValue = "40000000";
}

const FindingHintRow findingHintRows[] = {
    {"Nothing", [](FormModel&) {}, FormRow::Target, "/usr/bin/tool", "", false},
    {"ProgramMissing", launchMissing, FormRow::Target,
     "/usr/bin/none; the program does not exist on this machine",
     "The program does not exist on this machine", true},
    {"OtherRowsStay", launchMissing, FormRow::Schedule,
     "Every day at 07:00; made up once if missed while asleep", "", false},
    {"ProgramIsNoProgram",
     [](FormModel& model) { model.agentTargetImageWell.toolTip = "/opt/notes.txt"; },
     FormRow::Target, "/opt/notes.txt; the program is not executable: run chmod +x",
     "The program is not executable: run chmod +x", true},
    {"TheFirstOfTwoAlone",
     [](FormModel& model) { model.agentTargetImageWell.toolTip = "/opt/none.rb"; }, FormRow::Target,
     "/opt/none.rb; the interpreter does not exist on this machine",
     "The interpreter does not exist on this machine", true},
    {"NotBesideTheHintAboutPython",
     [](FormModel& model) { model.agentTargetImageWell.toolTip = "/opt/none.py"; }, FormRow::Target,
     "macOS no longer has /usr/bin/python; choose a script with its own interpreter line and no "
     ".py, or type one",
     "macOS no longer has /usr/bin/python; choose a script without .py, or type one", true},
    {"ElsewhereThanOnThisMachine",
     [](FormModel& model) { model.agentTargetImageWell.toolTip = "/Applications/x"; },
     FormRow::Target, "/Applications/x", "", false},
    {"NoNote",
     [](FormModel& model) { model.agentTargetImageWell.toolTip = "/Users/maya/Desktop/x"; },
     FormRow::Target, "~/Desktop/x", "", false},
    {"NoNoteOfTheSchedule",
     [](FormModel& model) {
         model.agentScheduleTypeButton.selectedItem = ScheduleType::OnceAMonth;
         model.onMonthTextField.stringValue = "31";
     },
     FormRow::Schedule,
     "On the 31st of every month at 07:00, in shorter months on a day after the month's end; made "
     "up once if missed while asleep",
     "On the 31st at 07:00 or after a shorter month's end; made up once if asleep", false},
    {"NothingStartsIt", [](FormModel& model) { keepAlive(model, ScheduleType::EveryDay); },
     FormRow::Action, "Kept running once it has been started; nothing in this form starts it",
     "Kept running once started; nothing in this form starts it", true},
    {"QueueStartsIt",
     [](FormModel& model) {
         keepAlive(model, ScheduleType::EveryDay);
         model.queueDirectoryField.stringValue = "/opt/queue";
     },
     FormRow::Action, "Kept running once it has been started", "Kept running once started", false},
    {"WatchedPathInHome", watchFromHome, FormRow::Action,
     "Watches \u201c~/x\u201d; the watched path begins with \u201c~\u201d, which launchd does not "
     "expand: write /Users/maya/x",
     "The watched path begins with \u201c~\u201d, which launchd does not expand: write "
     "/Users/maya/x",
     true},
    {"Overflow", overflow, FormRow::Schedule,
     "Never; the interval is -1894967296; launchd ignores an interval of 0 and less",
     "The interval is -1894967296; launchd ignores an interval of 0 and less", true},
    {"UnreadableTime",
     [](FormModel& model) {
         overflow(model);
         model.agentScheduleDatePicker.unreadableText = "7x";
     },
     FormRow::Schedule, "\u201c7x\u201d is not a time of day; the field keeps 07:00", "", true},
    {"MarkedFault",
     [](FormModel& model) {
         overflow(model);
         model.agentIntervalField.stringValue = "often";
         model.scheduleErrorImageWell.hidden = false;
     },
     FormRow::Schedule, "The interval must be a whole number", "", true},
    {"UnmarkedFault",
     [](FormModel& model) {
         overflow(model);
         model.agentIntervalField.stringValue = "often";
     },
     FormRow::Schedule, "At an interval", "", false},
};

INSTANTIATE_TEST_SUITE_P(Table, FindingHints, testing::ValuesIn(findingHintRows), NamedAfterRow());

TEST(FindingsOfTheWindow, LeaveTheSentenceAndTheFaults) {
    auto model = dailyModel();
    launchMissing(model);
    const auto found = present(model, hintStyle, machine().pathState);
    const auto plain = present(model, hintStyle);
    EXPECT_EQ(found.findings.size(), 1U);
    EXPECT_THAT(plain.findings, IsEmpty()) << "no path is looked at";
    EXPECT_EQ(plain.row(FormRow::Target).hint, "/usr/bin/none");
    EXPECT_EQ(found.summary.sentence, plain.summary.sentence);
    EXPECT_EQ(found.summary.isComplete, plain.summary.isComplete);
    EXPECT_THAT(found.faults, IsEmpty());
}

TEST(FindingsOfTheWindow, AskAboutThePathsOfTheFormAlone) {
    auto model = dailyModel();
    model.standardOutPathField.stringValue = "/opt/none/x.log";
    model.queueDirectoryField.stringValue = "/opt/queue";
    model.workingDirectoryField.stringValue = "~/x";
    std::vector<std::string> asked;
    present(model, hintStyle, [&asked](const std::string& path) {
        asked.push_back(path);
        return machine().pathState(path);
    });
    EXPECT_THAT(asked, ElementsAre("/usr", "/usr/bin/tool", "/opt", "/opt/none"));
}

struct DrawerRow {
    std::string_view name;
    std::function<void(FormModel&)> change;
    /// The text and its wording for the title line.
    std::vector<std::pair<std::string, std::string>> shown;
};

class DrawerFindings : public testing::TestWithParam<DrawerRow> {};

TEST_P(DrawerFindings, AreThoseThatItsHintsDoNotSay) {
    auto model = dailyModel();
    GetParam().change(model);
    std::vector<std::pair<std::string, std::string>> shown;
    const auto findings = present(model, hintStyle, machine().pathState).findings;
    for (const auto& finding : findings) {
        EXPECT_FALSE(finding.row) << finding.text;
        shown.emplace_back(finding.text, shortWords(finding));
    }
    EXPECT_EQ(shown, GetParam().shown);
    EXPECT_EQ(firstOfDrawer(findings), findings.empty() ? nullptr : findings.data());
}

const std::string shadowed = " adds nothing: KeepAlive keeps the agent running";

const DrawerRow drawerRows[] = {
    {"Nothing", [](FormModel&) {}, {}},
    {"TypedPathsAndRoot",
     [](FormModel& model) {
         model.workingDirectoryField.stringValue = "~/x";
         model.rootDirectoryField.stringValue = "~/x";
         model.queueDirectoryField.stringValue = "~/x";
         model.standardInPathField.stringValue = "~/x";
         model.standardOutPathField.stringValue = "~/x";
         model.standardErrorPathField.stringValue = "~/x";
         model.niceLevelSlider.value = -3;
     },
     {}},
    {"WatchedPathInHome",
     [](FormModel& model) {
         model.alsoRunPathChangeCheckbox.state = CheckState::On;
         model.alsoRunPathChangeImageWell.toolTip = "~/x";
     },
     {{"The watched path begins with \u201c~\u201d, which launchd does not expand: write "
       "/Users/maya/x",
       "Watched path: \u201c~\u201d is not expanded"}}},
    {"Variable",
     [](FormModel& model) { model.workingDirectoryField.stringValue = "/opt/$USER"; },
     {{"The working folder holds $USER, which launchd does not expand: write its value",
       "Working folder: a variable is not expanded"}}},
    {"LogFolders",
     [](FormModel& model) {
         model.standardOutPathField.stringValue = "/opt/none/x.log";
         model.standardErrorPathField.stringValue = "/opt/none/x.log";
     },
     {{"The standard output is in a folder that does not exist on this machine, and launchd does "
       "not create it",
       "Standard output: its folder is missing"},
      {"The standard error is in a folder that does not exist on this machine, and launchd does "
       "not create it",
       "Standard error: its folder is missing"}}},
    {"Shadowed",
     [](FormModel& model) {
         keepAlive(model, ScheduleType::AtLoad);
         model.alsoRunVolumeCheckbox.state = CheckState::On;
         model.queueDirectoryField.stringValue = "/opt/queue";
     },
     {{"The queue folder" + shadowed, "Queue folder: adds nothing"},
      {"The mounting of a volume" + shadowed, "Mounting of a volume: adds nothing"}}},
    {"NiceLevel",
     [](FormModel& model) { model.niceLevelSlider.value = 30; },
     {{"The nice level is 30, not between -20 and 20", "Nice level: not between -20 and 20"}}},
};

INSTANTIATE_TEST_SUITE_P(Table, DrawerFindings, testing::ValuesIn(drawerRows), NamedAfterRow());

TEST(DrawerFindings, AreFoundByTheirKey) {
    auto model = dailyModel();
    launchMissing(model);
    keepAlive(model, ScheduleType::AtLoad);
    model.queueDirectoryField.stringValue = "/opt/$USER";
    const auto findings = present(model, hintStyle, machine().pathState).findings;
    const auto* queue = drawerFindingOf(findings, "QueueDirectories");
    ASSERT_TRUE(queue);
    EXPECT_TRUE(queue->text.starts_with("The queue folder "));
    EXPECT_FALSE(drawerFindingOf(findings, "QueueDirectorie"));
    EXPECT_FALSE(drawerFindingOf(findings, "ProgramArguments")) << "of a row";
    EXPECT_FALSE(drawerFindingOf({}, "QueueDirectories"));
    EXPECT_FALSE(firstOfDrawer({}));
}

} // namespace
} // namespace frimbolate::test
