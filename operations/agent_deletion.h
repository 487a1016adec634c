// Deletes an agent file after a warning, a choice and a confirmation.
#pragma once

#include "platform/lifetime.h"
#include "platform/services.h"
#include "settings/loaded_agent_warning.h"

#include <optional>
#include <string>

namespace frimbolate {

class AgentDeletion {
  public:
    /// \param services must outlive this
    explicit AgentDeletion(Services& services) : services_(services), warning_(services) {}

    /// Warns about loaded agents, asks for the file and for a confirmation, and deletes the file.
    /// An error is shown.
    void deleteLaunchAgent();
    /// The same without the warning.
    void deleteLaunchAgentContinue();
    /// The same for a file that is chosen already.
    void deleteAgent(const std::string& path);

  private:
    using Folder = std::optional<std::string>;
    void confirm(const std::string& path, const Folder& folder);
    void remove(const std::string& path);

    Services& services_;
    LoadedAgentWarning warning_;
    Lifetime lifetime_;
};

} // namespace frimbolate
