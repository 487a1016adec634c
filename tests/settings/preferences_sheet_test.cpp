#include "settings/preferences.h"

#include "tests/support/scripted_platform.h"

#include <gmock/gmock.h>

namespace frimbolate::test {

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using Lines = std::vector<std::string>;

constexpr const char* sheetEnds = "sheet: end preferencesWindow";

class PreferencesSheetTest : public testing::Test {
  protected:
    void show(int autoCopy, int warn, int globbing, int priority, int welcome) {
        form.autoCopyScriptCheckbox.state = autoCopy;
        form.warnSuccessfulExitCheckbox.state = warn;
        form.globalGlobbingCheckbox.selectedItem = globbing;
        form.globalPriorityCheckbox.selectedItem = priority;
        form.showWelcomeWindowCheckbox.state = welcome;
    }

    ScriptedPlatform platform;
    FormModel form;
    Services services = platform.services();
    Preferences preferences{form, services};
    Dictionary& stored = platform.defaults.contents;
};

struct SaveCase {
    const char* name;
    int autoCopy, warn, globbing, priority, welcome;
    Lines effects; ///< before the sheet ends
};

const std::vector<SaveCase>& saveCases() {
    static const std::vector<SaveCase> rows = {
        {"AllOn",
         1,
         1,
         1,
         1,
         1,
         {"set: AutoCopyScriptsKey = True", "set: WarnForSuccessfulExit = True",
          "set: DefaultGlobbingKey = 1", "set: DefaultPriorityKey = 1",
          "set: ShowWelcomeWindow = True - 3.0"}},
        {"AllOff",
         0,
         0,
         0,
         0,
         0,
         {"set: AutoCopyScriptsKey = False", "set: WarnForSuccessfulExit = False",
          "set: DefaultGlobbingKey = 0", "set: DefaultPriorityKey = 0",
          "set: ShowWelcomeWindow = False - 3.0"}},
        {"AllMixed",
         -1,
         -1,
         0,
         1,
         -1,
         {"set: DefaultGlobbingKey = 0", "set: DefaultPriorityKey = 1"}},
        {"AutoCopyMixed",
         -1,
         1,
         1,
         0,
         0,
         {"set: WarnForSuccessfulExit = True", "set: DefaultGlobbingKey = 1",
          "set: DefaultPriorityKey = 0", "set: ShowWelcomeWindow = False - 3.0"}},
        {"WarnMixed",
         0,
         -1,
         0,
         0,
         1,
         {"set: AutoCopyScriptsKey = False", "set: DefaultGlobbingKey = 0",
          "set: DefaultPriorityKey = 0", "set: ShowWelcomeWindow = True - 3.0"}},
        {"WelcomeMixed",
         1,
         0,
         1,
         1,
         -1,
         {"set: AutoCopyScriptsKey = True", "set: WarnForSuccessfulExit = False",
          "set: DefaultGlobbingKey = 1", "set: DefaultPriorityKey = 1"}},
        {"NothingSelected",
         1,
         1,
         -1,
         -1,
         1,
         {"set: AutoCopyScriptsKey = True", "set: WarnForSuccessfulExit = True",
          "set: DefaultGlobbingKey = -1", "set: DefaultPriorityKey = -1",
          "set: ShowWelcomeWindow = True - 3.0"}},
    };
    return rows;
}

class SaveTest : public PreferencesSheetTest, public testing::WithParamInterface<SaveCase> {};

TEST_P(SaveTest, WritesTheControlsInOrderThenCloses) {
    const auto& row = GetParam();
    show(row.autoCopy, row.warn, row.globbing, row.priority, row.welcome);
    preferences.savePreferences();

    auto lines = row.effects;
    lines.emplace_back(sheetEnds);
    EXPECT_THAT(platform.journal.lines(), ElementsAreArray(lines));
    EXPECT_EQ(stored.size(), row.effects.size());
    for (const auto& [key, value] : stored)
        EXPECT_NE(value.string(), nullptr) << key << " is no text";
}

INSTANTIATE_TEST_SUITE_P(Preferences, SaveTest, testing::ValuesIn(saveCases()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(PreferencesSheetTest, AMixedBoxLeavesWhatWasStored) {
    stored = {{"AutoCopyScriptsKey", "True"},
              {"WarnForSuccessfulExit", "False"},
              {"ShowWelcomeWindow", "False - 3.0"}};
    const auto before = stored;
    show(CheckState::Mixed, CheckState::Mixed, 1, 0, CheckState::Mixed);
    preferences.savePreferences();
    for (const auto& [key, value] : before)
        EXPECT_EQ(stored[key], value) << key;
}

TEST_F(PreferencesSheetTest, OpeningReadsNothingAndChangesNoControl) {
    stored = {{"AutoCopyScriptsKey", "True"}, {"DefaultGlobbingKey", "0"}};
    show(0, -1, 1, 1, 0);
    preferences.openPreferencesWindow();

    EXPECT_THAT(platform.journal.lines(), ElementsAre("sheet: begin preferencesWindow"));
    EXPECT_THAT(platform.defaults.reads, IsEmpty());
    EXPECT_EQ(form.autoCopyScriptCheckbox.state, 0);
    EXPECT_EQ(form.warnSuccessfulExitCheckbox.state, -1);
    EXPECT_EQ(form.globalGlobbingCheckbox.selectedItem, 1);
    EXPECT_EQ(form.globalPriorityCheckbox.selectedItem, 1);
    EXPECT_EQ(form.showWelcomeWindowCheckbox.state, 0);
}

TEST_F(PreferencesSheetTest, SavedDefaultsReachTheFormAtItsNextReset) {
    preferences.setUpDefaults();
    preferences.openPreferencesWindow();
    form.globalGlobbingCheckbox.selectedItem = 0;
    form.globalPriorityCheckbox.selectedItem = 1;
    preferences.savePreferences();
    EXPECT_EQ(form.enableGlobbingCheckbox.state, CheckState::Off);
    EXPECT_EQ(form.priorityLevelButton.selectedItem, PriorityLevel::Normal);

    preferences.setUpDefaults();
    EXPECT_EQ(form.enableGlobbingCheckbox.state, CheckState::On);
    EXPECT_EQ(form.priorityLevelButton.selectedItem, PriorityLevel::Low);
}

TEST_F(PreferencesSheetTest, ClosingWithoutSavingKeepsTheControlsAsTheyAre) {
    preferences.setUpDefaults();
    const auto before = stored;
    preferences.openPreferencesWindow();
    show(1, 0, 0, 1, 0);
    platform.journal.clear();

    preferences.closeWithoutSavingPrefs();
    EXPECT_THAT(platform.journal.lines(), ElementsAre(sheetEnds));
    EXPECT_EQ(stored, before);
    EXPECT_THAT(platform.shownSheets, IsEmpty());

    preferences.openPreferencesWindow();
    EXPECT_EQ(form.autoCopyScriptCheckbox.state, 1);
    EXPECT_EQ(form.warnSuccessfulExitCheckbox.state, 0);
    EXPECT_EQ(form.globalGlobbingCheckbox.selectedItem, 0);
    EXPECT_EQ(form.globalPriorityCheckbox.selectedItem, 1);
    EXPECT_EQ(form.showWelcomeWindowCheckbox.state, 0);
}

TEST_F(PreferencesSheetTest, ResetEmptiesTheStoreRelaunchesAndQuits) {
    stored = {{"AutoCopyScriptsKey", "True"},
              {"Bookmark", bookmarkOf("/Users/maya/Library/LaunchAgents")},
              {"Kept by a toolkit", 3},
              {"ShowWelcomeWindow", "False - 3.0"},
              {"WarnForDelete", false}};
    preferences.openPreferencesWindow();
    platform.journal.clear();
    preferences.resetPreferences();

    EXPECT_THAT(platform.journal.lines(),
                ElementsAre(sheetEnds, "unset: AutoCopyScriptsKey", "unset: Bookmark",
                            "unset: Kept by a toolkit", "unset: ShowWelcomeWindow",
                            "unset: WarnForDelete", "synchronize: defaults",
                            "workspace: new instance", "application: terminate"));
    EXPECT_THAT(stored, IsEmpty());
    EXPECT_FALSE(platform.isAsking()) << "a reset asks nothing";
}

TEST_F(PreferencesSheetTest, ResetOfAnEmptyStoreRelaunchesAndQuitsAllTheSame) {
    preferences.resetPreferences();
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre(sheetEnds, "synchronize: defaults", "workspace: new instance",
                            "application: terminate"));
}

} // namespace

} // namespace frimbolate::test
