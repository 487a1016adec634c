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
using test::ScriptedFiles;
using test::snapshot;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto created = "Your launch agent was created.";
constexpr auto notCreated = "Your launch agent could not be created.";

struct FaultRow {
    std::string_view name;
    std::string path;
    std::function<void(ScriptedFiles&)> break_;
    std::string reason; ///< of the failure; empty where the save continues in spite of the fault
};

class SaveFault : public EditorTest, public testing::WithParamInterface<FaultRow> {
  protected:
    SaveFault() {
        editor.createNewAgent();
        form.agentTargetButton.selectedItem = TargetType::Script;
        form.scriptPopOverScriptField.stringValue = "echo hello";
        form.actionScriptTextView.string = "an earlier command";
        GetParam().break_(platform.files);
        filesBefore = platform.files.contents;
        editor.saveLaunchAgent();
        platform.journal.clear();
    }

    decltype(ScriptedFiles::contents) filesBefore;
};

/// The lines that every save logs before it writes.
std::vector<std::string> savingLines(const std::string& path) {
    return {"log: Saving launch agent, logging all saved values...", "log: Agent label key: x",
            "log: Agent target type is 3", "log: Path: " + path};
}

class SaveFails : public SaveFault {};

TEST_P(SaveFails, AndIsReported) {
    const auto before = snapshot(form);
    const auto& path = GetParam().path;
    platform.saveAs(path, "x.plist");

    auto expected = savingLines(path);
    expected.emplace_back("log: Error occurred while saving the launch agent!");
    expected.push_back("log: " + GetParam().reason);
    expected.push_back("log: Path: " + path);
    expected.emplace_back("log: Agent content: {\n    EnableGlobbing = 0;\n    Label = x;\n"
                          "    LowPriorityIO = 0;\n    Nice = 0;\n    ProgramArguments = (\n"
                          "        /bin/sh,\n        \"-c\",\n        \"echo hello\"\n    );\n"
                          "    StartCalendarInterval = {\n        Hour = 9;\n"
                          "        Minute = 41;\n    };\n}");
    expected.push_back(std::string("alert: ") + notCreated);
    EXPECT_EQ(platform.journal.lines(), expected);

    const auto alert = platform.shownAlert();
    EXPECT_EQ(alert.informativeText,
              "Please ensure you are saving your launch agent to your user Library's LaunchAgents "
              "folder (and not the root Library's LaunchAgents folder). Check the system log for "
              "more information, or contact Frimbolate support if the issue continues.");
    EXPECT_THAT(alert.buttons, ElementsAre("Ok"));
    platform.press("Ok");
    EXPECT_EQ(platform.journal.lines(), expected) << "closing it does nothing";
    EXPECT_THAT(differences(before, snapshot(form)), IsEmpty());
    EXPECT_EQ(platform.files.contents, filesBefore);
    EXPECT_EQ(platform.pasteboard, "earlier content");
}

std::string notAccessible(const std::string& path) {
    return "The chosen path " + path + " is not accessible";
}

const FaultRow failures[] = {
    {"FolderIsReadOnly", "/Users/maya/x.plist",
     [](ScriptedFiles& files) { files.readOnly.insert("/Users/maya"); },
     notAccessible("/Users/maya/x.plist")},
    {"FolderIsMissing", "/nowhere/x.plist", [](ScriptedFiles&) {},
     notAccessible("/nowhere/x.plist")},
    {"RootFolderIsReadOnly", "/x.plist",
     [](ScriptedFiles& files) {
         files.folders.insert("/");
         files.readOnly.insert("/");
     },
     notAccessible("/x.plist")},
    {"OnlyTheParentCounts", "/Users/maya/sub/x.plist",
     [](ScriptedFiles& files) {
         files.folders.insert("/Users/maya/sub");
         files.readOnly.insert("/Users/maya/sub");
     },
     notAccessible("/Users/maya/sub/x.plist")},
    {"ContentIsUnwritable", "/Users/maya/x.plist",
     [](ScriptedFiles& files) { files.contentIsUnwritable = true; },
     "This content cannot be written"},
    {"FolderIsReadOnlyButTheFileIsNot", "/Users/maya/x.plist",
     [](ScriptedFiles& files) {
         files.contents["/Users/maya/x.plist"] = Dictionary{{"Label", "old"}};
         files.readOnly.insert("/Users/maya");
     },
     notAccessible("/Users/maya/x.plist")},
};

INSTANTIATE_TEST_SUITE_P(Faults, SaveFails, testing::ValuesIn(failures), NamedAfterRow());

class SaveGoesOn : public SaveFault {};

TEST_P(SaveGoesOn, WhateverTheWriteTells) {
    const auto& path = GetParam().path;
    platform.saveAs(path, "x.plist");
    auto expected = savingLines(path);
    expected.push_back("write: " + path);
    expected.push_back(std::string("alert: ") + created);
    EXPECT_EQ(platform.journal.lines(), expected);
    EXPECT_EQ(form.actionScriptTextView.string, "launchctl load '" + path + "'");
    platform.press("Skip");
    EXPECT_EQ(form.scriptPopOverScriptField.stringValue, "");
}

const FaultRow passes[] = {
    {"DiskIsFull", "/Users/maya/x.plist", [](ScriptedFiles& files) { files.diskIsFull = true; },
     ""},
    {"FileIsReadOnly", "/Users/maya/x.plist",
     [](ScriptedFiles& files) {
         files.contents["/Users/maya/x.plist"] = Dictionary{{"Label", "old"}};
         files.readOnly.insert("/Users/maya/x.plist");
     },
     ""},
    {"RootFolder", "/x.plist", [](ScriptedFiles& files) { files.folders.insert("/"); }, ""},
    {"NothingIsWrong", "/Users/maya/x.plist", [](ScriptedFiles&) {}, ""},
};

INSTANTIATE_TEST_SUITE_P(Faults, SaveGoesOn, testing::ValuesIn(passes), NamedAfterRow());

TEST(SuccessAlert, DoesNothingOnceTheControllerIsGone) {
    test::ScriptedPlatform platform;
    platform.files.folders = {"/u"};
    auto editor = std::make_unique<AppDelegate>(platform.services());
    editor->saveLaunchAgent();
    platform.saveAs("/u/x.plist");
    editor.reset();
    platform.journal.clear();
    platform.press("Continue");
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
    EXPECT_THAT(platform.shownSheets, IsEmpty());
}

TEST(SuccessAlert, OfTwoSavesResetsTheFormTwice) {
    test::ScriptedPlatform platform;
    platform.files.folders = {"/u"};
    AppDelegate editor(platform.services());
    editor.saveLaunchAgent();
    editor.saveLaunchAgent();
    platform.saveAs("/u/a.plist");
    platform.saveAs("/u/b.plist");
    platform.journal.clear();
    platform.press("Skip");
    platform.press("Continue");
    EXPECT_EQ(platform.journal.count("synchronize"), 2U) << "each reset reads the preferences";
    EXPECT_EQ(platform.journal.count("sheet"), 1U);
    EXPECT_EQ(editor.form().actionScriptTextView.string, "launchctl load '/u/b.plist'");
    EXPECT_FALSE(platform.isAsking());
}

} // namespace

} // namespace frimbolate
