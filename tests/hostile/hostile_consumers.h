// The parts of the program that read a file that another user or program may have written.
#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace frimbolate::test {

struct HostileConsumer {
    const char* name;
    /// Reads the file, or reports it as unreadable. Never throws.
    void (*consume)(const std::string& path);
};

std::span<const HostileConsumer> hostileConsumers();

} // namespace frimbolate::test
