#include "tests/core/recording_editor.h"

#include <gmock/gmock.h>

namespace frimbolate::test {

void RecordingEditor::reset() {
    form_ = {};
    form_.showPopOverScriptButton.hidden = true;
    form_.agentScheduleTypeButton.width = 160;
    form_.agentScheduleDatePicker.dateValue = {2026, 11, 21, 9, 41, 7};
    form_.agentIntervalField.hidden = true;
    form_.agentIntervalTypeButton.hidden = true;
    form_.onMonthTextBox.hidden = true;
    form_.priorityLevelButton.selectedItem = PriorityLevel::Normal;
    form_.niceLevelTextField.stringValue = "0";
    form_.allowSuccessfulExitCheckbox.enabled = false;
}

Value daily() { return Dictionary{{"Hour", 7}, {"Minute", 5}}; }

Picture dailyPicture() { return {{"agentScheduleDatePicker.dateValue", "2000-1-1 7:5:0"}}; }

Lines dailyLines() {
    return {"log: Agent Hour key is: 7", "log: Agent Minute key is: 5",
            "log: Agent runs on every day on a schedule"};
}

Lines operator+(Lines lines, const Lines& more) {
    lines.insert(lines.end(), more.begin(), more.end());
    return lines;
}

Picture operator+(Picture picture, const Picture& more) {
    for (const auto& [name, value] : more)
        picture[name] = value;
    return picture;
}

void expectReads(const ReaderRow& row) {
    AgentFile file = {
        {"Label", "com.frimbolate.Backup"},
        {"ProgramArguments", Array{Value("/bin/sh"), Value("/Users/maya/backup.sh")}}};
    for (const auto& [key, value] : row.keys)
        file.insert_or_assign(key, value);
    const Picture usual = {{"agentNameTextField.stringValue", "\"Backup\""},
                           {"agentTargetButton.selectedItem", "2"},
                           {"agentTargetImageWell.toolTip", "\"/Users/maya/backup.sh\""},
                           {"agentActionButton.selectedItem", "2"}};
    RecordingEditor editor;
    const auto expected = with(picture(editor.form()), usual + row.changes);

    AgentReader(editor).read(file);

    EXPECT_THAT(differences(expected, picture(editor.form())), testing::IsEmpty());
    Lines effects;
    if (!row.keys.contains("ProgramArguments"))
        effects = {"target: /Users/maya/backup.sh"};
    effects = effects + row.primary + Lines{"log: Evaluating keys for advanced drawer..."} +
              row.advanced + Lines{"log: Completed evaluating keys for advanced drawer"} +
              Lines{"log: Completed evaluating primary keys for editing"};
    EXPECT_EQ(editor.journal, effects);
}

} // namespace frimbolate::test
