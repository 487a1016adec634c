// Dropping a file on a well has the effects of choosing it in the well's panel.
#include "tests/support/editor_test.h"
#include "tests/support/form_snapshot.h"
#include "tests/support/rows.h"

#include <functional>

namespace frimbolate {

namespace {

using test::differences;
using test::EditorTest;
using test::NamedAfterRow;
using test::nonDefaultForm;
using test::Snapshot;
using test::snapshot;
using testing::IsEmpty;

using Act = std::function<void(AppDelegate&)>;

struct DropRow {
    std::string_view name;
    Act ask;  ///< opens the panel
    Act drop; ///< replaces the panel and its answer
    std::string path;
    int alerts = 0; ///< the number of alerts that follow
};

class Drop : public EditorTest, public testing::WithParamInterface<DropRow> {
  protected:
    Drop() {
        platform.defaults.contents["WarnForSuccessfulExit"] = "True";
        platform.files.contents["/A/Good.app/Contents/Info.plist"] =
            Dictionary{{"CFBundleExecutable", "Good"}};
        platform.files.contents["/A/Good.app/Contents/MacOS/Good"] = std::nullopt;
    }

    /// The form and the journal after each step.
    struct Outcome {
        std::vector<Snapshot> snapshots;
        std::vector<std::string> lines;
    };
    Outcome outcomeOf(const FormModel& start, const std::function<void()>& act) {
        platform.journal.clear();
        form = start;
        form.allowSuccessfulExitCheckbox.state = CheckState::On;
        act();
        Outcome outcome{{snapshot(form)}, {}};
        for (int i = 0; i < GetParam().alerts; ++i) {
            platform.press("Ok");
            outcome.snapshots.push_back(snapshot(form));
        }
        for (const std::string& line : platform.journal.lines())
            if (!line.starts_with("open panel: "))
                outcome.lines.push_back(line);
        EXPECT_FALSE(platform.isAsking());
        return outcome;
    }
};

TEST_P(Drop, DoesWhatThePanelDoes) {
    for (const auto& start : startForms()) {
        SCOPED_TRACE(start.name);
        const Outcome byPanel = outcomeOf(start.form, [&] {
            GetParam().ask(editor);
            platform.choose(GetParam().path);
        });
        const Outcome byDrop = outcomeOf(start.form, [&] { GetParam().drop(editor); });
        ASSERT_EQ(byPanel.snapshots.size(), byDrop.snapshots.size());
        for (std::size_t i = 0; i < byPanel.snapshots.size(); ++i)
            EXPECT_THAT(differences(byPanel.snapshots[i], byDrop.snapshots[i]), IsEmpty());
        EXPECT_EQ(byPanel.lines, byDrop.lines);
    }
}

DropRow target(std::string_view name, int action, const std::string& path, int alerts) {
    return {name,
            [action](AppDelegate& editor) {
                editor.form().agentActionButton.selectedItem = action;
                editor.form().agentTargetButton.selectedItem = TargetType::File;
                editor.chooseAgentTarget();
                editor.chooseApplicationOrScript();
            },
            [action, path](AppDelegate& editor) {
                editor.form().agentActionButton.selectedItem = action;
                editor.targetDropped(path);
            },
            path, alerts};
}

DropRow watchPath(std::string_view name, const std::string& path) {
    return {name,
            [](AppDelegate& editor) {
                editor.form().agentActionButton.selectedItem = AgentAction::PathModified;
                editor.chooseAgentAction();
            },
            [path](AppDelegate& editor) {
                editor.form().agentActionButton.selectedItem = AgentAction::PathModified;
                editor.watchPathDropped(path);
            },
            path};
}

DropRow additionalPath(std::string_view name, const std::string& path) {
    return {name,
            [](AppDelegate& editor) {
                editor.form().alsoRunPathChangeCheckbox.state = CheckState::On;
                editor.chooseAdditionalWathPath();
            },
            [path](AppDelegate& editor) {
                editor.form().alsoRunPathChangeCheckbox.state = CheckState::On;
                editor.additionalWatchPathDropped(path);
            },
            path};
}

const DropRow drops[] = {
    target("Script", AgentAction::OnSchedule, "/u/run.sh", 0),
    target("ScriptAtRisk", AgentAction::KeepRunning, "/u/run.sh", 1),
    target("Application", AgentAction::KeepRunning, "/A/Good.app", 0),
    target("BrokenApplication", AgentAction::OnSchedule, "/A/Bad.app", 1),
    watchPath("WatchedFolder", "/Users/maya/Pictures"),
    watchPath("WatchedFile", "/etc/hosts"),
    additionalPath("AdditionalFolder", "/Users/maya/Pictures"),
    additionalPath("AdditionalFile", "/etc/hosts"),
};

INSTANTIATE_TEST_SUITE_P(Wells, Drop, testing::ValuesIn(drops), NamedAfterRow());

using DropRefusal = EditorTest;

TEST_F(DropRefusal, AWatchPathNeedsTheActionThatWatchesOne) {
    for (const int action : {AgentAction::None, AgentAction::OnSchedule, AgentAction::KeepRunning,
                             AgentAction::VolumeMounted}) {
        form = nonDefaultForm(true);
        form.agentActionButton.selectedItem = action;
        const auto before = snapshot(form);
        editor.watchPathDropped("/Users/maya/Pictures");
        EXPECT_THAT(differences(before, snapshot(form)), IsEmpty());
    }
}

TEST_F(DropRefusal, AnAdditionalPathNeedsItsBox) {
    form = nonDefaultForm(true);
    form.alsoRunPathChangeCheckbox.state = CheckState::Off;
    const auto before = snapshot(form);
    editor.additionalWatchPathDropped("/Users/maya/Pictures");
    EXPECT_THAT(differences(before, snapshot(form)), IsEmpty());
}

TEST_F(DropRefusal, ADroppedScriptClosesTheTypedOne) {
    form.agentTargetButton.selectedItem = TargetType::Script;
    editor.createNewScript();
    editor.targetDropped("/u/run.sh");
    EXPECT_FALSE(form.popoverScriptObject.shown);
    EXPECT_TRUE(form.showPopOverScriptButton.hidden);
    EXPECT_EQ(form.agentTargetButton.selectedItem, TargetType::File);
    EXPECT_EQ(form.agentTargetImageWell.toolTip, "/u/run.sh");
}

} // namespace

} // namespace frimbolate
