// The sheet with the launchctl command that loads or unloads an agent.
//
// The program never runs launchctl. It composes the command, copies it if the user wants that, and
// opens a terminal.
#pragma once

#include "core/form_model.h"
#include "core/launchctl_command.h"
#include "platform/lifetime.h"
#include "platform/services.h"

#include <optional>
#include <string>
#include <string_view>

namespace frimbolate {

class CommandSheet {
  public:
    /// Both must outlive this.
    CommandSheet(FormModel& form, Services& services) : form_(form), services_(services) {}

    /// Asks for an agent file and shows the command that loads it.
    void loadLaunchAgent();
    /// Asks for an agent file and shows the command that unloads it.
    void unloadLaunchAgent();
    /// Shows the command that loads, or unloads, an agent file that is chosen already.
    void showLoadCommand(const std::string& path);
    void showUnloadCommand(const std::string& path);

    /// Sets the command of the sheet, then calls evaluateAutoCopyScripts().
    void setCommand(const std::string& command);
    /// Disables the preferences item until the sheet is closed, sets the sheet's check box from the
    /// preference, and copies the command if the preference asks for it.
    void evaluateAutoCopyScripts(const std::string& command);
    /// Copies the command of the sheet unchanged to the pasteboard.
    void copyCommand();
    /// Shows the sheet with the keyboard focus on the terminal button.
    void show();
    /// Closes the sheet, enables the preferences item and stores the state of the check box.
    void closeExecuteScriptWindow();
    /// Opens a terminal. The sheet stays open.
    void launchTerminal();

  private:
    using Folder = std::optional<std::string>;
    using Compose = std::string (*)(std::string_view path);
    void copy(const std::string& command);
    void chooseAgent(std::string message, Compose compose);
    void agentChosen(const std::string& path, const Folder& folder, Compose compose);

    FormModel& form_;
    Services& services_;
    Lifetime lifetime_;
};

} // namespace frimbolate
