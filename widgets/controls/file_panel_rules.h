// What an open panel lets a person choose, for whatever else takes a file or folder in its place.
#pragma once

#include "platform/file_panels.h"

#include <QString>

namespace frimbolate {

/// The name or link target holds bytes that are no UTF-8: as text it names nothing on the disk.
bool isUnreadableName(const QString& path);

/// A folder that is chosen like a file: an application or a workflow, where the panel takes these.
/// No other extension makes a folder a file.
bool isBundle(const OpenPanel& panel, const QString& path);

struct PanelSelection {
    QString path;            ///< what the panel hands on, links resolved where it does so
    QString rejectionReason; ///< why it is not to be had; empty where it is
};

/// \param path absolute and clean; a folder that the panel would only enter is refused
PanelSelection validateSelection(const OpenPanel& panel, const QString& path);

/// Why a name cannot be had in a folder, for a new folder; empty where it can.
QString newFolderRefusal(const QString& folder, const QString& name);

/// Whether the name has more bytes than file systems take.
bool isTooLong(const QString& name);

} // namespace frimbolate
