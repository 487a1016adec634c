// Upgrading an agent of the earlier version, from the alert to the removal of the old file.
#include "tests/support/editor_test.h"
#include "tests/support/expected_panels.h"
#include "tests/support/form_snapshot.h"
#include "tests/support/rows.h"

namespace frimbolate::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string folder = "/Users/maya/Library/LaunchAgents";
const std::string oldPath = folder + "/com.fr\u0131mbolate.Backup.plist";
const std::string newPath = folder + "/com.frimbolate.Backup.plist";

/// An agent that holds a value of every type beside the keys of the form.
AgentPlist oldAgent() {
    return {{"Label", "com.fr\u0131mbolate.Something else"},
            {"ProgramArguments", Array{Value("/bin/sh"), Value("/b.sh")}},
            {"Nice", -20},
            {"Unknown", Dictionary{{"real", 0.1},
                                   {"date", Date{-1}},
                                   {"data", Data{{0, 255}}},
                                   {"array", Array{Value(true), Value(Array{})}}}}};
}

AgentPlist upgradedAgent() {
    auto agent = oldAgent();
    agent["Label"] = "com.frimbolate.Backup";
    return agent;
}

class Upgrading : public EditorTest {
  protected:
    Upgrading() {
        platform.files.contents[oldPath] = oldAgent();
        editor.createNewAgent();
        newAgent = snapshot(form);
        editor.continueEditingAgent();
        platform.choose(oldPath);
        platform.journal.clear();
    }

    /// Accepts the upgrade, up to the save panel.
    void accept() {
        platform.press("Ok");
        platform.journal.clear();
    }

    /// Expects the form as it is after reading. A successful upgrade does not change it.
    void expectStillRead() const {
        EXPECT_EQ(form.agentNameTextField.stringValue, "Something else");
    }

    const std::map<std::string, std::optional<Dictionary>>& disk() {
        return platform.files.contents;
    }

    Snapshot newAgent;
};

TEST_F(Upgrading, IsOfferedInItsOwnWords) {
    const auto alert = platform.shownAlert();
    EXPECT_EQ(alert.messageText, "This launch agent needs to be upgraded.");
    EXPECT_EQ(alert.informativeText,
              "It appears that the launch agent you selected was  created with an earlier version "
              "of Frimbolate. This agent needs to be upgraded before being edited.");
    EXPECT_THAT(alert.buttons, ElementsAre("Ok", "Cancel"));
    EXPECT_FALSE(alert.showsSuppressionButton);
    expectStillRead();
    platform.abandonQuestions();
}

TEST_F(Upgrading, ResetsTheFormWhenDeclined) {
    platform.press("Cancel");
    EXPECT_THAT(differences(newAgent, snapshot(form)), IsEmpty());
    EXPECT_EQ(platform.journal.count("write"), 0U);
    EXPECT_FALSE(platform.isAsking());
    EXPECT_EQ(disk().at(oldPath), oldAgent());
}

TEST_F(Upgrading, ProposesTheNewName) {
    platform.press("Ok");
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("log: Upgrading Agent...", "read: " + oldPath, "begin: " + folder,
                            "save panel: com.frimbolate.Backup.plist"));
    expectSavePanel(platform.shownSavePanel(), "com.frimbolate.Backup.plist",
                    "Saving outside of ~/Library/LaunchAgents\n may cause the agent not to run "
                    "automatically.",
                    folder);
    platform.abandonQuestions();
}

TEST_F(Upgrading, WritesThenLooksThenRemoves) {
    accept();
    platform.saveAs(newPath);
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("write: " + newPath,
                            "log: The upgraded path exists, removing the old path",
                            "remove: " + oldPath));
    EXPECT_FALSE(disk().contains(oldPath));
    EXPECT_EQ(disk().at(newPath), upgradedAgent());
    EXPECT_FALSE(platform.isAsking());
    EXPECT_EQ(platform.folderAccess.begun, 1);
    expectStillRead();
}

