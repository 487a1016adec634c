#include "qt/single_instance.h"

#include "posix/user_socket_folder.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QSignalBlocker>
#include <QThread>
#include <QTimer>

#include <sys/socket.h>
#include <unistd.h>

namespace frimbolate {

namespace {

constexpr const char* reopenMessage = "reopen\n";
constexpr const char* acknowledgement = "reopened\n";
constexpr std::chrono::milliseconds retryAfter{5};

QString socketNameFor(const std::string& preferencePath) {
    constexpr int nameSize = 16;
    // Empty where TMPDIR is no folder.
    const QString temporary = QDir::tempPath();
    const std::string folder =
        userSocketFolder(qEnvironmentVariable("XDG_RUNTIME_DIR").toStdString(),
                         temporary.isEmpty() ? "/tmp" : temporary.toStdString(), nameSize);
    if (folder.empty())
        return {};
    const auto hash = QCryptographicHash::hash(QByteArray::fromStdString(preferencePath),
                                               QCryptographicHash::Sha256);
    return QString::fromStdString(folder) + '/' + QString::fromLatin1(hash.toHex().left(nameSize));
}

/// The folder is private when it is created or checked; other users may have got access later.
bool isOfThisUser(const QLocalSocket& socket) {
    const auto number = static_cast<int>(socket.socketDescriptor());
#ifdef __APPLE__
    uid_t user = 0;
    gid_t group = 0;
    return ::getpeereid(number, &user, &group) == 0 && user == ::geteuid();
#else
    ucred peer{};
    socklen_t size = sizeof peer;
    return ::getsockopt(number, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
           peer.uid == ::geteuid();
#endif
}

} // namespace

SingleInstance::SingleInstance(const std::string& preferencePath, Limits limits)
    : name_(socketNameFor(preferencePath)), limits_(limits) {
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&server_, &QLocalServer::newConnection, this, &SingleInstance::accept);
    // Queued: within the signal the socket cannot connect again.
    connect(&predecessor_, &QLocalSocket::disconnected, this, &SingleInstance::tryToListen,
            Qt::QueuedConnection);
}

SingleInstance::~SingleInstance() {
    predecessor_.disconnect(this);
    // In this order; an instance whose connection ends tries to take the lock.
    server_.close();
    lock_.release();
}

FileLock::State SingleInstance::becomeFirst() {
    if (name_.isEmpty())
        return FileLock::State::unavailable;
    const auto outcome = lock_.take(name_.toStdString() + ".lock");
    // A socket that still exists was left by a crash.
    if (outcome == FileLock::State::held)
        QLocalServer::removeServer(name_);
    return outcome;
}

/// Does not wait: connecting to a local socket succeeds or fails at once.
bool SingleInstance::connectTo(QLocalSocket& socket) const {
    socket.connectToServer(name_);
    if (socket.state() == QLocalSocket::ConnectedState && isOfThisUser(socket))
        return true;
    const QSignalBlocker quiet(socket);
    socket.abort();
    return false;
}

bool SingleInstance::isAcknowledged(QLocalSocket& socket, const QDeadlineTimer& deadline) const {
    const auto left = [&] { return static_cast<int>(deadline.remainingTime()); };
    socket.write(reopenMessage);
    while (!socket.canReadLine() && socket.waitForReadyRead(left())) {
    }
    return socket.readLine() == acknowledgement;
}

RunningInstance SingleInstance::askRunningInstance() {
    const QDeadlineTimer start(limits_.start);
    while (true) {
        if (becomeFirst() != FileLock::State::busy)
            return RunningInstance::none;
        QLocalSocket socket;
        if (connectTo(socket)) {
            const QDeadlineTimer answer(limits_.answer);
            if (isAcknowledged(socket, answer))
                return RunningInstance::told;
            if (answer.hasExpired())
                return RunningInstance::silent;
        }
        // The first instance does not listen yet, or is ending.
        if (start.hasExpired())
            return RunningInstance::silent;
        QThread::msleep(static_cast<unsigned long>(retryAfter.count()));
    }
}

void SingleInstance::listen(std::function<void()> onReopen) {
    onReopen_ = std::move(onReopen);
    tryToListen();
}

void SingleInstance::tryToListen() {
    const auto outcome = lock_.isHeld() ? FileLock::State::held : becomeFirst();
    if (outcome == FileLock::State::held) {
        // A lock without a listener would make every later start wait in vain.
        if (!server_.listen(name_))
            lock_.release();
        return;
    }
    // The disconnection of the predecessor calls this again.
    if (outcome == FileLock::State::unavailable || connectTo(predecessor_))
        return;
    QTimer::singleShot(retryAfter, this, &SingleInstance::tryToListen);
}

void SingleInstance::accept() {
    while (QLocalSocket* caller = server_.nextPendingConnection()) {
        connect(caller, &QLocalSocket::readyRead, this, [this, caller] {
            while (caller->canReadLine()) {
                if (caller->readLine() != reopenMessage)
                    continue;
                caller->write(acknowledgement);
                caller->flush();
                onReopen_();
            }
        });
        connect(caller, &QLocalSocket::disconnected, caller, &QObject::deleteLater);
    }
}

} // namespace frimbolate
