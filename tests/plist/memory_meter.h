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

  private:
    std::size_t before_;
};

} // namespace frimbolate::test
