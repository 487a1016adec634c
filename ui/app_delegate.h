// The controller: it owns the form model, and every action of the program is one of its methods.
//
// Actions bear the system's own names and are grouped in the order in which a person meets them;
// one source file holds one family. None of them waits: a question returns at once and its
// completion goes on later, on the same thread.
#pragma once

#include "core/agent_reader.h"
#include "core/form_model.h"
#include "operations/agent_deletion.h"
#include "operations/agent_switch.h"
#include "operations/command_sheet.h"
#include "platform/lifetime.h"
#include "platform/services.h"
#include "settings/bookmark.h"
#include "settings/loaded_agent_warning.h"
#include "settings/preferences.h"
#include "ui/drawer_controller.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace frimbolate {

class AppDelegate : private AgentReaderHost {
  public:
    explicit AppDelegate(Services services);
    ~AppDelegate() override;
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;

    /// Every control. The window writes into it what the person did, then sends the action.
    FormModel& form() override { return form_; }
    const FormModel& form() const { return form_; }

    // Start-up
    void applicationDidFinishLaunching();
    void showWelcomeWindow();
    void closeWelcomeWindow();
    /// Brings the window back; true always.
    bool applicationShouldHandleReopen();
    void applicationWillTerminate() {}
    void alertDidEnd() {}

    // The form
    void createNewAgent() override;
    void chooseAgentAction();
    void chooseAgentSchedule();
    void niceLevelSliderValueChanged();
    void validateSuccessfulExit();

    // The advanced drawer
    void openAdvancedDrawer() override;
    void closeAdvancedDrawer();
    void advancedDrawerWillOpen();
    void advancedDrawerDidClose();
    /// Opens and closes the drawer by other means than the actions above.
    DrawerController& advancedDrawer() { return drawer_; }
    /// Sends the action that the toolbar item carries now, as a click on it does.
    void sendAdvancedToolbarItem();
    /// Asks for the file or folder of one of the drawer's path fields.
    /// \param pathField the outlet of the field; any other name asks for nothing
    void choosePath(std::string_view pathField);

    // The target and the additional watch path
    void chooseAgentTarget();
    void chooseApplicationOrScript();
    void createNewScript();
    void showPopOverScript() override;
    void evaluateScriptExtension(const std::string& path) override;
    void chooseAdditionalWathPath();

    // What was dropped on a well does what choosing it in the well's panel does. The path must be
    // one that the panel would have let through.
    static OpenPanel targetPanel();
    static OpenPanel watchPathPanel();
    void targetDropped(const std::string& path);
    void watchPathDropped(const std::string& path);
    void additionalWatchPathDropped(const std::string& path);

    // Saving
    void validateAgentConfig();
    void saveLaunchAgent();

    // Editing, and upgrading agents of the earlier version
    void editLaunchAgent();
    void continueEditingAgent();
    void lookForAdvancedKeys(const AgentPlist& file) override;
    void chooseUpgradePath(const AgentPlist& agent, const std::string& fileName,
                           const std::string& oldPath);

    // Existing agents
    void loadLaunchAgent() { commandSheet_.loadLaunchAgent(); }
    void unloadLaunchAgent() { commandSheet_.unloadLaunchAgent(); }
    void copyCommand() { commandSheet_.copyCommand(); }
    void closeExecuteScriptWindow() { commandSheet_.closeExecuteScriptWindow(); }
    void launchTerminal() { commandSheet_.launchTerminal(); }
    void onOffLaunchAgent() { agentSwitch_.onOffLaunchAgent(); }
    void deleteLaunchAgent() { agentDeletion_.deleteLaunchAgent(); }
    void deleteLaunchAgentContinue() { agentDeletion_.deleteLaunchAgentContinue(); }

    // Preferences
    void setUpDefaults() { preferences_.setUpDefaults(); }
    void openPreferencesWindow() { preferences_.openPreferencesWindow(); }
    void savePreferences() { preferences_.savePreferences(); }
    void closeWithoutSavingPrefs() { preferences_.closeWithoutSavingPrefs(); }
    void resetPreferences() { preferences_.resetPreferences(); }

    // Tips
    void showHideTips();
    /// \param tipButton the outlet of the pressed button; any other name shows nothing
    void showTip(std::string_view tipButton);

  private:
    using Folder = std::optional<std::string>;

    // AgentReaderHost, but for the actions above
    void log(const std::string& line) override { services_.log.line(line); }
    void showAlertThatResets(const std::string& message, const std::string& text) override;
    std::optional<Value> preference(std::string_view key) override;

    void clearTarget();
    void closeScriptPopOver();
    void hideErrorMarkers();
    void resetDrawerControls();
    void setScheduleToNeutral();
    void applyAgentAction();
    void chooseWatchPath();
    void watchPathChosen(const std::string& path);
    bool isSuccessfulExitAtRisk();

    void targetChosen(const std::string& path);
    void chooseExecutableOf(const std::string& bundle);
    void additionalWatchPathChosen(const std::optional<std::string>& path);

    void saveAgent(const SaveLocation& location);
    AgentPlist buildLoggedAgentPlist(const SaveLocation& location);
    void showSuccess();
    void showSaveFailure();

    void readAgent(const std::string& path, const Folder& folder);
    void askForUpgrade(const std::string& path);
    void upgrade(const std::string& oldPath);
    void writeUpgraded(const AgentPlist& agent, const std::string& path,
                       const std::string& oldPath);
    void moveToTrash(const std::string& oldPath);

    void startAccessingFolder();

    Services services_;
    FormModel form_;
    Preferences preferences_;
    FolderGrant folderGrant_;
    LoadedAgentWarning loadedAgentWarning_;
    CommandSheet commandSheet_;
    AgentSwitch agentSwitch_;
    AgentDeletion agentDeletion_;
    /// Replaced whenever the welcome flow ends.
    std::unique_ptr<BookmarkClass> bookmark_;
    DrawerController drawer_{form_.advancedDrawer};
    Lifetime lifetime_;
};

} // namespace frimbolate
