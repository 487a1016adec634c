// The checks of an agent, the findings of the form that it is read into, its sentence and next run.
#include "core/agent_checks.h"
#include "core/agent_plist.h"
#include "core/agent_reader.h"
#include "core/agent_sentence.h"
#include "core/check_rules.h"
#include "core/finding_hints.h"
#include "core/form_presentation.h"
#include "core/named_error.h"
#include "core/next_run.h"
#include "plist/key_lines.h"
#include "tests/core/recording_host.h"
#include "tests/fuzz/fuzz_bytes.h"
#include "tests/fuzz/fuzz_target.h"

#include <algorithm>
#include <chrono>
#include <map>

namespace frimbolate::test {

namespace {

using namespace std::chrono_literals;

/// Saturday, 21 November 2026, 09:41.
const LocalMinute checkTime{
    std::chrono::local_days(std::chrono::year_month_day(
        std::chrono::year(2026), std::chrono::November, std::chrono::day(21))) +
    9h + 41min};

/// A machine on which a path is anything, and always the same.
CheckContext machineOf(std::string_view input) {
    CheckContext context;
    context.filePath = std::string(input.substr(0, input.size() / 3));
    context.mode = static_cast<unsigned>(input.size() % 512);
    context.ownedByUser = input.size() % 3 != 0;
    context.home = "/Users/ada";
    context.pathState = [](const std::string& path) {
        return static_cast<PathState>(path.size() % (static_cast<int>(PathState::Unknown) + 1));
    };
    return context;
}

bool isPrintable(std::string_view text) {
    return std::ranges::none_of(text, [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte < 0x20 || byte == 0x7f;
    });
}

void requireFinding(const Finding& finding) {
    const auto rule = std::ranges::find(checkRules(), finding.rule, &CheckRule::id);
    require(rule != checkRules().end(), "a finding is that of a rule");
    require(rule->severity == finding.severity, "a finding is as severe as its rule");
    require(!finding.text.empty() && isPrintable(finding.text), "a finding can be shown");
}

void requireFindings(const std::vector<Finding>& findings, std::string_view input) {
    std::map<std::string, int> counts;
    const auto lines = static_cast<std::size_t>(std::ranges::count(input, '\n')) + 1;
    const KeyLines keys = keyLines(input);
    for (const Finding& finding : findings) {
        requireFinding(finding);
        require(++counts[finding.rule] <= FindingList::mostPerRule, "a rule has few findings");
        const auto line = lineOfKey(keys, finding.key);
        require(!line || (*line >= 1 && *line <= lines), "a finding lies within the file");
    }
}

void requireNextRun(const Dictionary& agent) {
    const auto run = nextRun(agent, checkTime);
    if (!run)
        return;
    require(*run > checkTime, "the next run is still to come");
    require(nextRun(agent, WallClock(*run)) != run, "the run after it is another one");
    require(nextRun(agent, WallClock(*run - 1min)) == run, "it is the next one until it comes");
    for (const ClockFormat clock : {ClockFormat::TwelveHours, ClockFormat::TwentyFourHours}) {
        require(nextRunText(*run, checkTime, clock).starts_with("Next: "), "a next run has a text");
        require(!shortRunText(*run, checkTime, clock).empty(), "a next run has a short text");
    }
}

/// The findings of the form say what the findings of its file say.
void requireFormFindings(const Dictionary& agent, const CheckContext& context) {
    RecordingHost host;
    try {
        AgentReader(host).read(agent);
    } catch (const NamedError&) {
        return;
    }
    const AgentForm form = agentForm(host.form());
    const Faults faults = validate(form);
    const auto all = formFindings(form, faults, context);
    for (const FormFinding& one : all) {
        requireFinding(one.finding);
        require(!one.text.empty() && isPrintable(one.text), "a finding of the form can be shown");
        require(one.finding.severity != Severity::Note || !one.text.empty(), "a note has a text");
    }
    for (const FormFinding& one : shownFindings(form, faults, context)) {
        require(one.finding.severity != Severity::Note, "no note is shown in the form");
        require(std::ranges::find(all, one) != all.end(), "what is shown was found");
    }
    require(!present(host.form()).summary.sentence.empty(), "every form has a sentence");
}

} // namespace

void fuzzChecks(std::string_view input) {
    const Value agent = fuzzedAgent(input);
    const CheckContext context = machineOf(input);
    const auto findings = checkAgent(agent, context);
    require(findings == checkAgent(agent, context), "checking again finds the same");
    requireFindings(findings, input);
    const auto* keys = agent.dictionary();
    require(keys || findings.size() == 1, "what is no dictionary is one finding");
    if (!keys)
        return;
    require(!agentSentence(*keys, {}).empty(), "every agent has a sentence");
    requireNextRun(*keys);
    requireFormFindings(*keys, context);
}

} // namespace frimbolate::test
