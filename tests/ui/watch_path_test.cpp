#include "tests/support/editor_test.h"
#include "tests/support/expected_panels.h"
#include "tests/support/form_snapshot.h"
#include "tests/support/rows.h"

#include <functional>
#include <memory>

namespace frimbolate {

namespace {

using test::differences;
using test::EditorTest;
using test::expectPanel;
using test::NamedAfterRow;
using test::nonDefaultForm;
using test::ScriptedPlatform;
using test::selectPanel;
using test::Snapshot;
using test::snapshot;
using test::with;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto watchPanelLine = "open panel: Please choose folder:";

OpenPanel watchPathPanel(std::optional<std::string> directory) {
    auto panel = selectPanel("Please choose folder:", {}, std::move(directory));
    panel.canChooseDirectories = true;
    panel.canCreateDirectories = true;
    return panel;
}

// The main watch path

class WatchPath : public EditorTest {
  protected:
    void chooseAction(int action) {
        form.agentActionButton.selectedItem = action;
        editor.chooseAgentAction();
    }
};

/// The form with the item "On Interval" enabled.
FormModel withInterval(FormModel form) {
    form.agentScheduleTypeButton.disabledItems.erase(ScheduleType::OnInterval);
    return form;
}

const Snapshot byPath = {{"popoverScriptObject.shown", "no"},
                         {"alsoRunVolumeCheckbox.enabled", "yes"},
                         {"alsoRunPathChangeCheckbox.state", "0"},
                         {"alsoRunPathChangeCheckbox.enabled", "no"},
                         {"alsoRunAtLoadCheckbox.enabled", "yes"},
                         {"agentScheduleTypeButton.enabled", "no"},
                         {"agentScheduleTypeButton.selectedItem", "-1"},
                         {"agentScheduleTypeButton.width", "311"},
                         {"agentScheduleDatePicker.hidden", "yes"},
                         {"agentScheduleDatePicker.unreadableText", "none"},
                         {"agentScheduleDatePicker.width", "146"},
                         {"agentIntervalTypeButton.selectedItem", "0"},
                         {"agentIntervalTypeButton.hidden", "yes"},
                         {"agentIntervalField.stringValue", "\"\""},
                         {"agentIntervalField.hidden", "yes"},
                         {"onMonthTextBox.hidden", "yes"},
                         {"onMonthTextField.stringValue", "\"\""},
                         {"agentWatchPathImageWell.image", "none"},
                         {"agentWatchPathImageWell.toolTip", "\"\""},
                         {"allowSuccessfulExitCheckbox.state", "0"},
                         {"allowSuccessfulExitCheckbox.enabled", "no"}};

TEST_F(WatchPath, IsAskedForOnceTheFormIsReady) {
    for (const auto& start : startForms()) {
        SCOPED_TRACE(start.name);
        form = start.form;
        form.agentActionButton.selectedItem = AgentAction::PathModified;
        auto expected = with(snapshot(withInterval(form)), byPath);
        editor.chooseAgentAction();
        EXPECT_THAT(differences(expected, snapshot(form)), IsEmpty());
        expectPanel(platform.shownOpenPanel(), watchPathPanel(std::nullopt));

        platform.choose("/Users/maya/Pictures");
        expected =
            with(expected, {{"agentWatchPathImageWell.image", "icon of /Users/maya/Pictures"},
                            {"agentWatchPathImageWell.toolTip", "\"/Users/maya/Pictures\""}});
        EXPECT_THAT(differences(expected, snapshot(form)), IsEmpty());
    }
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre(watchPanelLine, watchPanelLine, watchPanelLine));
}

TEST_F(WatchPath, CancelledReturnsToNoAction) {
    for (const auto& start : startForms()) {
        SCOPED_TRACE(start.name);
        form = start.form;
        form.agentActionButton.selectedItem = AgentAction::PathModified;
        auto expected = with(snapshot(withInterval(form)), byPath);
        editor.chooseAgentAction();
        platform.cancelPanel();
        expected = with(expected, {{"agentActionButton.selectedItem", "0"},
                                   {"agentScheduleTypeButton.enabled", "yes"},
                                   {"agentScheduleTypeButton.selectedItem", "0"},
                                   {"agentScheduleTypeButton.width", "160"},
                                   {"agentScheduleDatePicker.hidden", "no"},
                                   {"alsoRunPathChangeCheckbox.enabled", "yes"}});
        EXPECT_THAT(differences(expected, snapshot(form)), IsEmpty());
        EXPECT_FALSE(platform.isAsking());
    }
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre(watchPanelLine, watchPanelLine, watchPanelLine));
}

