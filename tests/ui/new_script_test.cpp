#include "tests/support/editor_test.h"
#include "tests/support/form_snapshot.h"

namespace frimbolate {

namespace {

using test::differences;
using test::EditorTest;
using test::snapshot;
using test::with;
using testing::ElementsAre;
using testing::IsEmpty;

class NewScript : public EditorTest {};

TEST_F(NewScript, TakesTheTargetAwayAndShowsThePopOver) {
    for (const auto& start : startForms()) {
        SCOPED_TRACE(start.name);
        form = start.form;
        const auto expected = with(snapshot(form), {{"agentTargetImageWell.image", "none"},
                                                    {"agentTargetImageWell.toolTip", "\"\""},
                                                    {"showPopOverScriptButton.hidden", "no"},
                                                    {"popoverScriptObject.shown", "yes"}});
        editor.createNewScript();
        EXPECT_THAT(differences(expected, snapshot(form)), IsEmpty());
        EXPECT_THAT(platform.journal.lines(), IsEmpty());
    }
}

TEST_F(NewScript, IsWarnedOfEvenAfterAnApplication) {
    platform.defaults.contents["WarnForSuccessfulExit"] = "True";
    form.allowSuccessfulExitCheckbox.state = CheckState::On;
    form.agentActionButton.selectedItem = AgentAction::KeepRunning;
    form.agentTargetButton.selectedItem = TargetType::Script;
    form.agentTargetImageWell.toolTip = "/Applications/A.app/Contents/MacOS/A";
    editor.createNewScript();
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("synchronize: defaults", "alert: Potential conflict identified..."));

    form.popoverScriptObject.shown = false;
    platform.press("Ok");
    EXPECT_TRUE(form.popoverScriptObject.shown) << "the user goes on writing";
}

TEST_F(NewScript, PopOverIsAllThatShowingItChanges) {
    for (const auto& start : startForms()) {
        SCOPED_TRACE(start.name);
        form = start.form;
        const auto expected = with(snapshot(form), {{"popoverScriptObject.shown", "yes"}});
        editor.showPopOverScript();
        EXPECT_THAT(differences(expected, snapshot(form)), IsEmpty());
    }
}

TEST_F(NewScript, PopOverClosesWhenATargetActionOrScheduleIsChosen) {
    for (const auto action : {&AppDelegate::chooseAgentTarget, &AppDelegate::chooseAgentAction,
                              &AppDelegate::chooseAgentSchedule}) {
        editor.showPopOverScript();
        (editor.*action)();
        EXPECT_FALSE(form.popoverScriptObject.shown);
    }
}

TEST_F(NewScript, KeepsTheTextTypedBefore) {
    form.scriptPopOverScriptField.stringValue = "ls";
    editor.createNewScript();
    EXPECT_EQ(form.scriptPopOverScriptField.stringValue, "ls");
}

} // namespace

} // namespace frimbolate
