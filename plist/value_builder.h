// Builds a Value from the parts of a property list in the order in which a reader meets them.
//
// An explicit stack of the open containers, so that a reader needs no recursion.
#pragma once

#include "core/value.h"

#include <cstddef>
#include <string>
#include <vector>

namespace frimbolate {

/// Which entry of a dictionary holds where a key occurs more than once.
enum class DuplicateKeys { first, last };

class ValueBuilder {
  public:
    explicit ValueBuilder(DuplicateKeys duplicates);

    /// \param elements how many elements are going to follow, where that is known
    void beginArray(std::size_t elements = 0);
    void beginDictionary();
    /// Ends the innermost container, which becomes an element, a value or the root.
    void end();
    /// The key of the next value. Needs an open dictionary.
    void key(std::string key) { levels_.back().key = std::move(key); }
    void value(Value&& value);

    /// How many containers are open.
    std::size_t depth() const { return levels_.size(); }
    /// The root. Needs every container to be ended.
    Value take() { return std::move(root_); }

  private:
    struct Level {
        bool isArray;
        Array array;
        Dictionary dictionary;
        std::string key;
    };

    std::vector<Level> levels_;
    Value root_;
    DuplicateKeys duplicates_;
};

} // namespace frimbolate
