// What an open panel lets the user choose; shared with the drop targets, which follow its rules.
#pragma once

#include "platform/file_panels.h"

#include <QString>

namespace frimbolate {

/// Whether the name or link target is not valid UTF-8. Such a name cannot be represented as text.
bool isUnreadableName(const QString& path);

/// Whether a folder is chosen like a file: an application or a workflow, where the panel allows
/// these types. No other extension makes a folder a bundle.
bool isBundle(const OpenPanel& panel, const QString& path);

struct PanelSelection {
    QString path;            ///< the result of the panel; links resolved if the panel resolves them
    QString rejectionReason; ///< why the path cannot be chosen; empty if it can
};

/// \param path absolute and clean; a folder that the panel would only enter is rejected
PanelSelection validateSelection(const OpenPanel& panel, const QString& path);

/// Why a new folder of that name cannot be created in `folder`; empty if it can.
QString newFolderRejectionReason(const QString& folder, const QString& name);

/// Whether the encoded name exceeds the file system's limit of 255 bytes.
bool isTooLong(const QString& name);

} // namespace frimbolate
