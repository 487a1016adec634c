// Undo and redo after every action that empties the form.
#include "tests/support/editor_test.h"
#include "tests/support/rows.h"

namespace frimbolate::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* undoneOwn = "/Users/maya/Library/LaunchAgents/com.frimbolate.Backup.plist";
constexpr const char* undoneEarlier =
    "/Users/maya/Library/LaunchAgents/com.fr\u0131mbolate.Backup.plist";
constexpr const char* undoneForeign = "/Users/maya/Library/LaunchAgents/org.example.plist";

const AgentPlist undoneBackup = {{"Label", "com.frimbolate.Backup"},
                                 {"ProgramArguments", Array{Value("/bin/sh"), Value("/b.sh")}},
                                 {"StartInterval", 3600}};
const AgentPlist damaged = {{"Label", "com.frimbolate.Backup"}, {"ProgramArguments", 7}};

/// The controller in a state of its own, and the form that an undo must bring back.
class Undoing : public EditorTest {
  public:
    Undoing() {
        platform.defaults.contents["WarnForDelete"] = false;
        platform.files.contents[undoneOwn] = undoneBackup;
        platform.files.contents[undoneEarlier] = undoneBackup;
        platform.files.contents[undoneForeign] = undoneBackup;
        editor.applicationDidFinishLaunching();
        platform.journal.clear();
    }

    /// Keeps the form that is now there as the one that an undo must bring back.
    void keep() { kept = form; }
    void keepBeforeInput() {
        keep();
        editor.keepFormBeforeInput();
    }
    void openAgent(const char* path, const std::optional<Dictionary>& agent) {
        platform.files.contents[path] = agent;
        form.agentNameTextField.stringValue = "";
        keep();
        editor.editLaunchAgent();
        platform.choose(path);
    }

    using EditorTest::editor;
    using EditorTest::form;
    using EditorTest::platform;
    FormModel kept;
};

/// The lines of differences() about controls that belong to the form.
std::vector<std::string> formDifferences(const FormModel& was, const FormModel& is) {
    FormModel compared = is;
    // Not of the form: the pop-over, what a save sets for the command sheet, and what the
    // preferences set on each reset.
    compared.preferencesMenuItem = was.preferencesMenuItem;
    compared.popoverScriptObject = was.popoverScriptObject;
    compared.showWelcomeWindowCheckbox = was.showWelcomeWindowCheckbox;
    compared.autoCopyScriptCheckbox = was.autoCopyScriptCheckbox;
    compared.warnSuccessfulExitCheckbox = was.warnSuccessfulExitCheckbox;
    compared.globalGlobbingCheckbox = was.globalGlobbingCheckbox;
    compared.globalPriorityCheckbox = was.globalPriorityCheckbox;
    compared.actionScriptTextView = was.actionScriptTextView;
    compared.copyCommandButton = was.copyCommandButton;
    compared.autoCopyScriptsCheckbox2 = was.autoCopyScriptsCheckbox2;
    return differences(snapshot(was), snapshot(compared));
}

struct Row {
    std::string_view name;
    void (*empty)(Undoing& test); ///< keeps the form, then takes the step that empties it
    std::string_view step;        ///< the name of the last step
    int steps = 1;                ///< until the kept form is back
};

void saveAndAnswer(Undoing& test, const std::string& answer) {
    test.keep();
    test.editor.saveLaunchAgent();
    test.platform.saveAs(undoneOwn);
    test.platform.press(answer);
}

