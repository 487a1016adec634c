// The controller. It owns the form model, and every action of the program is one of its methods.
//
// One source file holds one family of actions. No action waits: a question returns at once, and its
// completion continues later on the same thread. No completion runs after the destruction.
#pragma once

#include "core/agent_reader.h"
#include "core/form_history.h"
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
    /// \param services references; each service must outlive the controller
    explicit AppDelegate(Services services);
    ~AppDelegate() override;
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;

    /// Every control. The window writes the user's input into it, then sends the action. Valid as
    /// long as the controller.
    FormModel& form() override { return form_; }
    const FormModel& form() const { return form_; }

    // Start-up

    /// Sets up window and drawer, reads the preferences, resets the form, and shows the welcome
    /// sheet unless it is suppressed.
    void applicationDidFinishLaunching();
    /// Shows the welcome sheet; where the preference suppresses it, begins access to the folder.
    void showWelcomeWindow();
    /// Closes the welcome sheet, stores its check box if off, and begins access to the folder,
    /// asking for it where no bookmark is stored.
    void closeWelcomeWindow();
    /// Makes the main window visible. Always returns true.
    bool applicationShouldHandleReopen();
    /// Does nothing.
    void applicationWillTerminate() {}
    /// Does nothing; the completions of the alerts handle their answers.
    void alertDidEnd() {}

    // The form

    /// Resets every control of form and drawer to a new agent, without asking, and closes the
    /// drawer. Reads the preferences again.
    void createNewAgent() override;
    /// Resets the schedule controls and applies the selected action; for PathModified also asks for
    /// the path to watch. Cancelling that panel deselects the action.
    void chooseAgentAction();
    /// Shows the controls of the selected schedule, hides the others, and empties the interval or
    /// day of the month.
    void chooseAgentSchedule();
    /// Shows the level of the slider, as an integer, in its text field.
    void niceLevelSliderValueChanged();
    /// If the preference asks for it, warns where a target other than an application is kept
    /// running and may exit successfully. Then shows the script pop-over if a script is still
    /// empty.
    void validateSuccessfulExit();

    // The advanced drawer

    /// Opens the drawer on the right edge and makes the toolbar item close it.
    void openAdvancedDrawer() override;
    /// Closes the drawer and makes the toolbar item open it.
    void closeAdvancedDrawer();
    /// Makes the toolbar item close the drawer and gives the toolbar its regular size. Registered
    /// for no event.
    void advancedDrawerWillOpen();
    /// Makes the toolbar item open the drawer. Runs before every opening and every closing.
    void advancedDrawerDidClose();
    /// Opens and closes the drawer without the actions above.
    DrawerController& advancedDrawer() { return drawer_; }
    /// Sends the present action of the toolbar item, as a click on it does.
    void sendAdvancedToolbarItem();
    /// Asks for the file or folder of one of the drawer's path fields.
    /// \param pathField the outlet of the field; any other name does nothing
    void choosePath(std::string_view pathField);

    // The target and the additional watch path

    /// Closes the script pop-over; for a file or no target also clears the target and hides the
    /// script button. Does not ask for a file.
    void chooseAgentTarget();
    /// Asks for the target and shows it, for an application its executable. Cancelling clears the
    /// target and the typed script.
    void chooseApplicationOrScript();
    /// Clears the target, shows the script button and the pop-over, and runs
    /// validateSuccessfulExit().
    void createNewScript();
    /// Shows the script pop-over.
    void showPopOverScript() override;
    /// Shows the image of a script, or the icon of any other target, and records the path.
    void evaluateScriptExtension(const std::string& path) override;
    /// Asks for the additional watch path if its check box is on. Clears path and check box if the
    /// box is off or the panel is cancelled.
    void chooseAdditionalWathPath();

    /// The panel of chooseApplicationOrScript().
    static OpenPanel targetPanel();
    /// The panel for both watch paths, without its starting folder.
    static OpenPanel watchPathPanel();

    // A dropped path has the effect of the same path chosen in the panel of the well. It must be
    // one that the panel would accept.

    /// Selects a file as target and shows it.
    void targetDropped(const std::string& path);
    /// Sets the path to watch; does nothing for any action but PathModified.
    void watchPathDropped(const std::string& path);
    /// Sets the additional watch path; does nothing while its check box is off.
    void additionalWatchPathDropped(const std::string& path);

    // Undo

    /// Brings back the form before the last step that emptied it: a new agent, an opened one, a
    /// reset, or a cancelled panel. The step can be redone. Asks nothing.
    void undo();
    void redo();
    const FormHistory& history() const { return history_; }
    /// Keeps the form as it is. The window calls it before it changes the form for an action.
    void keepFormBeforeInput() { beforeInput_ = form_; }

    // Saving

    /// Validates the form, shows the error markers, and then saves (saveLaunchAgent()) or shows the
    /// faults in an alert.
    void validateAgentConfig();
    /// Asks for the place and writes the agent file, without validation. Success sets the load
    /// command, resets the form and offers the command sheet; an error is logged and shown.
    void saveLaunchAgent();

    // Editing, and upgrading agents of the earlier version

    /// Asks before it discards a form with a name, warns about loaded agents, and runs
    /// continueEditingAgent().
    void editLaunchAgent();
    /// Resets the form, asks for an agent file and reads it into the form. Rejects agents of other
    /// programs; offers the upgrade of earlier ones.
    void continueEditingAgent();
    /// Reads the keys of the advanced drawer into the form.
    void lookForAdvancedKeys(const AgentPlist& file) override;
    /// Asks for the place of an upgraded agent, writes it and removes the old file. After a failed
    /// write the old file goes to the trash, provided that the new path exists.
    void chooseUpgradePath(const AgentPlist& agent, const std::string& fileName,
                           const std::string& oldPath);

    // Existing agents

    /// Asks for an agent file and shows the command that loads it.
    void loadLaunchAgent() { commandSheet_.loadLaunchAgent(); }
    /// Asks for an agent file and shows the command that unloads it.
    void unloadLaunchAgent() { commandSheet_.unloadLaunchAgent(); }
    /// Copies the shown command to the pasteboard.
    void copyCommand() { commandSheet_.copyCommand(); }
    /// Closes the command sheet and stores its check box.
    void closeExecuteScriptWindow() { commandSheet_.closeExecuteScriptWindow(); }
    /// Opens a terminal. The command sheet stays open.
    void launchTerminal() { commandSheet_.launchTerminal(); }
    /// Asks for an agent file and, after a confirmation, inverts its "Enabled" key.
    void onOffLaunchAgent() { agentSwitch_.onOffLaunchAgent(); }
    /// Warns about loaded agents, then runs deleteLaunchAgentContinue().
    void deleteLaunchAgent() { agentDeletion_.deleteLaunchAgent(); }
    /// Asks for an agent file and, after a confirmation, deletes it.
    void deleteLaunchAgentContinue() { agentDeletion_.deleteLaunchAgentContinue(); }

    // The list of agents. An action on a listed file continues as the action of the same kind does
    // once its panel has been answered: with the same alerts, log lines and effects.

    /// Reads an agent into the form. Returns whether it was one that the form can show; else an
    /// alert says why not, and the form stays as it is.
    bool editAgent(const std::string& path);
    void switchAgent(const std::string& path) { agentSwitch_.switchAgent(path); }
    void showLoadCommand(const std::string& path) { commandSheet_.showLoadCommand(path); }
    void showUnloadCommand(const std::string& path) { commandSheet_.showUnloadCommand(path); }
    void deleteAgent(const std::string& path) { agentDeletion_.deleteAgent(path); }
    /// Shows the file in the desktop's file manager.
    void showInFileManager(const std::string& path) { services_.workspace.showFile(path); }
    /// Begins access to the granted folder for one reading. Returns nothing, having begun no
    /// access, where none is granted. Call closeAgentFolder() with the folder after the reading.
    std::optional<std::string> openAgentFolder();
    void closeAgentFolder(const std::optional<std::string>& folder);
    /// Asks for the folder and stores the grant, as the end of the welcome flow does.
    void requestAgentFolder();

    // The property list of the form

    /// The content of the file that a save under the proposed name would write; also of a form that
    /// fails validation.
    /// \param form the record of the form
    /// \throws NamedError "Unwritable content" where a save would fail for it
    std::string propertyListText(const AgentForm& form) const;
    /// Copies the text of propertyListText() to the pasteboard; without effect where it throws.
    void copyPropertyList();

    // Preferences

    /// Normalises the stored preferences and sets the controls that show them.
    void setUpDefaults() { preferences_.setUpDefaults(); }
    /// Shows the preferences sheet.
    void openPreferencesWindow() { preferences_.openPreferencesWindow(); }
    /// Stores the controls of the preferences sheet and closes it.
    void savePreferences() { preferences_.savePreferences(); }
    /// Closes the preferences sheet without storing.
    void closeWithoutSavingPrefs() { preferences_.closeWithoutSavingPrefs(); }
    /// Removes all stored preferences, starts a new instance and quits, without confirmation.
    void resetPreferences() { preferences_.resetPreferences(); }

    // Tips

    /// Shows all tip buttons, or hides them all where the drawer's is shown.
    void showHideTips();
    /// Shows the tip of a button in an alert.
    /// \param tipButton the outlet of the pressed button; any other name does nothing
    void showTip(std::string_view tipButton);

  private:
    using Folder = std::optional<std::string>;

    // The rest of AgentReaderHost
    void log(const std::string& line) override { services_.log.line(line); }
    void showAlertThatResets(const std::string& message, const std::string& text) override;
    std::optional<Value> preference(std::string_view key) override;

    void resetForm();
    /// Resets the form as a step that can be undone, unless nothing was changed since the last
    /// reset.
    void resetForm(std::string_view step);
    static constexpr std::string_view openStep = "Open Agent";
    void restore(const std::optional<FormModel>& form);
    FormModel takeFormBeforeInput();

    void clearTarget();
    void closeScriptPopOver();
    void hideErrorMarkers();
    void resetDrawerControls();
    void setScheduleToNeutral();
    void applyAgentAction();
    void chooseWatchPath(const FormModel& before);
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
    FormModel afterReset_; ///< the form as the last reset left it
    FormHistory history_;
    std::optional<FormModel> beforeInput_;
    bool isReading_ = false; ///< a reset belongs to the step that opens the agent
    Preferences preferences_;
    FolderGrant folderGrant_;
    LoadedAgentWarning loadedAgentWarning_;
    CommandSheet commandSheet_;
    AgentSwitch agentSwitch_;
    AgentDeletion agentDeletion_;
    /// Replaced each time the welcome flow ends, and when the list of agents asks for the grant.
    std::unique_ptr<BookmarkClass> bookmark_;
    DrawerController drawer_{form_.advancedDrawer};
    Lifetime lifetime_;
};

} // namespace frimbolate
