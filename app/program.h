// The running program: the services of this desktop, the controller and the window, put together.
#pragma once

#include "app/system_services.h"
#include "platform/qt/local_clock.h"
#include "platform/qt/local_files.h"
#include "platform/qt/qt_application.h"
#include "platform/qt/qt_pasteboard.h"
#include "platform/qt/window_blending.h"
#include "ui/app_delegate.h"
#include "ui/widgets/file_panels.h"
#include "ui/widgets/main_window.h"
#include "ui/widgets/own_sheets.h"
#include "ui/widgets/sheet_alerts.h"
#include "ui/widgets/sheet_stack.h"

#include <string>

namespace frimbolate {

/// Members stand in the order in which they need each other: first the window, on which the sheets
/// stand, then what the controller is given, and the controller last.
class Program {
  public:
    /// \param preferencePath of the preference file
    /// \param environment of the programs that are started
    Program(const std::string& preferencePath, const QProcessEnvironment& environment);

    void start();
    /// What a click on the program's icon does while it runs.
    void reopen();

  private:
    MainWindow window_{blendsWindows()};
    SheetStack stack_{window_};
    SheetAlerts alerts_{stack_, window_};
    QtFilePanels filePanels_{stack_, window_};
    OwnSheets sheets_{stack_, window_};
    SystemServices system_;
    LocalFiles files_{system_.log};
    QtPasteboard pasteboard_;
    LocalClock clock_;
    QtApplication application_;
    AppDelegate delegate_;
};

} // namespace frimbolate
