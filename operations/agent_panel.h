// The open panel of every operation on an existing agent file.
#pragma once

#include "platform/file_panels.h"

namespace frimbolate {

/// A panel for one property list, which starts in the granted folder.
inline OpenPanel agentPanel(std::string message, std::optional<std::string> folder) {
    OpenPanel panel;
    panel.prompt = "Select";
    panel.message = std::move(message);
    panel.allowedFileTypes = {"plist"};
    panel.directory = std::move(folder);
    return panel;
}

} // namespace frimbolate
