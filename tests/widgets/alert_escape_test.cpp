// Escape and the window manager's close button, for every alert that the program shows.
#include "core/agent_form.h"
#include "tests/support/scripted_platform.h"
#include "tests/widgets/sheet_fixture.h"
#include "ui/app_delegate.h"
#include "widgets/sheets/qt_alerts.h"

#include <memory>
#include <optional>

namespace frimbolate {
namespace {

const std::string agents = "/Users/maya/Library/LaunchAgents";
const std::string agent = agents + "/com.frimbolate.Backup.plist";
const std::string earlier = agents + "/com.frımbolate.Backup.plist";
const Dictionary ownAgent = {{"Label", Value("com.frimbolate.Backup")},
                             {"ProgramArguments", Value(Array{Value("/Users/maya/backup.sh")})}};

/// The program with a scripted desktop, up to the one alert that waits for its answer.
struct Asking {
    Asking() {
        platform.files.folders = {agents};
        platform.defaults.contents["Bookmark"] = test::bookmarkOf(agents);
        platform.defaults.contents["ShowWelcomeWindow"] = Value("False - 3.0");
        delegate.applicationDidFinishLaunching();
    }
    ~Asking() { platform.abandonQuestions(); }

    void fill() {
        FormModel& form = delegate.form();
        form.agentNameTextField.stringValue = "Backup";
        form.agentTargetButton.selectedItem = TargetType::File;
        form.agentTargetImageWell.toolTip = "/Users/maya/backup.sh";
        form.agentActionButton.selectedItem = AgentAction::OnSchedule;
    }
    void save(const std::string& path) {
        fill();
        delegate.validateAgentConfig();
        platform.saveAs(path);
    }
    void choose(void (AppDelegate::*action)(), const std::string& path, Dictionary holds) {
        platform.files.contents[path] = std::move(holds);
        (delegate.*action)();
        platform.choose(path);
    }
    void askForGrant() {
        platform.defaults.contents.erase("Bookmark");
        delegate.showWelcomeWindow();
    }

