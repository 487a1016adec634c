#include "ui/widgets/command_sheet_view.h"

#include "ui/widgets/look/fonts.h"
#include "ui/widgets/look/icons.h"
#include "ui/widgets/text.h"

#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextOption>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace frimbolate {

using look::scaled;

namespace {

// Pixels of the 1x layout.
constexpr int panelWidth = 560, textWidth = 452, copyWidth = 44, textPadding = 10;
constexpr int leastHeight = 64, greatestHeight = 120;

/// A text field that leaves room at its right for a button of its own.
class CommandText : public QPlainTextEdit {
  public:
    explicit CommandText(QWidget* parent) : QPlainTextEdit(parent) {
        setViewportMargins(scaled(8), scaled(8), scaled(copyWidth), scaled(8));
    }
};

} // namespace

CommandSheetView::CommandSheetView(FormMirror& mirror, QWidget& mainWindow)
    : OwnSheet("executeScriptWindow", panelWidth, mirror, mainWindow,
               &AppDelegate::closeExecuteScriptWindow),
      title_(addTitle({})) {
    body()->addSpacing(scaled(12));
    auto* explanation = new QLabel(
        tr("Paste this command into Terminal. Frimbolate does not run it by itself."), this);
    explanation->setForegroundRole(QPalette::PlaceholderText);
    explanation->setWordWrap(true);
    body()->addWidget(explanation);
    body()->addSpacing(scaled(20));
    addCommand();
    body()->addSpacing(scaled(16));
    auto* copies = new QCheckBox(tr("Copy c&ommands to the clipboard automatically"), this);
    copies->setAccessibleName(copies->text().remove('&'));
    mirror.bind("autoCopyScriptsCheckbox2", copies, &FormModel::autoCopyScriptsCheckbox2);
    body()->addWidget(copies);
    body()->addSpacing(scaled(24));
    addButtons();
    mirror.show([this](const FormModel& form) { showCommand(form.actionScriptTextView); });
}

void CommandSheetView::addCommand() {
    command_ = new CommandText(this);
    command_->setObjectName("actionScriptTextView");
    command_->setAccessibleName(tr("Command"));
    command_->setTabChangesFocus(true);
    command_->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    look::setFont(command_, look::FontRole::mono);
    auto* copy = new QToolButton(command_);
    copy->setObjectName("copyCommandButton");
    copy->setProperty("plain", true);
    copy->setIcon(look::toolIcon("copy"));
    copy->setIconSize({scaled(20), scaled(20)});
    copy->setFixedSize(scaled(32), scaled(32));
    copy->setFocusPolicy(Qt::StrongFocus);
    copy->setToolTip(tr("Copy the command"));
    copy->setAccessibleName(tr("Copy the command"));
    connect(copy, &QToolButton::clicked, this,
            [this] { QGuiApplication::clipboard()->setText(command_->toPlainText()); });
    auto* line = new QHBoxLayout(command_);
    line->setContentsMargins(0, 0, scaled(10), 0);
    line->addWidget(copy, 0, Qt::AlignRight | Qt::AlignVCenter);
    body()->addWidget(command_);
}

void CommandSheetView::addButtons() {
    QPushButton* terminal =
        makeButton("launchTerminalButton", tr("Open Terminal"), &AppDelegate::launchTerminal);
    terminal->setIcon(look::toolIcon("terminal"));
    terminal->setIconSize({scaled(20), scaled(20)});
    QPushButton* close =
        makeButton("closeExecuteScriptWindow", tr("Close"), &AppDelegate::closeExecuteScriptWindow);
    close->setDefault(true);
    addButtonRow(terminal, {close});
}

void CommandSheetView::showCommand(const TextView& command) {
    const bool unloads = command.string.starts_with("launchctl unload");
    title_->setText(unloads ? tr("Unload the agent") : tr("Load the agent"));
    setWindowTitle(title_->text());
    setAccessibleName(title_->text());
    command_->setReadOnly(!command.editable);
    command_->setTextInteractionFlags(command_->textInteractionFlags() | Qt::TextSelectableByMouse |
                                      Qt::TextSelectableByKeyboard);
    const QString shown = text(command.string);
    if (shown == command_->toPlainText())
        return;
    command_->setPlainText(shown);
    // As high as the command needs, so that it is seen whole.
    const QRect needed =
        command_->fontMetrics().boundingRect(0, 0, scaled(textWidth - 2 * textPadding), 10000,
                                             Qt::TextWrapAnywhere | Qt::AlignLeft, shown);
    command_->setFixedHeight(std::clamp(needed.height() + scaled(textPadding) * 7 / 2,
                                        scaled(leastHeight), scaled(greatestHeight)));
}

} // namespace frimbolate
