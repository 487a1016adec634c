// Random property lists, the same on every machine for the same seed: values of every type, and
// texts that need escaping.
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

    /// A number from 0 to below the bound, which is not 0.
    std::size_t below(std::size_t bound) { return static_cast<std::size_t>(random_()) % bound; }
    bool coin() { return below(2) == 1; }
    /// One of the choices, of which there is at least one.
    template <typename Choices>
    const auto& oneOf(const Choices& choices) {
        return choices[below(std::size(choices))];
    }

    /// 0 to 12 pieces from a list of characters and short sequences, all of which XML can hold.
    std::string text();
    /// A value of any type. Arrays and dictionaries nest at most that deep; none at depth 0.
    Value value(int depth);
    Dictionary dictionary(int depth);

  private:
    std::int64_t integer();
    double real();
    Data data();

    // The standard fixes this engine's numbers but not those of the library's distributions.
    std::mt19937 random_;
};

} // namespace frimbolate::test
