// Reads the keys of the advanced drawer. The order of the groups is the order of the log lines.
#include "core/agent_reader.h"

#include "core/conversions.h"
#include "core/named_error.h"

namespace frimbolate {

void AgentReader::lookForAdvancedKeys(const AgentPlist& file) {
    static constexpr TextKey folders[] = {{"WorkingDirectory", &FormModel::workingDirectoryField},
                                          {"RootDirectory", &FormModel::rootDirectoryField}};
    static constexpr TextKey streams[] = {
        {"StandardInPath", &FormModel::standardInPathField},
        {"StandardOutPath", &FormModel::standardOutPathField},
        {"StandardErrorPath", &FormModel::standardErrorPathField}};

    host_.log("Evaluating keys for advanced drawer...");
    try {
        readGlobbing(file);
        readPriority(file);
        readNice(file);
        readTexts(file, folders);
        readQueue(file);
        readTexts(file, streams);
        readAdditionalConditions(file);
    } catch (const NamedError&) {
        host_.showAlertThatResets("This launch agent could not be read.",
                                  "An error occurred while reading some key values.");
    }
    host_.log("Completed evaluating keys for advanced drawer");
}

void AgentReader::readGlobbing(const AgentPlist& file) {
    // Globbing alone never opens the drawer, even where it differs from the user's default.
    if (const Value* globbing = find(file, "EnableGlobbing")) {
        host_.form().enableGlobbingCheckbox.state =
            toBool(*globbing) ? CheckState::On : CheckState::Off;
        host_.log("Globbing key: " + description(globbing));
    }
}

void AgentReader::readPriority(const AgentPlist& file) {
    const Value* key = find(file, "LowPriorityIO");
    if (!key)
        return;
    const bool low = toBool(*key);
    host_.form().priorityLevelButton.selectedItem =
        low ? PriorityLevel::Low : PriorityLevel::Normal;
    host_.log("PriorityIO key: " + description(key));
    const auto standard = host_.preference("DefaultPriorityKey");
    if (standard && toBool(*standard) != low) {
        host_.log(std::string("Priority key: ") + (low ? "0" : "1") +
                  " is does not match default: " + (low ? "1" : "0") + ", opening drawer");
        host_.openAdvancedDrawer();
    }
}

void AgentReader::readNice(const AgentPlist& file) {
    const Value* key = find(file, "Nice");
    if (!key)
        return;
    auto& form = host_.form();
    const auto level = toInteger(*key);
    form.niceLevelSlider.value = static_cast<double>(level);
    form.niceLevelTextField.stringValue = toDisplayString(*key);
    host_.log("Nice key: " + description(key));
    if (level != 0) {
        host_.log("Nice key is not 0, opening drawer " + std::to_string(level));
        host_.openAdvancedDrawer();
    }
}

void AgentReader::readTexts(const AgentPlist& file, std::span<const TextKey> keys) {
    for (const auto& [key, field] : keys) {
        const Value* text = find(file, key);
        if (!text)
            continue;
        (host_.form().*field).stringValue = text->asString();
        host_.log(std::string(key) + " key: " + description(text));
        host_.openAdvancedDrawer();
    }
}

void AgentReader::readQueue(const AgentPlist& file) {
    const Value* folders = find(file, "QueueDirectories");
    if (!folders)
        return;
    const auto& array = folders->asArray();
    const Value* last = array.empty() ? nullptr : &array.back();
    host_.log("QueueDirectories key: " + description(folders) +
              "\n Last Object: " + description(last));
    if (!last)
        throw NamedError("Missing value", "The list of queue folders is empty");
    host_.form().queueDirectoryField.stringValue = last->asString();
    host_.openAdvancedDrawer();
}

void AgentReader::readAdditionalConditions(const AgentPlist& file) {
    auto& form = host_.form();
    const Value* atLoad = find(file, "RunAtLoad");
    if (atLoad && toBool(*atLoad) &&
        form.agentScheduleTypeButton.selectedItem != ScheduleType::AtLoad) {
        form.alsoRunAtLoadCheckbox.state = CheckState::On;
        form.alsoRunAtLoadCheckbox.enabled = true;
        host_.openAdvancedDrawer();
    }
    const Value* onMount = find(file, "StartOnMount");
    if (onMount && toBool(*onMount) &&
        form.agentActionButton.selectedItem != AgentAction::VolumeMounted) {
        form.alsoRunVolumeCheckbox.state = CheckState::On;
        host_.openAdvancedDrawer();
    }
    const Value* paths = find(file, "WatchPaths");
    if (paths && form.agentActionButton.selectedItem != AgentAction::PathModified) {
        const auto& array = paths->asArray();
        showPath(form.alsoRunPathChangeImageWell, array.empty() ? nullptr : &array.back());
        form.alsoRunPathChangeCheckbox.state = CheckState::On;
        host_.openAdvancedDrawer();
    }
}

} // namespace frimbolate
