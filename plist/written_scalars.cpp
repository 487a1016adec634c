#include "plist/written_scalars.h"

#include "core/value_text.h"
#include "plist/text_encoding.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace frimbolate {

namespace {

using namespace std::chrono;

constexpr seconds firstSecond = sys_days(year{1} / January / 1).time_since_epoch();
constexpr seconds endOfTime = sys_days(year{10000} / January / 1).time_since_epoch();

/// The code of the character at a position of valid UTF-8 if XML 1.0 cannot represent it, else
/// nothing.
std::optional<unsigned> forbiddenCharacterAt(std::string_view text, std::size_t position) {
    const auto byte = static_cast<unsigned char>(text[position]);
    if (byte < 0x20 && byte != '\t' && byte != '\n' && byte != '\r')
        return byte;
    const std::string_view character = text.substr(position, 3);
    if (character == "\xef\xbf\xbe")
        return 0xfffe;
    if (character == "\xef\xbf\xbf")
        return 0xffff;
    return std::nullopt;
}

/// Whether forbiddenCharacterAt() has to look here: a control character or the lead byte of U+FFFE.
constexpr bool isSuspect(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0xef;
}

} // namespace

std::string plistTextOf(double real) {
    if (std::isnan(real))
        return "nan";
    if (std::isinf(real))
        return real > 0 ? "+infinity" : "-infinity";
    return shortestReal(real);
}

std::optional<std::string> plistTextOf(Date date) {
    const seconds moment{date.secondsSinceEpoch};
    if (moment < firstSecond || moment >= endOfTime)
        return std::nullopt;
    return utcText(date, 'T', "Z");
}

std::string plistTextOf(const Data& data) {
    constexpr std::string_view alphabet =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    const std::size_t size = data.bytes.size();
    std::string text;
    text.reserve((size + 2) / 3 * 4);
    for (std::size_t start = 0; start < size; start += 3) {
        std::uint32_t group = 0;
        for (std::size_t i = start; i < start + 3; ++i)
            group = (group << 8) | (i < size ? data.bytes[i] : 0U);
        for (const unsigned shift : {18U, 12U, 6U, 0U})
            text += alphabet[(group >> shift) & 63];
    }
    const std::size_t padding = (3 - size % 3) % 3;
    std::fill(text.end() - static_cast<std::ptrdiff_t>(padding), text.end(), '=');
    return text;
}

std::optional<std::string> reasonUnwritable(std::string_view text) {
    if (text.starts_with("\xef\xbb\xbf"))
        return "it begins with the character U+FEFF, which readers drop";
    if (!isValidUtf8(text))
        return "it is not valid UTF-8";
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!isSuspect(text[i]))
            continue;
        if (const auto character = forbiddenCharacterAt(text, i)) {
            std::array<char, 64> reason{};
            std::snprintf(reason.data(), reason.size(), "it holds the character U+%04X",
                          *character);
            return reason.data();
        }
    }
    return std::nullopt;
}

} // namespace frimbolate
