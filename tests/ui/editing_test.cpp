// Opening an existing agent, from the toolbar to the filled form.
#include "tests/support/agent_key_table.h"
#include "tests/support/editor_test.h"
#include "tests/support/expected_panels.h"
#include "tests/support/form_snapshot.h"
#include "tests/support/rows.h"

namespace frimbolate::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* own = "/Users/maya/Library/LaunchAgents/com.frimbolate.Backup.plist";
constexpr const char* earlier = "/Users/maya/Library/LaunchAgents/com.fr\u0131mbolate.Backup.plist";

const AgentPlist backup = {{"Label", "com.frimbolate.Backup"},
                           {"ProgramArguments", Array{Value("/bin/sh"), Value("/b.sh")}},
                           {"StartInterval", 3600}};

class Editing : public EditorTest {
  protected:
    Editing() {
        editor.createNewAgent();
        newAgent = snapshot(form);
        platform.journal.clear();
    }

    /// Puts the agent on the disk, turns the warning off and chooses the agent in the panel.
    void choose(const std::string& path, const std::optional<Dictionary>& agent) {
        platform.files.contents[path] = agent;
        platform.defaults.contents["WarnForDelete"] = false;
        editor.editLaunchAgent();
        platform.journal.clear();
        platform.choose(path);
    }

    Snapshot newAgent;
};

// Unsaved work

TEST_F(Editing, AsksBeforeItDiscardsANamedAgent) {
    form.agentNameTextField.stringValue = "Backup";
    editor.editLaunchAgent();
    const auto alert = platform.shownAlert();
    EXPECT_EQ(alert.messageText, "Do you want to discard changes?");
    EXPECT_EQ(alert.informativeText,
              "It looks like you might have been in the middle of creating a new or editing an "
              "existing launch agent. Do you want to discard these changes?");
    EXPECT_THAT(alert.buttons, ElementsAre("Continue", "Cancel"));
    EXPECT_FALSE(alert.showsSuppressionButton);
    EXPECT_THAT(platform.journal.lines(), ElementsAre("alert: Do you want to discard changes?"));
    platform.abandonQuestions();
}

TEST_F(Editing, StartsAnewAfterDiscarding) {
    form.agentNameTextField.stringValue = "Backup";
    form.rootDirectoryField.stringValue = "/root";
    editor.editLaunchAgent();
    platform.press("Continue");
    EXPECT_THAT(differences(newAgent, snapshot(form)), IsEmpty());
    EXPECT_EQ(platform.shownAlert().messageText, "Important message:");
    platform.abandonQuestions();
}

TEST_F(Editing, KeepsEverythingWhenDiscardingIsCancelled) {
    form.agentNameTextField.stringValue = "Backup";
    const auto before = snapshot(form);
    editor.editLaunchAgent();
    platform.journal.clear();
    platform.press("Cancel");
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
    EXPECT_FALSE(platform.isAsking());
    EXPECT_THAT(differences(before, snapshot(form)), IsEmpty());
}

TEST_F(Editing, CountsABlankAsAName) {
    form.agentNameTextField.stringValue = " ";
    editor.editLaunchAgent();
    EXPECT_EQ(platform.shownAlert().messageText, "Do you want to discard changes?");
    platform.abandonQuestions();
}

TEST_F(Editing, AsksNothingAboutOtherChanges) {
    form.agentActionButton.selectedItem = AgentAction::KeepRunning;
    form.scriptPopOverScriptField.stringValue = "ls";
    editor.editLaunchAgent();
    EXPECT_EQ(platform.shownAlert().messageText, "Important message:");
    platform.abandonQuestions();
}

// The warning about loaded agents

TEST_F(Editing, WarnsAboutLoadedAgents) {
    editor.editLaunchAgent();
    const auto alert = platform.shownAlert();
    EXPECT_EQ(alert.messageText, "Important message:");
    EXPECT_EQ(alert.informativeText,
              "Frimbolate cannot determine if a launch agent is currently loaded/running. It is "
              "highly recommended that you unload a launch agent before editing or deleting it. "
              "\n\nFailure to unload an agent before editing or deleting it will result in the "
              "launch agent continuing to run, in its original configuration and as scheduled, "
              "until you logout or a reboot occurs.");
    EXPECT_THAT(alert.buttons, ElementsAre("Continue", "Cancel"));
    EXPECT_TRUE(alert.showsSuppressionButton);
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("synchronize: defaults", "alert: Important message:"));
    platform.abandonQuestions();
}

