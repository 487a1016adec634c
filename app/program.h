// Constructs and connects the services of this desktop, the controller and the window.
#pragma once

#include "app/system_services.h"
#include "posix/local_agent_folder.h"
#include "posix/local_clock.h"
#include "posix/local_files.h"
#include "qt/qt_application.h"
#include "qt/qt_pasteboard.h"
#include "qt/window_blending.h"
#include "ui/app_delegate.h"
#include "widgets/main_window.h"
#include "widgets/pages/agent_list_reader.h"
#include "widgets/qt_sheets.h"
#include "widgets/sheets/qt_alerts.h"
#include "widgets/sheets/sheet_queue.h"

#include <string>

namespace frimbolate {

/// The order of the members is that of their construction: the window, on which the sheets are
/// shown, then the services, then the controller, which refers to the services.
class Program {
  public:
    /// \param preferencePath of the preference file
    /// \param environment of the started programs
    Program(const std::string& preferencePath, const QProcessEnvironment& environment);

    /// Starts the controller and shows the window.
    void start();
    /// Shows the window again and brings it to the front, for a second start or a click on the
    /// program's icon.
    void reopen();

  private:
    MainWindow window_{blendsWindows()};
    SheetQueue queue_{window_};
    QtAlerts alerts_{queue_, window_};
    SystemFilePanels filePanels_{queue_, window_};
    QtSheets sheets_{queue_, window_};
    SystemServices system_;
    LocalFiles files_{system_.log};
    QtPasteboard pasteboard_;
    LocalClock clock_;
    QtApplication application_;
    AppDelegate delegate_;
    LocalAgentFolder agentFolder_;
    AgentListReader agentListReader_{agentFolder_, delegate_, localWallClock,
                                     SystemServices::homeFolder()};
};

} // namespace frimbolate
