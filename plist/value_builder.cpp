#include "plist/value_builder.h"

#include "plist/limits.h"

#include <algorithm>

namespace frimbolate {

namespace {

std::size_t heapBytes(const std::string& text) {
    // What is shorter stays within the text.
    return text.capacity() > std::string().capacity() ? text.capacity() + plistNodeOverhead : 0;
}

/// Of a text or data; the bytes of a container were accounted with its elements.
std::size_t heapBytes(const Value& value) {
    if (const auto* text = value.string())
        return heapBytes(*text);
    const auto* data = value.data();
    return data ? data->bytes.capacity() + plistNodeOverhead : 0;
}

} // namespace

ValueBuilder::ValueBuilder(DuplicateKeys duplicates, std::size_t memory)
    : duplicates_(duplicates), memory_(memory) {
    constexpr std::size_t usualDepth = 8;
    levels_.reserve(usualDepth);
}

bool ValueBuilder::account(std::size_t bytes) {
    isTooLarge_ = isTooLarge_ || bytes > memory_;
    if (!isTooLarge_)
        memory_ -= bytes;
    return !isTooLarge_;
}

void ValueBuilder::beginArray(std::size_t elements) {
    levels_.push_back({true, {}, {}, {}});
    if (account(elements * sizeof(Value)))
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
    if (!account(heapBytes(value)))
        return;
    if (level.isArray)
        addElement(level.array, std::move(value));
    else
        addEntry(level, std::move(value));
}

/// An array that grows exists twice until its elements have moved.
void ValueBuilder::addElement(Array& array, Value&& value) {
    const std::size_t before = array.capacity();
    if (array.size() == before) {
        const std::size_t grown = std::max<std::size_t>(1, 2 * before);
        if (!account(grown * sizeof(Value)))
            return;
        array.reserve(grown);
        memory_ += before * sizeof(Value);
    }
    array.push_back(std::move(value));
}

void ValueBuilder::addEntry(Level& level, Value&& value) {
    Dictionary& entries = level.dictionary;
    const std::size_t before = entries.size();
    const std::size_t bytes =
        sizeof(Dictionary::value_type) + plistNodeOverhead + heapBytes(level.key);
    // Keys are mostly sorted in the file; the hint then avoids the search.
    if (duplicates_ == DuplicateKeys::first)
        entries.try_emplace(entries.end(), std::move(level.key), std::move(value));
    else
        entries.insert_or_assign(entries.end(), std::move(level.key), std::move(value));
    if (entries.size() > before)
        account(bytes);
}

} // namespace frimbolate
