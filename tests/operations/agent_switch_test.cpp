#include "operations/agent_switch.h"
#include "tests/support/expected_panels.h"
#include "tests/support/random_values.h"
#include "tests/support/rows.h"
#include "tests/support/scripted_platform.h"

#include <gmock/gmock.h>

namespace frimbolate::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string agentsFolder = "/Users/maya/Library/LaunchAgents";
const std::string switchedAgent = agentsFolder + "/org.example.any.plist";

class AgentSwitchTest : public testing::Test {
  protected:
    AgentSwitchTest() {
        platform.defaults.contents["Bookmark"] = bookmarkOf(agentsFolder);
        platform.files.folders = {agentsFolder};
        platform.files.contents[switchedAgent] = Dictionary{{"Label", "any"}};
    }

    /// Chooses the agent, up to the question.
    void choose() {
        agentSwitch.onOffLaunchAgent();
        platform.journal.clear();
        platform.choose(switchedAgent);
    }

    const Dictionary& onDisk() { return *platform.files.contents.at(switchedAgent); }
    void put(Dictionary dictionary) {
        platform.files.contents[switchedAgent] = std::move(dictionary);
    }

    ScriptedPlatform platform;
    Services services = platform.services();
    AgentSwitch agentSwitch{services};
};

TEST_F(AgentSwitchTest, AsksForTheAgent) {
    agentSwitch.onOffLaunchAgent();
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("begin: " + agentsFolder,
                            "open panel: Please choose a launch agent to enable/disable:"));
    expectPanel(
        platform.shownOpenPanel(),
        selectPanel("Please choose a launch agent to enable/disable:", {"plist"}, agentsFolder));
    platform.abandonQuestions();
}

TEST_F(AgentSwitchTest, EndsSilentlyAtACancelledPanel) {
    agentSwitch.onOffLaunchAgent();
    platform.journal.clear();
    platform.cancelPanel();
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
    EXPECT_FALSE(platform.isAsking());
    EXPECT_EQ(platform.folderAccess.begun, 1);
}

// The question

TEST_F(AgentSwitchTest, OffersToDisable) {
    choose();
    const auto alert = platform.shownAlert();
    EXPECT_THAT(
        platform.journal.lines(),
        ElementsAre("read: " + switchedAgent, "alert: This launch agent is currently enabled."));
    EXPECT_EQ(alert.informativeText,
              "Would you like to disable it now?\n\nYou may also need to unload or load the launch "
              "agent for the change to take effect, else the change will take effect on the next "
              "reboot/login.");
    EXPECT_THAT(alert.buttons, ElementsAre("Continue", "Cancel"));
    EXPECT_FALSE(alert.showsSuppressionButton);
    platform.abandonQuestions();
}

TEST_F(AgentSwitchTest, OffersToEnable) {
    put({{"Enabled", false}});
    choose();
    const auto alert = platform.shownAlert();
    EXPECT_EQ(alert.messageText, "This launch agent is currently disabled.");
    EXPECT_EQ(alert.informativeText,
              "Would you like to enable it now?\n\nYou may also need to unload or load the launch "
              "agent for the change to take effect, else the change will take effect on the next "
              "reboot/login.");
    EXPECT_THAT(alert.buttons, ElementsAre("Continue", "Cancel"));
    platform.abandonQuestions();
}

struct EnabledRow {
    const char* name;
    std::optional<Value> stored;
    bool enabled;
};

class EnabledKey : public AgentSwitchTest, public testing::WithParamInterface<EnabledRow> {};

TEST_P(EnabledKey, IsFlippedToARealBoolean) {
    Dictionary dictionary = {{"Label", "any"}, {"Nice", 5}};
    if (GetParam().stored)
        dictionary.insert_or_assign("Enabled", *GetParam().stored);
    put(dictionary);
    choose();
    EXPECT_EQ(platform.shownAlert().messageText, GetParam().enabled
                                                     ? "This launch agent is currently enabled."
                                                     : "This launch agent is currently disabled.");
    platform.journal.clear();
    platform.press("Continue");
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("write: " + switchedAgent, "end: " + agentsFolder));
    dictionary.insert_or_assign("Enabled", Value(!GetParam().enabled));
    EXPECT_EQ(onDisk(), dictionary);
    EXPECT_FALSE(platform.isAsking());
    EXPECT_EQ(platform.folderAccess.begun, 0);
}

const EnabledRow enabledRows[] = {{"Missing", std::nullopt, true},
                                  {"TrueValue", true, true},
                                  {"FalseValue", false, false},
                                  {"One", 1, true},
                                  {"Zero", 0, false},
                                  {"Negative", -1, true},
                                  {"Greatest", 18446744073709551615ULL, true},
                                  {"SmallReal", 0.5, true},
                                  {"ZeroReal", 0.0, false},
                                  {"TextYes", "YES", true},
                                  {"TextTrue", "true", true},
                                  {"TextOne", " +01", true},
                                  {"TextNo", "NO", false},
                                  {"TextZero", "0", false},
                                  {"TextEmpty", "", false},
                                  {"TextOther", "enabled", false},
                                  {"Data", Data{{1}}, false},
                                  {"Date", Date{1}, false},
                                  {"Array", Array{Value(true)}, false},
                                  {"Dictionary", Dictionary{{"a", true}}, false}};
INSTANTIATE_TEST_SUITE_P(Stored, EnabledKey, testing::ValuesIn(enabledRows), NamedAfterRow());

