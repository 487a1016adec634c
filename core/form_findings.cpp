#include "core/form_findings.h"

#include "core/agent_plist.h"

#include <algorithm>

namespace frimbolate {

namespace {

using Row = std::optional<FormRow>;
constexpr Row drawer = std::nullopt;

/// What a key is called in the form, and the row that it is from.
struct Origin {
    std::string_view key; ///< without the keys and indexes behind it
    std::string_view name;
    Row row;
};

/// Only an additional StartOnMount can have a finding: KeepAlive may stand beside it.
constexpr Origin origins[] = {
    {"", "The agent", FormRow::Action},
    {"Label", "The name", FormRow::Name},
    {"ProgramArguments", "The program", FormRow::Target},
    {"KeepAlive", "The agent", FormRow::Action},
    {"StartOnMount", "The mounting of a volume", drawer},
    {"WatchPaths", "The watched path", FormRow::Action},
    {"StartInterval", "The interval", FormRow::Schedule},
    {"StartCalendarInterval", "The schedule", FormRow::Schedule},
    {"RunAtLoad", "The loading", FormRow::Schedule},
    {"Nice", "The nice level", drawer},
    {"QueueDirectories", "The queue folder", drawer},
    {"RootDirectory", "The root folder", drawer},
    {"WorkingDirectory", "The working folder", drawer},
    {"StandardInPath", "The standard input", drawer},
    {"StandardOutPath", "The standard output", drawer},
    {"StandardErrorPath", "The standard error", drawer},
};

const Origin* originOf(std::string_view key) {
    const auto first = key.substr(0, key.find_first_of(".["));
    const auto* found = std::find_if(std::begin(origins), std::end(origins),
                                     [first](const Origin& origin) { return origin.key == first; });
    return found == std::end(origins) ? nullptr : found;
}

/// The additional path of the drawer replaces that of the row.
Row rowOf(const Origin& origin, const AgentForm& form) {
    return origin.key == "WatchPaths" && form.alsoRunOnPathChange ? drawer : origin.row;
}

/// The arguments are a chosen file alone, or an interpreter and what it runs.
bool hasInterpreter(const AgentPlist& file) {
    const auto* arguments = file.at("ProgramArguments").array();
    return arguments && arguments->size() > 1;
}

std::string_view nameOf(const Origin& origin, const Finding& finding, const AgentPlist& file) {
    if (finding.key == "ProgramArguments[0]" && hasInterpreter(file))
        return "The interpreter";
    if (finding.key == "ProgramArguments[1]")
        return "The script";
    if (finding.key == "StartCalendarInterval.Day")
        return "The day";
    return origin.name;
}

/// Whether the form says so itself, since something is missing in it.
bool isOfIncompleteForm(const Finding& finding, const AgentForm& form, const Faults& faults) {
    return (finding.rule == "arguments-empty" && form.targetPath.empty()) ||
           (finding.rule == "no-trigger" && !faults.empty());
}

} // namespace

std::vector<FormFinding> formFindings(const AgentForm& form, const Faults& faults,
                                      const CheckContext& context) {
    CheckContext machine;
    machine.home = context.home;
    machine.pathState = context.pathState;
    const auto label = std::string(labelPrefix) + form.name;
    std::vector<FormFinding> result;
    const auto file = buildAgentPlist(form, label);
    for (auto& finding : checkAgent(file, machine)) {
        const auto* origin = originOf(finding.key);
        if (!origin || isOfIncompleteForm(finding, form, faults))
            continue;
        const Row row = rowOf(*origin, form);
        if (row && faultOfRow(faults, *row))
            continue;
        const std::string name(nameOf(*origin, finding, file));
        auto text = name + " " + finding.text;
        result.push_back({row, std::move(text), std::move(finding), name});
    }
    return result;
}

const FormFinding* findingOfRow(const std::vector<FormFinding>& findings,
                                std::optional<FormRow> row) {
    const FormFinding* worst = nullptr;
    for (const auto& candidate : findings)
        if (candidate.row == row &&
            (!worst || candidate.finding.severity < worst->finding.severity))
            worst = &candidate;
    return worst;
}

} // namespace frimbolate
