#include "tests/support/editor_test.h"
#include "tests/support/expected_panels.h"
#include "tests/support/form_snapshot.h"
#include "tests/support/rows.h"

namespace frimbolate {

namespace {

using test::differences;
using test::EditorTest;
using test::expectSavePanel;
using test::NamedAfterRow;
using test::snapshot;
using test::with;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto file = "/Users/maya/Library/LaunchAgents/com.frimbolate.Backup.plist";
constexpr auto command =
    "launchctl load '/Users/maya/Library/LaunchAgents/com.frimbolate.Backup.plist'";
constexpr auto createdLine = "alert: Your launch agent was created.";

class SavingTest : public EditorTest {
  protected:
    SavingTest() {
        editor.createNewAgent();
        form.agentNameTextField.stringValue = "Backup";
        form.agentTargetButton.selectedItem = TargetType::File;
        form.agentTargetImageWell.toolTip = "/Users/maya/run.sh";
        form.agentActionButton.selectedItem = AgentAction::OnSchedule;
        platform.journal.clear();
    }

    /// Starts the save, up to the panel, and clears the journal.
    void openPanel() {
        editor.saveLaunchAgent();
        platform.journal.clear();
    }

    /// The file that the form of this fixture is written as.
    static Dictionary backup() {
        return {{"Label", "com.frimbolate.Backup"},
                {"ProgramArguments", Array{Value("/bin/sh"), Value("/Users/maya/run.sh")}},
                {"StartCalendarInterval", Dictionary{{"Hour", 9}, {"Minute", 41}}},
                {"EnableGlobbing", false},
                {"LowPriorityIO", false},
                {"Nice", 0}};
    }

    static std::vector<std::string> resetLines() {
        return {"synchronize: defaults",
                "log: Improper key found for ShowWelcomeWindow, writing default of True - 3.0  "
                "-- Found: True - 3.0",
                "set: ShowWelcomeWindow = False",
                "log: Found key found for AutoCopyScriptsKey, value of False",
                "log: Found key found for WarnForSuccessfulExit, value of True",
                "log: No key found or key is 1 for DefaultGlobbingKey, writing default of 1",
                "set: DefaultGlobbingKey = 1",
                "log: No key found or key is 0 for DefaultPriorityKey, writing default of 0",
                "set: DefaultPriorityKey = 0"};
    }
};

// From the command to the panel

TEST_F(SavingTest, ASoundFormGoesStraightToThePanel) {
    editor.validateAgentConfig();
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("log: Agent passed initial validation, moving on...",
                            std::string("begin: ") + agents,
                            "save panel: com.frimbolate.Backup.plist",
                            std::string("end: ") + agents))
        << "access ends as soon as the panel is up";
    EXPECT_EQ(platform.folderAccess.begun, 0);
    platform.cancelPanel();
}

TEST_F(SavingTest, AFaultyFormIsReportedAndMarked) {
    form = test::nonDefaultForm(false);
    form.agentNameTextField.stringValue = "my agent";
    form.agentActionButton.selectedItem = 0;
    form.agentScheduleTypeButton.selectedItem = ScheduleType::OnInterval;
    form.agentIntervalField.stringValue = "9";
    form.agentIntervalTypeButton.selectedItem = 0;
    const auto expected = with(snapshot(form), {{"nameErrorImageWell.hidden", "no"},
                                                {"actionErrorImageWell.hidden", "no"},
                                                {"targetErrorImageWell.hidden", "yes"},
                                                {"scheduleErrorImageWell.hidden", "no"}});
    const std::string report = "\u2022 Name can only contain alphanumeric characters\n"
                               "\u2022 Condition for launch not selected\n"
                               "\u2022 Minimum launch on interval is 10 seconds\n";
    editor.validateAgentConfig();
    EXPECT_THAT(
        platform.journal.lines(),
        ElementsAre("log: Agent failed initial validation with the following errors:\n" + report,
                    "alert: Some information is missing or incorrect."));
    EXPECT_EQ(platform.shownAlert().informativeText, report);
    EXPECT_THAT(platform.shownAlert().buttons, ElementsAre("Ok"));
    platform.press("Ok");
    EXPECT_THAT(differences(expected, snapshot(form)), IsEmpty()) << "the marks stay";
    EXPECT_EQ(platform.journal.lines().size(), 2U);
}

TEST_F(SavingTest, TheNextValidationTakesOldMarksAway) {
    form.targetErrorImageWell.hidden = form.nameErrorImageWell.hidden = false;
    form.scheduleErrorImageWell.hidden = form.actionErrorImageWell.hidden = false;
    const auto expected = with(snapshot(form), {{"nameErrorImageWell.hidden", "yes"},
                                                {"actionErrorImageWell.hidden", "yes"},
                                                {"targetErrorImageWell.hidden", "yes"},
                                                {"scheduleErrorImageWell.hidden", "yes"}});
    editor.validateAgentConfig();
    platform.cancelPanel();
    EXPECT_THAT(differences(expected, snapshot(form)), IsEmpty());
}

TEST_F(SavingTest, ThePanelProposesNameAndFolder) {
    form.agentNameTextField.stringValue = "as typed";
    editor.saveLaunchAgent();
    expectSavePanel(platform.shownSavePanel(), "com.frimbolate.as typed.plist",
                    "Saving outside of ~/Library/LaunchAgents\n will cause the agent not to run "
                    "automatically.",
                    agents);
    platform.cancelPanel();
}

TEST_F(SavingTest, WithoutAGrantThePanelChoosesItsOwnFolder) {
    platform.defaults.contents.erase("Bookmark");
    editor.saveLaunchAgent();
    EXPECT_EQ(platform.shownSavePanel().directory, std::nullopt);
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("begin: (nothing)", "save panel: com.frimbolate.Backup.plist",
                            "end: (nothing)"));
    platform.cancelPanel();
}

