#include "widgets/controls/time_field.h"

#include "widgets/controls/text.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QScopedValueRollback>

#include <utility>

namespace frimbolate {

TimeField::TimeField(QWidget* parent) : QAbstractSpinBox(parent) {
    setFocusPolicy(Qt::StrongFocus); // scrolling over the field must not focus and change it
    lineEdit()->installEventFilter(this);
    connect(lineEdit(), &QLineEdit::textChanged, this, &TimeField::handleTextChanged);
    connect(qApp, &QApplication::focusChanged, this,
            [this](const QWidget*, const QWidget* focused) { followFocus(focused); });
    showTime();
}

// The focus changes during destruction; no slot may run by then.
TimeField::~TimeField() { qApp->disconnect(this); }

void TimeField::setTime(TimeOfDay time) {
    time_ = time;
    showTime();
}

void TimeField::setClock(ClockFormat clock) {
    const bool pending = isPending();
    if (std::exchange(clock_, clock) != clock && !pending)
        showTime();
}

bool TimeField::commit() {
    if (!isPending())
        return true;
    const QString typed = lineEdit()->text();
    const auto read = parseTimeOfDay(typed.toStdString());
    time_ = read.value_or(time_);
    showTime();
    if (read)
        emit timeRead(time_);
    else
        emit textRejected(typed);
    return read.has_value();
}

void TimeField::stepBy(int steps) {
    const bool whole = isPending() || isWholeSelected();
    const auto cursor = static_cast<std::size_t>(lineEdit()->cursorPosition());
    if (!commit())
        return;
    const TimePart part = whole ? TimePart::Hours : timePartAt(cursor, clock_);
    // Page Up makes ten steps; an even number would leave AM/PM unchanged.
    time_ = stepTimeOfDay(time_, part, part == TimePart::Meridiem ? 1 : steps);
    showTime();
    isNew_ = false; // the next click places the cursor in the part to step
    const auto [position, length] = spanOf(part);
    if (!whole)
        lineEdit()->setSelection(static_cast<int>(position), static_cast<int>(length));
    emit timeRead(time_);
}

bool TimeField::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        isPressed_ = std::exchange(isNew_, false) && isWholeSelected();
        return isPressed_;
    case QEvent::MouseMove:
        return isPressed_;
    case QEvent::MouseButtonRelease:
        return std::exchange(isPressed_, false);
    default:
        return QAbstractSpinBox::eventFilter(watched, event);
    }
}

void TimeField::focusInEvent(QFocusEvent* event) {
    QAbstractSpinBox::focusInEvent(event);
    const bool isFirst = std::exchange(isLeft_, false);
    switch (event->reason()) {
    case Qt::ActiveWindowFocusReason:
    case Qt::PopupFocusReason:
    case Qt::MenuBarFocusReason:
        if (!isFirst)
            return; // the window was reactivated; keep selection and cursor
        break;      // the control that had the focus was hidden in the meantime
    default:
        break;
    }
    isNew_ = true;
    selectAll();
}

void TimeField::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && commit()) {
        isNew_ = true;
        emit timeRead(time_);
    }
    QAbstractSpinBox::keyPressEvent(event); // Return selects the whole
}

void TimeField::mousePressEvent(QMouseEvent* event) {
    isNew_ = false; // presses in the text go to the line edit; this one is on the steppers
    QAbstractSpinBox::mousePressEvent(event);
}

void TimeField::wheelEvent(QWheelEvent* event) {
    if (hasFocus())
        QAbstractSpinBox::wheelEvent(event);
    else
        event->ignore();
}

void TimeField::contextMenuEvent(QContextMenuEvent* event) {
    // The toolkit's default implementation runs a nested event loop.
    QMenu* menu = lineEdit()->createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(event->globalPos());
}

void TimeField::hideEvent(QHideEvent* event) {
    commit();
    QAbstractSpinBox::hideEvent(event);
}

QString TimeField::shownTime() const { return frimbolate::text(formatTimeOfDay(time_, clock_)); }

bool TimeField::isPending() const { return lineEdit()->text() != shownTime(); }

bool TimeField::isWholeSelected() const { return lineEdit()->selectedText() == lineEdit()->text(); }

bool TimeField::ownsWindowFocus() const { return window()->focusWidget() == this; }

void TimeField::showTime() {
    const QScopedValueRollback guard(showsTime_, true);
    lineEdit()->setText(shownTime());
    if (ownsWindowFocus()) {
        selectAll();
        isNew_ = true;
    }
}

void TimeField::handleTextChanged() {
    if (showsTime_)
        return;
    emit textEdited();
    // A text set by an assistive tool without focus would never be committed by losing it.
    if (!ownsWindowFocus())
        commit();
}

void TimeField::readPendingText() {
    const auto read = parseTimeOfDay(lineEdit()->text().toStdString());
    if (!isPending() || !read)
        return;
    time_ = *read;
    emit timeRead(time_);
}

void TimeField::followFocus(const QWidget* focused) {
    if (!focused) {
        readPendingText(); // the window is inactive; the user may continue typing later
    } else if (focused != this && !qobject_cast<const QMenuBar*>(focused)) {
        isLeft_ = true;
        commit();
    }
}

} // namespace frimbolate
