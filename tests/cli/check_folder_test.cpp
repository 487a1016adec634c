// The made agents of the checks, each in a file: the terminal prints exactly their findings.
#include "plist/xml_writer.h"
#include "tests/cli/terminal_run.h"
#include "tests/support/check_rows.h"
#include "tests/support/temporary_folder.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <regex>
#include <set>
#include <sys/stat.h>

namespace frimbolate::test {
namespace {

constexpr std::size_t leastRows = 200;

/// Whether a property list of this user can be what the row describes.
bool canBeAFile(const CheckRow& row) {
    const auto& path = row.context.filePath;
    return (path.empty() || path.ends_with(".plist")) && row.agent.dictionary() &&
           row.context.ownedByUser != false &&
           (row.context.home.empty() || row.context.home == homeContext().home);
}

std::string fileNameOf(const CheckRow& row) {
    const auto& path = row.context.filePath;
    if (!path.empty())
        return path.substr(path.rfind('/') + 1);
    const Value* label = find(*row.agent.dictionary(), "Label");
    const bool isName = label && label->string() && !label->string()->empty() &&
                        label->string()->find('/') == std::string::npos;
    return (isName ? *label->string() : "agent") + ".plist";
}

/// A finding of a row, "rule key: text", as the terminal prints it behind the name of the file.
std::string printedFinding(const std::string& finding) {
    const auto space = finding.find(' ');
    const auto id = finding.substr(0, space);
    auto text = finding.substr(space + 1);
    if (text.starts_with(": "))
        text.erase(0, 2);
    const auto rule = std::ranges::find(checkRules(), id, &CheckRule::id);
    EXPECT_NE(rule, checkRules().end()) << id;
    return text + " [" + std::string(severityName(rule->severity)) + "]";
}

/// The printed lines without the number of the line in the file.
std::vector<std::string> linesOf(const std::string& printed, const std::string& path) {
    std::vector<std::string> lines;
    std::istringstream in(printed);
    for (std::string line; std::getline(in, line);) {
        EXPECT_TRUE(line.starts_with(path)) << line;
        lines.push_back(
            std::regex_replace(line.substr(path.size()), std::regex("^(:[0-9]+)?: "), ""));
    }
    return lines;
}

TEST(CheckedFolder, PrintsExactlyTheFindingsOfEveryMadeAgent) {
    std::set<std::string> broken, kept;
    std::size_t checked = 0;
    for (const CheckRow& row : checkRows()) {
        if (!canBeAFile(row))
            continue;
        SCOPED_TRACE(row.name);
        const TemporaryFolder folder;
        const auto path = folder / fileNameOf(row);
        writeBytes(path, xmlPropertyList(*row.agent.dictionary()));
        ::chmod(path.c_str(), row.context.mode.value_or(0644));
        TerminalInput input{.home = row.context.home};
        input.pathState = row.context.pathState;
        const auto result = run({"check", folder.path()}, input);
        std::vector<std::string> expected;
        for (const auto& finding : row.findings)
            expected.push_back(printedFinding(finding));
        EXPECT_THAT(linesOf(result.err, path), testing::ElementsAreArray(expected));
        EXPECT_EQ(result.code, row.findings.empty() ? 0 : 1);
        (row.breaksRule() ? broken : kept).insert(row.rule);
        ++checked;
    }
    EXPECT_GE(checked, leastRows);
    for (const CheckRule& rule : checkRules()) {
        const std::string id(rule.id);
        if (id == "no-dictionary" || id == "file-owner")
            continue; // no file of the user's can break them
        EXPECT_TRUE(broken.contains(id)) << id;
        EXPECT_TRUE(kept.contains(id)) << id;
    }
}

TEST(CheckedFolder, FindsAFileThatHoldsNoDictionary) {
    const TemporaryFolder folder;
    writeBytes(folder / "a.plist", "<plist><string>x</string></plist>");
    const auto result = run({"check", folder.path()});
    EXPECT_EQ(result.code, 1);
    EXPECT_THAT(result.err, testing::EndsWith("is a string; launchd reads a dictionary of keys "
                                              "[refused]\n"));
}

} // namespace
} // namespace frimbolate::test
