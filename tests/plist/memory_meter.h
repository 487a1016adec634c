// The memory that a step allocates, counted by the operator new of the test program.
#pragma once

#include <cstddef>

namespace frimbolate::test {

/// Counts from its construction on. Only one may exist at a time.
class MemoryMeter {
  public:
    MemoryMeter();
    /// The largest number of bytes allocated at one time, beyond those at the construction.
    std::size_t peak() const;
    /// The sum of all bytes allocated, also those that were released. It grows with the work.
    std::size_t total() const;

  private:
    std::size_t before_;
    std::size_t totalBefore_;
};

} // namespace frimbolate::test
