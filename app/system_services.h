// The services whose implementation differs between systems, with the same names on each.
#pragma once

#ifdef __APPLE__
#include "macos/mac_file_panels.h"
#include "macos/mac_trash.h"
#include "macos/mac_workspace.h"
#include "macos/scoped_folder_access.h"
#include "macos/unified_log.h"
#include "macos/user_defaults.h"
#include "posix/home_folder.h"
#include "widgets/panels/queued_file_panels.h"
#else
#include "posix/path_folder_access.h"
#include "posix/plist_defaults.h"
#include "posix/system_log.h"
#include "qt/qt_trash.h"
#include "qt/qt_workspace.h"
#include "widgets/panels/qt_file_panels.h"
#endif

#include <QDir>
#include <QProcessEnvironment>
#include <QWidget>

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
    /// The environment of a sandboxed program names its container instead.
    static std::string homeFolder() { return homeFolderInUserDatabase(); }
};

class SystemFilePanels {
  public:
    SystemFilePanels(SheetQueue& queue, QWidget& mainWindow)
        : ofMac_([&mainWindow] { return mainWindow.winId(); }), panels_(queue, mainWindow, ofMac_) {
    }

    operator FilePanels&() { return panels_; }

  private:
    MacFilePanels ofMac_;
    QueuedFilePanels panels_;
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
    static std::string homeFolder() { return QDir::homePath().toStdString(); }
};

using SystemFilePanels = QtFilePanels;
#endif

} // namespace frimbolate