TEST_F(SavingTest, CancellingThePanelDoesNothing) {
    openPanel();
    const auto before = snapshot(form);
    platform.cancelPanel();
    EXPECT_THAT(differences(before, snapshot(form)), IsEmpty());
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
    EXPECT_THAT(platform.files.contents, IsEmpty());
}

// From the panel to the file

TEST_F(SavingTest, EveryStepIsTakenInItsOrder) {
    openPanel();
    auto expected =
        with(snapshot(form), {{"actionScriptTextView.string", std::string("\"") + command + '"'},
                              {"preferencesMenuItem.enabled", "no"}});
    platform.saveAs(file);
    EXPECT_THAT(
        platform.journal.lines(),
        ElementsAre("log: Saving launch agent, logging all saved values...",
                    "log: Agent label key: com.frimbolate.Backup", "log: Agent target type is 2",
                    "log: Creating agent arguments, last path component is: sh",
                    std::string("log: Path: ") + file, std::string("write: ") + file, createdLine));
    EXPECT_THAT(differences(expected, snapshot(form)), IsEmpty())
        << "the form is kept until the alert is answered";
    EXPECT_EQ(platform.pasteboard, "earlier content");
    EXPECT_EQ(platform.files.contents.at(file), backup());
    platform.press("Skip");
}

TEST_F(SavingTest, ATypedScriptHasNoExtensionToLog) {
    form.agentTargetButton.selectedItem = TargetType::Script;
    openPanel();
    platform.saveAs(file);
    EXPECT_THAT(log(), ElementsAre("Saving launch agent, logging all saved values...",
                                   "Agent label key: com.frimbolate.Backup",
                                   "Agent target type is 3", std::string("Path: ") + file));
    platform.press("Skip");
}

TEST_F(SavingTest, TheCommandIsCopiedWhenAutoCopyIsOn) {
    platform.defaults.contents["AutoCopyScriptsKey"] = "True";
    openPanel();
    platform.saveAs(file);
    EXPECT_EQ(platform.pasteboard, command);
    const auto& lines = platform.journal.lines();
    ASSERT_EQ(lines.size(), 9U);
    EXPECT_THAT((std::vector(lines.end() - 4, lines.end())),
                ElementsAre(std::string("write: ") + file, "pasteboard: cleared",
                            std::string("pasteboard: ") + command, createdLine));
    EXPECT_EQ(form.autoCopyScriptsCheckbox2.state, CheckState::On);
    platform.press("Skip");
}

TEST_F(SavingTest, AQuoteInThePathIsNotEscaped) {
    openPanel();
    platform.saveAs("/Users/maya/it's.plist");
    EXPECT_EQ(form.actionScriptTextView.string, "launchctl load '/Users/maya/it's.plist'");
    platform.press("Skip");
}

