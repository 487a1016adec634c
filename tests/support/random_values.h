// Property lists at random, the same on every machine: values of every type, and texts that are
// awkward to write.
#pragma once

#include "core/value.h"

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>
#include <string>

namespace frimbolate::test {

class RandomValues {
  public:
    explicit RandomValues(std::uint32_t seed) : random_(seed) {}

    /// A number below the bound.
    std::size_t below(std::size_t bound) { return static_cast<std::size_t>(random_()) % bound; }
    bool coin() { return below(2) == 1; }
    /// One of some things.
    template <typename Choices>
    const auto& oneOf(const Choices& choices) {
        return choices[below(std::size(choices))];
    }

    /// Up to twelve characters, of one to four bytes, without those that XML cannot hold.
    std::string text();
    /// A value of any type; arrays and dictionaries hold more of them, down to a depth.
    Value value(int depth);
    Dictionary dictionary(int depth);

  private:
    std::int64_t integer();
    double real();
    Data data();

    // The engine's numbers are the same everywhere; the library's distributions need not be.
    std::mt19937 random_;
};

} // namespace frimbolate::test
