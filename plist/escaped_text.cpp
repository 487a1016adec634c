#include "plist/escaped_text.h"

#include "plist/text_encoding.h"

#include <array>

namespace frimbolate {

namespace {

/// The characters of the bytes 0x80 to 0xff of the NeXTSTEP encoding; zero for an undefined byte.
constexpr std::array<char16_t, 128> nextStepCharacters = {
    0x00a0, 0x00c0, 0x00c1, 0x00c2, 0x00c3, 0x00c4, 0x00c5, 0x00c7, 0x00c8, 0x00c9, 0x00ca, 0x00cb,
    0x00cc, 0x00cd, 0x00ce, 0x00cf, 0x00d0, 0x00d1, 0x00d2, 0x00d3, 0x00d4, 0x00d5, 0x00d6, 0x00d9,
    0x00da, 0x00db, 0x00dc, 0x00dd, 0x00de, 0x00b5, 0x00d7, 0x00f7, 0x00a9, 0x00a1, 0x00a2, 0x00a3,
    0x2044, 0x00a5, 0x0192, 0x00a7, 0x00a4, 0x2019, 0x201c, 0x00ab, 0x2039, 0x203a, 0xfb01, 0xfb02,
    0x00ae, 0x2013, 0x2020, 0x2021, 0x00b7, 0x00a6, 0x00b6, 0x2022, 0x201a, 0x201e, 0x201d, 0x00bb,
    0x2026, 0x2030, 0x00ac, 0x00bf, 0x00b9, 0x02cb, 0x00b4, 0x02c6, 0x02dc, 0x00af, 0x02d8, 0x02d9,
    0x00a8, 0x00b2, 0x02da, 0x00b8, 0x00b3, 0x02dd, 0x02db, 0x02c7, 0x2014, 0x00b1, 0x00bc, 0x00bd,
    0x00be, 0x00e0, 0x00e1, 0x00e2, 0x00e3, 0x00e4, 0x00e5, 0x00e7, 0x00e8, 0x00e9, 0x00ea, 0x00eb,
    0x00ec, 0x00c6, 0x00ed, 0x00aa, 0x00ee, 0x00ef, 0x00f0, 0x00f1, 0x0141, 0x00d8, 0x0152, 0x00ba,
    0x00f2, 0x00f3, 0x00f4, 0x00f5, 0x00f6, 0x00e6, 0x00f9, 0x00fa, 0x00fb, 0x0131, 0x00fc, 0x00fd,
    0x0142, 0x00f8, 0x0153, 0x00df, 0x00fe, 0x00ff, 0,      0};

/// Removes a number from the front of the text.
/// \param digits the most digits that are taken
char32_t takeNumber(std::string_view& text, std::size_t digits, bool isOctal) {
    char32_t number = 0;
    for (; digits > 0 && !text.empty(); --digits) {
        const char c = text.front();
        if (c >= '0' && c <= (isOctal ? '7' : '9'))
            number = number * (isOctal ? 8 : 16) + static_cast<char32_t>(c - '0');
        else if (!isOctal && c >= 'a' && c <= 'f')
            number = number * 16 + static_cast<char32_t>(c - 'a' + 10);
        else if (!isOctal && c >= 'A' && c <= 'F')
            number = number * 16 + static_cast<char32_t>(c - 'A' + 10);
        else
            break;
        text.remove_prefix(1);
    }
    return number;
}

bool takeOctal(std::string_view& text, std::string& result) {
    const char32_t byte = takeNumber(text, 3, true);
    if (byte < 0x80)
        return appendUtf8(result, byte);
    const char16_t character = byte > 0xff ? char16_t{0} : nextStepCharacters[byte - 0x80];
    return character != 0 && appendUtf8(result, character);
}

/// Reads a sequence from after its "\U". A high surrogate needs a low one in the next sequence.
bool takeUnit(std::string_view& text, std::string& result) {
    const char32_t unit = takeNumber(text, 4, false);
    if (unit < 0xd800 || unit > 0xdbff)
        return appendUtf8(result, unit);
    if (!text.starts_with("\\U"))
        return false;
    text.remove_prefix(2);
    const char32_t low = takeNumber(text, 4, false);
    return low >= 0xdc00 && low <= 0xdfff &&
           appendUtf8(result, 0x10000 + ((unit - 0xd800) << 10) + (low - 0xdc00));
}

/// Reads a sequence from after its backslash.
bool takeEscape(std::string_view& text, std::string& result) {
    constexpr std::string_view letters = "abfnrtv";
    constexpr std::string_view meanings = "\a\b\f\n\r\t\v";
    const char c = text.front();
    if (c >= '0' && c <= '7')
        return takeOctal(text, result);
    text.remove_prefix(1);
    if (c == 'U')
        return takeUnit(text, result);
    const auto letter = letters.find(c);
    result += letter == std::string_view::npos ? c : meanings[letter];
    return true;
}

} // namespace

std::optional<std::string> unescapedText(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const std::string_view plain = text.substr(0, text.find('\\'));
        result += plain;
        text.remove_prefix(plain.size());
        if (text.empty())
            break;
        text.remove_prefix(1);
        if (!takeEscape(text, result))
            return std::nullopt;
    }
    return result;
}

} // namespace frimbolate
