#include "operations/agent_deletion.h"

#include "operations/agent_panel.h"
#include "operations/path_errors.h"
#include "settings/bookmark.h"

namespace frimbolate {

void AgentDeletion::deleteLaunchAgent() {
    warning_.show([this] { deleteLaunchAgentContinue(); }, "User cancelled deleting agent.");
}

void AgentDeletion::deleteLaunchAgentContinue() {
    const auto folder = FolderGrant(services_).open();
    services_.filePanels.open(
        agentPanel("Please choose a launch agent to delete:", folder),
        lifetime_.whileAlive([this, folder](const std::optional<std::string>& path) {
            if (path)
                confirm(*path, folder);
        }));
}

void AgentDeletion::deleteAgent(const std::string& path) {
    confirm(path, FolderGrant(services_).open());
}

void AgentDeletion::confirm(const std::string& path, const Folder& folder) {
    services_.alerts.show(
        {"Are you sure you want to delete the following launch agent?", path, {"Delete", "Cancel"}},
        lifetime_.whileAlive([this, path, folder](AlertOutcome outcome) {
            if (outcome.answer != AlertAnswer::First)
                return; // access stays begun, see FolderGrant
            remove(path);
            FolderGrant(services_).close(folder);
        }));
}

void AgentDeletion::remove(const std::string& path) {
    try {
        if (!services_.files.isWritable(path))
            throw pathNotWritable(path);
        services_.log.line("Writable status: " + path + "\n1");
        // Not by exists(), which is false also where the disk cannot tell.
        if (!services_.files.remove(path))
            throw pathNotDeletable(path);
    } catch (const NamedError& error) {
        services_.alerts.show(
            {"An error occurred and the launch agent could not be deleted.", error.reason()});
    }
}

} // namespace frimbolate
