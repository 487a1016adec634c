// Implements AgentFolder with the file system of this computer.
#pragma once

#include "core/agent_checks.h"
#include "platform/agent_folder.h"
#include "posix/property_list_file.h"

#include <string>
#include <string_view>

namespace frimbolate {

class LocalAgentFolder : public AgentFolder {
  public:
    std::optional<std::vector<std::string>> list(const std::string& folder) override;
    AgentOverview read(const std::string& path, const TextStyle& style) override;
};

/// What a path leads to on this computer, for the checks of an agent.
PathState localPathState(const std::string& path);

/// What the checks may ask about a file that was read.
CheckContext localCheckContext(const std::string& path, const PropertyListFile& file,
                               std::string_view home);

} // namespace frimbolate
