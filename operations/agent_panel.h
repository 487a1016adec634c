// The open panel that every operation on an existing agent file shows.
#pragma once

#include "platform/file_panels.h"

namespace frimbolate {

/// One property list, chosen in the granted folder.
inline OpenPanel agentPanel(std::string message, std::optional<std::string> folder) {
    OpenPanel panel;
    panel.prompt = "Select";
    panel.message = std::move(message);
    panel.allowedFileTypes = {"plist"};
    panel.directory = std::move(folder);
    return panel;
}

} // namespace frimbolate
