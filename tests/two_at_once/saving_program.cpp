#include "tests/two_at_once/saving_program.h"

#include "tests/support/random_values.h"

#include <algorithm>
#include <array>

namespace frimbolate::test {

namespace {

/// So many tries that no program gives up while many others write.
const FileLock::Patience patience{.tries = 1'000'000};

bool isProblem(const std::string& line) {
    return std::ranges::any_of(
        std::array{"Could not", "cannot be read", "without a lock", "Error occurred",
                   "were missing"},
        [&](const char* words) { return line.find(words) != std::string::npos; });
}

} // namespace

SavingProgram::SavingProgram(const SharedFolders& folders, int number)
    : folders_(folders), mark_{number, 0}, defaults_(folders.settings(), log_, patience) {
    delegate_.applicationDidFinishLaunching();
}

Services SavingProgram::services() {
    const Services scripted = platform_.services();
    return {.alerts = scripted.alerts,
            .sheets = scripted.sheets,
            .filePanels = scripted.filePanels,
            .files = files_,
            .folderAccess = folderAccess_,
            .defaults = defaults_,
            .pasteboard = scripted.pasteboard,
            .workspace = scripted.workspace,
            .clock = scripted.clock,
            .log = log_,
            .application = scripted.application,
            .trash = scripted.trash};
}

void SavingProgram::runRound(int round, unsigned seed) {
    mark_.round = round;
    RandomValues random(seed);
    std::array actions = {0, 1, 2, 3, 4};
    for (std::size_t i = actions.size() - 1; i > 0; --i)
        std::swap(actions[i], actions[random.below(i + 1)]);
    for (const int action : actions)
        switch (action) {
        case 0:
            saveSetting();
            break;
        case 1:
            savePreferences();
            break;
        case 2:
            saveAgent(folders_.ownAgent(mark_.program));
            break;
        case 3:
            saveAgent(folders_.sameAgent());
            break;
        default:
            switchAgent();
        }
    platform_.journal.clear();
}

void SavingProgram::saveSetting() {
    defaults_.set(SharedFolders::ownSetting(mark_.program), Value(mark_.text()));
}

void SavingProgram::savePreferences() {
    delegate_.openPreferencesWindow();
    FormModel& form = delegate_.form();
    form.autoCopyScriptCheckbox.state = (mark_.program + mark_.round) % 2;
    form.globalPriorityCheckbox.selectedItem = mark_.round % 2;
    delegate_.savePreferences();
}

void SavingProgram::saveAgent(const std::string& path) {
    delegate_.createNewAgent();
    FormModel& form = delegate_.form();
    form.agentNameTextField.stringValue = "saved";
    form.agentTargetButton.selectedItem = TargetType::Script;
    // Longer than a page, so that a write in place would show its half.
    form.scriptPopOverScriptField.stringValue = mark_.text() + "\n" + std::string(20000, '#');
    form.workingDirectoryField.stringValue = mark_.text();
    form.agentActionButton.selectedItem = AgentAction::OnSchedule;
    delegate_.validateAgentConfig();
    platform_.saveAs(path);
    platform_.press("Skip");
}

void SavingProgram::switchAgent() {
    delegate_.switchAgent(folders_.switchedAgent());
    platform_.press("Continue");
}

std::vector<std::string> SavingProgram::problems() const {
    std::vector<std::string> result;
    std::ranges::copy_if(log_.lines, std::back_inserter(result), isProblem);
    return result;
}

} // namespace frimbolate::test
