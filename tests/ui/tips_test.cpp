#include "tests/support/editor_test.h"

#include <array>

namespace frimbolate::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The five texts

struct Tip {
    const char* button;
    const char* title;
    std::vector<std::string> paragraphs;
};

std::string joined(const std::vector<std::string>& paragraphs) {
    std::string text = paragraphs.front();
    for (std::size_t i = 1; i < paragraphs.size(); ++i)
        text += "\n\n" + paragraphs[i];
    return text;
}

// clang-format off
const std::vector<Tip>& tips() {
    static const std::vector<Tip> rows = {
        {"agentNameTipButton",
         "What's in a name?",
         {"Choosing a good name for your launch agent will help you remember what it does. "
          "When you use an easy to understand name, it will help you identify the agent later "
          "on, should you need to edit or delete it.",
          R"(It’s important to keep the "com.frimbolate." portion of the launch agent’s name )"
          "when saving the agent. Frimbolate uses this string to help identify whether the "
          "agent was created with Frimbolate."}},
        {"agentTargetTipButton",
         "Frimbolate helps you automate the launching of applications and scripts.",
         {"The application/script you choose will launch when the conditions you specify in "
          "Frimbolate are met.",
          "For example, if you create a launch agent and set it to launch iTunes at 5:00 PM "
          "every Tuesday, then exactly that will happen. Every Tuesday, at 5:00 PM, iTunes "
          "will launch.",
          "You can also choose to write your own shell script. Currently, Frimbolate only "
          "supports one-line shell scripts. You can somewhat get around this limitation by "
          "using a semicolon in your script. For example, If you wanted to create a folder on "
          "the Desktop and then delete it, you could write:",
          "mkdir ~/Desktop/NewFolder; rm -rf ~/Desktop/NewFolder",
          "Frimbolate cannot debug your script, so you may want to test it in Terminal.app "
          "before saving your launch agent."}},
        {"agentActionTipButton",
         "The right tool for the job.",
         {"Frimbolate can help you create launch agents with 3 basic run parameters: On a "
          "schedule, when a path/file change occurs (delete/moved/modified), and when a volume "
          "mounts. In many cases, you can combine multiple run parameters to create launch "
          "agents that run when a number of conditions are met.",
          "Most commonly, launch agents are run on a schedule. That is, the agent will run at "
          "the time/day/interval you configure in Frimbolate. Other options are to have the "
          "agent run whenever a path change or new volume mount occurs.",
          "You can also configure your launch agent to keep its target alive. For instance, if "
          "you wanted to launch iTunes whenever you log in to your user account, and make sure "
          "it’s always running, you would choose the “Launch on schedule and keep alive” "
          R"(option, and then for a schedule, you would choose "On Login/Load.")",
          R"(For some agents with the KeepAlive , you may want to enable the "Allow successful )"
          R"(exit" option in the advanced drawer. Allowing a successful exit ensures you'll be )"
          "able to quit the target application using its Quit menu item, like when you need to "
          "update the application."}},
        {"agentScheduleTipButton",
         "Timing is everything.",
         {"Launch agents can either run at a scheduled time or they can be always running. The "
          "choices you make for your launch agent’s configuration and schedule will dictate "
          "how and when your agent runs.",
          "If you choose to run your launch agent when a path change occurs or when a new "
          "volume mounts, your agent will be running all the time, waiting for that condition "
          "to be met. The scheduling portion of Frimbolate’s interface will not be "
          "configurable if you have selected either of these conditions.",
          "If you would like to run your launch agent on a schedule, but also have it run when "
          "a path change or new volume mount occurs, set up the schedule you would like first, "
          "and then use the Advanced section to add the additional run parameters."}},
        {"advancedDrawerTipButton",
         "Advanced features for complex jobs.",
         {"The settings and options found in the Advanced section are mostly for experienced "
          "users. If you are not familiar with launchd keys such as WorkingDirectory or "
          "Globbing, it is unlikely they would be of any concern to you.",
          "Defining and explaining the uses for these keys is not feasible within this dialog, "
          "but if you would like to learn more about these additional launchd keys, open the "
          "application Terminal.app on your Mac and enter the following command:",
          "man launchd.plist"}},
    };
    return rows;
}
// clang-format on

class TipsTest : public EditorTest {};

class TipTest : public EditorTest, public testing::WithParamInterface<Tip> {};

TEST_P(TipTest, ShowsItsTextToTheLetter) {
    editor.showTip(GetParam().button);
    EXPECT_THAT(platform.journal.lines(), ElementsAre(std::string("alert: ") + GetParam().title));
    const auto alert = platform.shownAlert();
    EXPECT_EQ(alert.messageText, GetParam().title);
    EXPECT_EQ(alert.informativeText, joined(GetParam().paragraphs));
    EXPECT_THAT(alert.buttons, ElementsAre("Ok"));
    EXPECT_FALSE(alert.showsSuppressionButton);

    platform.journal.clear();
    platform.press("Ok");
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
    EXPECT_FALSE(platform.isAsking());
}

INSTANTIATE_TEST_SUITE_P(Tips, TipTest, testing::ValuesIn(tips()),
                         [](const auto& row) { return std::string(row.param.button); });

TEST_F(TipsTest, ASenderThatIsNoTipButtonShowsNoTip) {
    for (const auto* sender : {"", "agentNameTip", "agentNameTipButton2", "AgentNameTipButton",
                               "agentNameTextField", " agentNameTipButton"})
        editor.showTip(sender);
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
    EXPECT_FALSE(platform.isAsking());
}

// Showing and hiding them

TEST_F(TipsTest, FromEveryMixtureTheTipsFollowTheDrawersButton) {
    const std::array<Button*, 5> buttons = {&form.advancedDrawerTipButton, &form.agentNameTipButton,
                                            &form.agentTargetTipButton, &form.agentActionTipButton,
                                            &form.agentScheduleTipButton};
    for (unsigned mixture = 0; mixture < 32; ++mixture) {
        for (std::size_t i = 0; i < buttons.size(); ++i)
            buttons[i]->hidden = (mixture >> i & 1U) != 0;
        const bool drawerWasHidden = form.advancedDrawerTipButton.hidden;

        editor.showHideTips();
        for (const auto* button : buttons)
            EXPECT_EQ(button->hidden, !drawerWasHidden) << "mixture " << mixture;
        editor.showHideTips();
        for (const auto* button : buttons)
            EXPECT_EQ(button->hidden, drawerWasHidden) << "mixture " << mixture;
    }
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
}

} // namespace

} // namespace frimbolate::test