/// The label comes from the name of the old file, whatever the user names the new one.
TEST_F(Upgrading, SavesIntoAnyFolderUnderAnyName) {
    accept();
    platform.saveAs("/Users/maya/renamed.plist");
    EXPECT_EQ(disk().size(), 1U);
    EXPECT_EQ(disk().at("/Users/maya/renamed.plist"), upgradedAgent());
}

TEST_F(Upgrading, EndsWithNoFileUnderTheOldName) {
    accept();
    platform.saveAs(oldPath);
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("write: " + oldPath,
                            "log: The upgraded path exists, removing the old path",
                            "remove: " + oldPath));
    EXPECT_THAT(disk(), IsEmpty());
    EXPECT_FALSE(platform.isAsking());
}

TEST_F(Upgrading, DoesNothingAfterACancelledPanel) {
    accept();
    const auto before = snapshot(form);
    platform.cancelPanel();
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
    EXPECT_THAT(differences(before, snapshot(form)), IsEmpty());
    expectStillRead();
    EXPECT_EQ(disk().at(oldPath), oldAgent());
    EXPECT_EQ(platform.folderAccess.begun, 1);
}

TEST_F(Upgrading, ReportsThatTheOldFileHasBecomeUnreadable) {
    platform.files.contents.erase(oldPath);
    platform.press("Ok");
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("log: Upgrading Agent...", "read: " + oldPath,
                            "alert: This launch agent could not be upgraded."));
    const auto alert = platform.shownAlert();
    EXPECT_EQ(alert.informativeText, "The file path is not accessible, or there is already an "
                                     "agent with the same name in the file path.");
    EXPECT_THAT(alert.buttons, ElementsAre("Ok"));
    expectStillRead();
    platform.press("Ok");
    EXPECT_THAT(differences(newAgent, snapshot(form)), IsEmpty());
    EXPECT_EQ(platform.folderAccess.begun, 0);
}

TEST_F(Upgrading, GivesALabelToAnAgentWithoutOne) {
    platform.files.contents[oldPath]->erase("Label");
    accept();
    platform.saveAs(newPath);
    EXPECT_EQ(disk().at(newPath), upgradedAgent());
}

// A write that leaves no file

struct FaultRow {
    const char* name;
    void (*set)(ScriptedFiles&);
};

class UpgradeFault : public Upgrading, public testing::WithParamInterface<FaultRow> {};

TEST_P(UpgradeFault, LeavesTheOldFile) {
    accept();
    GetParam().set(platform.files);
    platform.saveAs(newPath);
    EXPECT_EQ(platform.journal.lines().back(), "alert: This launch agent could not be upgraded.");
    EXPECT_THAT(platform.journal.texts("log"), IsEmpty());
    EXPECT_EQ(platform.journal.count("remove"), 0U);
    const auto alert = platform.shownAlert();
    EXPECT_EQ(alert.informativeText, "An unknown error occurred. Please make sure the agent is "
                                     "located in a path accessible by Sandboxed applications.");
    EXPECT_THAT(alert.buttons, ElementsAre("Ok"));
    const auto before = snapshot(form);
    platform.press("Ok");
    EXPECT_THAT(differences(before, snapshot(form)), IsEmpty());
    EXPECT_EQ(disk().at(oldPath), oldAgent());
    EXPECT_EQ(disk().size(), 1U);
    EXPECT_EQ(platform.folderAccess.begun, 1);
}

const FaultRow faults[] = {
    {"FullDisk", [](ScriptedFiles& files) { files.diskIsFull = true; }},
    {"ReadOnlyFolder", [](ScriptedFiles& files) { files.readOnly.insert(folder); }},
    {"VanishedFolder", [](ScriptedFiles& files) { files.folders.clear(); }},
    {"UnwritableContent", [](ScriptedFiles& files) { files.contentIsUnwritable = true; }}};