    test::ScriptedPlatform platform;
    AppDelegate delegate{platform.services()};
};

struct EscapeRow {
    const char* name;
    void (*bringUp)(Asking& asking);
    const char* message;       ///< the beginning of the alert's message
    std::optional<int> answer; ///< nothing if the alert stays open
};

constexpr int ok = AlertAnswer::First, cancel = AlertAnswer::Second;

const EscapeRow escapeRows[] = {
    {"GrantCancelled",
     [](Asking& a) {
         a.askForGrant();
         a.platform.cancelPanel();
     },
     "You must select", std::nullopt},
    {"GrantOfAnotherFolder",
     [](Asking& a) {
         a.askForGrant();
         a.platform.choose("/Users/maya/Library");
     },
     "Frimbolate could not validate", std::nullopt},
    {"Faults", [](Asking& a) { a.delegate.validateAgentConfig(); }, "Some information", ok},
    {"Created", [](Asking& a) { a.save(agent); }, "Your launch agent was created.", std::nullopt},
    {"NotCreated", [](Asking& a) { a.save("/elsewhere/x.plist"); },
     "Your launch agent could not be created.", ok},
    {"Discard",
     [](Asking& a) {
         a.fill();
         a.delegate.editLaunchAgent();
     },
     "Do you want to discard", cancel},
    {"LoadedBeforeEditing", [](Asking& a) { a.delegate.editLaunchAgent(); }, "Important", cancel},
    {"LoadedBeforeDeleting", [](Asking& a) { a.delegate.deleteLaunchAgent(); }, "Important",
     cancel},
    {"Foreign",
     [](Asking& a) { a.choose(&AppDelegate::continueEditingAgent, agents + "/other.plist", {}); },
     "This launch agent is not fully compatible", ok},
    {"Unreadable",
     [](Asking& a) {
         a.delegate.continueEditingAgent();
         a.platform.choose(agent);
     },
     "The launch agent could not be read.", ok},
    {"UnreadableKeys",
     [](Asking& a) {
         Dictionary odd = ownAgent;
         odd["ProgramArguments"] = Value(5);
         a.choose(&AppDelegate::continueEditingAgent, agent, odd);
     },
     "This launch agent could not be read.", ok},
    {"UnreadableAdvancedKeys",
     [](Asking& a) {
         Dictionary odd = ownAgent;
         odd["QueueDirectories"] = Value(5);
         a.choose(&AppDelegate::continueEditingAgent, agent, odd);
     },
     "This launch agent could not be read.", ok},
    {"Upgrade", [](Asking& a) { a.choose(&AppDelegate::continueEditingAgent, earlier, ownAgent); },
     "This launch agent needs to be upgraded.", cancel},
    {"NotUpgraded",
     [](Asking& a) {
         a.choose(&AppDelegate::continueEditingAgent, earlier, ownAgent);
         a.platform.files.contents.clear();
         a.platform.press("Ok");
     },
     "This launch agent could not be upgraded.", ok},
    {"NotUpgradedForTheDisk",
     [](Asking& a) {
         a.choose(&AppDelegate::continueEditingAgent, earlier, ownAgent);
         a.platform.press("Ok");
         a.platform.files.diskIsFull = true;
         a.platform.saveAs(agent);
     },
     "This launch agent could not be upgraded.", ok},
    {"Disable", [](Asking& a) { a.choose(&AppDelegate::onOffLaunchAgent, agent, ownAgent); },
     "This launch agent is currently enabled.", cancel},
    {"Enable",
     [](Asking& a) {
         a.choose(&AppDelegate::onOffLaunchAgent, agent, {{"Enabled", Value(false)}});
     },
     "This launch agent is currently disabled.", cancel},
    {"NotSwitchable",
     [](Asking& a) {
         a.delegate.onOffLaunchAgent();
         a.platform.choose(agent);
     },
     "The launch agent could not be read.", ok},
    {"NotDisabled",
     [](Asking& a) {
         a.choose(&AppDelegate::onOffLaunchAgent, agent, ownAgent);
         a.platform.files.readOnly.insert(agent);
         a.platform.press("Continue");
     },
     "The launch agent could not be disabled.", ok},
    {"NotEnabled",
     [](Asking& a) {
         a.choose(&AppDelegate::onOffLaunchAgent, agent, {{"Enabled", Value(false)}});
         a.platform.files.readOnly.insert(agent);
         a.platform.press("Continue");
     },
     "The launch agent could not be enabled.", ok},
    {"Delete",
     [](Asking& a) { a.choose(&AppDelegate::deleteLaunchAgentContinue, agent, ownAgent); },
     "Are you sure", cancel},
    {"NotDeleted",
     [](Asking& a) {
         a.choose(&AppDelegate::deleteLaunchAgentContinue, agent, ownAgent);
         a.platform.files.removalFails = true;
         a.platform.press("Delete");
     },
     "An error occurred and the launch agent could not be deleted.", ok},
    {"SuccessfulExit",
     [](Asking& a) {
         a.fill();
         a.delegate.form().agentActionButton.selectedItem = AgentAction::KeepRunning;
         a.delegate.form().allowSuccessfulExitCheckbox.state = CheckState::On;
         a.delegate.validateSuccessfulExit();
     },
     "Potential conflict", ok},
    {"BrokenApplication",
     [](Asking& a) {
         a.delegate.chooseApplicationOrScript();
         a.platform.choose("/Applications/Radio.app");
     },
     "This application may be corrupted", ok},
    {"TipOfName", [](Asking& a) { a.delegate.showTip("agentNameTipButton"); }, "", ok},
    {"TipOfTarget", [](Asking& a) { a.delegate.showTip("agentTargetTipButton"); }, "", ok},
    {"TipOfAction", [](Asking& a) { a.delegate.showTip("agentActionTipButton"); }, "", ok},
    {"TipOfSchedule", [](Asking& a) { a.delegate.showTip("agentScheduleTipButton"); }, "", ok},
    {"TipOfDrawer", [](Asking& a) { a.delegate.showTip("advancedDrawerTipButton"); }, "", ok},
};

class EscapedAlert : public SheetFixture, public testing::WithParamInterface<EscapeRow> {
  protected:
    /// Shows the scripted alert as a real dialog.
    AlertDialog* bringUp() {
        Asking asking;
        GetParam().bringUp(asking);
        const Alert asked = asking.platform.shownAlert();
        EXPECT_THAT(asked.messageText, testing::StartsWith(GetParam().message));
        alerts.show(asked, [this](AlertOutcome outcome) {
            journal.push_back(std::to_string(outcome.answer));
        });
        return shown<AlertDialog>("sheetAlert");
    }
    void expectAnswer(AlertDialog* alert) {
        settle();
        if (!GetParam().answer) {
            EXPECT_THAT(journal, testing::ElementsAre());
            EXPECT_EQ(shown<AlertDialog>("sheetAlert"), alert);
            return;
        }
        ASSERT_TRUE(journalReaches(2));
        EXPECT_THAT(journal,
                    testing::ElementsAre(std::to_string(*GetParam().answer), "afterwards"));
    }

    QtAlerts alerts{queue, window};
};

TEST_P(EscapedAlert, AnswersWhatChangesLeast) {
    AlertDialog* alert = bringUp();
    ASSERT_NE(alert, nullptr);
    QTest::keyClick(alert, Qt::Key_Escape);
    expectAnswer(alert);
}

TEST_P(EscapedAlert, AnswersTheSameWhenItsWindowIsClosed) {
    AlertDialog* alert = bringUp();
    ASSERT_NE(alert, nullptr);
    alert->close();
    expectAnswer(alert);
}

INSTANTIATE_TEST_SUITE_P(Table, EscapedAlert, testing::ValuesIn(escapeRows),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(SheetFixture, EscapeClosesAnErrorThatIsPresented) {
    QtAlerts alerts(queue, window);
    alerts.show({"No bookmark can be made of this folder", {}}, [](AlertOutcome) {});
    QTest::keyClick(shown("sheetAlert"), Qt::Key_Escape);
    ASSERT_TRUE(journalReaches(1));
    EXPECT_EQ(shown("sheetAlert"), nullptr);
}

} // namespace
} // namespace frimbolate
