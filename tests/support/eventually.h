// Waits for another process, another thread or the event loop.
#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>

namespace frimbolate::test {

/// Processes events until the condition holds; returns false after 30 seconds.
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
