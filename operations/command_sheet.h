// The sheet that shows the launchctl command which loads or unloads an agent.
//
// The program never runs launchctl. It composes the command, copies it when the person asked for
// that, and opens a terminal.
#pragma once

#include "core/form_model.h"
#include "core/launchctl_command.h"
#include "platform/lifetime.h"
#include "platform/services.h"

#include <string>
#include <string_view>

namespace frimbolate {

class CommandSheet {
  public:
    CommandSheet(FormModel& form, Services& services) : form_(form), services_(services) {}

    void loadLaunchAgent();
    void unloadLaunchAgent();

    /// Puts a command on the sheet. From here until the sheet is closed it counts as pending, and
    /// the preferences are out of reach.
    void setCommand(const std::string& command);
    void evaluateAutoCopyScripts(const std::string& command);
    /// Copies the command that the sheet shows, byte for byte.
    void copyCommand();
    void show();
    void closeExecuteScriptWindow();
    void launchTerminal();

  private:
    void copy(const std::string& command);
    void chooseAgent(std::string message, std::string (*compose)(std::string_view path));

    FormModel& form_;
    Services& services_;
    Lifetime lifetime_;
};

} // namespace frimbolate
