// The window shows what the model holds.
#include "core/form_summary.h"
#include "core/pop_up_items.h"
#include "tests/core/rendered_form.h"
#include "tests/support/rows.h"
#include "tests/widgets/window_test.h"
#include "widgets/controls/elided_label.h"
#include "widgets/controls/image_well_button.h"
#include "widgets/controls/time_field.h"
#include "widgets/style/surfaces.h"
#include "widgets/style/tokens.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSlider>
#include <QStandardItemModel>

namespace frimbolate::test {
namespace {

struct TextRow {
    const char* name;
    TextField FormModel::*member;
};
constexpr TextRow textRows[] = {
    {"agentNameTextField", &FormModel::agentNameTextField},
    {"agentIntervalField", &FormModel::agentIntervalField},
    {"onMonthTextField", &FormModel::onMonthTextField},
    {"niceLevelTextField", &FormModel::niceLevelTextField},
    {"standardInPathField", &FormModel::standardInPathField},
    {"standardOutPathField", &FormModel::standardOutPathField},
    {"standardErrorPathField", &FormModel::standardErrorPathField},
    {"workingDirectoryField", &FormModel::workingDirectoryField},
    {"rootDirectoryField", &FormModel::rootDirectoryField},
    {"queueDirectoryField", &FormModel::queueDirectoryField},
};

struct PopUpRow {
    const char* name;
    PopUp FormModel::*member;
    std::span<const PopUpItem> (*items)();
};
constexpr PopUpRow popUpRows[] = {
    {"agentTargetButton", &FormModel::agentTargetButton, agentTargetItems},
    {"agentActionButton", &FormModel::agentActionButton, agentActionItems},
    {"agentScheduleTypeButton", &FormModel::agentScheduleTypeButton, agentScheduleTypeItems},
    {"agentIntervalTypeButton", &FormModel::agentIntervalTypeButton, agentIntervalTypeItems},
    {"priorityLevelButton", &FormModel::priorityLevelButton, priorityLevelItems},
    {"scriptPopOverLanguageButton", &FormModel::scriptPopOverLanguageButton, scriptLanguageItems},
    {"globalGlobbingCheckbox", &FormModel::globalGlobbingCheckbox, globalGlobbingItems},
    {"globalPriorityCheckbox", &FormModel::globalPriorityCheckbox, globalPriorityItems},
};

struct BoxRow {
    const char* name;
    CheckBox FormModel::*member;
};
constexpr BoxRow boxRows[] = {
    {"enableGlobbingCheckbox", &FormModel::enableGlobbingCheckbox},
    {"alsoRunAtLoadCheckbox", &FormModel::alsoRunAtLoadCheckbox},
    {"alsoRunVolumeCheckbox", &FormModel::alsoRunVolumeCheckbox},
    {"alsoRunPathChangeCheckbox", &FormModel::alsoRunPathChangeCheckbox},
    {"allowSuccessfulExitCheckbox", &FormModel::allowSuccessfulExitCheckbox},
    {"showWelcomeCheckbox", &FormModel::showWelcomeCheckbox},
    {"showWelcomeWindowCheckbox", &FormModel::showWelcomeWindowCheckbox},
    {"autoCopyScriptCheckbox", &FormModel::autoCopyScriptCheckbox},
    {"warnSuccessfulExitCheckbox", &FormModel::warnSuccessfulExitCheckbox},
    {"autoCopyScriptsCheckbox2", &FormModel::autoCopyScriptsCheckbox2},
};

struct ButtonRow {
    const char* name;
    Button FormModel::*member;
};
constexpr ButtonRow buttonRows[] = {
    {"showPopOverScriptButton", &FormModel::showPopOverScriptButton},
    {"agentNameTipButton", &FormModel::agentNameTipButton},
    {"agentTargetTipButton", &FormModel::agentTargetTipButton},
    {"agentActionTipButton", &FormModel::agentActionTipButton},
    {"agentScheduleTipButton", &FormModel::agentScheduleTipButton},
    {"advancedDrawerTipButton", &FormModel::advancedDrawerTipButton},
};

TEST_F(WindowTest, ShowsTexts) {
    for (const TextRow& row : textRows) {
        for (const char* shown : {"first", "h\u00e9 \u2603", ""}) {
            show([&](FormModel& model) { (model.*row.member).stringValue = shown; });
            EXPECT_EQ(find<QLineEdit>(row.name)->text().toStdString(), shown) << row.name;
        }
        for (const bool hidden : {true, false}) {
            show([&](FormModel& model) { (model.*row.member).hidden = hidden; });
            EXPECT_EQ(find(row.name)->isHidden(), hidden) << row.name;
        }
    }
}

TEST_F(WindowTest, ShowsPopUps) {
    for (const PopUpRow& row : popUpRows) {
        auto* button = find<QComboBox>(row.name);
        const auto items = row.items();
        ASSERT_EQ(button->count(), static_cast<int>(items.size())) << row.name;
        for (int i = -1; i < button->count(); ++i) {
            show([&](FormModel& model) { (model.*row.member).selectedItem = i; });
            EXPECT_EQ(button->currentIndex(), i) << row.name;
        }
        for (const bool flag : {false, true}) {
            show([&](FormModel& model) {
                (model.*row.member).enabled = flag;
                (model.*row.member).hidden = !flag;
            });
            EXPECT_EQ(button->isEnabledTo(button->parentWidget()), flag) << row.name;
            EXPECT_EQ(button->isHidden(), !flag) << row.name;
        }
    }
}

TEST_F(WindowTest, PopUpsListTheirItemsWithSeparatorsInBetween) {
    for (const PopUpRow& row : popUpRows) {
        const auto* button = find<QComboBox>(row.name);
        const auto items = row.items();
        for (int i = 0; i < button->count(); ++i) {
            const PopUpItem& item = items[static_cast<std::size_t>(i)];
            const bool isSeparator =
                button->itemData(i, Qt::AccessibleDescriptionRole).toString() == "separator";
            EXPECT_EQ(isSeparator, item.kind == PopUpItem::Kind::Separator) << row.name << ' ' << i;
            EXPECT_EQ(button->itemText(i).toStdString(), item.title) << row.name << ' ' << i;
        }
    }
}

TEST_F(WindowTest, ReservedIndexesAreSeparators) {
    const auto separators = [this](const char* name) {
        std::vector<int> indexes;
        const auto* button = find<QComboBox>(name);
        for (int i = 0; i < button->count(); ++i)
            if (button->itemData(i, Qt::AccessibleDescriptionRole).toString() == "separator")
                indexes.push_back(i);
        return indexes;
    };
    EXPECT_EQ(separators("agentTargetButton"), (std::vector{1}));
    EXPECT_EQ(separators("agentActionButton"), (std::vector{1}));
    EXPECT_EQ(separators("agentScheduleTypeButton"), (std::vector{1, 9, 11, 13}));
}

TEST_F(WindowTest, DisablesAndEnablesItems) {
    const auto* list = qobject_cast<const QStandardItemModel*>(
        find<QComboBox>("agentScheduleTypeButton")->model());
    for (const bool disabled : {true, false, true}) {
        show([&](FormModel& model) {
            model.agentScheduleTypeButton.disabledItems.clear();
            if (disabled)
                model.agentScheduleTypeButton.disabledItems.insert(ScheduleType::OnInterval);
        });
        EXPECT_EQ(list->item(ScheduleType::OnInterval)->isEnabled(), !disabled);
        EXPECT_TRUE(list->item(ScheduleType::AtLoad)->isEnabled());
    }
}

TEST_F(WindowTest, ShowsTheWidthsOfTheSchedule) {
    for (const int width : {160, 311, 160}) {
        show([width](FormModel& model) { model.agentScheduleTypeButton.width = width; });
        EXPECT_EQ(find("agentScheduleTypeButton")->minimumWidth(), width);
        EXPECT_EQ(find("agentScheduleTypeButton")->maximumWidth(), width);
    }
    for (const int width : {146, 90, 146}) {
        show([width](FormModel& model) { model.agentScheduleDatePicker.width = width; });
        EXPECT_EQ(find("agentScheduleDatePicker")->minimumWidth(), width);
        EXPECT_EQ(find("agentScheduleDatePicker")->maximumWidth(), width);
    }
}

TEST_F(WindowTest, ShowsCheckBoxesWithTheirMixedState) {
    const std::pair<int, Qt::CheckState> states[] = {{CheckState::On, Qt::Checked},
                                                     {CheckState::Mixed, Qt::PartiallyChecked},
                                                     {CheckState::Off, Qt::Unchecked}};
    for (const BoxRow& row : boxRows) {
        const auto* box = find<QCheckBox>(row.name);
        for (const auto& [state, shown] : states) {
            show([&, state = state](FormModel& model) { (model.*row.member).state = state; });
            EXPECT_EQ(box->checkState(), shown) << row.name;
        }
        for (const bool enabled : {false, true}) {
            show([&](FormModel& model) { (model.*row.member).enabled = enabled; });
            EXPECT_EQ(box->isEnabledTo(box->parentWidget()), enabled) << row.name;
        }
    }
}

TEST_F(WindowTest, ShowsButtonsAndMarkers) {
    for (const ButtonRow& row : buttonRows)
        for (const bool hidden : {true, false}) {
            show([&](FormModel& model) { (model.*row.member).hidden = hidden; });
            EXPECT_EQ(find(row.name)->isHidden(), hidden) << row.name;
        }
    const std::pair<const char*, Marker FormModel::*> markers[] = {
        {"nameErrorImageWell", &FormModel::nameErrorImageWell},
        {"targetErrorImageWell", &FormModel::targetErrorImageWell},
        {"actionErrorImageWell", &FormModel::actionErrorImageWell},
        {"scheduleErrorImageWell", &FormModel::scheduleErrorImageWell}};
    for (const auto& [name, member] : markers)
        for (const bool hidden : {false, true}) {
            show([member = member, hidden](FormModel& model) { (model.*member).hidden = hidden; });
            EXPECT_EQ(find(name)->isHidden(), hidden) << name;
        }
    show([](FormModel& model) { model.showPopOverScriptButton.toolTip = "Click to edit script"; });
    EXPECT_EQ(find("showPopOverScriptButton")->toolTip(), "Click to edit script");
}

TEST_F(WindowTest, ShowsTheRestOfTheForm) {
    show([](FormModel& model) {
        model.agentScheduleDatePicker.dateValue = {2026, 11, 21, 23, 59, 30};
        model.agentScheduleDatePicker.hidden = true;
        model.onMonthTextBox.hidden = false;
        model.niceLevelSlider.value = -20;
        model.scriptPopOverScriptField.stringValue = "a\u00a0b\nc";
        model.actionScriptTextView.string = "launchctl load 'x'";
        model.preferencesMenuItem.enabled = false;
        model.agentTargetImageWell = {Image::resource("iconScriptRuby.png"), "/Users/maya/a b.rb"};
    });
    EXPECT_TRUE(find<TimeField>("agentScheduleDatePicker")->time() == (TimeOfDay{23, 59}));
    EXPECT_TRUE(find("agentScheduleDatePicker")->isHidden());
    EXPECT_FALSE(find("onMonthTextBox")->isHidden());
    EXPECT_EQ(find<QSlider>("niceLevelSlider")->value(), -20);
    EXPECT_EQ(find<QPlainTextEdit>("scriptPopOverScriptField")->document()->toRawText(),
              QString::fromUtf8("a\u00a0b\u2029c"));
    EXPECT_EQ(find<QPlainTextEdit>("actionScriptTextView")->toPlainText(), "launchctl load 'x'");
    EXPECT_TRUE(find<QPlainTextEdit>("actionScriptTextView")->isReadOnly());
    EXPECT_FALSE(find<QAction>("preferencesMenuItem")->isEnabled());
    EXPECT_EQ(find<ImageWellButton>("agentTargetImageWell")->image(),
              Image::resource("iconScriptRuby.png"));
}

TEST_F(WindowTest, TogglesTheToolbarWithTipsAndDrawer) {
    for (const bool shown : {true, false, true}) {
        show([shown](FormModel& model) {
            model.advancedDrawerTipButton.hidden = !shown;
            model.advancedDrawer.open = shown;
        });
        EXPECT_EQ(find<QAction>("showHideTips")->isChecked(), shown);
        EXPECT_EQ(find<QAction>("advancedToolbarItem")->isChecked(), shown);
    }
}

TEST_F(WindowTest, AnUpdateSendsNothingAndChangesNothing) {
    show([](FormModel& model) {
        model.agentNameTextField.stringValue = "x";
        model.agentTargetButton.selectedItem = TargetType::File;
        model.agentActionButton.selectedItem = AgentAction::PathModified;
        model.agentScheduleTypeButton.selectedItem = ScheduleType::OnInterval;
        model.agentIntervalField.stringValue = "30"; // the schedule's action would clear it
        model.alsoRunPathChangeCheckbox.state = CheckState::On;
        model.niceLevelSlider.value = 7; // its action would set the text
        model.enableGlobbingCheckbox.state = CheckState::Mixed;
    });
    EXPECT_TRUE(platform.journal.lines().empty());
    EXPECT_EQ(form().agentIntervalField.stringValue, "30");
    EXPECT_EQ(form().niceLevelTextField.stringValue, "0");
    EXPECT_EQ(form().enableGlobbingCheckbox.state, CheckState::Mixed);
}

TEST_F(WindowTest, CaretAndUndoSurviveAnUpdate) {
    auto* field = find<QLineEdit>("agentNameTextField");
    QTest::keyClicks(field, "backup");
    field->setCursorPosition(2);
    window.mirror();
    EXPECT_EQ(field->cursorPosition(), 2);
    EXPECT_TRUE(field->isUndoAvailable());
    auto* script = find<QPlainTextEdit>("scriptPopOverScriptField");
    script->insertPlainText("echo");
    window.mirror();
    EXPECT_TRUE(script->document()->isUndoAvailable());
}

TEST_F(WindowTest, AnUpdateDoesNotResetAScriptWithForeignLineBreaks) {
    show([](FormModel& model) { model.scriptPopOverScriptField.stringValue = "a\r\nb\rc"; });
    auto* script = find<QPlainTextEdit>("scriptPopOverScriptField");
    script->moveCursor(QTextCursor::End);
    window.mirror();
    EXPECT_EQ(script->textCursor().position(), 5);
    EXPECT_EQ(form().scriptPopOverScriptField.stringValue, "a\r\nb\rc");
}

TEST_F(WindowTest, TheTargetButtonShowsTheFilesName) {
    show([](FormModel& model) {
        model.agentTargetButton.selectedItem = TargetType::File;
        model.agentTargetImageWell.toolTip = "/Applications/Mail.app/Contents/MacOS/Mail";
    });
    auto* button = find<QComboBox>("agentTargetButton");
    const QPixmap withName = button->grab();
    show([](FormModel& model) { model.agentTargetImageWell.toolTip.clear(); });
    EXPECT_NE(withName.toImage(), button->grab().toImage());
    EXPECT_EQ(button->currentIndex(), TargetType::File);
}

TEST_F(WindowTest, AnEditedRowIsNotFaultyBesideItsMarker) {
    show([](FormModel& model) {
        model.nameErrorImageWell.hidden = false;
        model.agentNameTextField.stringValue = "Backup";
    });
    EXPECT_FALSE(find<ElidedLabel>("nameHint")->isWarning());
    EXPECT_NE(find("agentNameTextField")->property("faulty"), true);
    EXPECT_FALSE(find("nameErrorImageWell")->isHidden());
}

TEST_F(WindowTest, HintsDescribeTheFormAndTheFaults) {
    const std::string home = QDir::homePath().toStdString();
    show([](FormModel& model) { model.agentNameTextField.stringValue = "back up"; });
    const auto* hint = find<ElidedLabel>("nameHint");
    EXPECT_EQ(hint->text().toStdString(), hintsOf(agentForm(form()), {}, home).name);
    EXPECT_FALSE(hint->isWarning());

    show([](FormModel& model) { model.nameErrorImageWell.hidden = false; });
    const RowFlags markers = {true, false, false, false};
    EXPECT_EQ(hint->text().toStdString(), hintsOf(agentForm(form()), markers, home).name);
    EXPECT_TRUE(hint->isWarning());
    EXPECT_EQ(find("agentNameTextField")->property("faulty"), true);
    EXPECT_EQ(find("agentNameTextField")->accessibleDescription(), hint->text());

    show([](FormModel& model) { model.nameErrorImageWell.hidden = true; });
    EXPECT_NE(find("agentNameTextField")->property("faulty"), true);
}

TEST_F(WindowTest, TheStatusLineSaysWhatLaunchdWillDo) {
    const auto* plan = find<ElidedLabel>("summary");
    const std::string home = QDir::homePath().toStdString();
    EXPECT_EQ(plan->text().toStdString(), sentenceOf(agentForm(form()), home));
    QTest::keyClicks(find("agentNameTextField"), "backup");
    EXPECT_EQ(plan->text().toStdString(), sentenceOf(agentForm(form()), home));
    EXPECT_EQ(plan->toolTip(), plan->text());
}

TEST_F(WindowTest, TheDotIsLitOnlyBesideACompleteSummary) {
    const auto isLit = [this] {
        auto* statusLine = find("summary")->parentWidget();
        const QPoint dot(style::cardMargin + style::statusDotSide / 2, statusLine->height() / 2);
        return statusLine->grab().toImage().pixelColor(dot) == style::tokens(false).accent;
    };
    EXPECT_FALSE(isLit());
    show([](FormModel& model) {
        model.agentNameTextField.stringValue = "backup";
        model.agentTargetButton.selectedItem = TargetType::File;
        model.agentActionButton.selectedItem = AgentAction::OnSchedule;
    });
    ASSERT_TRUE(validate(agentForm(form())).empty());
    EXPECT_FALSE(isLit()) << find<ElidedLabel>("summary")->text().toStdString();
    show([](FormModel& model) { model.agentTargetImageWell.toolTip = "/bin/true"; });
    EXPECT_TRUE(isLit()) << find<ElidedLabel>("summary")->text().toStdString();
}

} // namespace
} // namespace frimbolate::test
