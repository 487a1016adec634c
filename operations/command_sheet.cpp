#include "operations/command_sheet.h"

#include "operations/agent_panel.h"
#include "settings/bookmark.h"
#include "settings/preferences.h"

namespace frimbolate {

void CommandSheet::loadLaunchAgent() {
    chooseAgent("Please choose a launch agent to load:", loadCommand);
}

void CommandSheet::unloadLaunchAgent() {
    chooseAgent("Please choose a launch agent to unload:", unloadCommand);
}

void CommandSheet::showLoadCommand(const std::string& path) {
    agentChosen(path, FolderGrant(services_).open(), loadCommand);
}

void CommandSheet::showUnloadCommand(const std::string& path) {
    agentChosen(path, FolderGrant(services_).open(), unloadCommand);
}

void CommandSheet::chooseAgent(std::string message, Compose compose) {
    const auto folder = FolderGrant(services_).open();
    services_.filePanels.open(
        agentPanel(std::move(message), folder),
        lifetime_.whileAlive([this, folder, compose](const std::optional<std::string>& path) {
            if (path)
                agentChosen(*path, folder, compose); // else access stays begun, see FolderGrant
        }));
}

void CommandSheet::agentChosen(const std::string& path, const Folder& folder, Compose compose) {
    setCommand(compose(path));
    show();
    FolderGrant(services_).close(folder);
}

void CommandSheet::setCommand(const std::string& command) {
    form_.actionScriptTextView.string = command;
    form_.actionScriptTextView.editable = false;
    evaluateAutoCopyScripts(command);
}

void CommandSheet::evaluateAutoCopyScripts(const std::string& command) {
    form_.preferencesMenuItem.enabled = false;
    const bool copies = holdsString(services_.defaults, PreferenceKey::autoCopyScripts, "True");
    form_.autoCopyScriptsCheckbox2.state = copies ? CheckState::On : CheckState::Off;
    form_.copyCommandButton.hasCopied = false;
    if (copies)
        copy(command);
}

void CommandSheet::copyCommand() { copy(form_.actionScriptTextView.string); }

void CommandSheet::copy(const std::string& command) {
    services_.pasteboard.clearContents();
    services_.pasteboard.setString(command);
    form_.copyCommandButton.hasCopied = true;
}

void CommandSheet::show() {
    services_.sheets.begin(Sheet::executeScriptWindow);
    services_.sheets.makeFirstResponder(Sheet::executeScriptWindow, "launchTerminalButton");
}

void CommandSheet::closeExecuteScriptWindow() {
    services_.sheets.end(Sheet::executeScriptWindow);
    form_.preferencesMenuItem.enabled = true;
    const bool copies = form_.autoCopyScriptsCheckbox2.state != CheckState::Off;
    services_.log.line(copies ? "User wants to autocopy scripts, writing key"
                              : "User does not want to autocopy scripts, writing key");
    services_.defaults.set(PreferenceKey::autoCopyScripts, copies ? "True" : "False");
    form_.autoCopyScriptCheckbox.state = copies ? CheckState::On : CheckState::Off;
}

void CommandSheet::launchTerminal() { services_.workspace.openTerminal(); }

} // namespace frimbolate
