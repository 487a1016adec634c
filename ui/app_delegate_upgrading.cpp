// Upgrades agents of the earlier version: writes them with the current prefix, then removes the old
// file.
#include "ui/app_delegate.h"

#include "core/agent_upgrade.h"
#include "core/named_error.h"
#include "operations/path_errors.h"

namespace frimbolate {

namespace {

constexpr const char* notUpgraded = "This launch agent could not be upgraded.";

} // namespace

void AppDelegate::askForUpgrade(const std::string& path) {
    log("Agent must be upgraded!");
    services_.alerts.show(
        {"This launch agent needs to be upgraded.",
         "It appears that the launch agent you selected was  created with an earlier version of "
         "Frimbolate. This agent needs to be upgraded before being edited.",
         {"Ok", "Cancel"}},
        lifetime_.whileAlive([this, path](AlertOutcome outcome) {
            if (outcome.answer == AlertAnswer::First)
                upgrade(path);
            else
                resetForm("Cancel Upgrade");
        }));
}

void AppDelegate::upgrade(const std::string& oldPath) {
    log("Upgrading Agent...");
    auto agent = services_.files.readDictionary(oldPath);
    if (!agent) {
        showAlertThatResets(notUpgraded, "The file path is not accessible, or there is already an "
                                         "agent with the same name in the file path.");
        return;
    }
    const auto names = upgradedNames(oldPath);
    agent->insert_or_assign("Label", Value(names.label));
    chooseUpgradePath(*agent, names.fileName, oldPath);
}

void AppDelegate::chooseUpgradePath(const AgentPlist& agent, const std::string& fileName,
                                    const std::string& oldPath) {
    SavePanel panel;
    panel.nameFieldStringValue = fileName;
    panel.prompt = "Save";
    panel.message = "Saving outside of ~/Library/LaunchAgents\n may cause the agent not to run "
                    "automatically.";
    panel.directory = folderGrant_.open(); // never closed: writeUpgraded() removes a file there
    services_.filePanels.save(
        panel,
        lifetime_.whileAlive([this, agent, oldPath](const std::optional<SaveLocation>& location) {
            if (location)
                writeUpgraded(agent, location->path, oldPath);
        }));
}

void AppDelegate::writeUpgraded(const AgentPlist& agent, const std::string& path,
                                const std::string& oldPath) {
    try {
        // A file at the path decides, not the result of the write.
        const bool written = services_.files.writeDictionary(path, agent);
        if (!services_.files.exists(path))
            throw pathNotDeletable(path);
        log("The upgraded path exists, removing the old path");
        // Also where both paths are the same: an agent saved under its old name has no file then.
        if (written)
            services_.files.remove(oldPath);
        else
            moveToTrash(oldPath);
    } catch (const NamedError&) {
        services_.alerts.show(
            {notUpgraded, "An unknown error occurred. Please make sure the agent is located in a "
                          "path accessible by Sandboxed applications."});
    }
}

/// For a write that failed: the file at the new path is another one, and the old file may be the
/// only copy of the agent.
void AppDelegate::moveToTrash(const std::string& oldPath) {
    const auto place = services_.trash.moveToTrash(oldPath);
    if (place)
        log("The upgraded agent was not written, the old one is now " + *place);
    else if (services_.files.exists(oldPath))
        log("The upgraded agent was not written, and the trash did not take the old one, which "
            "stays: " +
            oldPath);
    else // a move that was done but told as failed
        log("The upgraded agent was not written, and the old one is in the trash or lost: " +
            oldPath);
}

} // namespace frimbolate
