#include "core/finding_hints.h"

#include "core/sentence_words.h"

#include <algorithm>

namespace frimbolate {

namespace {

struct ShortWords {
    std::string_view rule, words;
};
constexpr ShortWords shortWordings[] = {
    {"tilde", "\u201C~\u201D is not expanded"},      {"variable", "a variable is not expanded"},
    {"log-folder-missing", "its folder is missing"}, {"shadowed-trigger", "adds nothing"},
    {"nice-range", "not between -20 and 20"},
};

bool isOf(const Finding& finding, std::string_view key) {
    return std::string_view(finding.key).substr(0, finding.key.find_first_of(".[")) == key;
}

/// Whether a hint of the form says the same.
bool isSaidByForm(const FormFinding& shown) {
    const auto& rule = shown.finding.rule;
    // Each path that can be typed has a hint about "~"; the watched path is chosen.
    const bool isTypedPath = !shown.row && !isOf(shown.finding, "WatchPaths");
    return rule == "after-initial-demand" || rule == "nice-root" || rule == "root-directory" ||
           (rule == "tilde" && isTypedPath);
}

} // namespace

std::vector<FormFinding> shownFindings(const AgentForm& form, const Faults& faults,
                                       const CheckContext& context) {
    auto findings = formFindings(form, faults, context);
    std::erase_if(findings, [](const FormFinding& shown) {
        return shown.finding.severity == Severity::Note || isSaidByForm(shown);
    });
    return findings;
}

std::string shortWords(const FormFinding& finding) {
    constexpr std::string_view article = "The ";
    const auto* wording =
        std::find_if(std::begin(shortWordings), std::end(shortWordings),
                     [&](const ShortWords& row) { return row.rule == finding.finding.rule; });
    if (wording == std::end(shortWordings) || !finding.name.starts_with(article))
        return "";
    return capitalized(finding.name.substr(article.size())).append(": ").append(wording->words);
}

const FormFinding* drawerFindingOf(const std::vector<FormFinding>& findings, std::string_view key) {
    const auto found = std::ranges::find_if(findings, [key](const FormFinding& shown) {
        return !shown.row && isOf(shown.finding, key);
    });
    return found == findings.end() ? nullptr : &*found;
}

const FormFinding* firstOfDrawer(const std::vector<FormFinding>& findings) {
    const auto found =
        std::ranges::find_if(findings, [](const FormFinding& shown) { return !shown.row; });
    return found == findings.end() ? nullptr : &*found;
}

} // namespace frimbolate
