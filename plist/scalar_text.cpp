#include "plist/scalar_text.h"

#include "core/ascii.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <locale>
#include <sstream>
#include <string>

namespace frimbolate {

namespace {

constexpr std::string_view digits = "0123456789";

/// White space of the C locale: that of XML, vertical tab and form feed.
constexpr bool isSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

void skipSpaces(std::string_view& text) {
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
}

bool take(std::string_view& text, char expected) {
    if (!text.starts_with(expected))
        return false;
    text.remove_prefix(1);
    return true;
}

void skipDigits(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(digits), text.size()));
}

bool equalsIgnoringCase(std::string_view text, std::string_view lowerCase) {
    return std::equal(
        text.begin(), text.end(), lowerCase.begin(), lowerCase.end(),
        [](char a, char b) { return a == b || (a >= 'A' && a <= 'Z' && a + 32 == b); });
}

std::optional<double> namedReal(std::string_view text) {
    if (equalsIgnoringCase(text, "nan"))
        return std::numeric_limits<double>::quiet_NaN();
    const bool isNegative = take(text, '-');
    if (!isNegative)
        take(text, '+');
    if (!equalsIgnoringCase(text, "inf") && !equalsIgnoringCase(text, "infinity"))
        return std::nullopt;
    constexpr auto infinity = std::numeric_limits<double>::infinity();
    return isNegative ? -infinity : infinity;
}

/// The parts of an unsigned decimal number.
struct Decimal {
    std::string_view whole;    ///< digits before the point
    std::string_view fraction; ///< digits after the point
    std::string_view exponent; ///< with its sign; empty where there is none
};

std::optional<Decimal> decimalOf(std::string_view text) {
    Decimal parts;
    const auto takeDigits = [&] {
        const std::string_view before = text;
        skipDigits(text);
        return before.substr(0, before.size() - text.size());
    };
    parts.whole = takeDigits();
    if (take(text, '.'))
        parts.fraction = takeDigits();
    if (parts.whole.empty() && parts.fraction.empty())
        return std::nullopt;
    if (text.empty())
        return parts;
    if (!take(text, 'e') && !take(text, 'E'))
        return std::nullopt;
    parts.exponent = text;
    if (!take(text, '-'))
        take(text, '+');
    if (text.empty() || text.find_first_not_of(digits) != std::string_view::npos)
        return std::nullopt;
    return parts;
}

/// The result for a number outside the range of doubles: infinity or zero.
double limitOf(const Decimal& decimal) {
    const auto first = decimal.whole.find_first_not_of('0');
    if (first == std::string_view::npos && decimal.fraction.find_first_not_of('0') == first)
        return 0;
    // The power of ten of the first significant digit.
    auto magnitude =
        static_cast<std::int64_t>(decimal.whole.size()) - static_cast<std::int64_t>(first);
    if (first == std::string_view::npos)
        magnitude = -static_cast<std::int64_t>(decimal.fraction.find_first_not_of('0'));
    std::string_view exponentText = decimal.exponent;
    take(exponentText, '+');
    std::int64_t exponent = 0;
    const char* const end = exponentText.data() + exponentText.size();
    const auto result = std::from_chars(exponentText.data(), end, exponent);
    constexpr std::int64_t farOut = std::int64_t{1} << 60;
    if (result.ec == std::errc::result_out_of_range)
        exponent = exponentText.starts_with('-') ? -farOut : farOut;
    exponent = std::clamp(exponent, -farOut, farOut);
    return magnitude + exponent > 0 ? std::numeric_limits<double>::infinity() : 0;
}

double convertedByStream(std::string_view number, const Decimal& decimal) {
    std::istringstream stream{std::string(number)};
    stream.imbue(std::locale::classic());
    double result = 0;
    stream >> result;
    // Some libraries set failbit for a denormal number and still store it.
    const bool isDenormal = result > 0 && result < std::numeric_limits<double>::min();
    return stream.fail() && !isDenormal ? limitOf(decimal) : result;
}

double converted(std::string_view number, const Decimal& decimal) {
#ifdef __cpp_lib_to_chars
    double result = 0;
    const char* const end = number.data() + number.size();
    return std::from_chars(number.data(), end, result).ec == std::errc{} ? result
                                                                         : limitOf(decimal);
#else
    return convertedByStream(number, decimal);
#endif
}

template <typename Convert>
std::optional<double> parseReal(std::string_view text, Convert convert) {
    if (const auto named = namedReal(text))
        return named;
    skipSpaces(text);
    const bool isNegative = take(text, '-');
    if (!isNegative)
        take(text, '+');
    const auto decimal = decimalOf(text);
    if (!decimal)
        return std::nullopt;
    const double magnitude = convert(text, *decimal);
    return isNegative ? -magnitude : magnitude;
}

constexpr std::int64_t floorDivide(std::int64_t number, std::int64_t divisor) {
    const std::int64_t quotient = number / divisor;
    return number % divisor < 0 ? quotient - 1 : quotient;
}

