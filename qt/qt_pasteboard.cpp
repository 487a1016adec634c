#include "qt/qt_pasteboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QString>

namespace frimbolate {

void QtPasteboard::clearContents() { QGuiApplication::clipboard()->clear(); }

void QtPasteboard::setString(const std::string& text) {
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

} // namespace frimbolate
