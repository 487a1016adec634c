#include "ui/actions.h"

#include "tests/support/editor_test.h"

#include <algorithm>
#include <set>

namespace frimbolate::test {

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::Not;
using Lines = std::vector<std::string>;

std::vector<std::string> namesIn(Action::Menu menu) {
    std::vector<std::string> names;
    for (const auto& action : actions())
        if (action.menu == menu)
            names.emplace_back(action.name);
    return names;
}

TEST(ActionsTest, EveryMenuHoldsItsCommands) {
    EXPECT_THAT(namesIn(Action::Menu::File),
                ElementsAre("createNewAgent", "editLaunchAgent", "validateAgentConfig"));
    EXPECT_THAT(namesIn(Action::Menu::Agent), ElementsAre("loadLaunchAgent", "unloadLaunchAgent",
                                                          "onOffLaunchAgent", "deleteLaunchAgent"));
    EXPECT_THAT(namesIn(Action::Menu::View), ElementsAre("showHideTips", "advancedToolbarItem"));
    EXPECT_THAT(namesIn(Action::Menu::Application), ElementsAre("preferencesMenuItem"));
}

TEST(ActionsTest, NoNameNorShortcutIsUsedTwice) {
    std::set<std::string_view> names, shortcuts;
    for (const auto& action : actions()) {
        EXPECT_TRUE(names.insert(action.name).second) << action.name;
        EXPECT_THAT(action.shortcut, Not(IsEmpty())) << action.name;
        EXPECT_TRUE(shortcuts.insert(action.shortcut).second) << action.shortcut;
    }
}

TEST(ActionsTest, EveryTitleHasOneMnemonicOfItsOwnInItsMenu) {
    std::set<std::pair<Action::Menu, char>> mnemonics;
    for (const auto& action : actions()) {
        ASSERT_EQ(std::count(action.title.begin(), action.title.end(), '&'), 1) << action.title;
        const auto mnemonic = action.title.find('&') + 1;
        ASSERT_LT(mnemonic, action.title.size());
        EXPECT_TRUE(mnemonics.insert({action.menu, action.title[mnemonic]}).second) << action.title;
    }
}

TEST(ActionsTest, WhatStandsInTheToolbarHasAnIconAndSaysWhatItDoes) {
    int inToolbar = 0;
    for (const auto& action : actions()) {
        EXPECT_EQ(action.toolTitle.empty(), action.icon.empty()) << action.name;
        EXPECT_EQ(action.toolTitle.empty(), action.toolTip.empty()) << action.name;
        inToolbar += action.toolTitle.empty() ? 0 : 1;
    }
    EXPECT_EQ(inToolbar, 9);
}

// The effects of each action, on a form that was started and has a name

struct SentCase {
    const char* name;
    Lines effects; ///< the first ones, enough to distinguish the actions
};

const std::vector<SentCase>& sentCases() {
    static const std::vector<SentCase> rows = {
        {"createNewAgent",
         {"synchronize: defaults",
          "log: Improper key found for ShowWelcomeWindow, writing default of True - 3.0  -- Found: "
          "True - 3.0"}},
        {"editLaunchAgent", {"alert: Do you want to discard changes?"}},
        {"validateAgentConfig",
         {"log: Agent failed initial validation with the following errors:"}},
        {"loadLaunchAgent",
         {"begin: /Users/maya/Library/LaunchAgents",
          "open panel: Please choose a launch agent to load:"}},
        {"unloadLaunchAgent",
         {"begin: /Users/maya/Library/LaunchAgents",
          "open panel: Please choose a launch agent to unload:"}},
        {"onOffLaunchAgent",
         {"begin: /Users/maya/Library/LaunchAgents",
          "open panel: Please choose a launch agent to enable/disable:"}},
        {"deleteLaunchAgent", {"synchronize: defaults", "alert: Important message:"}},
        {"showHideTips", {}},
        {"advancedToolbarItem", {}},
        {"preferencesMenuItem", {"sheet: begin preferencesWindow"}},
    };
    return rows;
}

class ActionTest : public EditorTest, public testing::WithParamInterface<SentCase> {
  protected:
    ~ActionTest() override { platform.abandonQuestions(); }

    void send() {
        for (const auto& action : actions())
            if (action.name == GetParam().name)
                (editor.*action.send)();
    }
};

TEST_P(ActionTest, SendsWhatItsNameSays) {
    editor.applicationDidFinishLaunching();
    form.agentNameTextField.stringValue = "unfinished";
    const bool tipsWereHidden = form.advancedDrawerTipButton.hidden;
    platform.journal.clear();
    send();

    const std::string name = GetParam().name;
    const auto& lines = platform.journal.lines();
    const auto& effects = GetParam().effects;
    ASSERT_GE(lines.size(), effects.size());
    for (std::size_t i = 0; i < effects.size(); ++i)
        EXPECT_THAT(lines[i], testing::StartsWith(effects[i]));
    EXPECT_EQ(lines.empty(), effects.empty());
    EXPECT_EQ(form.agentNameTextField.stringValue, name == "createNewAgent" ? "" : "unfinished");
    EXPECT_EQ(form.advancedDrawerTipButton.hidden != tipsWereHidden, name == "showHideTips");
    EXPECT_EQ(form.advancedDrawer.open, name == "advancedToolbarItem");
}

INSTANTIATE_TEST_SUITE_P(Actions, ActionTest, testing::ValuesIn(sentCases()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(ActionsTest, EveryActionIsSentByATest) {
    Lines tested, listed;
    for (const auto& row : sentCases())
        tested.emplace_back(row.name);
    for (const auto& action : actions())
        listed.emplace_back(action.name);
    EXPECT_THAT(tested, ElementsAreArray(listed));
}

} // namespace

} // namespace frimbolate::test