const Row rows[] = {
    {"New",
     [](Undoing& test) {
         test.keep();
         test.editor.createNewAgent();
     },
     "New"},
    {"OpenAfterDiscard",
     [](Undoing& test) {
         test.keep();
         test.editor.editLaunchAgent();
         test.platform.press("Continue");
         test.platform.choose(undoneOwn);
     },
     "Open Agent"},
    {"OpenAfterDiscardWithACancelledPanel",
     [](Undoing& test) {
         test.keep();
         test.editor.editLaunchAgent();
         test.platform.press("Continue");
         test.platform.cancelPanel();
     },
     "Open Agent"},
    {"OpenAfterDiscardWithACancelledWarning",
     [](Undoing& test) {
         test.platform.defaults.contents["WarnForDelete"] = true;
         test.keep();
         test.editor.editLaunchAgent();
         test.platform.press("Continue");
         test.platform.press("Cancel");
     },
     "Open Agent"},
    {"OpenFromTheList",
     [](Undoing& test) {
         test.keep();
         test.editor.editAgent(undoneOwn);
     },
     "Open Agent"},
    {"OpenWithoutAName", [](Undoing& test) { test.openAgent(undoneOwn, undoneBackup); },
     "Open Agent"},
    {"OpenAnAgentOfAnotherProgram",
     [](Undoing& test) {
         test.openAgent(undoneForeign, undoneBackup);
         test.platform.press("Ok");
     },
     "Open Agent"},
    {"OpenWithACancelledPanel",
     [](Undoing& test) {
         test.form.agentNameTextField.stringValue = "";
         test.keep();
         test.editor.editLaunchAgent();
         test.platform.cancelPanel();
     },
     "Open Agent"},
    {"OpenAnUnreadableFile",
     [](Undoing& test) {
         test.openAgent(undoneOwn, std::nullopt);
         test.platform.press("Ok");
     },
     "Open Agent"},
    {"OpenADamagedAgent",
     [](Undoing& test) {
         test.openAgent(undoneOwn, damaged);
         test.platform.press("Ok");
     },
     "Reset", 2},
    {"AlertThatResets",
     [](Undoing& test) {
         test.openAgent(undoneOwn, damaged);
         test.keep();
         test.platform.press("Ok");
     },
     "Reset"},
    {"CancelledUpgrade",
     [](Undoing& test) {
         test.openAgent(undoneEarlier, undoneBackup);
         test.keep();
         test.platform.press("Cancel");
     },
     "Cancel Upgrade"},
    {"OpenBeforeACancelledUpgrade",
     [](Undoing& test) {
         test.openAgent(undoneEarlier, undoneBackup);
         test.platform.press("Cancel");
     },
     "Cancel Upgrade", 2},
    {"FailedUpgrade",
     [](Undoing& test) {
         test.openAgent(undoneEarlier, undoneBackup);
         test.keep();
         test.platform.files.contents.erase(undoneEarlier);
         test.platform.press("Ok");
         test.platform.press("Ok");
     },
     "Reset"},
    {"SaveAndContinue", [](Undoing& test) { saveAndAnswer(test, "Continue"); }, "Reset After Save"},
    {"SaveAndSkip", [](Undoing& test) { saveAndAnswer(test, "Skip"); }, "Reset After Save"},
    {"CancelledTarget",
     [](Undoing& test) {
         test.keepBeforeInput();
         test.form.agentTargetButton.selectedItem = TargetType::File;
         test.editor.chooseAgentTarget();
         test.editor.chooseApplicationOrScript();
         test.platform.cancelPanel();
     },
     "Choose Target"},
    {"CancelledWatchPath",
     [](Undoing& test) {
         test.keepBeforeInput();
         test.form.agentActionButton.selectedItem = AgentAction::PathModified;
         test.editor.chooseAgentAction();
         test.platform.cancelPanel();
     },
     "Choose Path"},
    {"CancelledAdditionalPath",
     [](Undoing& test) {
         test.form.alsoRunPathChangeCheckbox.state = CheckState::On;
         test.keepBeforeInput();
         test.editor.chooseAdditionalWathPath();
         test.platform.cancelPanel();
     },
     "Choose Path"},
};

/// Each from two forms with unusual values and opposite flags.
class Undo : public Undoing, public testing::WithParamInterface<std::tuple<Row, bool>> {};

TEST_P(Undo, BringsTheWholeFormBackAndRedoGoesForthAgain) {
    const auto& [row, flag] = GetParam();
    form = nonDefaultForm(flag);
    row.empty(*this);
    const FormModel emptied = form;
    EXPECT_EQ(editor.history().undoName(), row.step);
    EXPECT_EQ(editor.history().redoName(), "");

    platform.journal.clear();
    for (int step = 0; step < row.steps; ++step)
        editor.undo();
    EXPECT_THAT(formDifferences(kept, form), IsEmpty());
    EXPECT_FALSE(form.popoverScriptObject.shown);
    for (int step = 0; step < row.steps; ++step)
        editor.redo();
    EXPECT_THAT(formDifferences(emptied, form), IsEmpty());
    EXPECT_EQ(editor.history().undoName(), row.step);
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
    EXPECT_FALSE(platform.isAsking());
}

