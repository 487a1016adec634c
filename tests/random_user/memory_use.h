// What a process holds: the bytes that it has allocated, and its objects of the toolkit.
#pragma once

#include <cstddef>
#include <map>
#include <string>

namespace frimbolate::test {

struct MemoryUse {
    std::size_t bytes = 0;
    long blocks = 0; ///< allocations that were not freed; 0 without the sanitizers
    std::map<std::string, int> objects; ///< living QObjects by class
};

/// Counts objects from here on. Call it before the first object is made.
void countObjects();

MemoryUse memoryInUse();

/// What has grown from one to the other in the same state of the program; empty where nothing has.
/// No class may have one object more. Bytes and blocks may differ by what the toolkit caches:
/// images of windows, glyphs, icons.
std::string growth(const MemoryUse& before, const MemoryUse& after);

} // namespace frimbolate::test
