#include "core/form_presentation.h"

#include "tests/core/rendered_form.h"
#include "tests/support/rows.h"

#include <gmock/gmock.h>

#include <functional>

namespace frimbolate {

namespace {

using test::NamedAfterRow;

const TextStyle style{.home = "/Users/ada", .clock = ClockFormat::TwelveHours};

/// A valid form: every day at 07:30 PM.
FormModel soundModel() {
    FormModel model;
    model.agentNameTextField.stringValue = "Backup";
    model.agentTargetButton.selectedItem = TargetType::File;
    model.agentTargetImageWell.toolTip = "/Users/ada/bin/backup.sh";
    model.agentActionButton.selectedItem = AgentAction::OnSchedule;
    model.agentScheduleDatePicker.dateValue.hour = 19;
    model.agentScheduleDatePicker.dateValue.minute = 30;
    return model;
}

void spoilDay(FormModel& model) {
    model.agentScheduleTypeButton.selectedItem = ScheduleType::OnceAMonth;
    model.onMonthTextField.stringValue = "32";
}

struct PresentationRow {
    std::string_view name;
    std::function<void(FormModel&)> change;
    FormRow row;
    std::string_view hint;
    bool isFaulty;
    bool warns;
};

class RowPresentations : public testing::TestWithParam<PresentationRow> {};

TEST_P(RowPresentations, TellMarkFaultAndTime) {
    auto model = soundModel();
    GetParam().change(model);
    const auto presentation = present(model, style);
    const auto& shown = presentation.row(GetParam().row);
    EXPECT_EQ(shown.hint, GetParam().hint);
    EXPECT_EQ(shown.isFaulty, GetParam().isFaulty);
    EXPECT_EQ(shown.warns, GetParam().warns);
}

const PresentationRow presentationRows[] = {
    {"Sound", [](FormModel&) {}, FormRow::Schedule,
     "Every day at 07:30 PM; made up once if missed while asleep", false, false},
    {"Path", [](FormModel&) {}, FormRow::Target, "~/bin/backup.sh", false, false},
    {"PythonThatMacOSLacks",
     [](FormModel& model) { model.agentTargetImageWell.toolTip = "/Users/ada/tool.py"; },
     FormRow::Target,
     "macOS no longer has /usr/bin/python; choose a script with its own interpreter line and no "
     ".py, or type one",
     false, true},
    {"UnmarkedFault", [](FormModel& model) { model.agentNameTextField.stringValue = "a b"; },
     FormRow::Name, "com.frimbolate.a b.plist", false, false},
    {"MarkedFault",
     [](FormModel& model) {
         model.agentNameTextField.stringValue = "a b";
         model.nameErrorImageWell.hidden = false;
     },
     FormRow::Name, "The name may hold only a to z, A to Z, 0 to 9 and _", true, true},
    {"MarkedTarget",
     [](FormModel& model) {
         model.agentTargetButton.selectedItem = TargetType::None;
         model.targetErrorImageWell.hidden = false;
     },
     FormRow::Target, "Choose an application or a script", true, true},
    {"MarkedAction",
     [](FormModel& model) {
         model.agentActionButton.selectedItem = AgentAction::None;
         model.actionErrorImageWell.hidden = false;
     },
     FormRow::Action, "Choose when the agent starts", true, true},
    {"MendedAfterItWasMarked", [](FormModel& model) { model.nameErrorImageWell.hidden = false; },
     FormRow::Name, "com.frimbolate.Backup.plist", false, false},
    {"UnreadableTime",
     [](FormModel& model) { model.agentScheduleDatePicker.unreadableText = "7x"; },
     FormRow::Schedule, "\u201c7x\u201d is not a time of day; the field keeps 07:30 PM", false,
     true},
    {"UnreadableTimeBesideAMarkedFault",
     [](FormModel& model) {
         spoilDay(model);
         model.scheduleErrorImageWell.hidden = false;
         model.agentScheduleDatePicker.unreadableText = "7x";
     },
     FormRow::Schedule,
     "The day of the month must be 1 to 31; \u201c7x\u201d is not a time of day; the field keeps "
     "07:30 PM",
     true, true},
    {"UnreadableTimeBesideAnUnmarkedFault",
     [](FormModel& model) {
         spoilDay(model);
         model.agentScheduleDatePicker.unreadableText = "";
     },
     FormRow::Schedule, "No time was given; the field keeps 07:30 PM", false, true},
    {"UnreadableTimeLeavesOtherRowsAlone",
     [](FormModel& model) { model.agentScheduleDatePicker.unreadableText = "7x"; }, FormRow::Name,
     "com.frimbolate.Backup.plist", false, false},
};

INSTANTIATE_TEST_SUITE_P(Table, RowPresentations, testing::ValuesIn(presentationRows),
                         NamedAfterRow());

TEST(FormPresentations, HaveNoShortWordingOfAMessage) {
    auto model = soundModel();
    spoilDay(model);
    model.onMonthTextField.stringValue = "31";
    EXPECT_NE(present(model, style).row(FormRow::Schedule).shortHint, "");
    model.agentScheduleDatePicker.unreadableText = "7x";
    EXPECT_EQ(present(model, style).row(FormRow::Schedule).shortHint, "");
}

TEST(FormPresentations, AgreeWithEachRendering) {
    auto model = soundModel();
    for (const bool isSpoilt : {false, true}) {
        if (isSpoilt)
            spoilDay(model);
        const auto presentation = present(model, style);
        const auto record = agentForm(model);
        EXPECT_EQ(presentation.record, record);
        EXPECT_EQ(presentation.faults, validate(record));
        EXPECT_EQ(presentation.summary.sentence, test::summaryOf(record, style).sentence);
        EXPECT_EQ(presentation.summary.isComplete, !isSpoilt);
    }
}

struct NextRunRow {
    std::string_view name;
    std::function<void(FormModel&)> change;
    std::string_view expected;
};

class NextRunPresentations : public testing::TestWithParam<NextRunRow> {};

TEST_P(NextRunPresentations, ClaimWhatIsKnownAndLeaveTheSentence) {
    using namespace std::chrono;
    auto model = soundModel();
    GetParam().change(model);
    TextStyle timed = style;
    timed.now = LocalMinute(local_days(2026y / November / 21) + hours(9));
    const auto shown = present(model, timed);
    EXPECT_EQ(shown.nextRun, GetParam().expected);
    const auto plain = present(model, style);
    EXPECT_EQ(plain.nextRun, "");
    EXPECT_EQ(shown.summary.sentence, plain.summary.sentence);
}

const NextRunRow nextRuns[] = {
    {"Daily", [](FormModel&) {}, "Next: Saturday 21 November, 07:30 PM"},
    {"Weekly",
     [](FormModel& model) {
         model.agentScheduleTypeButton.selectedItem = ScheduleType::EveryWednesday;
     },
     "Next: Wednesday 25 November, 07:30 PM"},
    {"Monthly",
     [](FormModel& model) {
         model.agentScheduleTypeButton.selectedItem = ScheduleType::OnceAMonth;
         model.onMonthTextField.stringValue = "1";
     },
     "Next: Tuesday 1 December, 07:30 PM"},
    {"MonthlyOnAFaultyDay", spoilDay, ""},
    {"WithoutAName", [](FormModel& model) { model.agentNameTextField.stringValue = ""; }, ""},
    {"Interval",
     [](FormModel& model) {
         model.agentScheduleTypeButton.selectedItem = ScheduleType::OnInterval;
         model.agentIntervalField.stringValue = "60";
     },
     ""},
    {"AtLoad",
     [](FormModel& model) { model.agentScheduleTypeButton.selectedItem = ScheduleType::AtLoad; },
     ""},
    {"KeptRunning",
     [](FormModel& model) {
         model.agentActionButton.selectedItem = AgentAction::KeepRunning;
         model.queueDirectoryField.stringValue = "/queue";
     },
     ""},
    {"WatchedPath",
     [](FormModel& model) {
         model.agentActionButton.selectedItem = AgentAction::PathModified;
         model.agentWatchPathImageWell.toolTip = "/a";
     },
     ""},
    {"WatchedPathBesideASchedule",
     [](FormModel& model) {
         model.alsoRunPathChangeCheckbox.state = CheckState::On;
         model.alsoRunPathChangeImageWell.toolTip = "/a";
     },
     "Next: Saturday 21 November, 07:30 PM"},
};

INSTANTIATE_TEST_SUITE_P(Table, NextRunPresentations, testing::ValuesIn(nextRuns), NamedAfterRow());

struct CommandRow {
    std::string_view name;
    std::string_view command;
    bool unloads;
    std::string_view agentFileName;
    bool warns;
};

class CommandPresentations : public testing::TestWithParam<CommandRow> {};

TEST_P(CommandPresentations, TellWhatTheCommandDoes) {
    FormModel model;
    model.actionScriptTextView.string = GetParam().command;
    const auto shown = present(model).command;
    EXPECT_EQ(shown.unloads, GetParam().unloads);
    EXPECT_EQ(shown.agentFileName, GetParam().agentFileName);
    EXPECT_EQ(!shown.warning.empty(), GetParam().warns);
}

const CommandRow commandRows[] = {
    {"None", "", false, "", false},
    {"Load", "launchctl load '/Users/ada/a.plist'", false, "a.plist", false},
    {"Unload", "launchctl unload '/Users/ada/a.plist'", true, "a.plist", false},
    {"Unsafe", "launchctl unload '/Users/ada/it's.plist'", true, "it's.plist", true},
};

INSTANTIATE_TEST_SUITE_P(Table, CommandPresentations, testing::ValuesIn(commandRows),
                         NamedAfterRow());

} // namespace

} // namespace frimbolate
