#include "settings/loaded_agent_warning.h"

#include "core/form_model.h"
#include "tests/support/scripted_platform.h"

#include <gmock/gmock.h>

namespace frimbolate::test {

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using Lines = std::vector<std::string>;

class LoadedAgentWarningTest : public testing::Test {
  protected:
    void show() {
        warning->show([this] { platform.journal.add("step", "goes on"); },
                      "User cancelled cleaning up.");
    }

    ScriptedPlatform platform;
    Services services = platform.services();
    std::unique_ptr<LoadedAgentWarning> warning = std::make_unique<LoadedAgentWarning>(services);
    Dictionary& stored = platform.defaults.contents;
};

struct StoredCase {
    const char* name;
    std::optional<Value> stored;
    bool warns;
};

const std::vector<StoredCase>& storedCases() {
    static const std::vector<StoredCase> rows = {
        {"Missing", std::nullopt, true},
        {"True", true, true},
        {"False", false, false},
        {"NumberOne", 1, true},
        {"NumberZero", 0, false},
        {"RealZero", 0.0, false},
        {"RealHalf", 0.5, true},
        {"TextTrue", "True", true},
        {"TextFalse", "False", false},
        {"TextNo", "NO", false},
        {"TextYes", "YES", true},
        {"TextZero", "0", false},
        {"EmptyText", "", false},
        // A value without a truth value does not suppress the warning.
        {"Data", Data{{0}}, true},
        {"Date", Date{0}, true},
        {"Array", Array{Value(false)}, true},
        {"Dictionary", Dictionary{}, true},
    };
    return rows;
}

class WarnForDeleteTest : public LoadedAgentWarningTest,
                          public testing::WithParamInterface<StoredCase> {};

TEST_P(WarnForDeleteTest, OnlyAFalseValueKeepsTheWarningAway) {
    const auto& row = GetParam();
    if (row.stored)
        stored["WarnForDelete"] = *row.stored;
    const auto before = stored;
    show();
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("synchronize: defaults",
                            row.warns ? "alert: Important message:" : "step: goes on"));
    EXPECT_EQ(stored, before);
    EXPECT_EQ(platform.isAsking(), row.warns);
    platform.abandonQuestions();
}

INSTANTIATE_TEST_SUITE_P(LoadedAgentWarning, WarnForDeleteTest, testing::ValuesIn(storedCases()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(LoadedAgentWarningTest, SaysWhatItIsAbout) {
    show();
    const auto alert = platform.shownAlert();
    EXPECT_EQ(alert.messageText, "Important message:");
    EXPECT_EQ(alert.informativeText,
              "Frimbolate cannot determine if a launch agent is currently loaded/running. It is "
              "highly recommended that you unload a launch agent before editing or deleting it. \n"
              "\n"
              "Failure to unload an agent before editing or deleting it will result in the launch "
              "agent continuing to run, in its original configuration and as scheduled, until you "
              "logout or a reboot occurs.");
    EXPECT_THAT(alert.buttons, ElementsAre("Continue", "Cancel"));
    EXPECT_TRUE(alert.showsSuppressionButton);
    platform.abandonQuestions();
}

struct AnswerCase {
    const char* name;
    const char* button;
    int suppression;
    Lines effects;
    std::optional<Value> stored;
};

const std::vector<AnswerCase>& answerCases() {
    static const std::vector<AnswerCase> rows = {
        {"ContinueUnticked", "Continue", 0, {"set: WarnForDelete = 1", "step: goes on"}, true},
        {"ContinueTicked", "Continue", 1, {"set: WarnForDelete = 0", "step: goes on"}, false},
        {"ContinueMixed", "Continue", -1, {"step: goes on"}, std::nullopt},
        {"CancelUnticked", "Cancel", 0, {"log: User cancelled cleaning up."}, std::nullopt},
        {"CancelTicked", "Cancel", 1, {"log: User cancelled cleaning up."}, std::nullopt},
    };
    return rows;
}

class WarningAnswerTest : public LoadedAgentWarningTest,
                          public testing::WithParamInterface<AnswerCase> {};

TEST_P(WarningAnswerTest, IsStoredBeforeTheWorkGoesOn) {
    const auto& row = GetParam();
    show();
    platform.journal.clear();
    platform.press(row.button, row.suppression);
    EXPECT_THAT(platform.journal.lines(), ElementsAreArray(row.effects));
    EXPECT_EQ(platform.defaults.object("WarnForDelete"), row.stored);
}

INSTANTIATE_TEST_SUITE_P(LoadedAgentWarning, WarningAnswerTest, testing::ValuesIn(answerCases()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(LoadedAgentWarningTest, OnceTickedItIsNotShownAgain) {
    show();
    platform.press("Continue", CheckState::On);
    platform.journal.clear();
    show();
    EXPECT_THAT(platform.journal.lines(), ElementsAre("synchronize: defaults", "step: goes on"));
}

TEST_F(LoadedAgentWarningTest, AnAnswerAfterItsEndDoesNothing) {
    show();
    warning.reset();
    platform.journal.clear();
    platform.press("Continue", CheckState::On);
    EXPECT_THAT(platform.journal.lines(), testing::IsEmpty());
}

} // namespace

} // namespace frimbolate::test
