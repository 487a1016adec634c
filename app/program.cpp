#include "app/program.h"

namespace frimbolate {

Program::Program(const std::string& preferencePath, const QProcessEnvironment& environment)
    : system_(preferencePath, environment), application_([this](const std::string& text) {
          alerts_.show(Alert{text, {}});
      }),
      delegate_({.alerts = alerts_,
                 .sheets = sheets_,
                 .filePanels = filePanels_,
                 .files = files_,
                 .folderAccess = system_.folderAccess,
                 .defaults = system_.defaults,
                 .pasteboard = pasteboard_,
                 .workspace = system_.workspace,
                 .clock = clock_,
                 .log = system_.log,
                 .application = application_,
                 .trash = system_.trash}) {
    window_.formBinder().setHomeFolder(system_.homeFolder());
    window_.connectTo(delegate_);
    window_.setWallClock(localWallClock);
    window_.setPathLookup(localPathState);
    window_.setAgentListReader(agentListReader_);
    queue_.setAfterCompletion([this] { window_.mirror(); });
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
