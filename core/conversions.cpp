#include "core/conversions.h"

#include "core/ascii.h"
#include "core/named_error.h"

#include <cmath>
#include <limits>

namespace frimbolate {

namespace {

constexpr bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

/// Skips the blanks and the sign that the platform accepts before a number.
/// \return whether the sign was a minus
bool skipBlanksAndSign(std::string_view& text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);
    return negative;
}

[[noreturn]] void raiseNoNumber(const Value& value) {
    throw NamedError("Unexpected value",
                     "Expected a text or a number, found a " + std::string(value.kind()));
}

std::int64_t integerOf(double number) {
    constexpr double limit = 9223372036854775808.0; // 2^63
    if (std::isnan(number))
        return 0;
    if (number >= limit)
        return std::numeric_limits<std::int64_t>::max();
    if (number < -limit)
        return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(number);
}

} // namespace

std::int64_t leadingInteger(std::string_view text) {
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    constexpr auto least = std::numeric_limits<std::int64_t>::min();
    const bool negative = skipBlanksAndSign(text);
    std::int64_t result = 0;
    for (; !text.empty() && isDigit(text.front()); text.remove_prefix(1)) {
        const std::int64_t digit = text.front() - '0';
        // Accumulates downwards: the negative range is the larger one.
        if (result < (least + digit) / 10)
            return negative ? least : most;
        result = result * 10 - digit;
    }
    if (negative)
        return result;
    return result == least ? most : -result;
}

std::int32_t truncatedTo32Bits(std::int64_t number) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(number));
}

bool parseBool(std::string_view text) {
    skipBlanksAndSign(text);
    while (text.starts_with('0'))
        text.remove_prefix(1);
    if (text.empty())
        return false;
    const char c = text.front();
    return c == 'Y' || c == 'y' || c == 'T' || c == 't' || (c >= '1' && c <= '9');
}

bool toBool(const Value& value) {
    if (const auto* boolean = value.boolean())
        return *boolean;
    if (const auto* number = value.integer())
        return *number != 0;
    if (value.bigInteger())
        return true;
    if (const auto* number = value.real())
        return *number != 0.0;
    if (const auto* text = value.string())
        return parseBool(*text);
    raiseNoNumber(value);
}

bool toBoolOrFalse(const Value& value) {
    return (value.string() || value.isNumber()) && toBool(value);
}

std::int64_t toInteger(const Value& value) {
    if (const auto* boolean = value.boolean())
        return *boolean ? 1 : 0;
    if (const auto* number = value.integer())
        return *number;
    if (const auto* number = value.bigInteger())
        return static_cast<std::int64_t>(*number);
    if (const auto* number = value.real())
        return integerOf(*number);
    if (const auto* text = value.string())
        return leadingInteger(*text);
    raiseNoNumber(value);
}

std::string toDisplayString(const Value& value) {
    if (value.string() || value.isNumber())
        return description(value);
    raiseNoNumber(value);
}

std::string_view afterLast(std::string_view text, std::string_view separator) {
    const auto last = text.rfind(separator);
    return last == std::string_view::npos ? text : text.substr(last + separator.size());
}

std::string_view beforeFirst(std::string_view text, std::string_view separator) {
    return text.substr(0, text.find(separator));
}

std::string replacedAll(std::string_view text, std::string_view part, std::string_view by) {
    std::string result;
    for (;;) {
        const auto found = text.find(part);
        result += text.substr(0, found);
        if (found == std::string_view::npos)
            return result;
        result += by;
        text.remove_prefix(found + part.size());
    }
}

std::string fileUrl(std::string_view path) {
    static constexpr std::string_view plain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                              "0123456789-._~!$&'()*+,=:@/";
    static constexpr std::string_view digits = "0123456789ABCDEF";
    std::string result = "file://";
    for (const char c : path) {
        if (plain.find(c) != std::string_view::npos) {
            result += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        result += '%';
        result += digits[byte >> 4];
        result += digits[byte & 15];
    }
    return result;
}

} // namespace frimbolate
