#include "operations/agent_switch.h"

#include "core/conversions.h"
#include "core/named_error.h"
#include "operations/agent_panel.h"
#include "operations/path_errors.h"
#include "settings/bookmark.h"

namespace frimbolate {

namespace {

constexpr std::string_view enabledKey = "Enabled";

constexpr std::string_view takesEffectLater =
    "\n\nYou may also need to unload or load the launch agent for the change to take effect, else "
    "the change will take effect on the next reboot/login.";

Alert question(bool enable) {
    Alert alert;
    alert.messageText = enable ? "This launch agent is currently disabled."
                               : "This launch agent is currently enabled.";
    alert.informativeText =
        enable ? "Would you like to enable it now?" : "Would you like to disable it now?";
    alert.informativeText += takesEffectLater;
    alert.buttons = {"Continue", "Cancel"};
    return alert;
}

} // namespace

bool isEnabled(const AgentPlist& agent) {
    const Value* enabled = find(agent, enabledKey);
    return !enabled || toBoolOrFalse(*enabled);
}

AgentPlist withSwitch(AgentPlist agent, bool enable) {
    agent.insert_or_assign(std::string(enabledKey), Value(enable));
    return agent;
}

void AgentSwitch::onOffLaunchAgent() {
    const auto folder = FolderGrant(services_).open();
    services_.filePanels.open(
        agentPanel("Please choose a launch agent to enable/disable:", folder),
        lifetime_.whileAlive([this, folder](const std::optional<std::string>& path) {
            if (path)
                agentChosen(*path, folder);
        }));
}

void AgentSwitch::switchAgent(const std::string& path) {
    agentChosen(path, FolderGrant(services_).open());
}

void AgentSwitch::agentChosen(const std::string& path, const Folder& folder) {
    try {
        auto agent = services_.files.readDictionary(path);
        if (!agent)
            throw NamedError("Agent is not readable",
                             "The chosen agent " + path + " is not accessible");
        const bool enable = !isEnabled(*agent);
        confirm(path, folder, std::move(*agent), enable);
    } catch (const NamedError&) {
        services_.log.line("Error occurred while reading the launch agent!");
        services_.alerts.show({"The launch agent could not be read.",
                               "It may be corrupted or missing values for some of its keys."});
    }
}

void AgentSwitch::confirm(const std::string& path, const Folder& folder, AgentPlist agent,
                          bool enable) {
    services_.alerts.show(
        question(enable),
        lifetime_.whileAlive([=, this, agent = std::move(agent)](AlertOutcome outcome) mutable {
            if (outcome.answer != AlertAnswer::First)
                return; // access stays begun, see FolderGrant
            write(path, withSwitch(std::move(agent), enable), enable);
            FolderGrant(services_).close(folder);
        }));
}

void AgentSwitch::write(const std::string& path, const AgentPlist& agent, bool enable) {
    try {
        if (!services_.files.isWritable(path))
            throw pathNotWritable(path);
        if (!services_.files.writeDictionary(path, agent))
            throw pathNotWritable(path);
    } catch (const NamedError&) {
        services_.log.line("Error occurred while saving the launch agent!");
        services_.log.line("Path: " + path);
        services_.log.line("Agent content: " + description(agent));
        services_.alerts.show(
            {enable ? "The launch agent could not be enabled."
                    : "The launch agent could not be disabled.",
             "Please ensure you are editing a launch agent in your user Library's LaunchAgents "
             "folder (and not the root Library's LaunchAgents folder). Check the system log for "
             "more information, or contact Frimbolate support if the issue continues."});
    }
}

} // namespace frimbolate
