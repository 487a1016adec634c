#include "app/program.h"

namespace frimbolate {

Program::Program(const std::string& preferencePath)
    : defaults_(preferencePath, log_), application_([this](const std::string& text) {
          alerts_.show(SheetAlert{text, {}});
      }),
      delegate_({.alerts = alerts_,
                 .sheets = sheets_,
                 .filePanels = filePanels_,
                 .files = files_,
                 .folderAccess = folderAccess_,
                 .defaults = defaults_,
                 .pasteboard = pasteboard_,
                 .workspace = workspace_,
                 .clock = clock_,
                 .log = log_,
                 .application = application_}) {
    window_.connectTo(delegate_);
    stack_.setAfterwards([this] { window_.mirror(); });
}

void Program::start() {
    delegate_.applicationDidFinishLaunching();
    window_.mirror();
}

void Program::reopen() {
    delegate_.applicationShouldHandleReopen();
    window_.mirror();
    window_.bringToFront();
}

} // namespace frimbolate
