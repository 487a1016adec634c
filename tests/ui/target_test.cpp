#include "tests/support/editor_test.h"
#include "tests/support/expected_panels.h"
#include "tests/support/form_snapshot.h"
#include "tests/support/rows.h"

#include <functional>

namespace frimbolate {

namespace {

using test::differences;
using test::EditorTest;
using test::expectPanel;
using test::NamedAfterRow;
using test::nonDefaultForm;
using test::selectPanel;
using test::Snapshot;
using test::snapshot;
using test::with;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto bundle = "/Applications/Example.app";
constexpr auto infoFile = "/Applications/Example.app/Contents/Info.plist";
constexpr auto executable = "/Applications/Example.app/Contents/MacOS/Example";
constexpr auto targetPanelLine =
    "open panel: Please choose an application, script, or workflow (.app, .sh, .py, .rb, .pl, "
    ".scpt, .workflow):";
constexpr auto corrupted = "This application may be corrupted or may not conform to the bundle "
                           "structure programming standards.";

const Snapshot noTarget = {{"agentTargetImageWell.image", "none"},
                           {"agentTargetImageWell.toolTip", "\"\""}};

Snapshot targetIs(const std::string& image, const std::string& path) {
    return {{"agentTargetImageWell.image", image},
            {"agentTargetImageWell.toolTip", '"' + path + '"'}};
}

class TargetTest : public EditorTest {
  protected:
    TargetTest() { platform.defaults.contents["WarnForSuccessfulExit"] = "True"; }

    void expectChange(const Snapshot& before, const Snapshot& changes) {
        EXPECT_THAT(differences(with(before, changes), snapshot(form)), IsEmpty());
    }

    /// Shows the panel and clears the journal.
    void openPanel() {
        editor.chooseApplicationOrScript();
        platform.journal.clear();
    }

