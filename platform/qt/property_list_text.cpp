#include "platform/qt/property_list_text.h"

#include "core/value_text.h"

#include <QByteArray>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#ifndef __cpp_lib_to_chars
#include <cstdlib>
#include <locale.h>
#ifdef __APPLE__
#include <xlocale.h>
#endif
#endif

namespace frimbolate {

namespace {

constexpr std::string_view blanks = " \t\r\n";

bool takePrefix(std::string_view& text, std::string_view prefix) {
    if (!text.starts_with(prefix))
        return false;
    text.remove_prefix(prefix.size());
    return true;
}

template <typename Number, typename... Format>
std::optional<Number> wholeNumber(std::string_view text, Format... format) {
    Number number{};
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number, format...);
    if (result.ec != std::errc{} || result.ptr != end)
        return std::nullopt;
    return number;
}

/// The character that a text begins with, which is taken off; nothing where it is no valid UTF-8.
std::optional<char32_t> takeCharacter(std::string_view& text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    struct Row {
        unsigned mask, lead;
        std::size_t length;
        char32_t smallest;
    };
    static constexpr std::array<Row, 4> rows = {{{0x80, 0x00, 1, 0},
                                                 {0xe0, 0xc0, 2, 0x80},
                                                 {0xf0, 0xe0, 3, 0x800},
                                                 {0xf8, 0xf0, 4, 0x10000}}};
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const Row& candidate) {
        return (byte(0) & candidate.mask) == candidate.lead;
    });
    if (row == rows.end() || text.size() < row->length)
        return std::nullopt;
    char32_t character = byte(0) & ~row->mask;
    for (std::size_t i = 1; i < row->length; ++i) {
        if ((byte(i) & 0xc0U) != 0x80)
            return std::nullopt;
        character = (character << 6) | (byte(i) & 0x3fU);
    }
    const bool isSurrogate = character >= 0xd800 && character <= 0xdfff;
    if (character < row->smallest || character > 0x10ffff || isSurrogate)
        return std::nullopt;
    text.remove_prefix(row->length);
    return character;
}

bool isXmlCharacter(char32_t character) {
    if (character < 0x20)
        return character == '\t' || character == '\n' || character == '\r';
    return character != 0xfffe && character != 0xffff;
}

} // namespace

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::optional<Value> integerOfText(std::string_view text) {
    const bool negative = takePrefix(text, "-");
    if (!negative)
        takePrefix(text, "+");
    const int base = takePrefix(text, "0x") || takePrefix(text, "0X") ? 16 : 10;
    const auto magnitude = wholeNumber<std::uint64_t>(text, base);
    if (!magnitude)
        return std::nullopt;
    if (!negative)
        return Value(*magnitude);
    constexpr auto lowest = std::uint64_t{1} << 63;
    if (*magnitude > lowest)
        return std::nullopt;
    // Unsigned arithmetic, for the lowest number has no positive counterpart.
    return Value(static_cast<std::int64_t>(std::uint64_t{0} - *magnitude));
}

#ifdef __cpp_lib_to_chars
std::optional<double> wholeReal(std::string_view text) { return wholeNumber<double>(text); }
#else
/// For a C++ library whose from_chars reads whole numbers alone. What strtod takes beyond it is
/// turned away: blanks and a plus sign at the front, hexadecimals, and what no double can hold.
std::optional<double> wholeReal(std::string_view text) {
    constexpr std::string_view digits = "0123456789";
    if (text.empty() || std::string_view(" \t\r\n\v\f+").find(text.front()) != text.npos ||
        text.find_first_of("xX") != text.npos)
        return std::nullopt;
    static const locale_t plain = ::newlocale(LC_ALL_MASK, "C", nullptr);
    const std::string copy(text);
    char* end = nullptr;
    const double number = ::strtod_l(copy.c_str(), &end, plain);
    const std::string_view mantissa = text.substr(0, text.find_first_of("eE"));
    const bool tooSmall = number == 0 && mantissa.find_first_of(digits.substr(1)) != text.npos;
    const bool tooLarge = std::isinf(number) && text.find_first_of(digits) != text.npos;
    if (tooSmall || tooLarge || end != copy.c_str() + copy.size())
        return std::nullopt;
    return number;
}
#endif

std::optional<double> realOfText(std::string_view text) {
    if (takePrefix(text, "+") && text.starts_with('-'))
        return std::nullopt;
    // from_chars also knows "nan(…)", which no property list does.
    if (text.find('(') != std::string_view::npos)
        return std::nullopt;
    return wholeReal(text);
}

std::string textOfReal(double number) {
    if (std::isnan(number))
        return "nan";
    if (std::isinf(number))
        return number > 0 ? "+infinity" : "-infinity";
    return shortestReal(number);
}

std::optional<Data> dataOfText(std::string_view text) {
    QByteArray base64;
    for (const char c : text)
        if (blanks.find(c) == std::string_view::npos)
            base64 += c;
    const auto decoded =
        QByteArray::fromBase64Encoding(base64, QByteArray::AbortOnBase64DecodingErrors);
    // Encoding again tells missing padding and bits that belong to no byte.
    if (!decoded || decoded.decoded.toBase64() != base64)
        return std::nullopt;
    return Data{{decoded.decoded.begin(), decoded.decoded.end()}};
}

std::string textOfData(const Data& data) {
    return QByteArray(reinterpret_cast<const char*>(data.bytes.data()),
                      static_cast<qsizetype>(data.bytes.size()))
        .toBase64()
        .toStdString();
}

std::optional<std::string> reasonNotXml(std::string_view text) {
    while (!text.empty()) {
        const auto character = takeCharacter(text);
        if (!character)
            return "it is not valid UTF-8";
        if (!isXmlCharacter(*character)) {
            std::array<char, 64> reason{};
            std::snprintf(reason.data(), reason.size(), "it holds the character U+%04X",
                          static_cast<unsigned>(*character));
            return reason.data();
        }
    }
    return std::nullopt;
}

} // namespace frimbolate
