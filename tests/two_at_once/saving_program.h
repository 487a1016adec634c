// One of the programs that save at the same time: the controller over the real files and settings,
// with scripted panels and alerts.
#pragma once

#include "posix/local_files.h"
#include "posix/path_folder_access.h"
#include "posix/plist_defaults.h"
#include "tests/support/recording_log.h"
#include "tests/support/scripted_platform.h"
#include "tests/two_at_once/shared_folders.h"
#include "ui/app_delegate.h"

#include <string>
#include <vector>

namespace frimbolate::test {

class SavingProgram {
  public:
    /// \param number from 0
    SavingProgram(const SharedFolders& folders, int number);

    /// Changes its own setting and the preferences, saves its own agent and the one that all save,
    /// and switches the one that all switch; in an order that depends on the seed.
    void runRound(int round, unsigned seed);
    /// The log lines about what could not be read, locked or written.
    std::vector<std::string> problems() const;

  private:
    void saveSetting();
    void savePreferences();
    void saveAgent(const std::string& path);
    void switchAgent();
    Services services();

    const SharedFolders& folders_;
    Mark mark_;
    ScriptedPlatform platform_;
    RecordingLog log_;
    LocalFiles files_{log_};
    PathFolderAccess folderAccess_;
    PlistDefaults defaults_;
    AppDelegate delegate_{services()};
};

} // namespace frimbolate::test
