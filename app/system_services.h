// The services whose implementation differs between systems, with the same names on each.
#pragma once

#ifdef __APPLE__
#include "macos/mac_trash.h"
#include "macos/mac_workspace.h"
#include "macos/scoped_folder_access.h"
#include "macos/unified_log.h"
#include "macos/user_defaults.h"
#else
#include "posix/path_folder_access.h"
#include "posix/plist_defaults.h"
#include "posix/system_log.h"
#include "qt/qt_trash.h"
#include "qt/qt_workspace.h"
#endif

#include <QProcessEnvironment>

#include <string>

namespace frimbolate {

#ifdef __APPLE__
struct SystemServices {
    /// macOS stores the settings by the program's identifier, not at a path.
    explicit SystemServices(const std::string&, const QProcessEnvironment&) {}

    UnifiedLog log;
    ScopedFolderAccess folderAccess;
    UserDefaults defaults{log};
    MacWorkspace workspace;
    MacTrash trash;
};
#else
struct SystemServices {
    /// \param preferencePath of the preference file
    /// \param environment of the started programs
    SystemServices(const std::string& preferencePath, const QProcessEnvironment& environment)
        : defaults(preferencePath, log), workspace(environment) {}

    SystemLog log;
    PathFolderAccess folderAccess;
    PlistDefaults defaults;
    QtWorkspace workspace;
    QtTrash trash;
};
#endif

} // namespace frimbolate
