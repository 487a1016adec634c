// What each key of an agent file does when it holds a value of each type: which step of the reading
// fails, and which schedule is selected in the end. The tests of agents with unusual values share
// this table.
#pragma once

#include "core/agent_plist.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace frimbolate::test {

/// A value of a type, or nothing for a missing key.
struct ValueKind {
    const char* name;
    std::optional<Value> value;
};
inline constexpr std::size_t valueKindCount = 20;
const std::array<ValueKind, valueKindCount>& valueKinds();

/// Some of the kinds, by their index in valueKinds().
struct KindSet {
    std::uint32_t bits;

    constexpr bool contains(std::size_t kind) const { return (bits >> kind & 1U) != 0; }
    constexpr KindSet operator|(KindSet other) const { return {bits | other.bits}; }
    constexpr KindSet operator~() const { return {~bits}; }
};

/// A value per kind.
template <typename T>
struct PerKind {
    std::array<T, valueKindCount> values;

    constexpr explicit PerKind(T everywhere) { values.fill(everywhere); }
    constexpr PerKind where(KindSet kinds, T value) const {
        PerKind result = *this;
        for (std::size_t kind = 0; kind < valueKindCount; ++kind)
            if (kinds.contains(kind))
                result.values[kind] = value;
        return result;
    }
    constexpr T operator[](std::size_t kind) const { return values[kind]; }
};

/// The step of the reading that a value makes fail.
enum class FailedStep { None, WholeReading, ProgramArguments, AdvancedKeys };

/// The schedule item selected in the end, or the one that was selected before the reading.
using SelectedSchedule = std::optional<int>;
inline constexpr SelectedSchedule keptSelection = std::nullopt;

struct KeyRow {
    const char* name;
    const char* key;
    const char* inside; ///< the dictionary that holds the key, or null
    PerKind<FailedStep> fails;
    PerKind<SelectedSchedule> selects;
    // The same beside a schedule: a daily one, or a weekly one for the keys of the calendar.
    PerKind<FailedStep> failsBeside;
    PerKind<SelectedSchedule> selectsBeside;
    bool isOfSchedule = false; ///< the key itself decides the schedule, whatever stands beside it
};
std::span<const KeyRow> keyRows();

/// A valid agent whose key holds the value, with or without a schedule beside it.
AgentPlist agentWith(const KeyRow& row, const ValueKind& kind, bool beside);

} // namespace frimbolate::test
