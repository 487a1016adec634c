// The keys of the advanced drawer, in the order in which they are looked at.
#include "core/agent_reader.h"

#include "core/conversions.h"
#include "core/failure.h"

namespace frimbolate {

void AgentReader::lookForAdvancedKeys(const AgentFile& file) {
    static constexpr TextKey folders[] = {{"WorkingDirectory", &FormModel::workingDirectoryField},
                                          {"RootDirectory", &FormModel::rootDirectoryField}};
    static constexpr TextKey streams[] = {
        {"StandardInPath", &FormModel::standardInPathField},
        {"StandardOutPath", &FormModel::standardOutPathField},
        {"StandardErrorPath", &FormModel::standardErrorPathField}};

    editor_.log("Evaluating keys for advanced drawer...");
    try {
        readGlobbing(file);
        readPriority(file);
        readNice(file);
        readTexts(file, folders);
        readQueue(file);
        readTexts(file, streams);
        readAdditionalConditions(file);
    } catch (const Failure&) {
        editor_.showAlertThatResets("This launch agent could not be read.",
                                    "An error occurred while reading some key values.");
    }
    editor_.log("Completed evaluating keys for advanced drawer");
}

void AgentReader::readGlobbing(const AgentFile& file) {
    // Globbing alone never opens the drawer, however it differs from the person's default.
    if (const Value* globbing = find(file, "EnableGlobbing")) {
        editor_.form().enableGlobbingCheckbox.state =
            truth(*globbing) ? CheckState::On : CheckState::Off;
        editor_.log("Globbing key: " + description(globbing));
    }
}

void AgentReader::readPriority(const AgentFile& file) {
    const Value* key = find(file, "LowPriorityIO");
    if (!key)
        return;
    const bool low = truth(*key);
    editor_.form().priorityLevelButton.selectedItem =
        low ? PriorityLevel::Low : PriorityLevel::Normal;
    editor_.log("PriorityIO key: " + description(key));
    const auto standard = editor_.preference("DefaultPriorityKey");
    if (standard && truth(*standard) != low) {
        editor_.log(std::string("Priority key: ") + (low ? "0" : "1") +
                    " is does not match default: " + (low ? "1" : "0") + ", opening drawer");
        editor_.openAdvancedDrawer();
    }
}

void AgentReader::readNice(const AgentFile& file) {
    const Value* key = find(file, "Nice");
    if (!key)
        return;
    auto& form = editor_.form();
    const auto level = integerValue(*key);
    form.niceLevelSlider.value = static_cast<double>(level);
    form.niceLevelTextField.stringValue = textOf(*key);
    editor_.log("Nice key: " + description(key));
    if (level != 0) {
        editor_.log("Nice key is not 0, opening drawer " + std::to_string(level));
        editor_.openAdvancedDrawer();
    }
}

void AgentReader::readTexts(const AgentFile& file, std::span<const TextKey> keys) {
    for (const auto& [key, field] : keys) {
        const Value* text = find(file, key);
        if (!text)
            continue;
        (editor_.form().*field).stringValue = text->asString();
        editor_.log(std::string(key) + " key: " + description(text));
        editor_.openAdvancedDrawer();
    }
}

void AgentReader::readQueue(const AgentFile& file) {
    const Value* folders = find(file, "QueueDirectories");
    if (!folders)
        return;
    const auto& array = folders->asArray();
    const Value* last = array.empty() ? nullptr : &array.back();
    editor_.log("QueueDirectories key: " + description(folders) +
                "\n Last Object: " + description(last));
    if (!last)
        throw Failure("Missing value", "The list of queue folders is empty");
    editor_.form().queueDirectoryField.stringValue = last->asString();
    editor_.openAdvancedDrawer();
}

void AgentReader::readAdditionalConditions(const AgentFile& file) {
    auto& form = editor_.form();
    const Value* atLoad = find(file, "RunAtLoad");
    if (atLoad && truth(*atLoad) &&
        form.agentScheduleTypeButton.selectedItem != ScheduleType::AtLoad) {
        form.alsoRunAtLoadCheckbox.state = CheckState::On;
        form.alsoRunAtLoadCheckbox.enabled = true;
        editor_.openAdvancedDrawer();
    }
    const Value* onMount = find(file, "StartOnMount");
    if (onMount && truth(*onMount) &&
        form.agentActionButton.selectedItem != AgentAction::VolumeMounted) {
        form.alsoRunVolumeCheckbox.state = CheckState::On;
        editor_.openAdvancedDrawer();
    }
    const Value* paths = find(file, "WatchPaths");
    if (paths && form.agentActionButton.selectedItem != AgentAction::PathModified) {
        const auto& array = paths->asArray();
        showPath(form.alsoRunPathChangeImageWell, array.empty() ? nullptr : &array.back());
        form.alsoRunPathChangeCheckbox.state = CheckState::On;
        editor_.openAdvancedDrawer();
    }
}

} // namespace frimbolate
