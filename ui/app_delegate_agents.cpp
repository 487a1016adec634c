// The actions on the files that the list of agents shows, and the access to their folder.
#include "ui/app_delegate.h"

namespace frimbolate {

bool AppDelegate::editAgent(const std::string& path) {
    const bool opens = agentOrigin(path) != AgentOrigin::Foreign;
    if (opens)
        resetForm(openStep);
    readAgent(path, folderGrant_.open());
    return opens;
}

std::optional<std::string> AppDelegate::openAgentFolder() {
    auto folder = folderGrant_.open();
    if (!folder)
        folderGrant_.close(folder);
    return folder;
}

void AppDelegate::closeAgentFolder(const std::optional<std::string>& folder) {
    folderGrant_.close(folder);
}

void AppDelegate::requestAgentFolder() {
    bookmark_ = std::make_unique<BookmarkClass>(services_);
    bookmark_->scopeABookmarkWithWindow();
}

} // namespace frimbolate
