// Files that are made to exhaust time, memory or stack.
#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace frimbolate::test {

struct HostileFile {
    const char* name;
    /// \param size in bytes, at least 32 KiB; the file has at most that many, and mostly nearly
    std::string (*make)(std::size_t size);
};

/// Every such file, in the order of the forms.
std::span<const HostileFile> hostileFiles();

} // namespace frimbolate::test
