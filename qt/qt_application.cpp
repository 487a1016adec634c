#include "qt/qt_application.h"

#include <QCoreApplication>

namespace frimbolate {

void QtApplication::terminate() {
    // Queued, so that the action which quits runs to its end.
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
}

} // namespace frimbolate
