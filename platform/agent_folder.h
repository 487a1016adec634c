// The interface for the property lists of a folder, each as the list of agents shows it.
#pragma once

#include "core/agent_overview.h"
#include "core/form_summary.h"

#include <optional>
#include <string>
#include <vector>

namespace frimbolate {

/// Thread-safe: list() and read() may run on any thread, several at a time.
class AgentFolder {
  public:
    virtual ~AgentFolder() = default;
    /// The paths of the property lists of a folder (".plist", not hidden), sorted; nothing where
    /// the folder cannot be read. Does not open the files.
    virtual std::optional<std::vector<std::string>> list(const std::string& folder) = 0;
    /// Reads one property list. A file that is no regular file, damaged, over 16 MiB or gone gives
    /// an unreadable overview; nothing blocks and nothing is written.
    /// \param style for the texts; with `now` the overview gets its next run
    virtual AgentOverview read(const std::string& path, const TextStyle& style) = 0;
};

} // namespace frimbolate
