// The texts of the five tips, and the buttons that show them.
#include "ui/app_delegate.h"

#include <array>

namespace frimbolate {

namespace {

struct Tip {
    std::string_view button;
    const char* title;
    const char* text;
};

constexpr std::array<Tip, 5> tips = {{
    {"agentNameTipButton", "What's in a name?",
     "Choosing a good name for your launch agent will help you remember what it does. When you "
     "use an easy to understand name, it will help you identify the agent later on, should you "
     "need to edit or delete it.\n\n"
     "It’s important to keep the \"com.frimbolate.\" portion of the launch agent’s name when "
     "saving the agent. Frimbolate uses this string to help identify whether the agent was "
     "created with Frimbolate."},
    {"agentTargetTipButton",
     "Frimbolate helps you automate the launching of applications and scripts.",
     "The application/script you choose will launch when the conditions you specify in Frimbolate "
     "are met.\n\n"
     "For example, if you create a launch agent and set it to launch iTunes at 5:00 PM every "
     "Tuesday, then exactly that will happen. Every Tuesday, at 5:00 PM, iTunes will launch.\n\n"
     "You can also choose to write your own shell script. Currently, Frimbolate only supports "
     "one-line shell scripts. You can somewhat get around this limitation by using a semicolon in "
     "your script. For example, If you wanted to create a folder on the Desktop and then delete "
     "it, you could write:\n\n"
     "mkdir ~/Desktop/NewFolder; rm -rf ~/Desktop/NewFolder\n\n"
     "Frimbolate cannot debug your script, so you may want to test it in Terminal.app before "
     "saving your launch agent."},
    {"agentActionTipButton", "The right tool for the job.",
     "Frimbolate can help you create launch agents with 3 basic run parameters: On a schedule, "
     "when a path/file change occurs (delete/moved/modified), and when a volume mounts. In many "
     "cases, you can combine multiple run parameters to create launch agents that run when a "
     "number of conditions are met.\n\n"
     "Most commonly, launch agents are run on a schedule. That is, the agent will run at the "
     "time/day/interval you configure in Frimbolate. Other options are to have the agent run "
     "whenever a path change or new volume mount occurs.\n\n"
     "You can also configure your launch agent to keep its target alive. For instance, if you "
     "wanted to launch iTunes whenever you log in to your user account, and make sure it’s always "
     "running, you would choose the “Launch on schedule and keep alive” option, and then for a "
     "schedule, you would choose \"On Login/Load.\"\n\n"
     "For some agents with the KeepAlive , you may want to enable the \"Allow successful exit\" "
     "option in the advanced drawer. Allowing a successful exit ensures you'll be able to quit "
     "the target application using its Quit menu item, like when you need to update the "
     "application."},
    {"agentScheduleTipButton", "Timing is everything.",
     "Launch agents can either run at a scheduled time or they can be always running. The choices "
     "you make for your launch agent’s configuration and schedule will dictate how and when your "
     "agent runs.\n\n"
     "If you choose to run your launch agent when a path change occurs or when a new volume "
     "mounts, your agent will be running all the time, waiting for that condition to be met. The "
     "scheduling portion of Frimbolate’s interface will not be configurable if you have selected "
     "either of these conditions.\n\n"
     "If you would like to run your launch agent on a schedule, but also have it run when a path "
     "change or new volume mount occurs, set up the schedule you would like first, and then use "
     "the Advanced section to add the additional run parameters."},
    {"advancedDrawerTipButton", "Advanced features for complex jobs.",
     "The settings and options found in the Advanced section are mostly for experienced users. If "
     "you are not familiar with launchd keys such as WorkingDirectory or Globbing, it is unlikely "
     "they would be of any concern to you.\n\n"
     "Defining and explaining the uses for these keys is not feasible within this dialog, but if "
     "you would like to learn more about these additional launchd keys, open the application "
     "Terminal.app on your Mac and enter the following command:\n\n"
     "man launchd.plist"},
}};

} // namespace

void AppDelegate::showHideTips() {
    // All five buttons get the inverted state of the drawer's, whatever their own was.
    const bool hidden = !form_.advancedDrawerTipButton.hidden;
    for (auto* button :
         {&form_.advancedDrawerTipButton, &form_.agentNameTipButton, &form_.agentTargetTipButton,
          &form_.agentActionTipButton, &form_.agentScheduleTipButton})
        button->hidden = hidden;
}

void AppDelegate::showTip(std::string_view tipButton) {
    for (const auto& tip : tips)
        if (tip.button == tipButton) {
            services_.alerts.show({tip.title, tip.text});
            return;
        }
}

} // namespace frimbolate
