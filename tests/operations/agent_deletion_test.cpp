#include "operations/agent_deletion.h"
#include "tests/support/expected_panels.h"
#include "tests/support/rows.h"
#include "tests/support/scripted_platform.h"

#include <gmock/gmock.h>

namespace frimbolate::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string deletionFolder = "/Users/maya/Library/LaunchAgents";
const std::string deletedAgent = deletionFolder + "/org.example.any.plist";

class AgentDeletionTest : public testing::Test {
  protected:
    AgentDeletionTest() {
        platform.defaults.contents["Bookmark"] = bookmarkOf(deletionFolder);
        platform.files.folders = {deletionFolder};
        platform.files.contents[deletedAgent] = Dictionary{{"Label", "any"}};
    }

    /// Chooses the agent, up to the confirmation.
    void choose() {
        deletion.deleteLaunchAgentContinue();
        platform.choose(deletedAgent);
        platform.journal.clear();
    }

    bool exists() { return platform.files.contents.contains(deletedAgent); }

    ScriptedPlatform platform;
    Services services = platform.services();
    AgentDeletion deletion{services};
};

// The warning

TEST_F(AgentDeletionTest, WarnsAboutLoadedAgents) {
    deletion.deleteLaunchAgent();
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("synchronize: defaults", "alert: Important message:"));
    const auto alert = platform.shownAlert();
    EXPECT_EQ(alert.messageText, "Important message:");
    EXPECT_EQ(alert.informativeText,
              "Frimbolate cannot determine if a launch agent is currently loaded/running. It is "
              "highly recommended that you unload a launch agent before editing or deleting it. "
              "\n\nFailure to unload an agent before editing or deleting it will result in the "
              "launch agent continuing to run, in its original configuration and as scheduled, "
              "until you logout or a reboot occurs.");
    EXPECT_THAT(alert.buttons, ElementsAre("Continue", "Cancel"));
    EXPECT_TRUE(alert.showsSuppressionButton);
    platform.abandonQuestions();
}

TEST_F(AgentDeletionTest, StopsAtACancelledWarning) {
    deletion.deleteLaunchAgent();
    platform.journal.clear();
    platform.press("Cancel", 1);
    EXPECT_THAT(platform.journal.lines(), ElementsAre("log: User cancelled deleting agent."));
    EXPECT_FALSE(platform.isAsking());
    EXPECT_FALSE(platform.defaults.contents.contains("WarnForDelete"));
    EXPECT_EQ(platform.folderAccess.begun, 0);
}

TEST_F(AgentDeletionTest, GoesStraightToThePanelOnceSuppressed) {
    deletion.deleteLaunchAgent();
    platform.press("Continue", 1);
    platform.cancelPanel();
    platform.journal.clear();
    deletion.deleteLaunchAgent();
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("synchronize: defaults", "begin: " + deletionFolder,
                            "open panel: Please choose a launch agent to delete:"));
    platform.abandonQuestions();
}

struct SuppressionRow {
    const char* name;
    int state;
    std::vector<std::string> stored;
};

class DeletionSuppression : public AgentDeletionTest,
                            public testing::WithParamInterface<SuppressionRow> {};

TEST_P(DeletionSuppression, IsStoredBeforeThePanel) {
    deletion.deleteLaunchAgent();
    platform.journal.clear();
    platform.press("Continue", GetParam().state);
    auto effects = GetParam().stored;
    effects.push_back("begin: " + deletionFolder);
    effects.emplace_back("open panel: Please choose a launch agent to delete:");
    EXPECT_EQ(platform.journal.lines(), effects);
    const auto* stored = find(platform.defaults.contents, "WarnForDelete");
    EXPECT_EQ(stored != nullptr, !GetParam().stored.empty());
    EXPECT_TRUE(!stored || stored->boolean());
    platform.abandonQuestions();
}

const SuppressionRow suppressions[] = {{"Off", 0, {"set: WarnForDelete = 1"}},
                                       {"On", 1, {"set: WarnForDelete = 0"}},
                                       {"Mixed", -1, {}}};
INSTANTIATE_TEST_SUITE_P(Warning, DeletionSuppression, testing::ValuesIn(suppressions),
                         NamedAfterRow());

struct WarnRow {
    const char* name;
    std::optional<Value> stored;
    bool warns;
};

class DeletionWarning : public AgentDeletionTest, public testing::WithParamInterface<WarnRow> {};

TEST_P(DeletionWarning, IsShownUnlessTheKeyIsFalse) {
    if (GetParam().stored)
        platform.defaults.contents.insert_or_assign("WarnForDelete", *GetParam().stored);
    for (int times = 0; times < 2; ++times) {
        deletion.deleteLaunchAgent();
        EXPECT_EQ(platform.journal.count("alert"), GetParam().warns ? 1U : 0U);
        EXPECT_EQ(platform.journal.count("open panel"), GetParam().warns ? 0U : 1U);
        platform.abandonQuestions();
        platform.journal.clear();
    }
}

