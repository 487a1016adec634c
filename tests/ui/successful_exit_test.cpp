#include "tests/support/editor_test.h"
#include "tests/support/form_snapshot.h"
#include "tests/support/rows.h"

#include <functional>
#include <memory>

namespace frimbolate {

namespace {

using test::differences;
using test::EditorTest;
using test::NamedAfterRow;
using test::snapshot;
using test::with;
using testing::ElementsAre;
using testing::IsEmpty;

class SuccessfulExitTest : public EditorTest {
  protected:
    SuccessfulExitTest() {
        form.allowSuccessfulExitCheckbox.state = CheckState::On;
        form.agentActionButton.selectedItem = AgentAction::KeepRunning;
        form.agentTargetButton.selectedItem = TargetType::File;
        form.agentTargetImageWell.toolTip = "/Users/maya/run.sh";
        platform.defaults.contents["WarnForSuccessfulExit"] = "True";
    }

    static constexpr const char* alertLine = "alert: Potential conflict identified...";
    static constexpr const char* flushLine = "synchronize: defaults";
};

struct RiskRow {
    std::string_view name;
    std::function<void(FormModel&, Dictionary& preferences)> change;
    bool readsPreferences;
    bool warns;
};

class ExitRisk : public SuccessfulExitTest, public testing::WithParamInterface<RiskRow> {};

TEST_P(ExitRisk, IsWarnedOf) {
    GetParam().change(form, platform.defaults.contents);
    const auto before = snapshot(form);
    editor.validateSuccessfulExit();

    std::vector<std::string> expected;
    if (GetParam().readsPreferences)
        expected.emplace_back(flushLine);
    if (GetParam().warns)
        expected.emplace_back(alertLine);
    EXPECT_EQ(platform.journal.lines(), expected);
    EXPECT_THAT(differences(before, snapshot(form)), IsEmpty());
    platform.abandonQuestions();
}

using Prefs = Dictionary;

RiskRow target(std::string_view name, std::string path, bool warns) {
    return {name,
            [path = std::move(path)](FormModel& form, Prefs&) {
                form.agentTargetImageWell.toolTip = path;
            },
            true, warns};
}

RiskRow preference(std::string_view name, Value value, bool warns = false) {
    return {name,
            [value = std::move(value)](FormModel&, Prefs& prefs) {
                prefs["WarnForSuccessfulExit"] = value;
            },
            true, warns};
}

RiskRow action(std::string_view name, int index) {
    return {name, [=](FormModel& form, Prefs&) { form.agentActionButton.selectedItem = index; },
            false, false};
}

RiskRow targetType(std::string_view name, int index, bool warns = false) {
    return {name, [=](FormModel& form, Prefs&) { form.agentTargetButton.selectedItem = index; },
            warns, warns};
}

RiskRow box(std::string_view name, int state) {
    return {name, [=](FormModel& form, Prefs&) { form.allowSuccessfulExitCheckbox.state = state; },
            false, false};
}

const RiskRow risks[] = {
    {"Script", [](FormModel&, Prefs&) {}, true, true},
    box("BoxOff", CheckState::Off),
    box("BoxMixed", CheckState::Mixed),
    box("BoxBeyond", 2),
    action("NoAction", 0),
    action("OnSchedule", 2),
    action("PathModified", 4),
    action("ActionWithoutSelection", -1),
    targetType("NoTarget", 0),
    targetType("ReservedTarget", 1),
    targetType("TargetBeyond", 4),
    targetType("TargetWithoutSelection", -1),
    targetType("TypedScript", 3, true),
    target("Executable", "/Applications/A.app/Contents/MacOS/A", false),
    target("Bundle", "/Applications/A.app", false),
    target("ExecutableWithADot", "/Applications/A.app/Contents/MacOS/A.sh", false),
    target("BundleInABundle", "/A.app/Contents/MacOS/B.sh/Contents/MacOS/C", false),
    target("UpperCase", "/Applications/A.APP", true),
    target("TrailingSlash", "/Applications/A.app/", true),
    target("NoPath", "", true),
    target("OnlyTheExtension", "app", false),
    target("HelperOfABundle", "/Applications/A.app/Contents/Helpers/B", true),
    target("ScriptInABundle", "/Applications/A.app/Contents/Resources/run.sh", true),
    preference("False", "False"),
    preference("LowerCase", "true"),
    preference("Boolean", true),
    preference("Number", 1),
    preference("Empty", ""),
    {"Missing", [](FormModel&, Prefs& prefs) { prefs.erase("WarnForSuccessfulExit"); }, true,
     false},
};

INSTANTIATE_TEST_SUITE_P(Forms, ExitRisk, testing::ValuesIn(risks), NamedAfterRow());

TEST_F(SuccessfulExitTest, TheWarningSaysWhy) {
    editor.validateSuccessfulExit();
    const auto alert = platform.shownAlert();
    EXPECT_EQ(alert.messageText, "Potential conflict identified...");
    EXPECT_EQ(alert.informativeText,
              "You've specified to keep a script running all the time, but also allow it to quit "
              "upon a successful exit.\n\nOften, when a script finishes running, it returns a "
              "\"successful exit\" value of 0. If you haven't programmed your script to return a "
              "value other than 0 when it completes, then it may only run once.");
    EXPECT_THAT(alert.buttons, ElementsAre("Ok"));
    EXPECT_FALSE(alert.showsSuppressionButton);
    platform.press("Ok");
}

struct DismissalRow {
    std::string_view name;
    int targetType;
    std::string scriptText;
    bool reopens;
};

class Dismissal : public SuccessfulExitTest, public testing::WithParamInterface<DismissalRow> {};

TEST_P(Dismissal, GoesOnWithAnEmptyScriptAlone) {
    editor.validateSuccessfulExit();
    // The form at the moment of the dismissal counts.
    form.agentTargetButton.selectedItem = GetParam().targetType;
    form.scriptPopOverScriptField.stringValue = GetParam().scriptText;
    form.popoverScriptObject.shown = false;
    auto expected = snapshot(form);
    if (GetParam().reopens)
        expected = with(expected, {{"popoverScriptObject.shown", "yes"}});
    platform.press("Ok");
    EXPECT_THAT(differences(expected, snapshot(form)), IsEmpty());
    EXPECT_THAT(platform.journal.lines(), ElementsAre(flushLine, alertLine));
}

const DismissalRow dismissals[] = {
    {"EmptyScript", 3, "", true}, {"Script", 3, "ls", false},       {"BlankScript", 3, " ", false},
    {"File", 2, "", false},       {"ReservedTarget", 1, "", false}, {"NoTarget", 0, "", false},
    {"Beyond", 4, "", false},     {"NoSelection", -1, "", false},
};

INSTANTIATE_TEST_SUITE_P(Forms, Dismissal, testing::ValuesIn(dismissals), NamedAfterRow());

TEST(SuccessfulExitWarning, DoesNothingOnceTheControllerIsGone) {
    test::ScriptedPlatform platform;
    platform.defaults.contents["WarnForSuccessfulExit"] = "True";
    auto editor = std::make_unique<AppDelegate>(platform.services());
    editor->form().allowSuccessfulExitCheckbox.state = CheckState::On;
    editor->form().agentActionButton.selectedItem = AgentAction::KeepRunning;
    editor->form().agentTargetButton.selectedItem = TargetType::Script;
    editor->validateSuccessfulExit();
    editor.reset();
    platform.journal.clear();
    platform.press("Ok");
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
}

} // namespace

} // namespace frimbolate
