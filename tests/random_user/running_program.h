// The program as main() makes it, in this process: the window, the controller, sheets, alerts and
// panels, over the real files, settings and clipboard of a temporary home. Only what would touch
// the desktop is replaced: terminal, file manager, trash, log and the wish to quit.
#pragma once

#include "platform/services.h"
#include "posix/local_agent_folder.h"
#include "posix/local_files.h"
#include "posix/path_folder_access.h"
#include "posix/plist_defaults.h"
#include "qt/qt_pasteboard.h"
#include "tests/random_user/user_home.h"
#include "ui/app_delegate.h"
#include "widgets/main_window.h"
#include "widgets/pages/agent_list_reader.h"
#include "widgets/panels/qt_file_panels.h"
#include "widgets/qt_sheets.h"
#include "widgets/sheets/qt_alerts.h"
#include "widgets/sheets/sheet_queue.h"

#include <functional>
#include <optional>
#include <string>

namespace frimbolate::test {

/// What the desktop gives beside files and windows. Its clock stands still until it is moved.
class QuietDesktop : public Workspace, public Trash, public Clock, public Log, public Application {
  public:
    /// \param trash the folder that files are moved to
    explicit QuietDesktop(std::string trash) : trash_(std::move(trash)) {}

    void openTerminal() override {}
    void showFile(const std::string&) override {}
    void launchNewInstance() override {}
    std::string userName() override { return UserHome::user; }
    std::optional<std::string> moveToTrash(const std::string& path) override;
    LocalDateTime now() override;
    void line(const std::string&) override {}
    void terminate() override { quits = true; }
    void presentError(const std::string& text) override { showError(text); }

    WallClock wallClock() const { return {time}; }

    std::function<void(const std::string&)> showError;
    LocalMinute time;
    bool quits = false; ///< the program wants to end

  private:
    std::string trash_;
};

/// The order of the members is that of the program.
class RunningProgram {
  public:
    /// Both must outlive this.
    RunningProgram(const UserHome& home, QuietDesktop& desktop);

    /// Shows the window again, as a second start does.
    void reopen();

    /// Builds what is otherwise built when it is shown first: every sheet and list of a pop-up.
    void buildEverything();

    MainWindow& window() { return window_; }
    AppDelegate& delegate() { return delegate_; }
    const SheetQueue& queue() const { return queue_; }
    const AgentListReader& listReader() const { return listReader_; }

  private:
    MainWindow window_;
    SheetQueue queue_{window_};
    QtAlerts alerts_{queue_, window_};
    QtFilePanels filePanels_{queue_, window_};
    QtSheets sheets_{queue_, window_};
    PathFolderAccess folderAccess_;
    PlistDefaults defaults_;
    LocalFiles files_;
    QtPasteboard pasteboard_;
    AppDelegate delegate_;
    LocalAgentFolder agentFolder_;
    AgentListReader listReader_;
};

} // namespace frimbolate::test
