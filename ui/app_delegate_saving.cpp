// Validates the form and writes the agent file.
#include "ui/app_delegate.h"

#include "core/conversions.h"
#include "core/named_error.h"
#include "core/validation.h"
#include "operations/path_errors.h"

namespace frimbolate {

namespace {

std::string folderOf(const std::string& path) {
    const auto slash = path.rfind('/');
    return slash == 0 ? "/" : path.substr(0, slash);
}

} // namespace

void AppDelegate::validateAgentConfig() {
    const auto faults = validate(agentForm(form_));
    form_.nameErrorImageWell.hidden = !faultOfRow(faults, FormRow::Name);
    form_.actionErrorImageWell.hidden = !faultOfRow(faults, FormRow::Action);
    form_.targetErrorImageWell.hidden = !faultOfRow(faults, FormRow::Target);
    form_.scheduleErrorImageWell.hidden = !faultOfRow(faults, FormRow::Schedule);
    if (faults.empty()) {
        log("Agent passed initial validation, moving on...");
        saveLaunchAgent();
        return;
    }
    const auto report = errorReport(faults);
    log("Agent failed initial validation with the following errors:\n" + report);
    services_.alerts.show({"Some information is missing or incorrect.", report});
}

void AppDelegate::saveLaunchAgent() {
    const auto folder = folderGrant_.open();
    SavePanel panel;
    panel.nameFieldStringValue = proposedFileName(form_.agentNameTextField.stringValue);
    panel.prompt = "Save";
    panel.message = "Saving outside of ~/Library/LaunchAgents\n will cause the agent not to run "
                    "automatically.";
    panel.directory = folder;
    services_.filePanels.save(
        panel, lifetime_.whileAlive([this](const std::optional<SaveLocation>& location) {
            if (location)
                saveAgent(*location);
        }));
    // Closed before the user answers: the panel itself grants access to the path that it returns.
    folderGrant_.close(folder);
}

void AppDelegate::saveAgent(const SaveLocation& location) {
    const auto& path = location.path;
    AgentPlist agent;
    try {
        log("Saving launch agent, logging all saved values...");
        agent = buildLoggedAgentPlist(location);
        log("Path: " + path);
        if (!services_.files.isWritable(folderOf(path)))
            throw pathNotWritable(path);
        // The result is ignored: an unwritable folder or content is an error, a failed write is
        // not.
        services_.files.writeDictionary(path, agent);
        commandSheet_.setCommand(loadCommand(path));
        showSuccess();
    } catch (const NamedError& error) {
        log("Error occurred while saving the launch agent!");
        log(error.reason());
        log("Path: " + path);
        log("Agent content: " + description(agent));
        showSaveFailure();
    }
}

AgentPlist AppDelegate::buildLoggedAgentPlist(const SaveLocation& location) {
    const auto form = agentForm(form_);
    const auto label = labelForFileName(location.nameFieldStringValue);
    log("Agent label key: " + label);
    log("Agent target type is " + std::to_string(form.targetType));
    if (form.targetType == TargetType::File)
        log("Creating agent arguments, last path component is: " +
            std::string(targetExtension(form.targetPath)));
    return buildAgentPlist(form, label);
}

std::string AppDelegate::propertyListText(const AgentForm& form) const {
    const auto label = labelForFileName(proposedFileName(form.name));
    return services_.files.propertyListText(buildAgentPlist(form, label));
}

void AppDelegate::copyPropertyList() {
    try {
        const auto text = propertyListText(agentForm(form_));
        services_.pasteboard.clearContents();
        services_.pasteboard.setString(text);
    } catch (const NamedError&) { // there is nothing to copy; the page shows the reason
        return;
    }
}

void AppDelegate::showSuccess() {
    services_.alerts.show(
        {"Your launch agent was created.",
         "In order to start your launch agent, it must be loaded into launchd. If you saved your "
         "launch agent in ~/Library/LaunchAgents/ then it will load automatically the next time "
         "you log in.\n\nIf you'd like to load your launch agent now, click Continue below.",
         {"Continue", "Skip"}},
        lifetime_.whileAlive([this](AlertOutcome outcome) {
            resetForm("Reset After Save");
            if (outcome.answer == AlertAnswer::First)
                commandSheet_.show();
            else
                log("User skipped loading agent.");
        }));
}

void AppDelegate::showSaveFailure() {
    services_.alerts.show(
        {"Your launch agent could not be created.",
         "Please ensure you are saving your launch agent to your user Library's LaunchAgents "
         "folder (and not the root Library's LaunchAgents folder). Check the system log for more "
         "information, or contact Frimbolate support if the issue continues."});
}

} // namespace frimbolate