const WarnRow warnings[] = {{"Missing", std::nullopt, true},
                            {"TrueValue", true, true},
                            {"FalseValue", false, false},
                            {"Zero", 0, false},
                            {"Two", 2, true},
                            {"NoAsText", "NO", false},
                            {"YesAsText", "yes", true},
                            {"NeitherTrueNorFalse", Array{}, true}};
INSTANTIATE_TEST_SUITE_P(Stored, DeletionWarning, testing::ValuesIn(warnings), NamedAfterRow());

// Choice and confirmation

TEST_F(AgentDeletionTest, AsksForTheAgent) {
    deletion.deleteLaunchAgentContinue();
    expectPanel(platform.shownOpenPanel(),
                selectPanel("Please choose a launch agent to delete:", {"plist"}, deletionFolder));
    platform.abandonQuestions();
}

TEST_F(AgentDeletionTest, StopsSilentlyAtACancelledPanel) {
    deletion.deleteLaunchAgentContinue();
    platform.journal.clear();
    platform.cancelPanel();
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
    EXPECT_FALSE(platform.isAsking());
    EXPECT_EQ(platform.folderAccess.begun, 1);
}

TEST_F(AgentDeletionTest, AsksForConfirmationWithTheFullPath) {
    deletion.deleteLaunchAgentContinue();
    platform.journal.clear();
    platform.choose(deletedAgent);
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("alert: Are you sure you want to delete the following launch agent?"));
    const auto alert = platform.shownAlert();
    EXPECT_EQ(alert.informativeText, deletedAgent);
    EXPECT_THAT(alert.buttons, ElementsAre("Delete", "Cancel"));
    EXPECT_FALSE(alert.showsSuppressionButton);
    EXPECT_TRUE(exists());
    platform.abandonQuestions();
}

TEST_F(AgentDeletionTest, StopsSilentlyWhenNotConfirmed) {
    choose();
    platform.press("Cancel");
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
    EXPECT_TRUE(exists());
    EXPECT_EQ(platform.folderAccess.begun, 1);
}

// Removal

TEST_F(AgentDeletionTest, RemovesTheAgent) {
    choose();
    platform.press("Delete");
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("log: Writable status: " + deletedAgent + "\n1",
                            "remove: " + deletedAgent, "end: " + deletionFolder));
    EXPECT_FALSE(exists());
    EXPECT_FALSE(platform.isAsking());
    EXPECT_EQ(platform.folderAccess.begun, 0);
}

TEST_F(AgentDeletionTest, RemovesWhatIsNoPropertyList) {
    platform.files.contents[deletedAgent] = std::nullopt;
    choose();
    platform.press("Delete");
    EXPECT_FALSE(exists());
    EXPECT_FALSE(platform.isAsking());
}

TEST_F(AgentDeletionTest, EndsAccessOnTheFolderThatItBegan) {
    choose();
    platform.defaults.contents["Bookmark"] = bookmarkOf("/elsewhere");
    platform.press("Delete");
    EXPECT_EQ(platform.journal.lines().back(), "end: " + deletionFolder);
}

struct DeletionFaultRow {
    const char* name;
    void (*set)(ScriptedFiles&);
    std::vector<std::string> effectsBefore; ///< the effects before the alert
    bool survives;
};

class DeletionFault : public AgentDeletionTest,
                      public testing::WithParamInterface<DeletionFaultRow> {};

TEST_P(DeletionFault, IsReportedWithItsReason) {
    choose();
    GetParam().set(platform.files);
    platform.press("Delete");
    auto effects = GetParam().effectsBefore;
    effects.emplace_back("alert: An error occurred and the launch agent could not be deleted.");
    effects.push_back("end: " + deletionFolder);
    EXPECT_EQ(platform.journal.lines(), effects);
    const auto alert = platform.shownAlert();
    EXPECT_EQ(alert.informativeText, "The chosen path " + deletedAgent + " is not accessible");
    EXPECT_THAT(alert.buttons, ElementsAre("Ok"));
    platform.press("Ok");
    EXPECT_EQ(platform.journal.lines(), effects);
    EXPECT_EQ(exists(), GetParam().survives);
    EXPECT_EQ(platform.folderAccess.begun, 0);
}

const DeletionFaultRow deletionFaults[] = {
    {"ReadOnly", [](ScriptedFiles& files) { files.readOnly.insert(deletedAgent); }, {}, true},
    {"Vanished", [](ScriptedFiles& files) { files.contents.clear(); }, {}, false},
    {"NotRemoved",
     [](ScriptedFiles& files) { files.removalFails = true; },
     {"log: Writable status: " + deletedAgent + "\n1", "remove: " + deletedAgent},
     true}};
INSTANTIATE_TEST_SUITE_P(Removal, DeletionFault, testing::ValuesIn(deletionFaults),
                         NamedAfterRow());

TEST_F(AgentDeletionTest, DoesNothingOnceItsOwnerIsGone) {
    {
        AgentDeletion brief(services);
        brief.deleteLaunchAgentContinue();
        platform.choose(deletedAgent);
    }
    platform.journal.clear();
    platform.press("Delete");
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
    EXPECT_TRUE(exists());
}

} // namespace

} // namespace frimbolate::test
