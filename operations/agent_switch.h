// Switches an agent on or off through the "Enabled" key of its file.
#pragma once

#include "core/agent_plist.h"
#include "platform/lifetime.h"
#include "platform/services.h"

#include <optional>
#include <string>

namespace frimbolate {

/// Whether the switch of an agent is on. A missing key counts as enabled, a value without a truth
/// value as disabled.
bool isEnabled(const AgentPlist& agent);

/// The agent with its switch on or off.
AgentPlist withSwitch(AgentPlist agent, bool enable);

class AgentSwitch {
  public:
    /// \param services must outlive this
    explicit AgentSwitch(Services& services) : services_(services) {}

    /// Asks for an agent file and for a confirmation, and writes the opposite of its present state
    /// to "Enabled". An error is logged and shown.
    void onOffLaunchAgent();
    /// The same for a file that is chosen already.
    void switchAgent(const std::string& path);

  private:
    using Folder = std::optional<std::string>;
    void agentChosen(const std::string& path, const Folder& folder);
    void confirm(const std::string& path, const Folder& folder, AgentPlist agent, bool enable);
    void write(const std::string& path, const AgentPlist& agent, bool enable);

    Services& services_;
    Lifetime lifetime_;
};

} // namespace frimbolate
