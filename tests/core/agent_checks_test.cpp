#include "core/agent_checks.h"

#include <gmock/gmock.h>

namespace frimbolate::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Dictionary daily() {
    return {{"Label", "com.example.backup"},
            {"ProgramArguments", Array{Value("/bin/sh"), Value("/opt/backup.sh")}},
            {"StartCalendarInterval", Dictionary{{"Hour", 7}, {"Minute", 5}}}};
}

TEST(AgentChecks, FindNothingInABelievableAgent) { EXPECT_THAT(checkAgent(daily()), IsEmpty()); }

TEST(AgentChecks, ReportAMisspeltKeyWithTheOneThatIsMeant) {
    auto agent = daily();
    agent["RunAtLaod"] = true;
    EXPECT_THAT(checkAgent(agent),
                ElementsAre(Finding{"misspelt-key", Severity::Suspicious, "RunAtLaod",
                                    "is not a key of launchd; probably RunAtLoad is meant"}));
}

TEST(AgentChecks, ReportWhatLaunchdRequires) {
    EXPECT_THAT(checkAgent(Dictionary{}),
                ElementsAre(Finding{"label-missing", Severity::Refused, "Label",
                                    "is missing; launchd requires it"},
                            Finding{"no-program", Severity::Refused, "ProgramArguments",
                                    "is missing, and so is Program: there is nothing to run"}));
}

TEST(AgentChecks, ReportAnIntervalThatLaunchdIgnores) {
    auto agent = daily();
    agent["StartInterval"] = 0;
    EXPECT_THAT(checkAgent(agent),
                ElementsAre(Finding{"interval-not-positive", Severity::Ignored, "StartInterval",
                                    "is 0; launchd ignores an interval of 0 and less"}));
    agent["StartInterval"] = 1;
    EXPECT_THAT(checkAgent(agent), IsEmpty());
}

} // namespace
} // namespace frimbolate::test
