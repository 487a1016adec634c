#include "widgets/undo_commands.h"

#include "widgets/controls/form_binder.h"
#include "widgets/controls/text.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>

namespace frimbolate {

namespace {

QLineEdit* lineOf(QWidget* widget) {
    auto* line = qobject_cast<QLineEdit*>(widget);
    return line || !widget ? line : widget->findChild<QLineEdit*>();
}

bool isMenu(const QWidget* widget) {
    return qobject_cast<const QMenu*>(widget) || qobject_cast<const QMenuBar*>(widget);
}

} // namespace

UndoCommands::UndoCommands(FormBinder& binder, QMainWindow& window)
    : QObject(&window), binder_(binder), undo_(window.findChild<QAction*>("undo")),
      redo_(window.findChild<QAction*>("redo")) {
    connect(undo_, &QAction::triggered, this, [this] { trigger(Direction::Undo); });
    connect(redo_, &QAction::triggered, this, [this] { trigger(Direction::Redo); });
    for (QMenu* menu : window.menuBar()->findChildren<QMenu*>())
        if (menu->actions().contains(undo_))
            connect(menu, &QMenu::aboutToShow, this, &UndoCommands::updateActions);
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* now) { setFocused(now); });
    binder_.addUpdater([this](const FormModel&) { updateActions(); });
}

void UndoCommands::setFocused(QWidget* widget) {
    if (!widget || isMenu(widget))
        return;
    if (focused_)
        focused_->removeEventFilter(this);
    focused_ = widget;
    focused_->installEventFilter(this);
    updateActions();
}

bool UndoCommands::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::ShortcutOverride)
        return QObject::eventFilter(watched, event);
    const auto* key = static_cast<const QKeyEvent*>(event);
    const bool undoes = key->matches(QKeySequence::Undo);
    if (!undoes && !key->matches(QKeySequence::Redo))
        return QObject::eventFilter(watched, event);
    updateActions();
    const auto direction = undoes ? Direction::Undo : Direction::Redo;
    if (fieldCan(direction) || formStep(direction).isEmpty())
        return QObject::eventFilter(watched, event);
    event->ignore();
    return true;
}

bool UndoCommands::fieldCan(Direction direction) const {
    const bool undoes = direction == Direction::Undo;
    if (const auto* script = qobject_cast<QPlainTextEdit*>(focused_))
        return undoes ? script->document()->isUndoAvailable()
                      : script->document()->isRedoAvailable();
    const QLineEdit* line = lineOf(focused_);
    return line && (undoes ? line->isUndoAvailable() : line->isRedoAvailable());
}

QString UndoCommands::formStep(Direction direction) const {
    const AppDelegate* delegate = binder_.delegate();
    // The pop-over edits the form that the step would replace.
    if (!delegate || delegate->form().popoverScriptObject.shown ||
        QApplication::activeModalWidget())
        return {};
    const FormHistory& history = delegate->history();
    return text(direction == Direction::Undo ? history.undoName() : history.redoName());
}

void UndoCommands::updateActions() {
    const auto update = [this](QAction* action, Direction direction, const QString& title) {
        const bool inField = fieldCan(direction);
        const QString step = inField ? QString() : formStep(direction);
        action->setText(step.isEmpty() ? title : title + " " + step);
        action->setEnabled(inField || !step.isEmpty());
    };
    update(undo_, Direction::Undo, tr("&Undo"));
    update(redo_, Direction::Redo, tr("&Redo"));
}

void UndoCommands::trigger(Direction direction) {
    const bool undoes = direction == Direction::Undo;
    if (fieldCan(direction)) {
        QWidget* line = lineOf(focused_);
        QMetaObject::invokeMethod(line ? line : focused_.data(), undoes ? "undo" : "redo");
    } else if (!formStep(direction).isEmpty()) {
        binder_.send(undoes ? &AppDelegate::undo : &AppDelegate::redo);
    }
}

} // namespace frimbolate