    /// Makes the form one that the successful-exit warning applies to.
    void riskSuccessfulExit() {
        form.allowSuccessfulExitCheckbox.state = CheckState::On;
        form.agentActionButton.selectedItem = AgentAction::KeepRunning;
        form.agentTargetButton.selectedItem = TargetType::File;
    }
};

// The pop-up

struct TargetTypeRow {
    std::string_view name;
    int selectedItem;
    bool clears;
};

class TargetChoice : public TargetTest, public testing::WithParamInterface<TargetTypeRow> {};

TEST_P(TargetChoice, SetsNoMoreAndNoLess) {
    for (const auto& start : startForms()) {
        SCOPED_TRACE(start.name);
        form = start.form;
        form.agentTargetButton.selectedItem = GetParam().selectedItem;
        auto expected = with(snapshot(form), {{"popoverScriptObject.shown", "no"}});
        if (GetParam().clears)
            expected = with(with(expected, noTarget), {{"showPopOverScriptButton.hidden", "yes"}});
        editor.chooseAgentTarget();
        EXPECT_THAT(differences(expected, snapshot(form)), IsEmpty());
        EXPECT_THAT(platform.journal.lines(), IsEmpty());
    }
}

const TargetTypeRow targetTypes[] = {
    {"NoSelection", -1, false}, {"None", 0, true},    {"Reserved", 1, false},
    {"File", 2, true},          {"Script", 3, false}, {"Beyond", 4, false},
};

INSTANTIATE_TEST_SUITE_P(Items, TargetChoice, testing::ValuesIn(targetTypes), NamedAfterRow());

// The panel

TEST_F(TargetTest, ThePanelOffersApplicationsAndScripts) {
    for (const auto& start : startForms()) {
        SCOPED_TRACE(start.name);
        form = start.form;
        const auto before = snapshot(form);
        editor.chooseApplicationOrScript();
        expectChange(before, {{"showPopOverScriptButton.hidden", "yes"}});
        expectPanel(platform.shownOpenPanel(),
                    selectPanel("Please choose an application, script, or workflow (.app, .sh, "
                                ".py, .rb, .pl, .scpt, .workflow):",
                                {"app", "sh", "py", "rb", "pl", "scpt", "workflow"},
                                "/Applications"));
        platform.cancelPanel();
    }
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre(targetPanelLine, targetPanelLine, targetPanelLine));
}

TEST_F(TargetTest, CancellingThePanelTakesTargetAndScriptAway) {
    for (const auto& start : startForms()) {
        SCOPED_TRACE(start.name);
        form = start.form;
        riskSuccessfulExit();
        openPanel();
        auto expected = with(snapshot(form), noTarget);
        expected = with(expected, {{"agentTargetButton.selectedItem", "0"},
                                   {"scriptPopOverScriptField.stringValue", "\"\""}});
        platform.cancelPanel();
        EXPECT_THAT(differences(expected, snapshot(form)), IsEmpty());
        EXPECT_THAT(platform.journal.lines(), IsEmpty()) << "no warning, and nothing logged";
    }
}

// A chosen file

struct ChosenRow {
    std::string_view name;
    std::string path;
    std::string extension; ///< as the log shows it
    std::string image;     ///< resource name; empty where no image is set
};

class ChosenFile : public TargetTest, public testing::WithParamInterface<ChosenRow> {};

TEST_P(ChosenFile, IsShownByItsExtension) {
    for (const auto& start : startForms()) {
        SCOPED_TRACE(start.name);
        form = start.form;
        riskSuccessfulExit();
        form.allowSuccessfulExitCheckbox.state = CheckState::Off;
        openPanel();
        const auto before = snapshot(form);
        platform.choose(GetParam().path);
        expectChange(before, GetParam().image.empty()
                                 ? Snapshot{}
                                 : targetIs("resource " + GetParam().image, GetParam().path));
        EXPECT_THAT(platform.journal.lines(),
                    ElementsAre("log: Last path component: " + GetParam().extension));
    }
}

TEST_P(ChosenFile, IsCheckedForTheSuccessfulExit) {
    riskSuccessfulExit();
    openPanel();
    platform.choose(GetParam().path);
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("log: Last path component: " + GetParam().extension,
                            "synchronize: defaults", "alert: Potential conflict identified..."));
    platform.press("Ok");
}

const ChosenRow chosen[] = {
    {"Shell", "/u/run.sh", "sh", "iconScriptBash.png"},
    {"Python", "/u/tool.py", "py", "iconScriptPython.png"},
    {"Ruby", "/u/tool.rb", "rb", "iconScriptRuby.png"},
    {"Perl", "/u/tool.pl", "pl", "iconScriptPerl.png"},
    {"AppleScript", "/u/tell.scpt", "scpt", "iconScriptAppleScript.png"},
    {"Workflow", "/u/Flow.workflow", "workflow", "iconScriptWorkflow.png"},
    {"SeveralDots", "/u/backup.tar.sh", "sh", "iconScriptBash.png"},
    {"BlankInTheName", "/u/my tool.py", "py", "iconScriptPython.png"},
    {"NotAscii", "/u/\u00e9t\u00e9.rb", "rb", "iconScriptRuby.png"},
    {"UpperCase", "/u/Script.SH", "SH", ""},
    {"Unknown", "/u/notes.txt", "txt", ""},
    {"EncodedExtension", "/u/a.s h", "s%20h", ""},
    {"NoDot", "/usr/bin/my tool", "file:///usr/bin/my%20tool", ""},
    {"DotInTheFolder", "/u/my.scripts/run", "scripts/run", ""},
    {"TrailingSlash", "/Applications/Example.app/", "app/", ""},
    {"TrailingDot", "/u/run.", "", ""},
    {"UpperCaseBundle", "/Applications/Example.APP", "APP", ""},
};

INSTANTIATE_TEST_SUITE_P(Files, ChosenFile, testing::ValuesIn(chosen), NamedAfterRow());

