// Every key with a value of every type: a value of a wrong type fails its own step and no other.
#include "tests/core/recording_host.h"
#include "tests/support/agent_key_table.h"
#include "tests/support/rows.h"

#include "core/named_error.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace frimbolate::test {

namespace {

const Lines targetFails = {
    "log: ProgramArguments key could not be read or key contained unexpected content.", keysAlert,
    "reset"};
const Lines advancedFail = {keysAlert, "log: Completed evaluating keys for advanced drawer"};
constexpr const char* lastLine = "log: Completed evaluating primary keys for editing";

/// How often a sequence of effects occurs in a journal.
int occurrences(const Lines& journal, const Lines& effects) {
    int count = 0;
    for (auto at = journal.begin();; ++at) {
        at = std::search(at, journal.end(), effects.begin(), effects.end());
        if (at == journal.end())
            return count;
        ++count;
    }
}

void expectOutcomeFrom(const FormModel& start, const AgentPlist& file, FailedStep failure,
                       SelectedSchedule schedule) {
    RecordingHost editor(start);
    bool failed = false;
    try {
        AgentReader(editor).read(file);
    } catch (const NamedError&) {
        failed = true;
    }
    const auto& journal = editor.journal;
    const bool argumentsFail = failure == FailedStep::ProgramArguments;
    const bool advancedKeysFail = failure == FailedStep::AdvancedKeys;
    EXPECT_EQ(failed, failure == FailedStep::WholeReading);
    EXPECT_EQ(occurrences(journal, targetFails), argumentsFail ? 1 : 0);
    EXPECT_EQ(occurrences(journal, advancedFail), advancedKeysFail ? 1 : 0);
    EXPECT_EQ(occurrences(journal, {keysAlert}), argumentsFail || advancedKeysFail ? 1 : 0);
    EXPECT_EQ(occurrences(journal, {lastLine}), failed ? 0 : 1);
    if (!failed) {
        EXPECT_EQ(journal.back(), lastLine);
    }
    const auto& kept = (argumentsFail ? newAgentForm() : start).agentScheduleTypeButton;
    EXPECT_EQ(editor.form().agentScheduleTypeButton.selectedItem,
              schedule.value_or(kept.selectedItem));
}

void expectOutcome(const AgentPlist& file, FailedStep failure, SelectedSchedule schedule) {
    for (const auto& start : startForms()) {
        SCOPED_TRACE(start.name);
        expectOutcomeFrom(start.form, file, failure, schedule);
    }
}

class EveryType : public testing::TestWithParam<KeyRow> {};

TEST_P(EveryType, FailsInItsOwnStep) {
    const auto& row = GetParam();
    for (std::size_t i = 0; i < valueKindCount; ++i) {
        const auto& kind = valueKinds()[i];
        SCOPED_TRACE(kind.name);
        expectOutcome(agentWith(row, kind, false), row.fails[i], row.selects[i]);
    }
}

TEST_P(EveryType, FailsInItsOwnStepBesideASchedule) {
    const auto& row = GetParam();
    for (std::size_t i = 0; i < valueKindCount; ++i) {
        const auto& kind = valueKinds()[i];
        SCOPED_TRACE(kind.name);
        expectOutcome(agentWith(row, kind, true), row.failsBeside[i], row.selectsBeside[i]);
    }
}

/// The keys of a schedule, and the item that they select.
struct Schedule {
    const char* name;
    Dictionary keys;
    SelectedSchedule selected;
};

std::vector<Schedule> schedules() {
    const auto calendar = [](Value value) { return Dictionary{{"StartCalendarInterval", value}}; };
    const Value monthly = Dictionary{{"Hour", 7}, {"Minute", 5}, {"Day", 3}};
    const Value four = Dictionary{{"Hour", 7}, {"Minute", 5}, {"Day", 3}, {"Weekday", 3}};
    return {{"once a month", calendar(monthly), ScheduleType::OnceAMonth},
            {"four entries", calendar(four), keptSelection},
            {"several calendars", calendar(Array{monthly, four}), ScheduleType::OnInterval},
            {"broken hour", calendar(Dictionary{{"Hour", Array{}}}), ScheduleType::OnInterval},
            {"interval", {{"StartInterval", 60}}, ScheduleType::OnInterval},
            {"at load", {{"RunAtLoad", true}}, ScheduleType::AtLoad},
            {"both", {{"RunAtLoad", true}, {"StartInterval", 60}}, ScheduleType::OnInterval}};
}

class OtherKey : public testing::TestWithParam<KeyRow> {};

TEST_P(OtherKey, LeavesEverySchedule) {
    const auto& row = GetParam();
    for (const auto& schedule : schedules())
        for (std::size_t i = 0; i < valueKindCount; ++i) {
            SCOPED_TRACE(std::string(valueKinds()[i].name) + ", " + schedule.name);
            auto file = agentWith(row, valueKinds()[i], false);
            file.insert(schedule.keys.begin(), schedule.keys.end());
            const auto failure = row.failsBeside[i];
            expectOutcome(file, failure,
                          failure == FailedStep::WholeReading ? keptSelection : schedule.selected);
        }
}

std::vector<KeyRow> otherKeys() {
    std::vector<KeyRow> rows(keyRows().begin(), keyRows().end());
    std::erase_if(rows, [](const KeyRow& row) { return row.isOfSchedule; });
    return rows;
}
INSTANTIATE_TEST_SUITE_P(Key, OtherKey, testing::ValuesIn(otherKeys()), NamedAfterRow());
INSTANTIATE_TEST_SUITE_P(Key, EveryType, testing::ValuesIn(keyRows()), NamedAfterRow());

} // namespace

} // namespace frimbolate::test
