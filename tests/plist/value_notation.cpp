#include "tests/plist/value_notation.h"

#include <bit>
#include <cmath>
#include <cstdio>
#include <string_view>

namespace frimbolate::test {

namespace {

std::string formatted(const char* format, unsigned long long number) {
    char text[32];
    std::snprintf(text, sizeof text, format, number);
    return text;
}

/// Removes the first character of a text, which must be valid UTF-8, and returns it.
char32_t takeCharacter(std::string_view& text) {
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t size = lead < 0x80 ? 1 : lead < 0xe0 ? 2 : lead < 0xf0 ? 3 : 4;
    char32_t character = size == 1 ? lead : lead & (0xffU >> (size + 1));
    for (std::size_t i = 1; i < size; ++i)
        character = (character << 6) | (static_cast<unsigned char>(text.at(i)) & 0x3f);
    text.remove_prefix(size);
    return character;
}

std::string quoted(std::string_view text) {
    std::string result = "\"";
    while (!text.empty()) {
        const char32_t character = takeCharacter(text);
        if (character >= ' ' && character <= '~' && character != '"' && character != '\\') {
            result += static_cast<char>(character);
        } else if (character < 0x10000) {
            result += formatted("\\u%04llx", character);
        } else {
            result += formatted("\\u%04llx", 0xd7c0 + (character >> 10));
            result += formatted("\\u%04llx", 0xdc00 + (character & 0x3ff));
        }
    }
    return result + '"';
}

std::string scalarText(const Value& value) {
    if (const auto* text = value.string())
        return "S" + quoted(*text);
    if (const auto* truth = value.boolean())
        return *truth ? "B1" : "B0";
    if (const auto* number = value.integer())
        return "I" + std::to_string(*number);
    if (const auto* bigNumber = value.bigInteger())
        return "I" + std::to_string(*bigNumber);
    if (const auto* date = value.date())
        return "T" + std::to_string(date->secondsSinceEpoch);
    if (const auto* real = value.real())
        return std::isnan(*real) ? "Rnan"
                                 : formatted("R%016llx", std::bit_cast<std::uint64_t>(*real));
    std::string result = "D";
    for (const std::uint8_t byte : value.data()->bytes)
        result += formatted("%02llx", byte);
    return result;
}

} // namespace

std::string valueText(const Value& value) {
    std::string result;
    if (const auto* array = value.array()) {
        for (const Value& element : *array)
            result += (result.empty() ? "" : ",") + valueText(element);
        return "(" + result + ")";
    }
    if (const auto* dictionary = value.dictionary()) {
        for (const auto& [key, entry] : *dictionary)
            result += (result.empty() ? "" : ",") + quoted(key) + "=" + valueText(entry);
        return "{" + result + "}";
    }
    return scalarText(value);
}

} // namespace frimbolate::test
