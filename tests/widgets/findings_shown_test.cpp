// The findings of the form in the window: hints of the rows, and the drawer's fields and title.
#include "tests/widgets/window_test.h"
#include "widgets/controls/elided_label.h"

#include <QAction>
#include <QCoreApplication>
#include <QEvent>

#include <map>

namespace frimbolate::test {
namespace {

class FindingsShownTest : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        window.setPathLookup([this](const std::string& path) {
            const auto found = states.find(path);
            return found == states.end() ? PathState::Missing : found->second;
        });
        show([](FormModel& model) {
            model.agentNameTextField.stringValue = "Backup";
            model.agentTargetButton.selectedItem = TargetType::File;
            model.agentTargetImageWell.toolTip = "/opt/tool";
            model.agentActionButton.selectedItem = AgentAction::OnSchedule;
        });
    }

    std::string hint() { return find<ElidedLabel>("targetHint")->text().toStdString(); }
    std::string title() {
        const auto* label = find<ElidedLabel>("pathHint");
        return label->isVisible() ? label->drawnText().toStdString() : "hidden";
    }

    std::map<std::string, PathState> states = {{"/opt", PathState::Folder}};
    const std::string missing = "/opt/tool; the program does not exist on this machine";
};

TEST_F(FindingsShownTest, ARowSaysItInTheColourOfWarningsUntilItIsMended) {
    const auto* label = find<ElidedLabel>("targetHint");
    const auto* control = find("agentTargetButton");
    EXPECT_EQ(hint(), missing);
    EXPECT_TRUE(label->isWarning());
    EXPECT_EQ(label->toolTip().toStdString(), missing);
    EXPECT_EQ(control->accessibleDescription().toStdString(), missing);
    EXPECT_NE(control->property("faulty"), true) << "nothing keeps it from being saved";
    EXPECT_FALSE(find("targetErrorImageWell")->isVisible());
    show([](FormModel& model) { model.agentTargetImageWell.toolTip = "/elsewhere/tool"; });
    EXPECT_EQ(hint(), "/elsewhere/tool");
    EXPECT_FALSE(label->isWarning());
    EXPECT_EQ(control->accessibleDescription(), "/elsewhere/tool");
}

TEST_F(FindingsShownTest, TheFootStaysAsItIs) {
    const auto sentence = find<ElidedLabel>("summary")->text();
    window.setPathLookup({});
    window.mirror();
    EXPECT_EQ(hint(), "/opt/tool");
    EXPECT_EQ(find<ElidedLabel>("summary")->text(), sentence);
}

TEST_F(FindingsShownTest, TheDiskIsAskedAgainWhenTheWindowBecomesActive) {
    ASSERT_TRUE(window.isActiveWindow());
    EXPECT_EQ(hint(), missing);
    states["/opt/tool"] = PathState::Executable;
    QEvent activation(QEvent::ActivationChange);
    QCoreApplication::sendEvent(&window, &activation);
    EXPECT_EQ(hint(), "/opt/tool");
    EXPECT_FALSE(find<ElidedLabel>("targetHint")->isWarning());
}

TEST_F(FindingsShownTest, AFaultIsSaidAlone) {
    show([](FormModel& model) {
        model.agentTargetButton.selectedItem = TargetType::None;
        model.targetErrorImageWell.hidden = false;
    });
    EXPECT_EQ(hint(), "Choose an application or a script");
    EXPECT_TRUE(find<ElidedLabel>("targetHint")->isWarning());
}

TEST_F(FindingsShownTest, AnAgentWithFindingsIsSavedWithoutAQuestion) {
    find<QAction>("validateAgentConfig")->trigger();
    EXPECT_EQ(platform.journal.count("alert"), 0U);
    EXPECT_EQ(platform.journal.count("save panel"), 1U);
    platform.abandonQuestions();
}

TEST_F(FindingsShownTest, TheDrawerNamesTheFirstFieldAndMarksEach) {
    show([](FormModel& model) { model.advancedDrawer.open = true; });
    EXPECT_EQ(title(), "hidden");
    QTest::keyClicks(find("standardErrorPathField"), "/opt/logs/x.log");
    QTest::keyClicks(find("workingDirectoryField"), "/opt/$USER");
    EXPECT_EQ(title(), "Working folder: a variable is not expanded");
    EXPECT_TRUE(find<ElidedLabel>("pathHint")->isWarning());
    for (const auto& [outlet, words] :
         {std::pair("standardErrorPathField",
                    "The standard error is in a folder that does not exist on this machine, and "
                    "launchd does not create it"),
          std::pair("workingDirectoryField",
                    "The working folder holds $USER, which launchd does not expand: write its "
                    "value")}) {
        EXPECT_EQ(find(outlet)->toolTip(), words);
        EXPECT_EQ(find(outlet)->accessibleDescription(), words);
        EXPECT_EQ(find(outlet)->property("faulty"), true);
    }
    states["/opt/logs"] = PathState::Folder;
    show([](FormModel& model) { model.workingDirectoryField.stringValue.clear(); });
    EXPECT_EQ(title(), "hidden");
    EXPECT_NE(find("standardErrorPathField")->property("faulty"), true);
    EXPECT_EQ(find("workingDirectoryField")->accessibleDescription(), "");
}

TEST_F(FindingsShownTest, TheHintsOfTheDrawerComeFirst) {
    show([](FormModel& model) {
        model.advancedDrawer.open = true;
        model.workingDirectoryField.stringValue = "/opt/$USER";
        model.rootDirectoryField.stringValue = "/opt/$USER";
    });
    EXPECT_EQ(title(), "Root folder: needs root");
    EXPECT_EQ(find("rootDirectoryField")->toolTip(),
              "Only root may change the root folder, and an agent runs as you");
    show([](FormModel& model) { model.rootDirectoryField.stringValue.clear(); });
    EXPECT_EQ(title(), "Working folder: a variable is not expanded");
}

TEST_F(FindingsShownTest, ACheckBoxOfTheDrawerIsDescribed) {
    show([](FormModel& model) {
        model.advancedDrawer.open = true;
        model.agentActionButton.selectedItem = AgentAction::KeepRunning;
        model.agentScheduleTypeButton.selectedItem = ScheduleType::AtLoad;
        model.alsoRunVolumeCheckbox.state = CheckState::On;
    });
    const auto* box = find("alsoRunVolumeCheckbox");
    EXPECT_EQ(box->accessibleDescription(),
              "The mounting of a volume adds nothing: KeepAlive keeps the agent running");
    EXPECT_EQ(box->toolTip(), box->accessibleDescription());
    EXPECT_EQ(title(), "Mounting of a volume: adds nothing");
    EXPECT_EQ(find("alsoRunPathChangeCheckbox")->accessibleDescription(), "");
    show([](FormModel& model) { model.alsoRunVolumeCheckbox.state = CheckState::Off; });
    EXPECT_EQ(box->accessibleDescription(), "");
    EXPECT_EQ(title(), "hidden");
}

} // namespace
} // namespace frimbolate::test
