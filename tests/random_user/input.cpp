#include "tests/random_user/input.h"

#include <QAbstractButton>
#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QStyleHints>
#include <QTest>
#include <QWindow>

namespace frimbolate::test {

namespace {

QWindow* keyWindow() {
    if (const QWidget* popUp = QApplication::activePopupWidget())
        return popUp->windowHandle();
    if (QWindow* focused = QGuiApplication::focusWindow())
        return focused;
    QWidget* window = inputWindow();
    return window ? window->windowHandle() : nullptr;
}

QPoint inWindow(const QWidget& widget, const QPoint& place) {
    return widget.mapTo(widget.window(), place);
}

void runPending() {
    // More turns than any chain of queued calls needs; a program that never comes to rest must not
    // hang the user.
    constexpr int mostTurns = 500;
    QAbstractEventDispatcher* loop = QAbstractEventDispatcher::instance();
    for (int quiet = 0, turn = 0; quiet < 2 && turn < mostTurns; ++turn) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        quiet = loop->processEvents(QEventLoop::AllEvents) ? 0 : quiet + 1;
    }
}

/// Gives the keyboard to the window that can take it, as a window manager does.
bool moveFocus() {
    QWidget* modal = QApplication::activeModalWidget();
    const QWindow* focused = QGuiApplication::focusWindow();
    const bool isBlocked = modal && focused != modal->windowHandle();
    QWidget* window = isBlocked ? modal : focused ? nullptr : inputWindow();
    if (!window || window->isMinimized() || QApplication::activePopupWidget())
        return false;
    window->activateWindow();
    return true;
}

} // namespace

void settle() {
    runPending();
    if (moveFocus())
        runPending();
}

QWidget* inputWindow() {
    if (QWidget* popUp = QApplication::activePopupWidget())
        return popUp;
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    if (QWidget* active = QApplication::activeWindow())
        return active;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible())
            return window;
    return nullptr;
}

std::string nameOf(const QWidget& widget) {
    if (!widget.objectName().isEmpty() && !widget.objectName().startsWith("qt_"))
        return widget.objectName().toStdString();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        if (!button->text().isEmpty())
            return button->text().toStdString();
    return widget.accessibleName().toStdString();
}

bool isReachable(const QWidget& widget) {
    if (!widget.isVisible())
        return false;
    const QPoint middle = inWindow(widget, widget.rect().center());
    const QWidget* found = widget.window()->childAt(middle);
    return found == &widget || widget.isAncestorOf(found);
}

void click(QWidget& widget, Qt::MouseButton button) {
    click(widget, widget.rect().center(), button);
}

void click(QWidget& widget, const QPoint& place, Qt::MouseButton button) {
    QTest::mouseClick(widget.window()->windowHandle(), button, {}, inWindow(widget, place));
}

void doubleClick(QWidget& widget, const QPoint& place) {
    // Elsewhere the interval is nothing, so that two steps are no double click.
    QApplication::setDoubleClickInterval(400);
    QTest::mouseDClick(widget.window()->windowHandle(), Qt::LeftButton, {},
                       inWindow(widget, place));
    QApplication::setDoubleClickInterval(0);
}

void press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    if (QWindow* window = keyWindow())
        QTest::keyClick(window, key, modifiers);
}

void type(const QString& text) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool isPair = text.at(i).isHighSurrogate() && i + 1 < text.size();
        const QString character = text.mid(i, isPair ? 2 : 1);
        i += isPair;
        if (QWindow* window = keyWindow())
            QTest::sendKeyEvent(QTest::Click, window, Qt::Key_unknown, character, {});
    }
}

void paste(const QString& text) {
    QGuiApplication::clipboard()->setText(text);
    press(Qt::Key_V, Qt::ControlModifier);
}

void drop(QWidget& widget, const QMimeData& data) {
    constexpr Qt::DropActions offered = Qt::CopyAction | Qt::LinkAction | Qt::MoveAction;
    QWindow* window = widget.window()->windowHandle();
    const QPoint place = inWindow(widget, widget.rect().center());
    QDragEnterEvent enter(place, offered, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(window, &enter);
    QDragMoveEvent move(place, offered, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(window, &move);
    if (!move.isAccepted()) {
        QDragLeaveEvent leave;
        QCoreApplication::sendEvent(window, &leave);
        return;
    }
    QDropEvent event(place, offered, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(window, &event);
}

} // namespace frimbolate::test
