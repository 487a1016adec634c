// docs/checks.md and the table of rules: the same rules, and examples that are found as it says.
#include "core/agent_checks.h"

#include "plist/property_list_reader.h"
#include "tests/support/check_rows.h"

#include <gmock/gmock.h>

#include <fstream>

namespace frimbolate::test {
namespace {

/// The section of one rule.
struct Section {
    std::string id, severity, example, report, advice;
};

std::vector<Section> readSections() {
    std::ifstream document(FRIMBOLATE_CHECK_DOCUMENT);
    std::vector<Section> sections;
    bool isInExample = false;
    for (std::string line; std::getline(document, line);) {
        if (line.starts_with("### ")) {
            sections.push_back({line.substr(4), "", "", "", ""});
        } else if (line.starts_with("```")) {
            isInExample = !isInExample;
        } else if (!sections.empty() && !line.empty() && !line.starts_with("## ")) {
            auto& section = sections.back();
            if (isInExample)
                section.example += line + "\n";
            else if (line.starts_with("> "))
                section.report = line.substr(2);
            else if (section.report.empty())
                section.severity = line;
            else
                section.advice += line;
        }
    }
    return sections;
}

/// The agent of an example: what launchd requires, and the keys of the example.
Value agentOf(const Section& section) {
    const auto keys =
        readPropertyList("<plist version=\"1.0\"><dict>" + section.example + "</dict></plist>");
    Dictionary agent = {{"Label", "com.example.agent"},
                        {"ProgramArguments", texts({"/usr/bin/tool"})}};
    for (const auto& [key, value] : keys.asDictionary())
        agent.insert_or_assign(key, value);
    return agent;
}

/// A finding as the document quotes it.
std::string quoted(const Finding& finding) {
    return finding.key.empty() ? finding.text : finding.key + ": " + finding.text;
}

TEST(CheckDocument, DescribesEveryRuleInTheOrderOfTheTable) {
    std::vector<std::string> described, known;
    for (const auto& section : readSections())
        described.push_back(section.id + " *" + section.severity.substr(1));
    for (const auto& rule : checkRules())
        known.push_back(std::string(rule.id) + " *" + std::string(severityName(rule.severity)) +
                        "*");
    EXPECT_EQ(described, known);
}

TEST(CheckDocument, SaysWhatToDo) {
    for (const auto& section : readSections()) {
        EXPECT_GT(section.advice.size(), 20U) << section.id;
        EXPECT_TRUE(section.advice.ends_with('.')) << section.id;
    }
}

TEST(CheckDocument, ReportsWhatTheCheckFindsInTheExample) {
    auto context = machine();
    context.home = homeContext().home;
    int examples = 0;
    for (const auto& section : readSections()) {
        if (section.example.empty())
            continue;
        ++examples;
        std::vector<std::string> found;
        for (const auto& finding : checkAgent(agentOf(section), context))
            if (finding.rule == section.id)
                found.push_back(quoted(finding));
        EXPECT_THAT(found, testing::ElementsAre(section.report)) << section.id;
    }
    EXPECT_GT(examples, 45);
}

TEST(CheckDocument, ReportsWhatAMadeAgentHasWhereItGivesNoExample) {
    std::vector<std::string> made;
    for (const auto& row : checkRows())
        for (const auto& finding : checkAgent(row.agent, row.context))
            made.push_back(finding.rule + " " + quoted(finding));
    for (const auto& section : readSections()) {
        if (section.example.empty()) {
            EXPECT_THAT(made, testing::Contains(section.id + " " + section.report));
        }
    }
}

} // namespace
} // namespace frimbolate::test
