#include "widgets/controls/file_panel_rules.h"

#include "platform/choosable_items.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

namespace frimbolate {

namespace {

/// The longest file name on Linux and macOS file systems, in bytes.
constexpr qsizetype longestName = 255;

QString tr(const char* words) { return QCoreApplication::translate("PanelDialog", words); }

QString rejectionReasonFor(const OpenPanel& panel, const QFileInfo& item) {
    if (isUnreadableName(item.filePath()))
        return tr("This name cannot be read as text. Give the item another name first.");
    if (!item.exists())
        return tr("“%1” does not exist.");
    const bool isFolder = item.isDir() && !isBundle(panel, item.filePath());
    if (isFolder && !panel.canChooseDirectories)
        return tr("“%1” is a folder.");
    if (!isFolder && !panel.canChooseFiles)
        return tr("“%1” is not a folder.");
    if (!isFolder && !isOfAllowedType(panel, item.fileName().toStdString()))
        return tr("“%1” is not of a kind that can be chosen here.");
    return {};
}

} // namespace

bool isTooLong(const QString& name) { return QFile::encodeName(name).size() > longestName; }

QString newFolderRejectionReason(const QString& folder, const QString& name) {
    if (name.isEmpty())
        return tr("A folder needs a name.");
    if (name == "." || name == ".." || name.contains('/') || name.contains(QChar::Null))
        return tr("“%1” cannot be the name of a folder.").arg(name);
    if (isTooLong(name))
        return tr("The name is too long.");
    const QFileInfo item(folder + '/' + name);
    // exists() is false for a dangling link, which occupies the name all the same.
    return item.exists() || item.isSymLink() ? tr("“%1” already exists.").arg(name) : QString();
}

bool isUnreadableName(const QString& path) {
    return path.contains(QChar::ReplacementCharacter) && !QFileInfo::exists(path);
}

bool isBundle(const OpenPanel& panel, const QString& path) {
    const QFileInfo item(path);
    return item.isDir() && isBundleName(panel, item.fileName().toStdString());
}

PanelSelection validateSelection(const OpenPanel& panel, const QString& path) {
    const QFileInfo item(path);
    QString rejectionReason = rejectionReasonFor(panel, item);
    const QString chosen = panel.resolvesAliases ? item.canonicalFilePath() : path;
    if (rejectionReason.isEmpty() && isUnreadableName(chosen))
        rejectionReason = tr("“%1” points to a name that cannot be read as text.");
    return {chosen, rejectionReason.contains("%1") ? rejectionReason.arg(item.fileName())
                                                   : rejectionReason};
}

} // namespace frimbolate
