#include "widgets/form/form_card.h"

#include "core/bundle_path.h"
#include "core/form_presentation.h"
#include "core/script_types.h"
#include "widgets/controls/accessible_description.h"
#include "widgets/controls/clock_format.h"
#include "widgets/controls/elided_label.h"
#include "widgets/controls/form_binder.h"
#include "widgets/controls/image_well_button.h"
#include "widgets/controls/pop_up_button.h"
#include "widgets/controls/text.h"
#include "widgets/controls/time_field.h"
#include "widgets/controls/tip_button.h"
#include "widgets/style/fonts.h"
#include "widgets/style/icons.h"
#include "widgets/style/style.h"
#include "widgets/style/surfaces.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QToolButton>

namespace frimbolate {

using style::scaled;

namespace {

// The widths of the columns, in pixels of the 1x layout.
constexpr int columnWidths[] = {128, wideScheduleWidth, 9, 32, 8, 32, 16, 20, 8, 20};
// The lines of a row: a gap, the controls, a gap, the hint, a gap. Sum: style::cardRowHeight.
constexpr int lineHeights[] = {12, 32, 3, 18, 7};
constexpr int controlsLine = 1, hintLine = 3, linesPerRow = 5;

constexpr const char* hintNames[] = {"nameHint", "targetHint", "actionHint", "scheduleHint"};

void setRetainsSize(QWidget* widget) {
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
}

QString fileName(const std::string& targetPath) {
    return text(bundlePath(targetPath)).section('/', -1, -1, QString::SectionSkipEmpty);
}

/// The items "file" and "new script" have actions of their own.
void sendTarget(AppDelegate& delegate) {
    const int item = delegate.form().agentTargetButton.selectedItem;
    delegate.chooseAgentTarget();
    if (item == TargetType::File)
        delegate.chooseApplicationOrScript();
    else if (item == TargetType::Script)
        delegate.createNewScript();
}

} // namespace

FormCard::FormCard(FormBinder& binder, QWidget* parent)
    : QWidget(parent), binder_(binder), grid_(new QGridLayout(this)) {
    setFixedSize(scaled(632), scaled(288));
    grid_->setContentsMargins(scaled(style::cardMargin), 0, scaled(style::cardMargin), 0);
    grid_->setSpacing(0);
    for (int column = 0; column < static_cast<int>(std::size(columnWidths)); ++column)
        grid_->setColumnMinimumWidth(column, scaled(columnWidths[column]));
    for (int line = 0; line < RowCount * linesPerRow; ++line)
        grid_->setRowMinimumHeight(line, scaled(lineHeights[line % linesPerRow]));
    addNameRow();
    addTargetRow();
    addActionRow();
    addScheduleRow();
    binder_.addUpdater([this](const FormModel& form) { showTarget(form); });
    binder_.addUpdater([this](const FormModel&, const FormPresentation& presentation) {
        showHints(presentation);
    });
}

void FormCard::paintEvent(QPaintEvent*) { style::paintCard(*this, RowCount); }

QWidget* FormCard::firstFault() const {
    for (const Row& row : rows_)
        for (QWidget* control : row.marked)
            if (style::isFaulty(*control) && control->isVisibleTo(this))
                return control;
    return nullptr;
}

void FormCard::addRow(int row, const QString& label, QWidget* control, QList<QWidget*> marked) {
    const QString name = QString(label).remove('&');
    auto* caption = new QLabel(label, this);
    style::setFont(caption, style::FontRole::rowLabel);
    caption->setBuddy(control);
    control->setAccessibleName(name);
    control->setFixedHeight(scaled(lineHeights[controlsLine]));
    auto* hint = new ElidedLabel(Qt::ElideMiddle, this);
    hint->setObjectName(hintNames[row]);
    rows_[row] = {hint, control, std::move(marked)};
    addToRow(row, Label, caption);
    grid_->addWidget(hint, row * linesPerRow + hintLine, Control, 1, Tip - Control + 1);
}

void FormCard::addToRow(int row, int column, QWidget* widget) {
    grid_->addWidget(widget, row * linesPerRow + controlsLine, column, Qt::AlignVCenter);
}

void FormCard::addToRow(int row, int column, QLayout* line) {
    grid_->addLayout(line, row * linesPerRow + controlsLine, column);
}

void FormCard::addMarker(int row, std::string_view outlet, Marker FormModel::*member) {
    auto* marker = new QLabel(this);
    marker->setPixmap(style::toolIcon("warning").pixmap(scaled(20), scaled(20)));
    marker->setAccessibleName(tr("Fault in this row"));
    setRetainsSize(marker);
    binder_.bind(outlet, static_cast<QWidget*>(marker), member);
    addToRow(row, MarkerColumn, marker);
}

void FormCard::addTip(int row, std::string_view outlet, Button FormModel::*member) {
    addToRow(row, Tip,
             makeTipButton(binder_, outlet, member, rows_[row].control->accessibleName()));
}

void FormCard::addNameRow() {
    auto* field = new QLineEdit(this);
    field->setPlaceholderText(tr("For example, backup_photos"));
    binder_.bind("agentNameTextField", field, &FormModel::agentNameTextField);
    firstField_ = field;
    addRow(NameRow, tr("&Name"), field, {field});
    addToRow(NameRow, Control, field);
    addMarker(NameRow, "nameErrorImageWell", &FormModel::nameErrorImageWell);
    addTip(NameRow, "agentNameTipButton", &FormModel::agentNameTipButton);
}

void FormCard::addTargetRow() {
    targetButton_ = new PopUpButton(agentTargetItems(), this);
    binder_.bind("agentTargetButton", targetButton_, &FormModel::agentTargetButton, sendTarget);
    addRow(TargetRow, tr("&What to launch"), targetButton_, {targetButton_});
    addToRow(TargetRow, Control, targetButton_);

    targetWell_ = new ImageWellButton(32, style::Surface::card, this);
    targetWell_->setAccessibleName(tr("Application or script to launch"));
    targetWell_->setEmptyToolTip(tr("Choose an application or a script"));
    connect(targetWell_, &QToolButton::clicked, this, &FormCard::pressTargetWell);
    targetWell_->acceptDropsFor(AppDelegate::targetPanel());
    connect(targetWell_, &ImageWellButton::dropped, this, [this](const QString& path) {
        binder_.send([&](AppDelegate& delegate) { delegate.targetDropped(path.toStdString()); });
    });
    binder_.bind("agentTargetImageWell", targetWell_, &FormModel::agentTargetImageWell);
    addToRow(TargetRow, Well, targetWell_);

    auto* script = new QToolButton(this);
    script->setIcon(style::toolIcon("script-edit"));
    script->setIconSize({scaled(20), scaled(20)});
    script->setFixedSize(scaled(32), scaled(32));
    script->setFocusPolicy(Qt::StrongFocus);
    script->setAccessibleName(tr("Edit script"));
    setRetainsSize(script);
    binder_.bind("showPopOverScriptButton", script, &FormModel::showPopOverScriptButton,
                 &AppDelegate::showPopOverScript);
    binder_.addUpdater(
        [script](const FormModel& form) { script->setDown(form.popoverScriptObject.shown); });
    scriptButton_ = script;
    addToRow(TargetRow, Script, script);
    addMarker(TargetRow, "targetErrorImageWell", &FormModel::targetErrorImageWell);
    addTip(TargetRow, "agentTargetTipButton", &FormModel::agentTargetTipButton);
}

void FormCard::addActionRow() {
    auto* button = new PopUpButton(agentActionItems(), this);
    binder_.bind("agentActionButton", button, &FormModel::agentActionButton,
                 &AppDelegate::chooseAgentAction);
    addRow(ActionRow, tr("When &to launch"), button, {button});
    addToRow(ActionRow, Control, button);

    watchPathWell_ = new ImageWellButton(32, style::Surface::card, this);
    watchPathWell_->setAccessibleName(tr("Watched path"));
    watchPathWell_->setHiddenWhenEmpty(true);
    connect(watchPathWell_, &QToolButton::clicked, this, &FormCard::pressWatchPathWell);
    watchPathWell_->acceptDropsFor(AppDelegate::watchPathPanel());
    connect(watchPathWell_, &ImageWellButton::dropped, this, [this](const QString& path) {
        binder_.send([&](AppDelegate& delegate) { delegate.watchPathDropped(path.toStdString()); });
    });
    binder_.bind("agentWatchPathImageWell", watchPathWell_, &FormModel::agentWatchPathImageWell);
    binder_.addUpdater([this](const FormModel& form) {
        const bool isPath = form.agentActionButton.selectedItem == AgentAction::PathModified;
        watchPathWell_->setFocusPolicy(isPath ? Qt::StrongFocus : Qt::NoFocus);
        watchPathWell_->setAcceptDrops(isPath);
    });
    addToRow(ActionRow, Well, watchPathWell_);
    addMarker(ActionRow, "actionErrorImageWell", &FormModel::actionErrorImageWell);
    addTip(ActionRow, "agentActionTipButton", &FormModel::agentActionTipButton);
}

void FormCard::pressTargetWell() {
    // A typed script has no file; the click opens its editor instead.
    if (targetButton_->currentIndex() == TargetType::Script)
        binder_.send(&AppDelegate::showPopOverScript);
    else
        binder_.edit(
            [](FormModel& form) { form.agentTargetButton.selectedItem = TargetType::File; },
            sendTarget);
}

void FormCard::pressWatchPathWell() {
    binder_.send([](AppDelegate& delegate) {
        if (delegate.form().agentActionButton.selectedItem == AgentAction::PathModified)
            delegate.chooseAgentAction();
    });
}

void FormCard::showTarget(const FormModel& form) {
    const bool isScript = form.agentTargetButton.selectedItem == TargetType::Script;
    targetButton_->setShownTitle(fileName(form.agentTargetImageWell.toolTip));
    targetWell_->setPlaceholder(isScript ? Image::resource(std::string(shellScript.image))
                                         : Image::none());
    targetWell_->setEmptyToolTip(isScript ? tr("Edit the script")
                                          : tr("Choose an application or a script"));
}

void FormCard::showHints(const FormPresentation& presentation) {
    updateAccessibleDescription(timePicker_, text(presentation.unreadableTime));
    for (int i = 0; i < RowCount; ++i) {
        const Row& row = rows_[i];
        const RowPresentation& shown = presentation.row(formRows[static_cast<std::size_t>(i)]);
        row.hint->setWholeText(text(shown.hint), text(shown.shortHint));
        row.hint->setWarning(shown.warns);
        updateAccessibleDescription(row.control, row.hint->text());
        for (QWidget* control : row.marked) {
            style::setFaulty(control, shown.isFaulty);
            updateAccessibleDescription(control, row.hint->text());
        }
    }
}

} // namespace frimbolate