// A chosen application

class Application : public TargetTest {
  protected:
    void install(const Value& name = "Example") {
        platform.files.contents[infoFile] = Dictionary{{"CFBundleExecutable", name}};
        platform.files.contents[executable] = std::nullopt;
    }
};

TEST_F(Application, IsRecordedByItsExecutable) {
    install();
    form = nonDefaultForm(true);
    riskSuccessfulExit();
    openPanel();
    const auto before = snapshot(form);
    platform.choose(bundle);
    expectChange(before, targetIs(std::string("icon of ") + bundle, executable));
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("log: Last path component: app", std::string("read: ") + infoFile,
                            std::string("log: PATH TO EXECUTABLE: ") + executable,
                            "log: Executable does exist and will be used", "synchronize: defaults"))
        << "an application is never warned of";
}

struct BrokenRow {
    std::string_view name;
    std::function<void(test::ScriptedFiles&)> install;
    std::vector<std::string> logged;
};

class BrokenApplication : public TargetTest, public testing::WithParamInterface<BrokenRow> {
  protected:
    std::vector<std::string> expectedLines() const {
        std::vector<std::string> lines = {"log: Last path component: app",
                                          std::string("read: ") + infoFile};
        for (const auto& line : GetParam().logged)
            lines.push_back("log: " + line);
        lines.emplace_back("log: exception raised.");
        lines.push_back(std::string("alert: ") + corrupted);
        return lines;
    }
};

TEST_P(BrokenApplication, IsReportedAndThenCleared) {
    GetParam().install(platform.files);
    for (const auto& start : startForms()) {
        SCOPED_TRACE(start.name);
        form = start.form;
        riskSuccessfulExit();
        form.allowSuccessfulExitCheckbox.state = CheckState::Off;
        form.agentTargetImageWell.toolTip.clear();
        openPanel();
        const auto before = snapshot(form);
        platform.choose(bundle);
        EXPECT_EQ(platform.journal.lines(), expectedLines());
        expectChange(before, targetIs(std::string("icon of ") + bundle, ""));

        const auto alert = platform.shownAlert();
        EXPECT_EQ(alert.messageText, corrupted);
        EXPECT_EQ(alert.informativeText,
                  "The executable for this application does not exist, is not accessible, or does "
                  "not match the corresponding key in the application's Info.plist");
        EXPECT_THAT(alert.buttons, ElementsAre("Ok"));
        platform.press("Ok");
        expectChange(before,
                     with(with(before, noTarget), {{"agentTargetButton.selectedItem", "0"}}));
        EXPECT_EQ(platform.journal.lines(), expectedLines());
    }
}

TEST_P(BrokenApplication, IsCheckedForTheSuccessfulExitBeforeTheAlertIsDismissed) {
    GetParam().install(platform.files);
    riskSuccessfulExit();
    openPanel();
    platform.choose(bundle);
    // No path is recorded, so the warning does not take the target for an application.
    auto expected = expectedLines();
    expected.emplace_back("synchronize: defaults");
    expected.emplace_back("alert: Potential conflict identified...");
    EXPECT_EQ(platform.journal.lines(), expected);
    platform.press("Ok");
    platform.press("Ok");
    EXPECT_EQ(platform.journal.lines(), expected);
    EXPECT_FALSE(form.popoverScriptObject.shown);
}

void writeInfo(test::ScriptedFiles& files, Dictionary info) {
    files.contents[infoFile] = std::move(info);
    files.contents[executable] = std::nullopt;
}

