// How much memory a step takes. The test program's own operator new keeps the count.
#pragma once

#include <cstddef>

namespace frimbolate::test {

/// Counts from its construction on. One at a time.
class MemoryMeter {
  public:
    MemoryMeter();
    /// The most bytes that were allocated at once, beyond those of the construction.
    std::size_t peak() const;

  private:
    std::size_t before_;
};

} // namespace frimbolate::test
