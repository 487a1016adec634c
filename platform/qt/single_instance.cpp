#include "platform/qt/single_instance.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

#include <sys/socket.h>
#include <unistd.h>

namespace frimbolate {

namespace {

constexpr const char* reopenMessage = "reopen\n";
constexpr int patienceInMilliseconds = 2000;

/// The person's own folder for sockets, or the one for temporary files where there is none.
QString socketFolder() {
    const QString own = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const QFileInfo folder(own);
    const bool usable = own.startsWith('/') && folder.isDir() && folder.isWritable();
    return usable ? own : QDir::tempPath();
}

QString socketNameFor(const std::string& preferencePath) {
    const QByteArray key = QByteArray::number(qulonglong{::geteuid()}) + ":" +
                           QByteArray::fromStdString(preferencePath);
    // Short, because the name of a socket has hardly a hundred bytes in all.
    const auto hash = QCryptographicHash::hash(key, QCryptographicHash::Sha256).toHex().left(16);
    return socketFolder() + "/frimbolate-" + QString::fromLatin1(hash);
}

/// In a folder that is open to everybody, somebody else may have put a socket under our name.
bool isOfThisPerson(const QLocalSocket& socket) {
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

SingleInstance::SingleInstance(const std::string& preferencePath)
    : name_(socketNameFor(preferencePath)) {
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&server_, &QLocalServer::newConnection, this, &SingleInstance::accept);
    connect(&predecessor_, &QLocalSocket::disconnected, this, &SingleInstance::tryToListen);
}

bool SingleInstance::connectTo(QLocalSocket& socket) const {
    socket.connectToServer(name_);
    if (!socket.waitForConnected(patienceInMilliseconds))
        return false;
    if (isOfThisPerson(socket))
        return true;
    socket.abort();
    return false;
}

bool SingleInstance::tellRunningInstance() {
    QLocalSocket socket;
    if (!connectTo(socket))
        return false;
    socket.write(reopenMessage);
    const bool told = socket.waitForBytesWritten(patienceInMilliseconds);
    socket.disconnectFromServer();
    return told;
}

void SingleInstance::listen(std::function<void()> onReopen) {
    onReopen_ = std::move(onReopen);
    tryToListen();
}

void SingleInstance::tryToListen() {
    if (connectTo(predecessor_))
        return;
    // Nobody answers: a socket that is still there was left behind by a crash.
    QLocalServer::removeServer(name_);
    server_.listen(name_);
}

void SingleInstance::accept() {
    while (QLocalSocket* caller = server_.nextPendingConnection()) {
        connect(caller, &QLocalSocket::readyRead, this, [this, caller] {
            if (caller->readAll().contains(reopenMessage))
                onReopen_();
        });
        connect(caller, &QLocalSocket::disconnected, caller, &QObject::deleteLater);
    }
}

} // namespace frimbolate
