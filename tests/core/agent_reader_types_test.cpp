// Every key with a value of every type: what fails, fails in its own step and nowhere else.
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

/// How often some effects follow each other in a journal.
int occurrences(const Lines& journal, const Lines& effects) {
    int count = 0;
    for (auto at = journal.begin();; ++at) {
        at = std::search(at, journal.end(), effects.begin(), effects.end());
        if (at == journal.end())
            return count;
        ++count;
    }
}

void expectOutcomeFrom(const FormModel& start, const AgentPlist& file, char failure,
                       char schedule) {
    RecordingHost editor(start);
    bool failed = false;
    try {
        AgentReader(editor).read(file);
    } catch (const NamedError&) {
        failed = true;
    }
    const auto& journal = editor.journal;
    EXPECT_EQ(failed, failure == '!');
    EXPECT_EQ(occurrences(journal, targetFails), failure == 'P' ? 1 : 0);
    EXPECT_EQ(occurrences(journal, advancedFail), failure == 'A' ? 1 : 0);
    EXPECT_EQ(occurrences(journal, {keysAlert}), failure == 'P' || failure == 'A' ? 1 : 0);
    EXPECT_EQ(occurrences(journal, {lastLine}), failed ? 0 : 1);
    if (!failed) {
        EXPECT_EQ(journal.back(), lastLine);
    }
    const auto& kept = (failure == 'P' ? newAgentForm() : start).agentScheduleTypeButton;
    EXPECT_EQ(editor.form().agentScheduleTypeButton.selectedItem,
              scheduleItem(schedule, kept.selectedItem));
}

void expectOutcome(const AgentPlist& file, char failure, char schedule) {
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
        expectOutcome(agentWith(row, kind, false), row.failures[i], row.schedules[i]);
    }
}

TEST_P(EveryType, FailsInItsOwnStepBesideASchedule) {
    const auto& row = GetParam();
    for (std::size_t i = 0; i < valueKindCount; ++i) {
        const auto& kind = valueKinds()[i];
        SCOPED_TRACE(kind.name);
        expectOutcome(agentWith(row, kind, true), row.failuresBeside[i], row.schedulesBeside[i]);
    }
}

/// Schedules of every form, and what they read as.
struct Schedule {
    const char* name;
    Dictionary keys;
    char letter; ///< of the table
};

std::vector<Schedule> schedules() {
    const auto calendar = [](Value value) { return Dictionary{{"StartCalendarInterval", value}}; };
    const Value monthly = Dictionary{{"Hour", 7}, {"Minute", 5}, {"Day", 3}};
    const Value four = Dictionary{{"Hour", 7}, {"Minute", 5}, {"Day", 3}, {"Weekday", 3}};
    return {{"once a month", calendar(monthly), 'M'},
            {"four entries", calendar(four), 'K'},
            {"several calendars", calendar(Array{monthly, four}), 'I'},
            {"broken hour", calendar(Dictionary{{"Hour", Array{}}}), 'I'},
            {"interval", {{"StartInterval", 60}}, 'I'},
            {"at load", {{"RunAtLoad", true}}, 'L'},
            {"both", {{"RunAtLoad", true}, {"StartInterval", 60}}, 'I'}};
}

class OtherKey : public testing::TestWithParam<KeyRow> {};

TEST_P(OtherKey, LeavesEverySchedule) {
    const auto& row = GetParam();
    for (const auto& schedule : schedules())
        for (std::size_t i = 0; i < valueKindCount; ++i) {
            SCOPED_TRACE(std::string(valueKinds()[i].name) + ", " + schedule.name);
            auto file = agentWith(row, valueKinds()[i], false);
            file.insert(schedule.keys.begin(), schedule.keys.end());
            const char failure = row.failuresBeside[i];
            expectOutcome(file, failure, failure == '!' ? 'K' : schedule.letter);
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
