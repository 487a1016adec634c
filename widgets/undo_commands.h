// The commands Undo and Redo of the Edit menu. A text field with the keyboard undoes its own typing
// first; then the steps that emptied the form are undone.
#pragma once

#include <QObject>
#include <QPointer>

class QAction;
class QMainWindow;
class QWidget;

namespace frimbolate {

class FormBinder;

class UndoCommands : public QObject {
    Q_OBJECT

  public:
    /// For the actions "undo" and "redo" of the window. Both arguments must outlive the commands;
    /// the window becomes the parent. Create them after the controls of the form, since they look
    /// at the fields after each update.
    UndoCommands(FormBinder& binder, QMainWindow& window);

  protected:
    /// A field takes the keys of both commands, even with nothing to undo; they are passed on then.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    enum class Direction { Undo, Redo };

    void setFocused(QWidget* widget);
    bool fieldCan(Direction direction) const;
    QString formStep(Direction direction) const;
    void updateActions();
    void trigger(Direction direction);

    FormBinder& binder_;
    QAction* undo_;
    QAction* redo_;
    QPointer<QWidget> focused_; ///< stays while a menu has the keyboard
};

} // namespace frimbolate