std::string rowName(const testing::TestParamInfo<std::tuple<Row, bool>>& test) {
    const auto& [row, flag] = test.param;
    return std::string(row.name) + (flag ? "FlagsSet" : "FlagsNotSet");
}

INSTANTIATE_TEST_SUITE_P(Table, Undo, testing::Combine(testing::ValuesIn(rows), testing::Bool()),
                         rowName);

TEST_F(Undoing, HasNothingToUndoAfterTheStart) {
    EXPECT_EQ(editor.history().undoName(), "");
    const auto before = snapshot(form);
    editor.undo();
    editor.redo();
    EXPECT_THAT(differences(before, snapshot(form)), IsEmpty());
}

TEST_F(Undoing, RecordsNoResetOfAnUnchangedForm) {
    platform.time.hour = 23; // a later reset shows another time
    editor.createNewAgent();
    EXPECT_EQ(editor.history().undoName(), "");
    openAgent(undoneOwn, undoneBackup);
    EXPECT_EQ(editor.history().undoName(), "");
    editor.createNewAgent();
    EXPECT_EQ(editor.history().undoName(), "New");
}

TEST_F(Undoing, RecordsNoCancelledPanelThatTookNothing) {
    form.agentNameTextField.stringValue = "Backup";
    editor.keepFormBeforeInput();
    editor.chooseApplicationOrScript();
    platform.cancelPanel();
    EXPECT_EQ(editor.history().undoName(), "");
}

TEST_F(Undoing, KeepsWhatWasEnteredAfterAnUndoForRedo) {
    form.agentNameTextField.stringValue = "First";
    editor.createNewAgent();
    form.agentNameTextField.stringValue = "Second";
    editor.undo();
    EXPECT_EQ(form.agentNameTextField.stringValue, "First");
    editor.redo();
    EXPECT_EQ(form.agentNameTextField.stringValue, "Second");
}

TEST_F(Undoing, IsForgottenForRedoAtANewStep) {
    form.agentNameTextField.stringValue = "First";
    editor.createNewAgent();
    editor.undo();
    EXPECT_EQ(editor.history().redoName(), "New");
    editor.createNewAgent();
    EXPECT_EQ(editor.history().redoName(), "");
}

TEST_F(Undoing, GoesBackTwentySteps) {
    const int steps = 25;
    for (int step = 0; step < steps; ++step) {
        form.agentNameTextField.stringValue = std::to_string(step);
        editor.createNewAgent();
    }
    for (int step = 0; step < steps; ++step)
        editor.undo();
    EXPECT_EQ(form.agentNameTextField.stringValue, "5");
    for (int step = 0; step < steps; ++step)
        editor.redo();
    EXPECT_EQ(form.agentNameTextField.stringValue, "");
    editor.undo();
    EXPECT_EQ(form.agentNameTextField.stringValue, "24");
}

TEST_F(Undoing, SavesTheFormThatWasBroughtBackAsBefore) {
    openAgent(undoneOwn, undoneBackup);
    editor.saveLaunchAgent();
    const auto panel = platform.shownSavePanel();
    platform.saveAs(undoneOwn);
    const auto saved = platform.files.contents[undoneOwn];
    platform.journal.clear();
    platform.press("Skip");
    platform.files.contents.erase(undoneOwn);
    editor.undo();
    editor.saveLaunchAgent();
    EXPECT_EQ(platform.shownSavePanel().nameFieldStringValue, panel.nameFieldStringValue);
    platform.saveAs(undoneOwn);
    EXPECT_EQ(platform.files.contents[undoneOwn], saved);
    platform.press("Skip");
}

TEST_F(Undoing, LeavesTheRestOfTheWindowAlone) {
    form.agentNameTextField.stringValue = "Backup";
    editor.createNewAgent();
    editor.showHideTips();
    form.mainWindow.visible = false;
    form.preferencesMenuItem.enabled = false;
    form.globalPriorityCheckbox.selectedItem = 1;
    const auto before = snapshot(form);
    editor.undo();
    EXPECT_THAT(differences(before, snapshot(form)),
                ElementsAre("agentNameTextField.stringValue: \"\" -> \"Backup\""));
}

} // namespace

} // namespace frimbolate::test
