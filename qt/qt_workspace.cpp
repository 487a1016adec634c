#include "qt/qt_workspace.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace frimbolate {

QStringList QtWorkspace::terminalCommands() {
    QStringList commands = {"xdg-terminal-exec", "x-terminal-emulator"};
    if (const QString chosen = qEnvironmentVariable("TERMINAL"); !chosen.trimmed().isEmpty())
        commands += chosen;
    return commands + QStringList{"gnome-terminal", "konsole", "xfce4-terminal", "xterm"};
}

void QtWorkspace::openTerminal() {
    for (const QString& command : terminalCommands()) {
        QStringList arguments = QProcess::splitCommand(command);
        // A command such as a single quotation mark has no words.
        if (arguments.isEmpty())
            continue;
        const QString program = arguments.takeFirst();
        if (start(program, arguments, QDir::homePath()))
            return;
    }
}

void QtWorkspace::showFile(const std::string& path) {
    const QString file = QString::fromStdString(path);
    const auto openFolder = [*this, folder = QFileInfo(file).path()] {
        start("xdg-open", {folder}, {});
    };
    // A connection of its own: one that is lost does not end the program, unlike the shared one.
    const QString name = "frimbolate-file-manager";
    QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);
    if (!bus.isConnected())
        return openFolder();
    auto message = QDBusMessage::createMethodCall("org.freedesktop.FileManager1",
                                                  "/org/freedesktop/FileManager1",
                                                  "org.freedesktop.FileManager1", "ShowItems");
    message << QStringList{QUrl::fromLocalFile(file).toString(QUrl::FullyEncoded)} << QString();
    auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(message), qApp);
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer, [answer, openFolder] {
        if (answer->isError())
            openFolder();
        answer->deleteLater();
    });
}

void QtWorkspace::launchNewInstance() {
    start(QCoreApplication::applicationFilePath(), {newInstanceArgument}, {});
}

bool QtWorkspace::start(const QString& program, const QStringList& arguments,
                        const QString& folder) const {
    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    process.setWorkingDirectory(folder);
    process.setProcessEnvironment(environment_);
    return process.startDetached();
}

std::string QtWorkspace::userName() {
    if (const passwd* entry = ::getpwuid(::geteuid()); entry && *entry->pw_name)
        return entry->pw_name;
    return qEnvironmentVariable("USER").toStdString();
}

} // namespace frimbolate
