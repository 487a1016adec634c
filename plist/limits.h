// Limits of the property-list readers. A usual agent file has a few hundred bytes and three levels.
#pragma once

#include <algorithm>
#include <cstddef>

namespace frimbolate {

/// The name of the NamedError that every reader raises.
inline constexpr const char* unreadablePlist = "Unreadable property list";

/// The largest file that is read, in bytes.
inline constexpr std::size_t maximumPlistBytes = std::size_t{16} * 1024 * 1024;

/// The deepest nesting of arrays and dictionaries; the outermost one counts.
inline constexpr std::size_t maximumPlistDepth = 512;

/// The memory that the value of a file may take while it is read; both sizes in bytes. An element
/// of an old-style file has two bytes, and one of its value over fifty; references of a binary file
/// can be shared, so its reader accounts each one. The upper limit leaves room for the file itself
/// and for what is made of its value.
inline constexpr std::size_t maximumPlistMemory(std::size_t fileSize) {
    constexpr std::size_t mebibyte = std::size_t{1024} * 1024;
    return std::clamp(fileSize * 40, mebibyte, 160 * mebibyte);
}

/// Bytes of a map node around one entry, and of the allocator per allocation.
inline constexpr std::size_t plistNodeOverhead = 48;

/// The reason for which a file is rejected whose value would take more.
inline constexpr const char* tooMuchMemory = "it would take too much memory";

} // namespace frimbolate
