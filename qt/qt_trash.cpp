#include "qt/qt_trash.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QString>

namespace frimbolate {

namespace {

/// Whether the home's trash is there, on which Qt falls back. Qt does not create the folder that it
/// lies in, which a new user lacks; and without any trash, Qt 6.4 moves files into the folder that
/// the program was started in.
bool makeHomeTrash() {
    constexpr auto ownerAlone = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    QDir data(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
    if (!data.mkpath("."))
        return false;
    data.mkdir("Trash", ownerAlone);
    return QFileInfo(data.filePath("Trash")).isDir();
}

} // namespace

std::optional<std::string> QtTrash::moveToTrash(const std::string& path) {
    const QString name = QString::fromStdString(path);
    // A path that is not valid UTF-8 would name another file.
    if (name.toStdString() != path)
        return std::nullopt;
    const QFileInfo file(name);
    if (file.isDir() && !file.isSymLink())
        return std::nullopt;
    QString place;
    if (!makeHomeTrash() || !QFile::moveToTrash(name, &place))
        return std::nullopt;
    return place.toStdString();
}

} // namespace frimbolate
