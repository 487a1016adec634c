// The keys that launchd reads in the property list of an agent, with their types and states.
#pragma once

#include "core/value.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace frimbolate {

/// Some kinds of value, as a set of bits.
namespace Kinds {
enum : unsigned { None = 0, String = 1, Boolean = 2, Integer = 4, Array = 8, Dictionary = 16 };
inline constexpr unsigned Any = ~0U;
} // namespace Kinds

/// The values that a key takes.
struct KeyType {
    unsigned kinds = Kinds::Any;    ///< of the value itself
    unsigned elements = Kinds::Any; ///< of the elements of an array
    unsigned entries = Kinds::Any;  ///< of the entries of a dictionary, in an array as well
    std::string_view words;         ///< "an array of strings"
};

/// What launchd makes of a key.
enum class KeyState {
    Current,
    Discouraged,   ///< read, but its manual advises against it
    DaemonsOnly,   ///< ignored in an agent
    NotSupported,  ///< no longer supported
    WithoutEffect, ///< no longer does anything
    Retired,       ///< still understood; should be removed
    Undocumented,  ///< read, but not in the manual: never reported as misspelt
    Reported,      ///< told by launchctl, never read
    Unread         ///< never was a key of launchd, but is often met
};

/// One key, at the top of the file or within the dictionary of another key.
struct LaunchdKey {
    /// The key path of the dictionary that holds it: "" for the file itself,
    /// "StartCalendarInterval"; "MachServices.*" for any entry of MachServices.
    std::string_view parent;
    std::string_view name;
    KeyType type;
    KeyState state = KeyState::Current;
    /// The least and the greatest number; both 0 where the manual names no bounds.
    std::int64_t least = 0;
    std::int64_t greatest = 0;

    bool hasBounds() const { return least != greatest; }
};

/// Every key, in the order of the manual. The keys within another follow it.
std::span<const LaunchdKey> launchdKeys();

/// The key of exactly this name, or nullptr.
const LaunchdKey* launchdKey(std::string_view parent, std::string_view name);

/// Whether the keys within a parent are known; other dictionaries have names of the user's choice.
bool hasKnownKeys(std::string_view parent);

/// The key that a misspelt one stands for: that of the same letters in another case, else the one
/// that the fewest inserted, removed, replaced or swapped letters lead to. nullptr where none is
/// near: more than a quarter of the longer name differs.
/// Only keys that are worth writing are proposed.
const LaunchdKey* nearestLaunchdKey(std::string_view parent, std::string_view name);

/// Whether two names differ at most in the case of their Latin letters.
bool areEqualWithoutCase(std::string_view a, std::string_view b);

/// Whether a value is of one of the kinds. A boolean is no integer, and neither is a real.
bool isOfKinds(const Value& value, unsigned kinds);

/// The kinds by name: "a boolean or a dictionary".
std::string kindsInWords(unsigned kinds);

/// The name of a value's kind with its article: "an integer"; "data".
std::string kindWithArticle(const Value& value);

} // namespace frimbolate
