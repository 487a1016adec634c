// The queue of everything that is shown on the main window: alerts, file panels and the program's
// own sheets. One of them is visible at a time, in the order of the requests. A sheet requested
// while the main window is hidden waits until the window is exposed.
//
// Completions run from the event loop, after the dialog was hidden: first the completion, then
// `afterCompletion`, which updates the window from the model; then the next sheet is shown. A sheet
// requested by a completion is queued behind those already waiting.
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

    /// Shows the dialog with open(), now or after those queued before it. The dialog is not owned:
    /// it is the main window's child or deletes itself on close. A dialog that is shown or queued
    /// already is not queued again.
    void present(QDialog* sheet);
    /// Hides the sheet or removes it from the queue; no effect for any other dialog.
    void dismiss(QDialog* sheet);
    /// The visible sheet, or null.
    QDialog* current() const { return current_; }

    /// Sets what runs after each completion. Its captures must outlive the queue.
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
    bool isOnScreen_;             ///< the main window was exposed since it was shown
    bool drainScheduled_ = false; ///< drain() is queued in the event loop
    bool draining_ = false;       ///< completions are running
};

} // namespace frimbolate