TEST_F(Editing, StopsAtACancelledWarning) {
    editor.editLaunchAgent();
    platform.journal.clear();
    platform.press("Cancel", CheckState::On);
    EXPECT_THAT(platform.journal.lines(), ElementsAre("log: User cancelled editing agent."));
    EXPECT_FALSE(platform.defaults.contents.contains("WarnForDelete"));
    EXPECT_FALSE(platform.isAsking());
    EXPECT_EQ(platform.folderAccess.begun, 0);
}

struct SuppressionRow {
    const char* name;
    int state;
    std::optional<Value> stored;
    const char* firstEffect; ///< before the reset, which begins by reading the preferences
};

class Suppression : public Editing, public testing::WithParamInterface<SuppressionRow> {};

TEST_P(Suppression, IsStoredBeforeThePanelOpens) {
    editor.editLaunchAgent();
    platform.journal.clear();
    platform.press("Continue", GetParam().state);
    const auto* stored = find(platform.defaults.contents, "WarnForDelete");
    EXPECT_EQ(stored ? std::optional(*stored) : std::nullopt, GetParam().stored);
    EXPECT_EQ(platform.journal.lines().front(), GetParam().firstEffect);
    EXPECT_EQ(platform.shownOpenPanel().message, "Please choose a launch agent to edit:");
    platform.abandonQuestions();
}

const SuppressionRow suppressions[] = {
    {"Off", CheckState::Off, true, "set: WarnForDelete = 1"},
    {"On", CheckState::On, false, "set: WarnForDelete = 0"},
    {"Mixed", CheckState::Mixed, std::nullopt, "synchronize: defaults"}};
INSTANTIATE_TEST_SUITE_P(Warning, Suppression, testing::ValuesIn(suppressions), NamedAfterRow());

struct WarnRow {
    const char* name;
    std::optional<Value> stored;
    bool warns;
};

class Warning : public Editing, public testing::WithParamInterface<WarnRow> {};

TEST_P(Warning, IsShownUnlessTheKeyIsFalse) {
    if (GetParam().stored)
        platform.defaults.contents.insert_or_assign("WarnForDelete", *GetParam().stored);
    editor.editLaunchAgent();
    EXPECT_EQ(platform.journal.lines().front(), "synchronize: defaults");
    EXPECT_EQ(platform.journal.count("alert"), GetParam().warns ? 1U : 0U);
    EXPECT_EQ(platform.journal.count("open panel"), GetParam().warns ? 0U : 1U);
    platform.abandonQuestions();
}

const WarnRow warnings[] = {{"Missing", std::nullopt, true},
                            {"TrueValue", true, true},
                            {"FalseValue", false, false},
                            {"Zero", 0, false},
                            {"One", 1, true},
                            {"NoAsText", "NO", false},
                            {"YesAsText", "YES", true}};
INSTANTIATE_TEST_SUITE_P(Stored, Warning, testing::ValuesIn(warnings), NamedAfterRow());

// The panel

TEST_F(Editing, ResetsTheFormBeforeThePanel) {
    form.rootDirectoryField.stringValue = "/root";
    form.advancedDrawer.open = true;
    editor.continueEditingAgent();
    EXPECT_THAT(differences(newAgent, snapshot(form)), IsEmpty());
    expectPanel(platform.shownOpenPanel(),
                selectPanel("Please choose a launch agent to edit:", {"plist"}, agents));
    EXPECT_EQ(platform.journal.lines().back(), "open panel: Please choose a launch agent to edit:");
    EXPECT_EQ(platform.journal.lines().rbegin()[1], std::string("begin: ") + agents);
    platform.abandonQuestions();
}

TEST_F(Editing, ResetsAgainAfterACancelledPanelAndLeavesAccessBegun) {
    editor.continueEditingAgent();
    form.agentNameTextField.stringValue = "meanwhile";
    platform.cancelPanel();
    EXPECT_THAT(differences(newAgent, snapshot(form)), IsEmpty());
    EXPECT_EQ(platform.folderAccess.begun, 1);
    EXPECT_EQ(platform.journal.count("end"), 0U);
}

TEST_F(Editing, OpensThePanelAnywhereWithoutAFolder) {
    platform.folderAccess.resolutionFails = true;
    editor.continueEditingAgent();
    EXPECT_EQ(platform.shownOpenPanel().directory, std::nullopt);
    EXPECT_EQ(platform.journal.texts("begin"), std::vector<std::string>{"(nothing)"});
    platform.abandonQuestions();
}