INSTANTIATE_TEST_SUITE_P(Write, UpgradeFault, testing::ValuesIn(faults), NamedAfterRow());

TEST_F(Upgrading, ReportsAlsoUnderTheOldNameWhenNoFileIsThere) {
    accept();
    platform.files.contents.clear();
    platform.files.diskIsFull = true;
    platform.saveAs(oldPath);
    EXPECT_THAT(
        platform.journal.lines(),
        ElementsAre("write: " + oldPath, "alert: This launch agent could not be upgraded."));
    platform.press("Ok");
}

TEST_F(Upgrading, SaysNothingWhenTheOldFileStays) {
    accept();
    platform.files.removalFails = true;
    platform.saveAs(newPath);
    EXPECT_EQ(disk().size(), 2U);
    EXPECT_FALSE(platform.isAsking());
}

// A write over an existing file that fails

const std::string trashedPath =
    std::string(ScriptedTrash::folder) + "/com.fr\u0131mbolate.Backup.plist";

/// The upgrade checks the existence of the file alone, so an older file counts as the written one.
TEST_F(Upgrading, TakesAnyFileThereForTheNewOneAndKeepsTheOldOneInTheTrash) {
    platform.files.contents[newPath] = Dictionary{{"Label", "another"}};
    accept();
    platform.files.readOnly.insert(newPath);
    platform.saveAs(newPath);
    EXPECT_THAT(
        platform.journal.lines(),
        ElementsAre("write: " + newPath, "log: The upgraded path exists, removing the old path",
                    "trash: " + oldPath,
                    "log: The upgraded agent was not written, the old one is now " + trashedPath));
    EXPECT_FALSE(disk().contains(oldPath));
    EXPECT_EQ(disk().at(trashedPath), oldAgent());
    EXPECT_FALSE(platform.isAsking());
}

TEST_F(Upgrading, MovesTheFileToTheTrashThatItCouldNotWriteOver) {
    accept();
    platform.files.diskIsFull = true;
    platform.saveAs(oldPath);
    EXPECT_THAT(
        platform.journal.lines(),
        ElementsAre("write: " + oldPath, "log: The upgraded path exists, removing the old path",
                    "trash: " + oldPath,
                    "log: The upgraded agent was not written, the old one is now " + trashedPath));
    EXPECT_EQ(disk().size(), 1U);
    EXPECT_EQ(disk().at(trashedPath), oldAgent());
    EXPECT_FALSE(platform.isAsking());
}

TEST_F(Upgrading, LeavesTheOldFileThatTheTrashRefuses) {
    for (const auto& path : {newPath, oldPath}) {
        if (path == oldPath) {
            editor.continueEditingAgent();
            platform.choose(oldPath);
        }
        platform.files.contents[newPath] = Dictionary{{"Label", "another"}};
        accept();
        platform.files.diskIsFull = true;
        platform.trash.refuses = true;
        platform.saveAs(path);
        EXPECT_THAT(platform.journal.lines(),
                    ElementsAre("write: " + path,
                                "log: The upgraded path exists, removing the old path",
                                "trash: " + oldPath,
                                "log: The upgraded agent was not written, and the trash did not "
                                "take the old one, which stays: " +
                                    oldPath));
        EXPECT_EQ(disk().at(oldPath), oldAgent());
        EXPECT_FALSE(platform.isAsking());
    }
}

TEST_F(Upgrading, CanBeContinuedDirectly) {
    platform.abandonQuestions();
    editor.chooseUpgradePath({{"Label", "com.frimbolate.B"}}, "com.frimbolate.B.plist", "/gone");
    EXPECT_EQ(platform.shownSavePanel().nameFieldStringValue, "com.frimbolate.B.plist");
    platform.saveAs(folder + "/com.frimbolate.B.plist");
    EXPECT_EQ(platform.journal.lines().back(), "remove: /gone");
}

} // namespace

} // namespace frimbolate::test
