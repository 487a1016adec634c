#include "qt/qt_trash.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QString>

namespace frimbolate {

namespace {

/// Creates the trash of the home folder, to which Qt falls back. Qt does not create its parent
/// folder, which a new user lacks.
/// \return its path, or nothing where it does not exist
std::optional<QString> makeHomeTrash() {
    constexpr auto ownerAlone = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    QDir data(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
    if (!data.mkpath("."))
        return std::nullopt;
    data.mkdir("Trash", ownerAlone);
    const QString trash = data.filePath("Trash");
    return QFileInfo(trash).isDir() ? std::optional(trash) : std::nullopt;
}

/// Makes the trash the working directory while it exists. Where Qt 6.4 finds no trash after all, as
/// after a fault of the disk, it takes the working directory for one, with the same folders.
class TrashAsWorkingDirectory {
  public:
    explicit TrashAsWorkingDirectory(const QString& trash)
        : before_(QDir::currentPath()), isSet_(QDir::setCurrent(trash)) {}
    TrashAsWorkingDirectory(const TrashAsWorkingDirectory&) = delete;
    TrashAsWorkingDirectory& operator=(const TrashAsWorkingDirectory&) = delete;
    ~TrashAsWorkingDirectory() { QDir::setCurrent(before_); }

    bool isSet() const { return isSet_; }

  private:
    QString before_;
    bool isSet_;
};

} // namespace

std::optional<std::string> QtTrash::moveToTrash(const std::string& path) {
    const QString name = QString::fromStdString(path);
    // A path that is not valid UTF-8 would denote another file.
    if (name.toStdString() != path)
        return std::nullopt;
    const QFileInfo file(name);
    if (file.isDir() && !file.isSymLink())
        return std::nullopt;
    const auto homeTrash = makeHomeTrash();
    if (!homeTrash)
        return std::nullopt;
    const TrashAsWorkingDirectory current(*homeTrash);
    QString place;
    if (!current.isSet() || !QFile::moveToTrash(name, &place))
        return std::nullopt;
    return QDir(*homeTrash).absoluteFilePath(place).toStdString();
}

} // namespace frimbolate
