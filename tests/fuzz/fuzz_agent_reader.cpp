// The reader of agents into the form, the overview in the list of agents, and the upgraded names.
#include "core/agent_form.h"
#include "core/agent_overview.h"
#include "core/agent_reader.h"
#include "core/agent_upgrade.h"
#include "core/named_error.h"
#include "core/pop_up_items.h"
#include "core/validation.h"
#include "tests/core/recording_host.h"
#include "tests/fuzz/fuzz_bytes.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/fuzz/reader_properties.h"

#include <optional>
#include <span>

namespace frimbolate::test {

namespace {

/// The form after the reading of an agent, or nothing where the reader throws.
std::optional<FormModel> read(const AgentPlist& agent) {
    RecordingHost host;
    try {
        AgentReader(host).read(agent);
    } catch (const NamedError& error) {
        require(!error.name().empty() && !error.reason().empty(), "a failure has a reason");
        return std::nullopt;
    }
    require(host.journal.back() == "log: Completed evaluating primary keys for editing",
            "a reading that does not throw ends");
    return host.form();
}

bool isItem(const PopUp& popUp, std::span<const PopUpItem> items) {
    return popUp.selectedItem >= -1 && popUp.selectedItem < static_cast<int>(items.size());
}

void requireValidForm(const FormModel& form) {
    require(isItem(form.agentTargetButton, agentTargetItems()) &&
                isItem(form.agentActionButton, agentActionItems()) &&
                isItem(form.agentScheduleTypeButton, agentScheduleTypeItems()) &&
                isItem(form.agentIntervalTypeButton, agentIntervalTypeItems()) &&
                isItem(form.priorityLevelButton, priorityLevelItems()),
            "every selection is an item");
    const LocalDateTime time = form.agentScheduleDatePicker.dateValue;
    require(time.hour >= 0 && time.hour < 24 && time.minute >= 0 && time.minute < 60,
            "the time lies within a day");
}

/// The keys that a form is written as, without the label, which is made of the name.
AgentPlist writtenKeys(const AgentForm& form) {
    AgentPlist agent = buildAgentPlist(form, "com.frimbolate.name");
    return agent;
}

/// What is read and written twice stays as it is.
void requireFixedPoint(const FormModel& form) {
    const AgentForm record = agentForm(form);
    if (!validate(record).empty())
        return;
    const auto second = read(writtenKeys(record));
    require(second.has_value(), "a written agent can be read");
    const AgentPlist written = writtenKeys(agentForm(*second));
    requireXmlHolds(written);
    const auto third = read(written);
    require(third && writtenKeys(agentForm(*third)) == written,
            "an agent that was read and written stays as it is");
}

void requireNames(const std::string& path) {
    const UpgradedNames names = upgradedNames(path);
    require(names.fileName.find('/') == std::string::npos, "an upgraded name is no path");
    require(names.label.starts_with(labelPrefix), "an upgraded label has the prefix");
}

} // namespace

void fuzzAgentReader(std::string_view input) {
    const Value agent = fuzzedAgent(input);
    const std::string path(input.substr(input.size() / 2));
    requireNames(path);
    const AgentOverview overview = agentOverview(agent, path, {}, {});
    require(!overview.sentence.empty() && overview.path == path, "every file has an overview");
    require((overview.kind == AgentKind::Unreadable) == !agent.dictionary(),
            "only a dictionary is an agent");
    const auto* keys = agent.dictionary();
    if (!keys)
        return;
    const auto form = read(*keys);
    require(form == read(*keys), "reading again gives the same form");
    if (!form)
        return;
    requireValidForm(*form);
    requireFixedPoint(*form);
}

} // namespace frimbolate::test