TEST_F(WatchPath, IsTakenByTheFormAsItThenIs) {
    chooseAction(AgentAction::PathModified);
    form.agentActionButton.selectedItem = AgentAction::OnSchedule;
    platform.choose("/etc/hosts");
    EXPECT_EQ(form.agentWatchPathImageWell.toolTip, "/etc/hosts");
    EXPECT_EQ(form.agentActionButton.selectedItem, AgentAction::OnSchedule);
}

TEST_F(WatchPath, IsAskedForAgainWheneverItsActionIsChosen) {
    chooseAction(AgentAction::PathModified);
    platform.choose("/etc/hosts");
    chooseAction(AgentAction::PathModified);
    EXPECT_EQ(form.agentWatchPathImageWell.toolTip, "");
    platform.choose("/etc/fstab");
    EXPECT_EQ(form.agentWatchPathImageWell.toolTip, "/etc/fstab");
}

TEST_F(WatchPath, GoesWhenAnotherActionIsChosen) {
    for (const int other : {0, 1, 2, 3, 6}) {
        chooseAction(AgentAction::PathModified);
        platform.choose("/etc/hosts");
        chooseAction(other);
        EXPECT_EQ(form.agentWatchPathImageWell.toolTip, "");
        EXPECT_EQ(form.agentWatchPathImageWell.image, Image::none());
        EXPECT_TRUE(form.alsoRunPathChangeCheckbox.enabled);
    }
}

TEST_F(WatchPath, OfVolumesNeedsNoPanel) {
    chooseAction(AgentAction::VolumeMounted);
    EXPECT_FALSE(platform.isAsking());
    EXPECT_EQ(form.agentWatchPathImageWell.toolTip, "/Volumes");
    EXPECT_EQ(form.agentWatchPathImageWell.image, Image::resource("iconVolumes.png"));
}

// The additional watch path

struct StateRow {
    std::string_view name;
    int state;
};

class AdditionalPathOff : public EditorTest, public testing::WithParamInterface<StateRow> {};

TEST_P(AdditionalPathOff, GoesAtOnce) {
    for (const auto& start : startForms()) {
        SCOPED_TRACE(start.name);
        form = start.form;
        form.alsoRunPathChangeCheckbox.state = GetParam().state;
        const auto expected =
            with(snapshot(form), {{"alsoRunPathChangeCheckbox.state", "0"},
                                  {"alsoRunPathChangeImageWell.image", "none"},
                                  {"alsoRunPathChangeImageWell.toolTip", "\"\""}});
        editor.chooseAdditionalWathPath();
        EXPECT_THAT(differences(expected, snapshot(form)), IsEmpty());
        EXPECT_THAT(platform.journal.lines(), IsEmpty());
    }
}

const StateRow states[] = {{"Off", 0}, {"Mixed", -1}, {"Beyond", 2}};

INSTANTIATE_TEST_SUITE_P(States, AdditionalPathOff, testing::ValuesIn(states), NamedAfterRow());

class AdditionalPath : public EditorTest {
  protected:
    /// Turns the box on in a form.
    Snapshot tick(const FormModel& start) {
        form = start;
        form.alsoRunPathChangeCheckbox.state = CheckState::On;
        const auto before = snapshot(form);
        editor.chooseAdditionalWathPath();
        EXPECT_THAT(differences(before, snapshot(form)), IsEmpty());
        return before;
    }
};

