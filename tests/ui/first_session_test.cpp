// The first session of a user, from the welcome sheet to the second start.
#include "tests/support/editor_test.h"

namespace frimbolate::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* backupFile = "/Users/maya/Library/LaunchAgents/com.frimbolate.Backup.plist";
constexpr const char* backupCommand =
    "launchctl load '/Users/maya/Library/LaunchAgents/com.frimbolate.Backup.plist'";

class FirstSessionTest : public EditorTest {
  protected:
    FirstSessionTest() { platform.defaults.contents.clear(); }

    /// Starts, closes the welcome sheet and grants the folder.
    void begin() {
        editor.applicationDidFinishLaunching();
        form.showWelcomeCheckbox.state = CheckState::Off;
        editor.closeWelcomeWindow();
        platform.choose(agents);
    }

    /// Saves an agent, up to the success alert.
    void saveBackup() {
        form.agentNameTextField.stringValue = "Backup";
        form.agentTargetButton.selectedItem = TargetType::File;
        form.agentTargetImageWell.toolTip = "/Users/maya/bin/backup.sh";
        form.agentActionButton.selectedItem = AgentAction::OnSchedule;
        form.agentScheduleTypeButton.selectedItem = ScheduleType::EveryDay;
        editor.validateAgentConfig();
        ASSERT_EQ(platform.shownSavePanel().directory, agents);
        platform.saveAs(backupFile);
    }
};

TEST_F(FirstSessionTest, WelcomeGrantSaveLoadTerminalAndTheNextStart) {
    begin();
    ASSERT_NO_FATAL_FAILURE(saveBackup());
    EXPECT_TRUE(platform.files.exists(backupFile));
    EXPECT_EQ(form.actionScriptTextView.string, backupCommand) << "before the alert is answered";
    platform.press("Continue");
    EXPECT_THAT(platform.shownSheets, ElementsAre(Sheet::executeScriptWindow));
    EXPECT_EQ(form.agentNameTextField.stringValue, "");
    EXPECT_EQ(form.actionScriptTextView.string, backupCommand) << "also after the form's reset";

    editor.launchTerminal();
    form.autoCopyScriptsCheckbox2.state = CheckState::On;
    editor.closeExecuteScriptWindow();
    EXPECT_THAT(platform.shownSheets, IsEmpty());
    EXPECT_EQ(platform.journal.texts("workspace"), std::vector<std::string>{"terminal"});

    AppDelegate next(platform.services());
    platform.journal.clear();
    next.applicationDidFinishLaunching();
    EXPECT_EQ(platform.journal.count("sheet"), 0U) << "the welcome was turned off";
    EXPECT_THAT(platform.journal.texts("begin"), ElementsAre(agents));
    EXPECT_EQ(next.form().autoCopyScriptCheckbox.state, CheckState::On);
    EXPECT_FALSE(platform.isAsking());

    next.unloadLaunchAgent();
    platform.choose(backupFile);
    EXPECT_EQ(platform.pasteboard, "launchctl unload '/Users/maya/Library/LaunchAgents/"
                                   "com.frimbolate.Backup.plist'");
}

TEST_F(FirstSessionTest, SkippingLeavesTheCommandPendingUntilTheSheetIsNextClosed) {
    begin();
    ASSERT_NO_FATAL_FAILURE(saveBackup());
    EXPECT_FALSE(form.preferencesMenuItem.enabled) << "pending before the alert is answered";
    platform.journal.clear();
    platform.press("Skip");
    EXPECT_EQ(log().back(), "User skipped loading agent.");
    EXPECT_THAT(platform.shownSheets, IsEmpty());
    EXPECT_FALSE(form.preferencesMenuItem.enabled);

    editor.createNewAgent();
    EXPECT_FALSE(form.preferencesMenuItem.enabled) << "a reset does not end it";
    editor.loadLaunchAgent();
    platform.choose(backupFile);
    EXPECT_FALSE(form.preferencesMenuItem.enabled);
    editor.closeExecuteScriptWindow();
    EXPECT_TRUE(form.preferencesMenuItem.enabled);
}

TEST_F(FirstSessionTest, ASavedAgentsCommandIsCopiedBeforeItsAlertWhenAutoCopyIsOn) {
    begin();
    platform.defaults.contents["AutoCopyScriptsKey"] = "True";
    platform.journal.clear();
    ASSERT_NO_FATAL_FAILURE(saveBackup());
    const auto& lines = platform.journal.lines();
    ASSERT_GE(lines.size(), 4U);
    EXPECT_THAT(std::vector<std::string>(lines.end() - 4, lines.end()),
                ElementsAre(std::string("write: ") + backupFile, "pasteboard: cleared",
                            std::string("pasteboard: ") + backupCommand,
                            "alert: Your launch agent was created."));
    platform.press("Skip");
    EXPECT_EQ(platform.pasteboard, backupCommand);
}

TEST_F(FirstSessionTest, QuittingAtTheGrantLeavesNoneAndTheNextStartAsksAgain) {
    editor.applicationDidFinishLaunching();
    form.showWelcomeCheckbox.state = CheckState::Off;
    editor.closeWelcomeWindow();
    platform.cancelPanel();
    platform.press("Quit");
    EXPECT_EQ(platform.journal.count("application"), 1U);

    AppDelegate next(platform.services());
    next.applicationDidFinishLaunching();
    EXPECT_EQ(log().at(log().size() - 2), "ERROR WITH ACCESSING BOOKMARK");
    platform.choose(agents);
    EXPECT_EQ(platform.defaults.contents["Bookmark"], Value(bookmarkOf(agents)));
}

} // namespace

} // namespace frimbolate::test
