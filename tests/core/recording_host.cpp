#include "tests/core/recording_host.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace frimbolate::test {

FormModel newAgentForm() {
    FormModel form;
    form.showPopOverScriptButton.hidden = true;
    form.agentScheduleTypeButton.width = 160;
    form.agentScheduleDatePicker.dateValue = {2026, 11, 21, 9, 41, 7};
    form.agentIntervalField.hidden = true;
    form.agentIntervalTypeButton.hidden = true;
    form.onMonthTextBox.hidden = true;
    form.priorityLevelButton.selectedItem = PriorityLevel::Normal;
    form.niceLevelTextField.stringValue = "0";
    form.allowSuccessfulExitCheckbox.enabled = false;
    return form;
}

std::vector<StartForm> startForms() {
    return {{"from a new agent", newAgentForm()},
            {"from other values, flags not set", nonDefaultForm(false)},
            {"from other values, flags set", nonDefaultForm(true)}};
}

Value daily() { return Dictionary{{"Hour", 7}, {"Minute", 5}}; }

Snapshot dailySnapshot() {
    return {{"agentIntervalField.hidden", "yes"},
            {"agentScheduleDatePicker.dateValue", "2000-1-1 7:5:0"},
            {"agentScheduleDatePicker.hidden", "no"},
            {"agentScheduleDatePicker.width", "146"},
            {"agentScheduleTypeButton.selectedItem", "0"},
            {"agentScheduleTypeButton.width", "160"},
            {"onMonthTextBox.hidden", "yes"}};
}

Lines dailyLines() {
    return {"log: Agent Hour key is: 7", "log: Agent Minute key is: 5",
            "log: Agent runs on every day on a schedule"};
}

Lines operator+(Lines lines, const Lines& more) {
    lines.insert(lines.end(), more.begin(), more.end());
    return lines;
}

Snapshot operator+(Snapshot snapshot, const Snapshot& more) {
    for (const auto& [name, value] : more)
        snapshot[name] = value;
    return snapshot;
}

void expectReads(const ReaderRow& row) {
    AgentPlist file = {
        {"Label", "com.frimbolate.Backup"},
        {"ProgramArguments", Array{Value("/bin/sh"), Value("/Users/maya/backup.sh")}}};
    for (const auto& [key, value] : row.keys)
        file.insert_or_assign(key, value);
    Snapshot sets = {
        {"agentNameTextField.stringValue", "\"Backup\""},
        {"agentActionButton.selectedItem", "2"},
        // Every reading sets the time or hides its field, which clears an unreadable text.
        {"agentScheduleDatePicker.unreadableText", "none"}};
    Lines effects;
    if (!row.keys.contains("ProgramArguments")) {
        sets["agentTargetButton.selectedItem"] = "2";
        sets["agentTargetImageWell.toolTip"] = "\"/Users/maya/backup.sh\"";
        effects = {"target: /Users/maya/backup.sh"};
    }
    effects = effects + row.primary + Lines{"log: Evaluating keys for advanced drawer..."} +
              row.advanced + Lines{"log: Completed evaluating keys for advanced drawer"} +
              Lines{"log: Completed evaluating primary keys for editing"};
    const bool resets = std::find(effects.begin(), effects.end(), "reset") != effects.end();

    for (const auto& start : startForms()) {
        SCOPED_TRACE(start.name);
        RecordingHost editor(start.form);
        AgentReader(editor).read(file);
        const auto expected = with(snapshot(resets ? newAgentForm() : start.form), sets + row.sets);
        EXPECT_THAT(differences(expected, snapshot(editor.form())), testing::IsEmpty());
        EXPECT_EQ(editor.journal, effects);
    }
}

} // namespace frimbolate::test