TEST_F(AgentSwitchTest, LeavesEverythingWhenCancelled) {
    for (const bool enabled : {false, true}) {
        put({{"Enabled", enabled}, {"Label", "any"}});
        const auto before = platform.files.contents;
        choose();
        platform.journal.clear();
        platform.press("Cancel");
        EXPECT_THAT(platform.journal.lines(), IsEmpty());
        EXPECT_EQ(platform.files.contents, before);
    }
    EXPECT_EQ(platform.folderAccess.begun, 2);
}

/// The content that is written was read before the question; later changes of the file are lost.
TEST_F(AgentSwitchTest, WritesWhatItHadRead) {
    choose();
    put({{"Label", "another"}});
    platform.press("Continue");
    EXPECT_EQ(onDisk(), (Dictionary{{"Enabled", false}, {"Label", "any"}}));
}

TEST_F(AgentSwitchTest, KeepsEveryOtherValueThroughTwoSwitches) {
    constexpr int lists = 2000;
    RandomValues random(20261121);
    for (int i = 0; i < lists; ++i) {
        auto original = random.dictionary(4);
        if (random.coin())
            original.insert_or_assign("Enabled", random.value(1));
        put(original);
        choose();
        const bool wasEnabled =
            platform.shownAlert().messageText == "This launch agent is currently enabled.";
        platform.press("Continue");
        ASSERT_EQ(onDisk().at("Enabled"), Value(!wasEnabled)) << i;
        choose();
        platform.press("Continue");
        original.insert_or_assign("Enabled", Value(wasEnabled));
        ASSERT_EQ(onDisk(), original) << i;
    }
    EXPECT_EQ(platform.folderAccess.begun, 0);
}

// Failures

class UnreadableFile : public AgentSwitchTest, public testing::WithParamInterface<bool> {};

TEST_P(UnreadableFile, IsTold) {
    if (GetParam())
        platform.files.contents[switchedAgent] = std::nullopt;
    else
        platform.files.contents.clear();
    const auto before = platform.files.contents;
    choose();
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("read: " + switchedAgent,
                            "log: Error occurred while reading the launch agent!",
                            "alert: The launch agent could not be read."));
    const auto alert = platform.shownAlert();
    EXPECT_EQ(alert.informativeText, "It may be corrupted or missing values for some of its keys.");
    EXPECT_THAT(alert.buttons, ElementsAre("Ok"));
    platform.press("Ok");
    EXPECT_EQ(platform.journal.lines().size(), 3U);
    EXPECT_EQ(platform.files.contents, before);
    EXPECT_EQ(platform.folderAccess.begun, 1);
}

INSTANTIATE_TEST_SUITE_P(Exists, UnreadableFile, testing::Bool());

struct SwitchFaultRow {
    const char* name;
    void (*set)(ScriptedFiles&);
    bool tries = false; ///< whether the write is attempted before it fails
};

class SwitchFault : public AgentSwitchTest, public testing::WithParamInterface<SwitchFaultRow> {
  protected:
    void expectReported(bool enabled, const std::string& message) {
        put({{"Enabled", enabled}, {"Label", "any"}});
        choose();
        GetParam().set(platform.files);
        const auto before = platform.files.contents;
        const Value content = Dictionary{{"Enabled", !enabled}, {"Label", "any"}};
        platform.journal.clear();
        platform.press("Continue");
        std::vector<std::string> effects = {"log: Error occurred while saving the launch agent!",
                                            "log: Path: " + switchedAgent,
                                            "log: Agent content: " + description(content),
                                            "alert: " + message, "end: " + agentsFolder};
        if (GetParam().tries)
            effects.insert(effects.begin(), "write: " + switchedAgent);
        EXPECT_EQ(platform.journal.lines(), effects);
        const auto alert = platform.shownAlert();
        EXPECT_EQ(
            alert.informativeText,
            "Please ensure you are editing a launch agent in your user Library's LaunchAgents "
            "folder (and not the root Library's LaunchAgents folder). Check the system log "
            "for more information, or contact Frimbolate support if the issue continues.");
        EXPECT_THAT(alert.buttons, ElementsAre("Ok"));
        platform.press("Ok");
        EXPECT_EQ(platform.journal.lines(), effects);
        EXPECT_EQ(platform.files.contents, before);
        EXPECT_EQ(platform.folderAccess.begun, 0);
    }
};

TEST_P(SwitchFault, IsReportedWhenDisabling) {
    expectReported(true, "The launch agent could not be disabled.");
}

TEST_P(SwitchFault, IsReportedWhenEnabling) {
    expectReported(false, "The launch agent could not be enabled.");
}

const SwitchFaultRow switchFaults[] = {
    {"ReadOnly", [](ScriptedFiles& files) { files.readOnly.insert(switchedAgent); }},
    {"Vanished", [](ScriptedFiles& files) { files.contents.clear(); }},
    {"UnwritableContent", [](ScriptedFiles& files) { files.contentIsUnwritable = true; }},
    {"FullDisk", [](ScriptedFiles& files) { files.diskIsFull = true; }, true}};
INSTANTIATE_TEST_SUITE_P(Write, SwitchFault, testing::ValuesIn(switchFaults), NamedAfterRow());

TEST_F(AgentSwitchTest, DoesNothingOnceItsOwnerIsGone) {
    const auto before = platform.files.contents;
    {
        AgentSwitch brief(services);
        brief.onOffLaunchAgent();
        platform.choose(switchedAgent);
    }
    platform.press("Continue");
    EXPECT_EQ(platform.files.contents, before);
}

} // namespace

} // namespace frimbolate::test
