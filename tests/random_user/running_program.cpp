#include "tests/random_user/running_program.h"

#include "tests/random_user/input.h"
#include "widgets/controls/pop_up_button.h"

#include <chrono>
#include <filesystem>

namespace frimbolate::test {

std::optional<std::string> QuietDesktop::moveToTrash(const std::string& path) {
    const std::string place = trash_ + path.substr(path.rfind('/'));
    std::error_code failed;
    std::filesystem::rename(path, place, failed);
    return failed ? std::nullopt : std::optional(place);
}

LocalDateTime QuietDesktop::now() {
    using namespace std::chrono;
    const auto day = floor<days>(time);
    const year_month_day date(day);
    const hh_mm_ss hours(time - day);
    LocalDateTime result;
    result.year = static_cast<int>(date.year());
    result.month = static_cast<int>(static_cast<unsigned>(date.month()));
    result.day = static_cast<int>(static_cast<unsigned>(date.day()));
    result.hour = static_cast<int>(hours.hours().count());
    result.minute = static_cast<int>(hours.minutes().count());
    return result;
}

RunningProgram::RunningProgram(const UserHome& home, QuietDesktop& desktop)
    : defaults_(home.preferences(), desktop), files_(desktop),
      delegate_({.alerts = alerts_,
                 .sheets = sheets_,
                 .filePanels = filePanels_,
                 .files = files_,
                 .folderAccess = folderAccess_,
                 .defaults = defaults_,
                 .pasteboard = pasteboard_,
                 .workspace = desktop,
                 .clock = desktop,
                 .log = desktop,
                 .application = desktop,
                 .trash = desktop}),
      listReader_(
          agentFolder_, delegate_, [&desktop] { return desktop.wallClock(); }, home.home()) {
    desktop.quits = false;
    desktop.showError = [this](const std::string& text) { alerts_.show(Alert{text, {}}); };
    window_.formBinder().setHomeFolder(home.home());
    window_.connectTo(delegate_);
    window_.setWallClock([&desktop] { return desktop.wallClock(); });
    window_.setPathLookup(localPathState);
    window_.setAgentListReader(listReader_);
    queue_.setAfterCompletion([this] { window_.mirror(); });
    delegate_.applicationDidFinishLaunching();
    window_.mirror();
}

void RunningProgram::reopen() {
    delegate_.applicationShouldHandleReopen();
    window_.mirror();
    window_.bringToFront();
}

void RunningProgram::buildEverything() {
    for (const auto sheet :
         {Sheet::welcomeWindow, Sheet::preferencesWindow, Sheet::executeScriptWindow}) {
        sheets_.begin(sheet);
        settle();
        sheets_.end(sheet);
        settle();
    }
    for (auto* button : window_.findChildren<PopUpButton*>())
        button->view();
}

} // namespace frimbolate::test
