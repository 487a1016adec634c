#include "qt/qt_messages.h"

#include "posix/line_writer.h"

#include <QString>
#include <QtGlobal>

#include <atomic>
#include <cstdlib>
#include <mutex>

namespace frimbolate {

namespace {

constexpr int abortInstead = -1;
std::atomic<int> exitCode = abortInstead;

void write(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    // Never destroyed: Qt calls this function from any thread and until the process has ended.
    static std::mutex mutex;
    static auto* const writer = new LineWriter(STDERR_FILENO);
    {
        const std::scoped_lock lock(mutex);
        writer->write(qFormatLogMessage(type, context, text).toStdString());
    }
    if (type == QtFatalMsg && exitCode != abortInstead)
        std::_Exit(exitCode);
}

} // namespace

void routeQtMessages() { qInstallMessageHandler(write); }

void fatalMessagesExit(int code) { exitCode = code; }
void fatalMessagesAbort() { exitCode = abortInstead; }

} // namespace frimbolate
