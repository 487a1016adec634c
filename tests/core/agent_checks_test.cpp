// The findings of over 200 made agents, each of which breaks one rule or keeps it.
#include "core/agent_checks.h"

#include "tests/support/check_rows.h"
#include "tests/support/rows.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <set>

namespace frimbolate::test {
namespace {

using testing::Contains;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::SizeIs;

std::vector<std::string> findingsOf(const CheckRow& row) {
    std::vector<std::string> found;
    for (const auto& finding : checkAgent(row.agent, row.context))
        found.push_back(lineOf(finding));
    return found;
}

class AgentChecks : public testing::TestWithParam<CheckRow> {};

TEST_P(AgentChecks, FindExactlyWhatIsWrong) {
    EXPECT_THAT(findingsOf(GetParam()), ElementsAreArray(GetParam().findings));
}

INSTANTIATE_TEST_SUITE_P(Rows, AgentChecks, testing::ValuesIn(checkRows()), NamedAfterRow());

TEST(AgentCheckNames, CountInAnotherCaseOfTheirLetters) {
    const auto rules = [](const char* label, const char* program) {
        std::set<std::string> found;
        const Dictionary keys = {{label, "a"}, {program, Array{"/bin/ls"}}, {"Lab", 1}, {"p", 1}};
        for (const auto& finding : checkAgent(keys))
            found.insert(finding.rule);
        return found;
    };
    using testing::Not;
    for (const char* name : {"label", "LABEL", "LaBeL"})
        EXPECT_THAT(rules(name, "Program"), Not(Contains("label-missing"))) << name;
    for (const char* name : {"Labe", "Labels", "labels", "Labem", "\x2c\x61\x62\x65\x6c"})
        EXPECT_THAT(rules(name, "Program"), Contains("label-missing")) << name;
    for (const char* name : {"programarguments", "PROGRAMArguments", "bundleprogram", "PROGRAM"})
        EXPECT_THAT(rules("Label", name), Not(Contains("no-program"))) << name;
    for (const char* name : {"ProgramArgument", "programs", "undleProgram"})
        EXPECT_THAT(rules("Label", name), Contains("no-program")) << name;
}

TEST(AgentCheckRows, AreOverTwoHundredDifferentAgents) {
    std::vector<std::pair<Value, std::string>> different;
    for (const auto& row : checkRows()) {
        const std::pair agent(row.agent, row.name);
        EXPECT_THAT(different, testing::Not(Contains(agent))) << row.name;
        different.push_back(agent);
    }
    EXPECT_GT(different.size(), 200U);
}

TEST(AgentCheckRows, BreakAndKeepEveryRule) {
    std::set<std::string> broken, kept, known;
    for (const auto& row : checkRows())
        (row.breaksRule() ? broken : kept).insert(row.rule);
    for (const auto& rule : checkRules())
        known.emplace(rule.id);
    EXPECT_EQ(broken, known);
    EXPECT_EQ(kept, known);
}

TEST(AgentCheckRows, UseEveryVariantOfTheWords) {
    // The words up to the first argument tell the variants of a rule apart.
    std::vector<std::string> all;
    for (const auto& row : checkRows())
        all.insert(all.end(), row.findings.begin(), row.findings.end());
    for (const auto& rule : checkRules()) {
        EXPECT_FALSE(rule.words.empty()) << rule.id;
        for (const auto words : rule.words) {
            const std::string start(words.substr(0, words.find('%')));
            const auto uses = [&](const std::string& finding) {
                return finding.starts_with(std::string(rule.id) + " ") &&
                       finding.find(": " + start) != std::string::npos;
            };
            EXPECT_TRUE(std::any_of(all.begin(), all.end(), uses)) << rule.id << ": " << words;
        }
    }
}

TEST(AgentChecks, FindNothingInBelievableAgents) {
    for (const auto& agent : {backup(), server(), poller(), watcher()})
        EXPECT_THAT(checkAgent(agent, homeContext()), IsEmpty());
}

TEST(AgentChecks, ReportTheSeverityOfTheRule) {
    std::map<std::string, Severity> severities;
    for (const auto& rule : checkRules())
        severities[std::string(rule.id)] = rule.severity;
    for (const auto& row : checkRows())
        for (const auto& finding : checkAgent(row.agent, row.context))
            EXPECT_EQ(finding.severity, severities.at(finding.rule)) << row.name;
}

TEST(AgentChecks, ListTheFileFirstAndUnknownKeysLast) {
    const Value agent = edited(
        poller(), {{"Aardvark", 1}, {"Nice", -5}, {"StartInterval", 0}, {"Label", std::nullopt}});
    CheckContext context;
    context.mode = 0664;
    std::vector<std::string> keys;
    for (const auto& finding : checkAgent(agent, context))
        keys.push_back(finding.key);
    EXPECT_THAT(keys, testing::ElementsAre("", "Label", "StartInterval", "Nice", "Aardvark"));
}

TEST(AgentChecks, ReportAtMostTwentyFindingsOfARule) {
    auto agent = poller();
    for (int i = 0; i < 1000; ++i)
        agent["Unheard" + std::to_string(i)] = i;
    EXPECT_THAT(checkAgent(agent), SizeIs(20));
}

TEST(AgentChecks, LookForTheNearestOfAHundredUnknownKeys) {
    auto agent = poller();
    for (int i = 100; i < 199; ++i)
        agent["Unheard" + std::to_string(i)] = i;
    agent["Watchpath"] = Array{};
    EXPECT_THAT(checkAgent(agent), SizeIs(21));
    agent["Unheard199"] = 199;
    EXPECT_THAT(checkAgent(agent), SizeIs(20));
}

TEST(AgentChecks, ShortenLongTextsBetweenCharacters) {
    // 119 bytes, then a character of two bytes across the limit of 120.
    const auto agent = edited(backup(), {{"ProcessType", std::string(119, 'x') + "\u00e9tail"}});
    const auto findings = checkAgent(agent);
    ASSERT_THAT(findings, SizeIs(1));
    EXPECT_EQ(findings[0].text, "is “" + std::string(119, 'x') +
                                    "\u2026”; launchd's manual names "
                                    "Background, Standard, Adaptive and Interactive");
}

TEST(AgentChecks, ShowNoControlCharacters) {
    const auto agent = edited(backup(), {{"ProcessType", "a\x1b[31m\n\x7f"}});
    EXPECT_THAT(checkAgent(agent)[0].text, testing::StartsWith("is “a [31m  ”;"));
    const auto others = edited(backup(), {{"ProcessType", "\u00809\u009f\u00a0\u00a9\xc2"}});
    EXPECT_THAT(checkAgent(others)[0].text, testing::StartsWith("is “  9  \u00a0\u00a9\xc2”;"));
}

TEST(AgentChecks, NameTheSeverities) {
    EXPECT_EQ(severityName(Severity::Refused), "refused");
    EXPECT_EQ(severityName(Severity::Ignored), "ignored");
    EXPECT_EQ(severityName(Severity::Suspicious), "suspicious");
    EXPECT_EQ(severityName(Severity::Note), "note");
}

} // namespace
} // namespace frimbolate::test
