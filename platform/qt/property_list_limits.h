// How much of a property list is taken in. An agent file has a few hundred bytes and three levels;
// whoever needs more than this is after the program's memory or its stack.
#pragma once

#include <cstddef>

namespace frimbolate {

/// The largest file that is read, and the most text and data that reading one may produce.
inline constexpr std::size_t maximumPropertyListBytes = std::size_t{16} * 1024 * 1024;
/// Arrays and dictionaries inside each other, the outermost counted as one.
inline constexpr int maximumPropertyListDepth = 128;
/// The objects that a binary list may ask for. References can be shared, so that a few hundred
/// bytes are able to ask for billions.
inline constexpr std::size_t maximumPropertyListObjects = std::size_t{1} << 18;

/// The name of the Failure that both readers raise.
inline constexpr const char* unreadablePropertyList = "Unreadable property list";

} // namespace frimbolate
