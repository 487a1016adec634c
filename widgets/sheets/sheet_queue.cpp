#include "widgets/sheets/sheet_queue.h"

#include "widgets/sheets/sheet_dialog.h"
#include "widgets/style/surfaces.h"

#include <QDialog>
#include <QWindow>

#include <utility>

namespace frimbolate {
namespace {

/// Dims the window below the toolbar. Decoration only: the dialog's modality blocks the input.
class Scrim : public QWidget {
  public:
    explicit Scrim(QWidget* parent) : QWidget(parent) {
        setObjectName("sheetScrim");
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
        hide();
    }

  protected:
    void paintEvent(QPaintEvent*) override { style::paintScrim(*this); }
};

} // namespace

SheetQueue::SheetQueue(QWidget& mainWindow)
    : mainWindow_(mainWindow), scrim_(new Scrim(&mainWindow)), isOnScreen_(mainWindow.isVisible()) {
    mainWindow_.installEventFilter(this);
}

SheetQueue::~SheetQueue() { delete scrim_; }

void SheetQueue::setAfterCompletion(std::function<void()> afterCompletion) {
    afterCompletion_ = std::move(afterCompletion);
}

void SheetQueue::present(QDialog* sheet) {
    if (sheet == current_ || waiting_.contains(sheet))
        return;
    waiting_.append(sheet);
    sheet->installEventFilter(this);
    // While completions are pending or running, drain() shows the next sheet after the last one.
    if (!current_ && !drainScheduled_ && !draining_)
        showNext();
}

void SheetQueue::dismiss(QDialog* sheet) {
    if (waiting_.removeAll(sheet) > 0)
        sheet->removeEventFilter(this);
    else if (sheet == current_)
        sheet->hide();
}

void SheetQueue::complete(std::function<void()> completion) {
    completions_.push_back(std::move(completion));
    scheduleDrain();
}

void SheetQueue::scheduleDrain() {
    if (!std::exchange(drainScheduled_, true))
        QMetaObject::invokeMethod(this, &SheetQueue::drain, Qt::QueuedConnection);
}

void SheetQueue::drain() {
    drainScheduled_ = false;
    draining_ = true;
    while (!completions_.empty()) {
        const auto completion = std::move(completions_.front());
        completions_.pop_front();
        completion();
        if (afterCompletion_)
            afterCompletion_();
    }
    draining_ = false;
    if (!current_)
        showNext();
}

void SheetQueue::showNext() {
    // The window manager positions the window on its first exposure. A sheet shown earlier would
    // lie behind or far from the window, without the focus.
    if (!isOnScreen_)
        return;
    while (!waiting_.isEmpty() && !current_)
        current_ = waiting_.takeFirst();
    placeScrim();
    if (!current_)
        return;
    current_->open();
    // Window managers may withhold the focus from a window shown directly after another was hidden.
    current_->raise();
    current_->activateWindow();
}

void SheetQueue::placeScrim() {
    scrim_->setGeometry(sheetArea(mainWindow_));
    scrim_->setVisible(!current_.isNull());
    scrim_->raise();
}

void SheetQueue::followMainWindow(QEvent::Type event) {
    if (event == QEvent::Resize && scrim_->isVisible())
        placeScrim();
    if (event == QEvent::Show && mainWindow_.windowHandle())
        mainWindow_.windowHandle()->installEventFilter(this);
    if (event == QEvent::Hide)
        isOnScreen_ = false;
}

bool SheetQueue::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &mainWindow_) {
        if (!event->spontaneous() || event->type() == QEvent::Resize)
            followMainWindow(event->type());
    } else if (watched == mainWindow_.windowHandle()) {
        // Set once: a window that becomes covered later still counts as on the screen.
        if (event->type() == QEvent::Expose && mainWindow_.windowHandle()->isExposed() &&
            !std::exchange(isOnScreen_, true) && !waiting_.isEmpty())
            scheduleDrain();
    } else if (event->type() == QEvent::Hide && !event->spontaneous()) {
        watched->removeEventFilter(this);
        if (watched == current_) {
            current_.clear();
            scheduleDrain();
        }
    }
    return QObject::eventFilter(watched, event);
}

} // namespace frimbolate
