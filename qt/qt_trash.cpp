#include "qt/qt_trash.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QString>

namespace frimbolate {

namespace {

/// Creates the trash of the home folder, to which Qt falls back. Qt does not create its parent
/// folder, which a new user lacks. Without a trash, Qt 6.4 moves files to the working directory.
/// \return whether the trash exists
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
    // A path that is not valid UTF-8 would denote another file.
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
