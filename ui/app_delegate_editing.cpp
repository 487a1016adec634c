// Opens an existing agent: the questions, the choice of the file, and the reading.
#include "ui/app_delegate.h"

#include "core/named_error.h"
#include "operations/agent_panel.h"

namespace frimbolate {

void AppDelegate::editLaunchAgent() {
    // A form without a name counts as unchanged.
    if (!form_.agentNameTextField.stringValue.empty()) {
        services_.alerts.show(
            {"Do you want to discard changes?",
             "It looks like you might have been in the middle of creating a new or editing an "
             "existing launch agent. Do you want to discard these changes?",
             {"Continue", "Cancel"}},
            lifetime_.whileAlive([this](AlertOutcome outcome) {
                if (outcome.answer != AlertAnswer::First)
                    return;
                resetForm(openStep);
                editLaunchAgent();
            }));
        return;
    }
    loadedAgentWarning_.show([this] { continueEditingAgent(); }, "User cancelled editing agent.");
}

void AppDelegate::continueEditingAgent() {
    resetForm(openStep);
    const auto folder = folderGrant_.open();
    services_.filePanels.open(
        agentPanel("Please choose a launch agent to edit:", folder),
        lifetime_.whileAlive([this, folder](const std::optional<std::string>& path) {
            if (path)
                readAgent(*path, folder);
            else
                resetForm(openStep); // access stays begun, see FolderGrant
        }));
}

void AppDelegate::readAgent(const std::string& path, const Folder& folder) {
    const auto origin = agentOrigin(path);
    if (origin == AgentOrigin::Foreign) {
        services_.alerts.show(
            {"This launch agent is not fully compatible with Frimbolate.",
             "It appears that the launch agent you selected was not created with Frimbolate. "
             "Frimbolate does not currently support all known launchd keys.\n\nEven though you "
             "cannot fully edit this agent, you can still load/unload it, and enable/disable "
             "(on/off) it."});
        folderGrant_.close(folder);
        return;
    }
    log("Agent was created with Frimbolate.");
    if (origin == AgentOrigin::EarlierVersion)
        askForUpgrade(path); // returns at once; the file is read before the answer
    isReading_ = true;
    try {
        const auto agent = services_.files.readDictionary(path);
        if (!agent)
            throw NamedError("Agent is not readable", "The file holds no property list");
        AgentReader(*this).read(*agent);
    } catch (const NamedError&) {
        showAlertThatResets("The launch agent could not be read.",
                            "The agent may be corrupted or missing values for some of its keys.");
    }
    isReading_ = false;
    folderGrant_.close(folder);
}

void AppDelegate::lookForAdvancedKeys(const AgentPlist& file) {
    AgentReader(*this).lookForAdvancedKeys(file);
}

} // namespace frimbolate
