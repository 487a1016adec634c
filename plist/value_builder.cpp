#include "plist/value_builder.h"

namespace frimbolate {

ValueBuilder::ValueBuilder(DuplicateKeys duplicates) : duplicates_(duplicates) {
    constexpr std::size_t usualDepth = 8;
    levels_.reserve(usualDepth);
}

void ValueBuilder::beginArray(std::size_t elements) {
    levels_.push_back({true, {}, {}, {}});
    levels_.back().array.reserve(elements);
}

void ValueBuilder::beginDictionary() { levels_.push_back({false, {}, {}, {}}); }

void ValueBuilder::end() {
    Level& level = levels_.back();
    Value ended =
        level.isArray ? Value(std::move(level.array)) : Value(std::move(level.dictionary));
    levels_.pop_back();
    value(std::move(ended));
}

void ValueBuilder::value(Value&& value) {
    if (levels_.empty()) {
        root_ = std::move(value);
        return;
    }
    Level& level = levels_.back();
    if (level.isArray) {
        level.array.push_back(std::move(value));
        return;
    }
    // Keys are mostly sorted in the file; the hint then avoids the search.
    Dictionary& entries = level.dictionary;
    if (duplicates_ == DuplicateKeys::first)
        entries.try_emplace(entries.end(), std::move(level.key), std::move(value));
    else
        entries.insert_or_assign(entries.end(), std::move(level.key), std::move(value));
}

} // namespace frimbolate
