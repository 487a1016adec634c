// Takes apart the bytes of a fuzzer, so that few of them make much: an agent, a list of arguments.
#pragma once

#include "core/value.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace frimbolate::test {

/// Every step consumes bytes; past the end each one reads as zero.
class FuzzBytes {
  public:
    explicit FuzzBytes(std::string_view bytes) : rest_(bytes) {}

    bool atEnd() const { return rest_.empty(); }
    std::string_view rest() const { return rest_; }
    std::uint8_t byte();
    std::uint64_t number(int bytes);
    /// A number from 0 to below the bound, which is 1 to 65536.
    std::size_t below(std::size_t bound);
    /// A text that often stands in agents, or any bytes.
    std::string text();
    /// A value of any kind. Containers nest at most that deep.
    Value value(int depth);
    /// Keys of launchd, and others.
    Dictionary dictionary(int depth);

  private:
    std::string_view rest_;
};

/// The agent of a fuzzer's bytes: those of a file where they are a property list; else one that is
/// made of them, since few changes of a file's bytes lead to another file that can be read.
Value fuzzedAgent(std::string_view input);

} // namespace frimbolate::test
