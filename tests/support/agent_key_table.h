// What each key of an agent file costs when it holds a value of each type: the one table that
// every test of odd agents reads.
#pragma once

#include "core/agent_plist.h"

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace frimbolate::test {

/// A value of a type, or nothing for a missing key.
struct ValueKind {
    const char* name;
    std::optional<Value> value;
};
inline constexpr std::size_t valueKindCount = 20;
const std::array<ValueKind, valueKindCount>& valueKinds();

/// A key with an outcome per kind, in the order of valueKinds():
///   failures    '.' none, '!' the whole reading, 'P' the program arguments, 'A' the advanced keys
///   schedules   the item selected in the end: 'K' the one that was selected before, 'D' every
///               day, 'S' 'O' 'T' 'W' Sunday to Wednesday, 'M' once a month, 'L' at load, 'I' on
///               interval, 'N' no selection
struct KeyRow {
    const char* name;
    const char* key;
    const char* inside; ///< the dictionary that holds the key, or null
    std::string_view failures, schedules;
    // The same beside a schedule: a daily one, or a weekly one for the keys of the calendar.
    std::string_view failuresBeside, schedulesBeside;
    bool isOfSchedule = false; ///< the key itself decides the schedule, whatever stands beside it
};
std::span<const KeyRow> keyRows();

/// The schedule item that a letter of the table stands for.
/// \param kept the item selected before the reading; a new agent's unless told otherwise
int scheduleItem(char letter, int kept = ScheduleType::EveryDay);

/// A sound agent whose key holds the value, with or without a schedule beside it.
AgentPlist agentWith(const KeyRow& row, const ValueKind& kind, bool beside);

} // namespace frimbolate::test