// What was chosen

TEST_F(Editing, ReadsNothingOfAForeignFile) {
    const std::string path = "/Users/maya/Library/LaunchAgents/org.example.plist";
    choose(path, backup);
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("alert: This launch agent is not fully compatible with Frimbolate.",
                            std::string("end: ") + agents));
    const auto alert = platform.shownAlert();
    EXPECT_EQ(alert.informativeText,
              "It appears that the launch agent you selected was not created with Frimbolate. "
              "Frimbolate does not currently support all known launchd keys.\n\nEven though you "
              "cannot fully edit this agent, you can still load/unload it, and enable/disable "
              "(on/off) it.");
    EXPECT_THAT(alert.buttons, ElementsAre("Ok"));
    form.agentNameTextField.stringValue = "typed meanwhile";
    platform.journal.clear();
    platform.press("Ok");
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
    EXPECT_EQ(form.agentNameTextField.stringValue, "typed meanwhile");
    EXPECT_EQ(platform.folderAccess.begun, 0);
}

TEST_F(Editing, ReadsAnOwnFile) {
    choose(own, backup);
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("log: Agent was created with Frimbolate.", std::string("read: ") + own,
                            "log: Last path component: sh", "log: Agent runs on interval",
                            "log: Evaluating keys for advanced drawer...",
                            "log: Completed evaluating keys for advanced drawer",
                            "log: Completed evaluating primary keys for editing",
                            std::string("end: ") + agents));
    EXPECT_EQ(form.agentNameTextField.stringValue, "Backup");
    EXPECT_EQ(form.agentTargetImageWell.image, Image::resource("iconScriptBash.png"));
    EXPECT_EQ(form.agentIntervalField.stringValue, "3600");
    EXPECT_EQ(form.agentIntervalTypeButton.selectedItem, IntervalUnit::Seconds);
    EXPECT_FALSE(form.advancedDrawer.open);
    EXPECT_EQ(platform.folderAccess.begun, 0);
}

TEST_F(Editing, TakesTheNameFromTheLabelAlone) {
    auto agent = backup;
    agent["Label"] = "org.example.other";
    choose(own, agent);
    EXPECT_EQ(form.agentNameTextField.stringValue, "org.example.other");
}

TEST_F(Editing, ReadsAnEarlierFileWhileItAsks) {
    choose(earlier, backup);
    const auto& lines = platform.journal.lines();
    EXPECT_THAT(std::vector(lines.begin(), lines.begin() + 4),
                ElementsAre("log: Agent was created with Frimbolate.",
                            "log: Agent must be upgraded!",
                            "alert: This launch agent needs to be upgraded.",
                            std::string("read: ") + earlier));
    EXPECT_EQ(lines.back(), std::string("end: ") + agents);
    EXPECT_EQ(form.agentNameTextField.stringValue, "Backup");
    platform.abandonQuestions();
}

TEST_F(Editing, OpensTheDrawerForItsReasonsAndLeavesTheItemToCloseIt) {
    auto agent = backup;
    agent["Nice"] = 5;
    choose(own, agent);
    EXPECT_TRUE(form.advancedDrawer.open);
    EXPECT_EQ(form.advancedToolbarItem.action, ToolbarItem::Action::closeAdvancedDrawer);
}

TEST_F(Editing, ShowsATypedScriptInItsPopOver) {
    auto agent = backup;
    agent["ProgramArguments"] = Array{Value("/bin/sh"), Value("-c"), Value("ls")};
    choose(own, agent);
    EXPECT_TRUE(form.popoverScriptObject.shown);
    EXPECT_FALSE(form.showPopOverScriptButton.hidden);
    EXPECT_EQ(form.scriptPopOverScriptField.stringValue, "ls");
    EXPECT_EQ(form.scriptPopOverLanguageButton.selectedItem, ScriptLanguage::Shell);
}

// Failures

constexpr const char* unreadable = "The launch agent could not be read.";

class UnreadableAgent : public Editing,
                        public testing::WithParamInterface<std::optional<Dictionary>> {};