const BrokenRow broken[] = {
    {"NoInfo", [](test::ScriptedFiles&) {}, {}},
    {"UnreadableInfo", [](auto& files) { files.contents[infoFile] = std::nullopt; }, {}},
    {"NoKey",
     [](auto& files) {
         writeInfo(files, {{"CFBundleName", "Example"}});
     },
     {}},
    {"NumberAsName",
     [](auto& files) {
         writeInfo(files, {{"CFBundleExecutable", 1}});
     },
     {}},
    {"BooleanAsName",
     [](auto& files) {
         writeInfo(files, {{"CFBundleExecutable", true}});
     },
     {}},
    {"ArrayAsName",
     [](auto& files) {
         writeInfo(files, {{"CFBundleExecutable", Array{Value("Example")}}});
     },
     {}},
    {"NoExecutable",
     [](auto& files) {
         writeInfo(files, {{"CFBundleExecutable", "Other"}});
     },
     {"PATH TO EXECUTABLE: /Applications/Example.app/Contents/MacOS/Other",
      "Executable does not exist!!"}},
    {"EmptyName",
     [](auto& files) {
         writeInfo(files, {{"CFBundleExecutable", ""}});
     },
     {"PATH TO EXECUTABLE: /Applications/Example.app/Contents/MacOS/",
      "Executable does not exist!!"}},
};

INSTANTIATE_TEST_SUITE_P(Bundles, BrokenApplication, testing::ValuesIn(broken), NamedAfterRow());

// The target of a stored agent

struct StoredRow {
    std::string_view name;
    std::string path;
    std::vector<std::string> logged;
    std::string image;
};

class StoredTarget : public TargetTest, public testing::WithParamInterface<StoredRow> {};

TEST_P(StoredTarget, IsShown) {
    for (const auto& start : startForms()) {
        SCOPED_TRACE(start.name);
        form = start.form;
        platform.journal.clear();
        const auto before = snapshot(form);
        editor.evaluateScriptExtension(GetParam().path);
        expectChange(before, targetIs(GetParam().image, GetParam().path));
        EXPECT_EQ(log(), GetParam().logged);
        EXPECT_EQ(platform.journal.lines().size(), GetParam().logged.size());
    }
}

StoredRow script(std::string_view name, std::string path, std::string_view extension,
                 std::string_view image) {
    return {name,
            std::move(path),
            {std::string("Last path component: ").append(extension)},
            std::string("resource ").append(image)};
}

StoredRow program(std::string_view name, std::string path, std::string_view extension,
                  std::string_view iconPath) {
    return {name,
            std::move(path),
            {std::string("Last path component: ").append(extension),
             std::string("Path for icon will be: ").append(iconPath)},
            std::string("icon of ").append(iconPath)};
}

const StoredRow stored[] = {
    script("Shell", "/u/run.sh", "sh", "iconScriptBash.png"),
    script("Python", "/u/a.py", "py", "iconScriptPython.png"),
    script("Ruby", "/u/a.rb", "rb", "iconScriptRuby.png"),
    script("Perl", "/u/a.pl", "pl", "iconScriptPerl.png"),
    script("AppleScript", "/u/a.scpt", "scpt", "iconScriptAppleScript.png"),
    script("Workflow", "/u/a b.workflow", "workflow", "iconScriptWorkflow.png"),
    script("ScriptInABundle", "/A.app/Contents/MacOS/run.sh", "sh", "iconScriptBash.png"),
    program("Executable", executable, "app/Contents/MacOS/Example", bundle),
    program("Bundle", bundle, "app", bundle),
    program("BundleInABundle", "/A.app/Contents/MacOS/B.app/Contents/MacOS/C",
            "app/Contents/MacOS/C", "/A.app"),
    program("Binary", "/usr/bin/true", "/usr/bin/true", "/usr/bin/true"),
    program("NotEncoded", "/usr/bin/my tool", "/usr/bin/my tool", "/usr/bin/my tool"),
    program("UpperCase", "/u/Script.SH", "SH", "/u/Script.SH"),
    program("Nothing", "", "", ""),
};

INSTANTIATE_TEST_SUITE_P(Paths, StoredTarget, testing::ValuesIn(stored), NamedAfterRow());

} // namespace

} // namespace frimbolate
