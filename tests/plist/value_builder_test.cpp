#include "plist/value_builder.h"

#include "tests/plist/memory_meter.h"

#include <gtest/gtest.h>

namespace frimbolate::test {

namespace {

constexpr std::size_t memory = 100000;
/// Beside the elements: levels, and what an allocation is rounded up to.
constexpr std::size_t allowance = 4096;

/// Adds elements until they are too large, and as many again.
template <typename Add>
void fill(ValueBuilder& builder, Add add) {
    std::size_t added = 0;
    for (; !builder.isTooLarge(); ++added) {
        ASSERT_LT(added, memory);
        add(added);
    }
    for (std::size_t left = added; left > 0; --left)
        add(added + left);
}

TEST(ValueBuilder, KeepsAnArrayWithinItsMemory) {
    const MemoryMeter meter;
    ValueBuilder builder(DuplicateKeys::last, memory);
    builder.beginArray();
    fill(builder, [&](std::size_t) { builder.value(true); });
    EXPECT_LE(meter.peak(), memory + allowance);
    EXPECT_GE(meter.peak(), memory / 4);
}

TEST(ValueBuilder, KeepsTextsWithinItsMemory) {
    const MemoryMeter meter;
    ValueBuilder builder(DuplicateKeys::last, memory);
    builder.beginArray();
    fill(builder, [&](std::size_t) { builder.value(std::string(1000, 'a')); });
    EXPECT_LE(meter.peak(), memory + allowance);
}

TEST(ValueBuilder, KeepsADictionaryWithinItsMemory) {
    const MemoryMeter meter;
    ValueBuilder builder(DuplicateKeys::last, memory);
    builder.beginDictionary();
    fill(builder, [&](std::size_t number) {
        builder.key(std::to_string(number));
        builder.value(true);
    });
    EXPECT_LE(meter.peak(), memory + allowance);
}

TEST(ValueBuilder, CountsAKeyThatComesAgainOnce) {
    ValueBuilder builder(DuplicateKeys::last, memory);
    builder.beginDictionary();
    for (std::size_t i = 0; i < memory; ++i) {
        builder.key("a");
        builder.value(true);
    }
    EXPECT_FALSE(builder.isTooLarge());
}

TEST(ValueBuilder, ReservesNoArrayBeyondItsMemory) {
    const MemoryMeter meter;
    ValueBuilder builder(DuplicateKeys::last, memory);
    builder.beginArray(memory);
    EXPECT_TRUE(builder.isTooLarge());
    EXPECT_LE(meter.peak(), allowance);
}

} // namespace

} // namespace frimbolate::test