TEST_F(AdditionalPath, IsAskedForInTheApplications) {
    tick(nonDefaultForm(true));
    expectPanel(platform.shownOpenPanel(), watchPathPanel("/Applications"));
    platform.cancelPanel();
    EXPECT_THAT(platform.journal.lines(), ElementsAre(watchPanelLine));
}

TEST_F(AdditionalPath, IsShownWhenChosen) {
    for (const auto& start : startForms()) {
        SCOPED_TRACE(start.name);
        const auto before = tick(start.form);
        platform.choose("/a folder");
        EXPECT_THAT(
            differences(with(before, {{"alsoRunPathChangeImageWell.image", "icon of /a folder"},
                                      {"alsoRunPathChangeImageWell.toolTip", "\"/a folder\""}}),
                        snapshot(form)),
            IsEmpty());
    }
}

TEST_F(AdditionalPath, CancelledTurnsTheBoxOff) {
    for (const auto& start : startForms()) {
        SCOPED_TRACE(start.name);
        const auto before = tick(start.form);
        platform.cancelPanel();
        EXPECT_THAT(differences(with(before, {{"alsoRunPathChangeCheckbox.state", "0"},
                                              {"alsoRunPathChangeImageWell.image", "none"},
                                              {"alsoRunPathChangeImageWell.toolTip", "\"\""}}),
                                snapshot(form)),
                    IsEmpty());
    }
}

// Panels that outlive the controller

struct LateRow {
    std::string_view name;
    std::function<void(AppDelegate&, ScriptedPlatform&)> ask;
    std::function<void(ScriptedPlatform&)> answer;
};

class LateAnswer : public testing::TestWithParam<LateRow> {};

TEST_P(LateAnswer, DoesNothingOnceTheControllerIsGone) {
    ScriptedPlatform platform;
    platform.files.folders = {"/u"};
    auto editor = std::make_unique<AppDelegate>(platform.services());
    GetParam().ask(*editor, platform);
    EXPECT_TRUE(platform.isAsking());
    editor.reset();
    platform.journal.clear();
    GetParam().answer(platform);
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
    EXPECT_FALSE(platform.isAsking());
}

void watch(AppDelegate& editor, ScriptedPlatform&) {
    editor.form().agentActionButton.selectedItem = AgentAction::PathModified;
    editor.chooseAgentAction();
}

void watchAlso(AppDelegate& editor, ScriptedPlatform&) {
    editor.form().alsoRunPathChangeCheckbox.state = CheckState::On;
    editor.chooseAdditionalWathPath();
}

void chooseTarget(AppDelegate& editor, ScriptedPlatform&) { editor.chooseApplicationOrScript(); }
void save(AppDelegate& editor, ScriptedPlatform&) { editor.saveLaunchAgent(); }
void chooseBrokenTarget(AppDelegate& editor, ScriptedPlatform& platform) {
    editor.chooseApplicationOrScript();
    platform.choose("/u/A.app");
}
void dismiss(ScriptedPlatform& platform) { platform.press("Ok"); }
void cancel(ScriptedPlatform& platform) { platform.cancelPanel(); }
void choose(ScriptedPlatform& platform) { platform.choose("/u/A.app"); }
void saveAs(ScriptedPlatform& platform) { platform.saveAs("/u/x.plist"); }

const LateRow late[] = {
    {"WatchPath", watch, choose},
    {"NoWatchPath", watch, cancel},
    {"AdditionalPath", watchAlso, choose},
    {"NoAdditionalPath", watchAlso, cancel},
    {"Target", chooseTarget, choose},
    {"NoTarget", chooseTarget, cancel},
    {"BrokenTarget", chooseBrokenTarget, dismiss},
    {"Save", save, saveAs},
    {"NoSave", save, cancel},
};

INSTANTIATE_TEST_SUITE_P(Panels, LateAnswer, testing::ValuesIn(late), NamedAfterRow());

} // namespace

} // namespace frimbolate
