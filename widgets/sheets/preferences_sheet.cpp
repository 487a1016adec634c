#include "widgets/sheets/preferences_sheet.h"

#include "widgets/controls/pop_up_button.h"
#include "widgets/style/fonts.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace frimbolate {

using style::scaled;

namespace {

// Pixels of the 1x layout.
constexpr int preferencesSheetWidth = 520, labelWidth = 144, controlHeight = 32, lineGap = 8;

struct BoxRow {
    std::string_view outlet;
    CheckBox FormModel::*member;
    const char* title;
};
constexpr BoxRow boxes[] = {
    {"showWelcomeWindowCheckbox", &FormModel::showWelcomeWindowCheckbox,
     QT_TRANSLATE_NOOP("PreferencesSheet", "Show the &welcome window at start")},
    {"autoCopyScriptCheckbox", &FormModel::autoCopyScriptCheckbox,
     QT_TRANSLATE_NOOP("PreferencesSheet", "Copy c&ommands to the clipboard automatically")},
    {"warnSuccessfulExitCheckbox", &FormModel::warnSuccessfulExitCheckbox,
     QT_TRANSLATE_NOOP("PreferencesSheet", "Warn when a script &kept alive may still exit")},
};

struct PopUpRow {
    std::string_view outlet;
    PopUp FormModel::*member;
    std::span<const PopUpItem> (*items)();
    const char* label;
};
constexpr PopUpRow popUps[] = {
    {"globalGlobbingCheckbox", &FormModel::globalGlobbingCheckbox, globalGlobbingItems,
     QT_TRANSLATE_NOOP("PreferencesSheet", "Default w&ildcards")},
    {"globalPriorityCheckbox", &FormModel::globalPriorityCheckbox, globalPriorityItems,
     QT_TRANSLATE_NOOP("PreferencesSheet", "Default &priority")},
};

} // namespace

PreferencesSheet::PreferencesSheet(FormBinder& binder, QWidget& mainWindow)
    : AppSheet("preferencesWindow", preferencesSheetWidth, binder, mainWindow,
               &AppDelegate::closeWithoutSavingPrefs),
      grid_(new QGridLayout) {
    addTitle(tr("Preferences"));
    body()->addSpacing(scaled(12));
    grid_->setSpacing(0);
    grid_->setColumnMinimumWidth(0, scaled(labelWidth));
    grid_->setColumnStretch(1, 1);
    body()->addLayout(grid_);
    addCheckBoxes();
    addPopUps();
    body()->addSpacing(scaled(16));

    QPushButton* reset =
        makeButton("resetPreferences", tr("Reset"), &AppDelegate::resetPreferences);
    reset->setToolTip(tr("Forget all settings and start Frimbolate anew"));
    QPushButton* close =
        makeButton("closeWithoutSavingPrefs", tr("Close"), &AppDelegate::closeWithoutSavingPrefs);
    QPushButton* save = makeButton("savePreferences", tr("Save"), &AppDelegate::savePreferences);
    save->setDefault(true);
    addButtonRow(reset, {close, save});
}

QLabel* PreferencesSheet::makeLabel(const QString& text) {
    auto* label = new QLabel(text, this);
    style::setFont(label, style::FontRole::rowLabel);
    return label;
}

void PreferencesSheet::addCheckBoxes() {
    grid_->addWidget(makeLabel(tr("General")), 0, 0);
    for (const BoxRow& row : boxes) {
        const int line = grid_->rowCount() - (grid_->itemAtPosition(0, 1) ? 0 : 1);
        auto* box = new QCheckBox(tr(row.title), this);
        box->setAccessibleName(tr(row.title).remove('&'));
        formBinder().bind(row.outlet, box, row.member);
        grid_->setRowMinimumHeight(line, scaled(controlHeight));
        grid_->addWidget(box, line, 1);
    }
}

void PreferencesSheet::addPopUps() {
    for (const PopUpRow& row : popUps) {
        grid_->setRowMinimumHeight(grid_->rowCount(), scaled(lineGap));
        const int line = grid_->rowCount();
        auto* button = new PopUpButton(row.items(), this);
        button->setFixedHeight(scaled(controlHeight));
        button->setAccessibleName(tr(row.label).remove('&'));
        formBinder().bind(row.outlet, button, row.member);
        QLabel* label = makeLabel(tr(row.label));
        label->setBuddy(button);
        grid_->addWidget(label, line, 0);
        grid_->addWidget(button, line, 1);
    }
}

} // namespace frimbolate
