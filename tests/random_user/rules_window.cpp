// The window shows what the model holds, and nothing of a closed sheet stays behind.
#include "tests/random_user/input.h"
#include "tests/random_user/rules.h"
#include "widgets/controls/elided_label.h"
#include "widgets/controls/image_well_button.h"
#include "widgets/controls/long_text.h"
#include "widgets/controls/pop_up_button.h"
#include "widgets/controls/script_editor.h"
#include "widgets/controls/text.h"
#include "widgets/controls/time_field.h"
#include "widgets/pages/page_stack.h"
#include "widgets/pages/property_list_view.h"
#include "widgets/panels/panel_dialog.h"
#include "widgets/style/fonts.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QSlider>

#include <algorithm>

namespace frimbolate::test {

namespace {

template <typename Member>
struct Control {
    const char* outlet;
    Member FormModel::*member;
    const char* sheet = nullptr; ///< where it lies; null for the window itself
};

constexpr Control<TextField> textFields[] = {
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
constexpr Control<PopUp> popUps[] = {
    {"agentTargetButton", &FormModel::agentTargetButton},
    {"agentActionButton", &FormModel::agentActionButton},
    {"agentScheduleTypeButton", &FormModel::agentScheduleTypeButton},
    {"agentIntervalTypeButton", &FormModel::agentIntervalTypeButton},
    {"scriptPopOverLanguageButton", &FormModel::scriptPopOverLanguageButton},
    {"priorityLevelButton", &FormModel::priorityLevelButton},
    {"globalGlobbingCheckbox", &FormModel::globalGlobbingCheckbox, "preferencesWindow"},
    {"globalPriorityCheckbox", &FormModel::globalPriorityCheckbox, "preferencesWindow"},
};
constexpr Control<CheckBox> checkBoxes[] = {
    {"enableGlobbingCheckbox", &FormModel::enableGlobbingCheckbox},
    {"alsoRunAtLoadCheckbox", &FormModel::alsoRunAtLoadCheckbox},
    {"alsoRunVolumeCheckbox", &FormModel::alsoRunVolumeCheckbox},
    {"alsoRunPathChangeCheckbox", &FormModel::alsoRunPathChangeCheckbox},
    {"allowSuccessfulExitCheckbox", &FormModel::allowSuccessfulExitCheckbox},
    {"showWelcomeCheckbox", &FormModel::showWelcomeCheckbox, "welcomeWindow"},
    {"showWelcomeWindowCheckbox", &FormModel::showWelcomeWindowCheckbox, "preferencesWindow"},
    {"autoCopyScriptCheckbox", &FormModel::autoCopyScriptCheckbox, "preferencesWindow"},
    {"warnSuccessfulExitCheckbox", &FormModel::warnSuccessfulExitCheckbox, "preferencesWindow"},
    {"autoCopyScriptsCheckbox2", &FormModel::autoCopyScriptsCheckbox2, "executeScriptWindow"},
};
constexpr Control<ImageWell> wells[] = {
    {"agentTargetImageWell", &FormModel::agentTargetImageWell},
    {"agentWatchPathImageWell", &FormModel::agentWatchPathImageWell},
    {"alsoRunPathChangeImageWell", &FormModel::alsoRunPathChangeImageWell},
};
constexpr Control<Button> buttons[] = {
    {"showPopOverScriptButton", &FormModel::showPopOverScriptButton},
    {"agentNameTipButton", &FormModel::agentNameTipButton},
    {"agentTargetTipButton", &FormModel::agentTargetTipButton},
    {"agentActionTipButton", &FormModel::agentActionTipButton},
    {"agentScheduleTipButton", &FormModel::agentScheduleTipButton},
    {"advancedDrawerTipButton", &FormModel::advancedDrawerTipButton},
};
constexpr Control<Marker> markers[] = {
    {"nameErrorImageWell", &FormModel::nameErrorImageWell},
    {"targetErrorImageWell", &FormModel::targetErrorImageWell},
    {"actionErrorImageWell", &FormModel::actionErrorImageWell},
    {"scheduleErrorImageWell", &FormModel::scheduleErrorImageWell},
};

template <typename Widget>
Widget* widget(const Seen& seen, const char* outlet) {
    return seen.session.find<Widget>(outlet);
}

/// The first control for which a function finds that it differs. A sheet is built when it is shown
/// first, and then holds all its controls.
template <typename Widget, typename Rows, typename Differs>
std::string firstDifference(const Seen& seen, const Rows& rows, Differs differs) {
    for (const auto& row : rows) {
        auto* control = widget<Widget>(seen, row.outlet);
        if (!control && row.sheet && !widget<QDialog>(seen, row.sheet))
            continue;
        if (!control || differs(*control, seen.form.*row.member))
            return row.outlet;
    }
    return {};
}

/// Whether a field shows a text: all of it, or its beginning where it is too long to lay out. A
/// line has no line breaks, which a field shows in other ways.
bool showsText(const QLineEdit& field, const std::string& wanted) {
    const QString whole = text(wanted);
    constexpr qsizetype compared = longestLine / 2;
    const bool isPlain = std::ranges::all_of(whole, [](QChar c) { return c.isPrint(); });
    return !isPlain || field.text().left(compared) == whole.left(compared);
}

/// Whether the text editor returns the text as it was set: it turns other breaks and blanks into
/// those of a text file, and a view may shorten what is long.
bool isPlainText(const QString& text) {
    return text.size() <= longestLine && std::ranges::all_of(text, [](QChar c) {
               const bool isBreakOrBlank = c.isSpace() && c != u' ' && c != u'\n' && c != u'\t';
               return !isBreakOrBlank && (c.isPrint() || c.isSpace() || c.isSurrogate());
           });
}

bool isSheet(const QDialog& dialog) {
    return std::ranges::any_of(std::initializer_list<const char*>{"welcomeWindow",
                                                                  "preferencesWindow",
                                                                  "executeScriptWindow"},
                               [&](const char* name) { return dialog.objectName() == name; });
}

constexpr Rule ofTheWindow[] = {
    {"TextFieldsShowTheModel",
     [](const Seen& seen) -> std::string {
         return firstDifference<QLineEdit>(
             seen, textFields, [](const QLineEdit& field, const TextField& model) {
                 return !showsText(field, model.stringValue) || field.isHidden() != model.hidden;
             });
     }},
    {"TheScriptEditorShowsTheModel",
     [](const Seen& seen) -> std::string {
         const auto* editor = widget<ScriptEditor>(seen, "scriptPopOverScriptField");
         const QString wanted = text(seen.form.scriptPopOverScriptField.stringValue);
         return editor->wholeText() == ScriptEditor::withPlainLineBreaks(wanted) ? ""
                                                                                 : "another script";
     }},
    {"PopUpsShowTheModel",
     [](const Seen& seen) -> std::string {
         return firstDifference<PopUpButton>(
             seen, popUps, [](const PopUpButton& button, const PopUp& model) {
                 const bool hasWidth =
                     model.width == 0 || button.width() == style::scaled(model.width);
                 return button.currentIndex() != model.selectedItem || !hasWidth ||
                        button.isEnabledTo(button.window()) != model.enabled ||
                        button.isHidden() != model.hidden;
             });
     }},
    {"CheckBoxesShowTheModel",
     [](const Seen& seen) -> std::string {
         return firstDifference<QCheckBox>(
             seen, checkBoxes, [](const QCheckBox& box, const CheckBox& model) {
                 return box.isChecked() != (model.state == CheckState::On) ||
                        box.isEnabledTo(box.window()) != model.enabled;
             });
     }},
    {"WellsShowTheModel",
     [](const Seen& seen) -> std::string {
         return firstDifference<ImageWellButton>(
             seen, wells, [](const ImageWellButton& well, const ImageWell& model) {
                 return (model.hidden && !well.isHidden()) ||
                        (!model.toolTip.empty() &&
                         well.toolTip() != labelText(text(model.toolTip)));
             });
     }},
    {"ButtonsShowTheModel",
     [](const Seen& seen) -> std::string {
         return firstDifference<QAbstractButton>(
             seen, buttons, [](const QAbstractButton& button, const Button& model) {
                 return button.isHidden() != model.hidden;
             });
     }},
    {"MarkersShowTheModel",
     [](const Seen& seen) -> std::string {
         return firstDifference<QWidget>(seen, markers,
                                         [](const QWidget& marker, const Marker& model) {
                                             return marker.isHidden() != model.hidden;
                                         });
     }},
    {"TheTimeIsThatOfTheModel",
     [](const Seen& seen) -> std::string {
         const auto* field = widget<TimeField>(seen, "agentScheduleDatePicker");
         const DatePicker& model = seen.form.agentScheduleDatePicker;
         const TimeOfDay time{model.dateValue.hour, model.dateValue.minute};
         return field->time() == time && field->isHidden() == model.hidden &&
                        field->width() == style::scaled(model.width)
                    ? ""
                    : "another time, width or visibility";
     }},
    {"TheSliderShowsTheModel",
     [](const Seen& seen) -> std::string {
         return widget<QSlider>(seen, "niceLevelSlider")->value() ==
                        static_cast<int>(seen.form.niceLevelSlider.value)
                    ? ""
                    : "another level";
     }},
    {"TheDayIsShownWithItsBox",
     [](const Seen& seen) -> std::string {
         return widget<QWidget>(seen, "onMonthTextBox")->isHidden() ==
                        seen.form.onMonthTextBox.hidden
                    ? ""
                    : "the box differs";
     }},
    {"TheDrawerIsOpenAsInTheModel",
     [](const Seen& seen) -> std::string {
         const bool isOpen = !widget<QWidget>(seen, "advancedDrawer")->isHidden();
         const auto* item = widget<QAction>(seen, "advancedToolbarItem");
         return isOpen == seen.form.advancedDrawer.open && item->isChecked() == isOpen
                    ? ""
                    : "drawer or toolbar item differ";
     }},
    {"HintsAndSummaryShowThePresentation",
     [](const Seen& seen) -> std::string {
         constexpr const char* hints[] = {"nameHint", "targetHint", "actionHint", "scheduleHint"};
         for (std::size_t row = 0; row < formRows.size(); ++row)
             if (widget<ElidedLabel>(seen, hints[row])->text() !=
                 labelText(text(seen.shown.rows[row].hint)))
                 return std::string(hints[row]);
         const auto* summary = widget<ElidedLabel>(seen, "summary");
         const auto* next = widget<ElidedLabel>(seen, "nextRun");
         if (summary->text() != labelText(text(seen.shown.summary.sentence)))
             return std::string("summary");
         return next->isHidden() == seen.shown.nextRun.empty() &&
                        next->text() == labelText(text(seen.shown.nextRun))
                    ? std::string()
                    : std::string("nextRun");
     }},
    {"ThePropertyListIsThatOfTheForm",
     [](const Seen& seen) -> std::string {
         const auto* view = seen.session.window().findChild<PropertyListView*>();
         if (!view->isVisible())
             return "";
         try {
             const QString list =
                 text(seen.session.program().delegate().propertyListText(seen.shown.record));
             return !isPlainText(list) || view->toPlainText() == list ? "" : "another text";
         } catch (const std::exception&) {
             return view->toPlainText().isEmpty() ? "" : "a text that cannot be written";
         }
     }},
    {"TheWindowIsVisibleAsInTheModel",
     [](const Seen& seen) -> std::string {
         return seen.session.window().isVisible() == seen.form.mainWindow.visible ? ""
                                                                                  : "it is not";
     }},
    {"ThePopOverIsShownAsInTheModel",
     [](const Seen& seen) -> std::string {
         const bool isShown = widget<QWidget>(seen, "popoverScriptObject")->isVisible();
         const bool isWanted = seen.form.popoverScriptObject.shown && !seen.asks &&
                               !QApplication::activeModalWidget() &&
                               seen.session.window().isVisible();
         // Shown over nothing else; it comes back once its window is active again.
         return isShown && !isWanted ? "it is shown and should not be" : "";
     }},
    {"OnePageIsChosenEverywhere",
     [](const Seen& seen) -> std::string {
         const int shown = seen.session.find<PageStack>("pages")->currentIndex();
         for (int page = 0; page < pageCount; ++page)
             if (widget<QAction>(seen, titleOf(static_cast<Page>(page)).name)->isChecked() !=
                 (page == shown))
                 return std::string("the menu differs from the page");
         const auto* switcher = widget<PageSwitcher>(seen, "pageSwitcher");
         return static_cast<int>(switcher->page()) == shown ? std::string()
                                                            : std::string("the switcher differs");
     }},
    {"OneSheetAtATime",
     [](const Seen& seen) -> std::string {
         int shown = 0;
         for (const auto* dialog : seen.session.window().findChildren<QDialog*>())
             shown += dialog->isVisible() && dialog->parentWidget() == &seen.session.window();
         const QDialog* current = seen.session.program().queue().current();
         const bool isVisible = seen.session.window().isVisible();
         return !isVisible || shown == (current ? 1 : 0) ? "" : "another number is visible";
     }},
    {"TheScrimIsShownWithASheet",
     [](const Seen& seen) -> std::string {
         const bool isShown = !widget<QWidget>(seen, "sheetScrim")->isHidden();
         return isShown == (seen.session.program().queue().current() != nullptr) ? "" : "it is not";
     }},
    {"ClosedSheetsAreGone",
     [](const Seen& seen) -> std::string {
         // One that waits was never shown.
         for (const auto* dialog : seen.session.window().findChildren<QDialog*>())
             if (!isSheet(*dialog) && dialog->isHidden() &&
                 dialog->testAttribute(Qt::WA_WState_ExplicitShowHide))
                 return "a closed " + dialog->objectName().toStdString() + " is still there";
         return std::string();
     }},
    {"NoUnknownWindowIsOpen",
     [](const Seen& seen) -> std::string {
         for (const auto* window : QApplication::topLevelWidgets())
             if (window->isVisible() && window != &seen.session.window() &&
                 !seen.session.window().isAncestorOf(window) &&
                 !(window->windowFlags() & Qt::Popup) && !qobject_cast<const QDialog*>(window) &&
                 window->windowType() != Qt::ToolTip)
                 return std::string(window->metaObject()->className()) + " is visible";
         return std::string();
     }},
};

} // namespace

std::span<const Rule> windowRules() { return ofTheWindow; }

} // namespace frimbolate::test
