// The hands of a random user: keys, mouse and drags as events of the window system, and what the
// user can reach with them.
#pragma once

#include <QList>
#include <QPoint>
#include <QString>
#include <QWidget>

#include <string>
#include <vector>

class QMimeData;

namespace frimbolate::test {

/// Runs the event loop until nothing is left to do at once; waits for no timer.
void settle();

/// The window that gets the input now: the open pop-up, else the modal dialog, else the active or
/// any other visible window; null without one.
QWidget* inputWindow();

/// The name by which a step refers to a widget: its object name, else its text or accessible name.
std::string nameOf(const QWidget& widget);
/// Whether a click on the middle of the widget reaches it.
bool isReachable(const QWidget& widget);

/// The widgets of a kind that the user can reach in the input window.
template <typename Kind>
QList<Kind*> reachable() {
    QList<Kind*> result;
    QWidget* window = inputWindow();
    if (window)
        for (auto* widget : window->findChildren<Kind*>())
            if (widget->window() == window && widget->isEnabled() && isReachable(*widget))
                result.append(widget);
    return result;
}
/// The one of that name; null where there is none.
template <typename Kind>
Kind* reachable(const std::string& name) {
    for (auto* widget : reachable<Kind>())
        if (nameOf(*widget) == name)
            return widget;
    return nullptr;
}

void click(QWidget& widget, Qt::MouseButton button = Qt::LeftButton);
void click(QWidget& widget, const QPoint& place, Qt::MouseButton button = Qt::LeftButton);
void doubleClick(QWidget& widget, const QPoint& place);
/// To the window with the keyboard.
void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// Types the characters, one key for each.
void type(const QString& text);
/// Puts the text on the clipboard and presses the keys of Paste.
void paste(const QString& text);
/// Drags over the middle of the widget and drops there.
void drop(QWidget& widget, const QMimeData& data);

} // namespace frimbolate::test