TEST_P(UnreadableAgent, ShowsAnAlertAndResets) {
    choose(own, GetParam());
    const auto& lines = platform.journal.lines();
    EXPECT_EQ(lines.back(), std::string("end: ") + agents);
    EXPECT_EQ(lines.rbegin()[1], std::string("alert: ") + unreadable);
    EXPECT_EQ(platform.journal.count("alert"), 1U);
    const auto alert = platform.shownAlert();
    EXPECT_EQ(alert.informativeText,
              "The agent may be corrupted or missing values for some of its keys.");
    EXPECT_THAT(alert.buttons, ElementsAre("Ok"));
    form.agentNameTextField.stringValue = "typed meanwhile";
    platform.press("Ok");
    EXPECT_THAT(differences(newAgent, snapshot(form)), IsEmpty());
    EXPECT_EQ(platform.folderAccess.begun, 0);
}

INSTANTIATE_TEST_SUITE_P(Reading, UnreadableAgent,
                         testing::Values(std::nullopt, Dictionary{}, Dictionary{{"Label", 5}}));

TEST_F(Editing, AsksToUpgradeAlsoWhatCannotBeRead) {
    choose(earlier, std::nullopt);
    EXPECT_THAT(platform.journal.texts("alert"),
                ElementsAre("This launch agent needs to be upgraded.", unreadable));
    EXPECT_EQ(platform.folderAccess.begun, 0);
    platform.press("Cancel");
    platform.press("Ok");
    EXPECT_THAT(differences(newAgent, snapshot(form)), IsEmpty());
}

TEST_F(Editing, KeepsThePrimaryKeysUntilTheAdvancedAlertIsClosed) {
    auto agent = backup;
    agent["Nice"] = Array{};
    choose(own, agent);
    EXPECT_EQ(form.agentNameTextField.stringValue, "Backup");
    EXPECT_EQ(platform.shownAlert().messageText, "This launch agent could not be read.");
    EXPECT_EQ(platform.shownAlert().informativeText,
              "An error occurred while reading some key values.");
    EXPECT_THAT(platform.shownAlert().buttons, ElementsAre("Ok"));
    EXPECT_EQ(platform.folderAccess.begun, 0);
    platform.press("Ok");
    EXPECT_THAT(differences(newAgent, snapshot(form)), IsEmpty());
}

TEST_F(Editing, ResetsAtOnceAndOnClosingWhenTheTargetIsUnreadable) {
    auto agent = backup;
    agent["ProgramArguments"] = 5;
    choose(own, agent);
    EXPECT_EQ(form.agentNameTextField.stringValue, "");
    EXPECT_EQ(form.agentTargetButton.selectedItem, TargetType::None);
    EXPECT_EQ(form.agentIntervalField.stringValue, "3600"); // reading went on
    EXPECT_EQ(platform.shownAlert().informativeText,
              "An error occurred while reading some key values.");
    platform.press("Ok");
    EXPECT_THAT(differences(newAgent, snapshot(form)), IsEmpty());
}

// Values of every type

class EditingEveryType : public Editing, public testing::WithParamInterface<KeyRow> {};

TEST_P(EditingEveryType, ShowsAtMostOneAlert) {
    const auto& row = GetParam();
    for (std::size_t i = 0; i < valueKindCount; ++i) {
        SCOPED_TRACE(valueKinds()[i].name);
        choose(own, agentWith(row, valueKinds()[i], false));
        std::vector<std::string> alerts;
        if (row.fails[i] == FailedStep::WholeReading)
            alerts = {unreadable};
        else if (row.fails[i] != FailedStep::None)
            alerts = {"This launch agent could not be read."};
        EXPECT_EQ(platform.journal.texts("alert"), alerts);
        EXPECT_EQ(form.agentScheduleTypeButton.selectedItem,
                  row.selects[i].value_or(ScheduleType::EveryDay));
        EXPECT_EQ(platform.journal.lines().back(), std::string("end: ") + agents);
        EXPECT_EQ(platform.folderAccess.begun, 0);
        if (!alerts.empty()) {
            platform.press("Ok");
            EXPECT_THAT(differences(newAgent, snapshot(form)), IsEmpty());
        }
        editor.createNewAgent();
        form.popoverScriptObject.shown = false; // a reset does not close the pop-over
    }
}

INSTANTIATE_TEST_SUITE_P(Key, EditingEveryType, testing::ValuesIn(keyRows()), NamedAfterRow());

TEST_F(Editing, LetsAnAnswerComeAfterTheEditorIsGone) {
    {
        AppDelegate brief(platform.services());
        brief.continueEditingAgent();
    }
    platform.journal.clear();
    platform.choose(own);
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
}

} // namespace

} // namespace frimbolate::test
