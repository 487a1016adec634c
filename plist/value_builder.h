// Builds a Value from the parts of a property list in the order of the file.
//
// Keeps an explicit stack of the open containers, so that readers need no recursion.
#pragma once

#include "core/value.h"

#include <cstddef>
#include <string>
#include <vector>

namespace frimbolate {

/// Which of duplicate keys of a dictionary wins.
enum class DuplicateKeys { first, last };

class ValueBuilder {
  public:
    /// \param memory in bytes that the value may take
    ValueBuilder(DuplicateKeys duplicates, std::size_t memory);

    /// \param elements number of elements to reserve memory for; 0 where unknown
    void beginArray(std::size_t elements = 0);
    void beginDictionary();
    /// Ends the innermost container, which becomes an element, a value or the root.
    void end();
    /// Sets the key of the next value. Needs an open dictionary.
    void key(std::string key) { levels_.back().key = std::move(key); }
    /// Adds an element, the value of an entry, or the root.
    void value(Value&& value);

    /// Whether the value would take more than the memory. From then on nothing is added.
    bool isTooLarge() const { return isTooLarge_; }
    /// The number of open containers.
    std::size_t depth() const { return levels_.size(); }
    /// Moves the root out. Needs every container to be ended.
    Value take() { return std::move(root_); }

  private:
    struct Level {
        bool isArray;
        Array array;
        Dictionary dictionary;
        std::string key;
    };

    void addElement(Array& array, Value&& value);
    void addEntry(Level& level, Value&& value);
    bool account(std::size_t bytes);

    std::vector<Level> levels_;
    Value root_;
    DuplicateKeys duplicates_;
    std::size_t memory_; ///< that is left
    bool isTooLarge_ = false;
};

} // namespace frimbolate