/// Days from 1970-01-01 to the first day of a year of the Gregorian calendar.
constexpr std::int64_t daysToYear(std::int64_t year) {
    const auto leapDays = [](std::int64_t y) {
        return floorDivide(y, 4) - floorDivide(y, 100) + floorDivide(y, 400);
    };
    return 365 * (year - 1970) + leapDays(year - 1) - leapDays(1969);
}

constexpr bool isLeapYear(std::int64_t year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

/// Days of a common year before each month, from month 0 to month 13.
constexpr std::array<std::int16_t, 14> daysBeforeMonth = {0,   0,   31,  59,  90,  120, 151,
                                                          181, 212, 243, 273, 304, 334, 365};

/// Removes two digits and the character after them from the front of the text.
std::optional<int> takeTwoDigits(std::string_view& text, char behind) {
    if (text.size() < 3 || !isDigit(text[0]) || !isDigit(text[1]) || text[2] != behind)
        return std::nullopt;
    const int number = (text[0] - '0') * 10 + (text[1] - '0');
    text.remove_prefix(3);
    return number;
}

std::optional<std::int64_t> takeYear(std::string_view& text) {
    const bool isNegative = take(text, '-');
    std::int64_t year = 0;
    const char* const end = text.data() + text.size();
    // from_chars would accept a second sign.
    if (text.empty() || !isDigit(text.front()))
        return std::nullopt;
    const auto result = std::from_chars(text.data(), end, year);
    text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
    constexpr std::int64_t furthest = 400'000'000;
    if (result.ec != std::errc{} || year > furthest || !take(text, '-'))
        return std::nullopt;
    return isNegative ? -year : year;
}

/// The value of a base64 character, or nothing. Padding counts as zero bits.
constexpr std::optional<std::uint32_t> sextet(char c) {
    if (c >= 'A' && c <= 'Z')
        return c - 'A';
    if (c >= 'a' && c <= 'z')
        return c - 'a' + 26;
    if (isDigit(c))
        return c - '0' + 52;
    if (c == '+')
        return 62;
    if (c == '/')
        return 63;
    if (c == '=')
        return 0;
    return std::nullopt;
}

} // namespace

std::optional<Value> parsePlistInteger(std::string_view text) {
    skipSpaces(text);
    const bool isNegative = take(text, '-');
    if (isNegative || take(text, '+'))
        skipSpaces(text);
    const bool isHexadecimal = text.starts_with("0x") || text.starts_with("0X");
    if (isHexadecimal)
        text.remove_prefix(2);
    std::uint64_t magnitude = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, magnitude, isHexadecimal ? 16 : 10);
    if (result.ec != std::errc{} || result.ptr != end)
        return std::nullopt;
    if (!isNegative)
        return Value(magnitude);
    constexpr auto lowest = std::uint64_t{1} << 63;
    if (magnitude > lowest)
        return std::nullopt;
    // Unsigned arithmetic: the lowest number has no positive counterpart.
    return Value(static_cast<std::int64_t>(std::uint64_t{0} - magnitude));
}

std::optional<double> parsePlistReal(std::string_view text) { return parseReal(text, converted); }

std::optional<double> parsePlistRealByStream(std::string_view text) {
    return parseReal(text, convertedByStream);
}

std::optional<Date> parsePlistDate(std::string_view text) {
    const auto year = takeYear(text);
    if (!year)
        return std::nullopt;
    constexpr std::string_view separators = "-T::Z";
    std::array<std::int64_t, 5> parts{};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const auto part = takeTwoDigits(text, separators[i]);
        if (!part)
            return std::nullopt;
        parts[i] = *part;
    }
    const auto [month, day, hour, minute, second] = parts;
    if (!text.empty() || static_cast<std::size_t>(month) >= daysBeforeMonth.size())
        return std::nullopt;
    const std::int64_t days = daysToYear(*year) + daysBeforeMonth[static_cast<std::size_t>(month)] +
                              (month > 2 && isLeapYear(*year) ? 1 : 0) + day - 1;
    const std::int64_t seconds = days * 86400 + hour * 3600 + minute * 60 + second;
    constexpr std::int64_t exact = std::int64_t{1} << 53;
    if (seconds < -exact || seconds > exact)
        return std::nullopt;
    return Date{seconds};
}

Data decodePlistData(std::string_view text) {
    Data data;
    data.bytes.reserve(text.size() / 4 * 3);
    std::uint32_t group = 0;
    unsigned filled = 0;
    unsigned padding = 0;
    for (const char c : text) {
        if (c == '=')
            ++padding;
        else if (!isSpace(c))
            padding = 0;
        const auto bits = sextet(c);
        if (!bits)
            continue;
        group = (group << 6) | *bits;
        if (++filled % 4 != 0)
            continue;
        data.bytes.push_back(static_cast<std::uint8_t>(group >> 16));
        if (padding < 2)
            data.bytes.push_back(static_cast<std::uint8_t>(group >> 8));
        if (padding < 1)
            data.bytes.push_back(static_cast<std::uint8_t>(group));
    }
    return data;
}

} // namespace frimbolate
