// Waits for what happens in another process or on the next turn of the event loop.
#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>

namespace frimbolate::test {

/// Whether a condition comes true; gives up after half a minute.
template <typename Condition>
bool eventually(Condition condition) {
    const QDeadlineTimer deadline(30000);
    while (!condition() && !deadline.hasExpired()) {
        QCoreApplication::processEvents();
        QThread::msleep(1);
    }
    return condition();
}

} // namespace frimbolate::test
