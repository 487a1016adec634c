#include "widgets/sheets/command_sheet_view.h"

#include "widgets/controls/accessible_description.h"
#include "widgets/controls/command_text.h"
#include "widgets/controls/elided_label.h"
#include "widgets/controls/text.h"
#include "widgets/controls/warning_label.h"
#include "widgets/style/fonts.h"
#include "widgets/style/icons.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTextOption>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace frimbolate {

using style::scaled;

namespace {

// Pixels of the 1x layout.
constexpr int commandSheetWidth = 560, commandTextWidth = 452, copyWidth = 44, textPadding = 10;
constexpr int leastHeight = 64, greatestTextHeight = 120, greatestPanelHeight = 348;

} // namespace

CommandSheetView::CommandSheetView(FormBinder& binder, QWidget& mainWindow)
    : AppSheet("executeScriptWindow", commandSheetWidth, binder, mainWindow,
               &AppDelegate::closeExecuteScriptWindow),
      title_(addTitle({})) {
    addWords();
    addCommand();
    body()->addSpacing(scaled(16));
    auto* copies = new QCheckBox(tr("Copy c&ommands to the clipboard automatically"), this);
    copies->setAccessibleName(copies->text().remove('&'));
    binder.bind("autoCopyScriptsCheckbox2", copies, &FormModel::autoCopyScriptsCheckbox2);
    body()->addWidget(copies);
    body()->addSpacing(scaled(24));
    addButtons();
    binder.addUpdater([this](const FormModel& form, const FormPresentation& presentation) {
        showCommand(form, presentation.command);
    });
}

void CommandSheetView::addWords() {
    body()->addSpacing(scaled(4));
    agent_ = new ElidedLabel(Qt::ElideMiddle, this);
    agent_->setObjectName("commandAgent");
    body()->addWidget(agent_);
    body()->addSpacing(scaled(12));
    warning_ = new WarningLabel(12, this);
    warning_->setObjectName("commandWarning");
    body()->addWidget(warning_);
    state_ = new QLabel(this);
    state_->setObjectName("commandState");
    state_->setForegroundRole(QPalette::PlaceholderText);
    body()->addWidget(state_);
    body()->addSpacing(scaled(12));
}

void CommandSheetView::addCommand() {
    command_ = new CommandText(scaled(copyWidth), this);
    command_->setFixedHeight(scaled(leastHeight));
    command_->setObjectName("actionScriptTextView");
    command_->setAccessibleName(tr("Command"));
    command_->setTabChangesFocus(true);
    command_->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    style::setFont(command_, style::FontRole::mono);
    copy_ = new QToolButton(command_);
    copy_->setObjectName("copyCommandButton");
    copy_->setProperty("plain", true);
    copy_->setIconSize({scaled(20), scaled(20)});
    copy_->setFixedSize(scaled(32), scaled(32));
    copy_->setFocusPolicy(Qt::StrongFocus);
    copy_->setAccessibleName(tr("Copy the command"));
    connect(copy_, &QToolButton::clicked, this,
            [this] { formBinder().send(&AppDelegate::copyCommand); });
    auto* line = new QHBoxLayout(command_);
    line->setContentsMargins(0, 0, scaled(10), 0);
    line->addWidget(copy_, 0, Qt::AlignRight | Qt::AlignVCenter);
    body()->addWidget(command_);
}

void CommandSheetView::addButtons() {
    QPushButton* terminal =
        makeButton("launchTerminalButton", tr("Open Terminal"), &AppDelegate::launchTerminal);
    terminal->setIcon(style::toolIcon("terminal"));
    terminal->setIconSize({scaled(20), scaled(20)});
    QPushButton* close =
        makeButton("closeExecuteScriptWindow", tr("Close"), &AppDelegate::closeExecuteScriptWindow);
    close->setDefault(true);
    addButtonRow(terminal, {close});
}

void CommandSheetView::showCommand(const FormModel& form, const CommandPresentation& shownBeside) {
    const TextView& command = form.actionScriptTextView;
    title_->setText(shownBeside.unloads ? tr("Unload the agent") : tr("Load the agent"));
    setWindowTitle(title_->text());
    setAccessibleName(title_->text());
    command_->setReadOnly(!command.editable);
    command_->setTextInteractionFlags(command_->textInteractionFlags() | Qt::TextSelectableByMouse |
                                      Qt::TextSelectableByKeyboard);
    agent_->setWholeText(text(shownBeside.agentFileName));
    const QString warning = text(shownBeside.warning);
    warning_->setWarning(warning);
    showCopied(form.copyCommandButton.hasCopied, !warning.isEmpty());
    updateAccessibleDescription(command_, warning.isEmpty() ? state_->text() : warning);
    updateAccessibleDescription(
        this, QStringList{agent_->text(), command_->accessibleDescription()}.join(". "));
    const QString shown = text(command.string);
    command_->setCommand(shown);
    fitCommand(shown);
}

void CommandSheetView::showCopied(bool hasCopied, bool isUnsafe) {
    // An unsafe command does more than it shows, so the text does not suggest pasting it.
    const QString copied = tr("Copied");
    const QString title = hasCopied ? copied : tr("Copy the command");
    state_->setText(isUnsafe    ? (hasCopied ? tr("Copied.") : QString())
                    : hasCopied ? tr("Copied. Paste it into Terminal.")
                                : tr("Copy this command and paste it into Terminal."));
    state_->setVisible(!state_->text().isEmpty());
    updateAccessibleDescription(copy_, hasCopied ? copied : QString());
    if (copy_->toolTip() == title)
        return;
    copy_->setToolTip(title);
    copy_->setIcon(style::toolIcon(hasCopied ? "copied" : "copy"));
}

void CommandSheetView::fitCommand(const QString& command) {
    const QRect needed =
        command_->fontMetrics().boundingRect(0, 0, scaled(commandTextWidth - 2 * textPadding),
                                             10000, Qt::TextWrapAnywhere | Qt::AlignLeft, command);
    const int wanted = needed.height() + scaled(textPadding) * 7 / 2;
    // The command gets the height that the texts above it leave.
    body()->invalidate();
    layout()->invalidate();
    const int margins = height() - panelRect().height();
    const int others = layout()->totalHeightForWidth(width()) - margins - command_->minimumHeight();
    const int least = scaled(leastHeight);
    const int greatest =
        std::clamp(scaled(greatestPanelHeight) - others, least, scaled(greatestTextHeight));
    command_->setFixedHeight(std::clamp(wanted, least, greatest));
}

} // namespace frimbolate
