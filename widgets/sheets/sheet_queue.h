// One queue for everything that is shown on the main window: alerts, file panels and the program's
// own sheets. One of them is on the screen at a time, in the order in which they were asked for. A
// sheet asked for while the main window is hidden waits until that has reached the screen.
//
// What follows an answer runs from the event loop, when the dialog has left the screen: first the
// completion, then `afterCompletion`, which lets the window mirror the model, then the next sheet
// is shown. A sheet that a completion asks for stands behind those already waiting.
#pragma once

#include <QDialog>
#include <QEvent>
#include <QList>
#include <QObject>
#include <QPointer>

#include <deque>
#include <functional>

class QWidget;

namespace frimbolate {

class SheetQueue : public QObject {
    Q_OBJECT

  public:
    /// The main window must outlive the queue, and the dialogs presented must be its children.
    explicit SheetQueue(QWidget& mainWindow);
    ~SheetQueue() override;

    /// Shows the dialog with open(), now or after those before it. The dialog is not owned: it is
    /// the main window's child or deletes itself on close. Asking twice shows it once.
    void present(QDialog* sheet);
    /// Takes a sheet off the screen or out of the queue; harmless for any other.
    void dismiss(QDialog* sheet);
    /// The sheet on the screen, or null.
    QDialog* current() const { return current_; }

    /// Runs after each completion.
    void setAfterCompletion(std::function<void()> afterCompletion);
    /// Runs the completion once, from the event loop.
    void complete(std::function<void()> completion);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void scheduleDrain();
    void drain();
    void showNext();
    void placeScrim();
    void followMainWindow(QEvent::Type event);

    QWidget& mainWindow_;
    QWidget* scrim_;
    QPointer<QDialog> current_;
    QList<QPointer<QDialog>> waiting_;
    std::deque<std::function<void()>> completions_;
    std::function<void()> afterCompletion_;
    bool isOnScreen_;             ///< the main window has reached the screen since it was shown
    bool drainScheduled_ = false; ///< drain() is on its way through the event loop
    bool draining_ = false;       ///< completions are running
};

} // namespace frimbolate