TEST_F(SavingTest, TheFormIsReadWhenThePanelCompletes) {
    openPanel();
    form.agentTargetImageWell.toolTip = "/Users/maya/later.py";
    form.niceLevelSlider.value = 5.0;
    form.agentNameTextField.stringValue = "Later";
    platform.saveAs(file);
    auto expected = backup();
    expected["ProgramArguments"] = Array{Value("/usr/bin/python"), Value("/Users/maya/later.py")};
    expected["Nice"] = 5;
    EXPECT_EQ(platform.files.contents.at(file), expected);
    platform.press("Skip");
}

TEST_F(SavingTest, SavingTwiceWritesTheSame) {
    for (int i = 0; i < 2; ++i) {
        openPanel();
        platform.saveAs("/Users/maya/" + std::to_string(i) + ".plist", "x.plist");
        platform.abandonQuestions();
    }
    const auto& contents = platform.files.contents;
    EXPECT_EQ(contents.at("/Users/maya/0.plist"), contents.at("/Users/maya/1.plist"));
}

TEST_F(SavingTest, NothingOfTheOldFileSurvives) {
    platform.files.contents[file] = Dictionary{{"Enabled", false}, {"UserName", "root"}};
    openPanel();
    platform.saveAs(file);
    EXPECT_EQ(platform.files.contents.at(file), backup());
    platform.press("Skip");
}

struct NameRow {
    std::string_view name;
    std::string nameField;
    std::string label;
};

class SavedLabel : public SavingTest, public testing::WithParamInterface<NameRow> {};

TEST_P(SavedLabel, ComesFromTheNameField) {
    openPanel();
    platform.saveAs("/Users/maya/any.name", GetParam().nameField);
    EXPECT_THAT(log().at(1), "Agent label key: " + GetParam().label);
    EXPECT_EQ(platform.files.contents.at("/Users/maya/any.name")->at("Label"),
              Value(GetParam().label));
    platform.press("Skip");
}

const NameRow savedNames[] = {
    {"AsProposed", "com.frimbolate.Backup.plist", "com.frimbolate.Backup"},
    {"Renamed", "org.example.other.plist", "org.example.other"},
    {"SuffixInTheMiddle", "x.plist.old", "x.old"},
    {"SuffixTwice", "x.plist.plist", "x.plist"},
    {"NoSuffix", "whole", "whole"},
    {"UpperCaseSuffix", "x.PLIST", "x.PLIST"},
};

INSTANTIATE_TEST_SUITE_P(Names, SavedLabel, testing::ValuesIn(savedNames), NamedAfterRow());

// The success alert

TEST_F(SavingTest, TheSuccessAlertTellsHowToGoOn) {
    openPanel();
    platform.saveAs(file);
    const auto alert = platform.shownAlert();
    EXPECT_EQ(alert.messageText, "Your launch agent was created.");
    EXPECT_EQ(alert.informativeText,
              "In order to start your launch agent, it must be loaded into launchd. If you saved "
              "your launch agent in ~/Library/LaunchAgents/ then it will load automatically the "
              "next time you log in.\n\nIf you'd like to load your launch agent now, click "
              "Continue below.");
    EXPECT_THAT(alert.buttons, ElementsAre("Continue", "Skip"));
    EXPECT_FALSE(alert.showsSuppressionButton);
    platform.press("Skip");
}

TEST_F(SavingTest, ContinueResetsTheFormAndShowsTheCommand) {
    openPanel();
    platform.saveAs(file);
    platform.journal.clear();
    platform.press("Continue");
    auto expected = resetLines();
    expected.emplace_back("sheet: begin executeScriptWindow");
    expected.emplace_back("first responder: executeScriptWindow.launchTerminalButton");
    EXPECT_EQ(platform.journal.lines(), expected);
    EXPECT_EQ(form.agentNameTextField.stringValue, "");
    EXPECT_EQ(form.actionScriptTextView.string, command);
    EXPECT_FALSE(form.actionScriptTextView.editable);
    EXPECT_FALSE(form.preferencesMenuItem.enabled);
}

TEST_F(SavingTest, SkipResetsTheFormAndLeavesTheCommandPending) {
    openPanel();
    platform.saveAs(file);
    platform.journal.clear();
    platform.press("Skip");
    auto expected = resetLines();
    expected.emplace_back("log: User skipped loading agent.");
    EXPECT_EQ(platform.journal.lines(), expected);
    EXPECT_EQ(form.agentNameTextField.stringValue, "");
    EXPECT_FALSE(form.preferencesMenuItem.enabled);
}

} // namespace

} // namespace frimbolate
