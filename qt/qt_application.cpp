#include "qt/qt_application.h"

#include <QCoreApplication>

namespace frimbolate {

void QtApplication::terminate() {
    // Later, so that the action which quits may still come to its end.
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
}

} // namespace frimbolate
