#include "plist/text_encoding.h"

#include "core/named_error.h"
#include "plist/limits.h"
#include "plist/text_cursor.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace frimbolate {

namespace {

enum class Encoding {
    utf8,
    utf16Little,
    utf16Big,
    utf32Little,
    utf32Big,
    ascii,
    latin1,
    windows1252
};

constexpr bool isSurrogate(char32_t unit) { return unit >= 0xd800 && unit <= 0xdfff; }

[[noreturn]] void fail(const std::string& reason) { throw NamedError(unreadablePlist, reason); }

struct ByteOrderMark {
    std::string_view bytes;
    std::size_t shortest; ///< size in bytes of the smallest file in which the mark is recognised
    Encoding encoding;
};

using namespace std::string_view_literals;

// The marks of UTF-32 come first: one of them starts with a mark of UTF-16.
constexpr ByteOrderMark byteOrderMarks[] = {
    {"\x00\x00\xfe\xff"sv, 5, Encoding::utf32Big}, {"\xff\xfe\x00\x00"sv, 5, Encoding::utf32Little},
    {"\xef\xbb\xbf"sv, 3, Encoding::utf8},         {"\xff\xfe"sv, 3, Encoding::utf16Little},
    {"\xfe\xff"sv, 3, Encoding::utf16Big},
};

struct NamedEncoding {
    std::string_view name; ///< in lower case
    Encoding encoding;
};

constexpr NamedEncoding namedEncodings[] = {
    {"utf-8", Encoding::utf8},
    {"utf8", Encoding::utf8},
    {"us-ascii", Encoding::ascii},
    {"ascii", Encoding::ascii},
    {"iso-8859-1", Encoding::latin1},
    {"iso_8859-1", Encoding::latin1},
    {"latin1", Encoding::latin1},
    {"l1", Encoding::latin1},
    {"windows-1252", Encoding::windows1252},
    {"cp1252", Encoding::windows1252},
};

/// The characters of the bytes 0x80 to 0x9f; zero for an undefined byte.
constexpr std::array<char16_t, 32> windows1252Characters = {
    0x20ac, 0,      0x201a, 0x0192, 0x201e, 0x2026, 0x2020, 0x2021, 0x02c6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017d, 0,      0,      0x2018, 0x2019, 0x201c, 0x201d, 0x2022,
    0x2013, 0x2014, 0x02dc, 0x2122, 0x0161, 0x203a, 0x0153, 0,      0x017e, 0x0178};

/// The name in encoding="…" of the XML header. As on the platform, the file must start with
/// "<?xml", without a "?" or ">" before the attribute.
std::optional<std::string_view> declaredEncoding(std::string_view bytes) {
    constexpr std::string_view begin = "<?xml";
    constexpr std::string_view attribute = "encoding=";
    if (!bytes.starts_with(begin))
        return std::nullopt;
    const std::string_view header = bytes.substr(0, bytes.find_first_of("?>", begin.size()));
    const auto start = header.find(attribute, begin.size());
    if (start == std::string_view::npos)
        return std::nullopt;
    const std::string_view value = bytes.substr(start + attribute.size());
    if (!value.starts_with('"') && !value.starts_with('\''))
        return std::nullopt;
    const auto end = value.find(value.front(), 1);
    if (end == std::string_view::npos)
        return std::nullopt;
    return value.substr(1, end - 1);
}

std::string lowerCase(std::string_view text) {
    std::string result(text);
    for (char& c : result)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return result;
}

Encoding encodingOfName(std::string_view name) {
    const std::string lower = lowerCase(name.substr(0, 40));
    const auto found = std::find_if(std::begin(namedEncodings), std::end(namedEncodings),
                                    [&](const NamedEncoding& row) { return row.name == lower; });
    if (found == std::end(namedEncodings))
        fail("it declares an encoding that is not known: \"" + excerpt(name) + "\" (line 1)");
    return found->encoding;
}

char32_t unitAt(std::string_view bytes, std::size_t start, std::size_t size, bool isBig) {
    char32_t unit = 0;
    for (std::size_t i = 0; i < size; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[start + (isBig ? i : size - 1 - i)]);
        unit = (unit << 8) | byte;
    }
    return unit;
}

std::string decodeUtf32(std::string_view bytes, bool isBig) {
    if (bytes.size() % 4 != 0)
        fail("it ends inside of a character");
    std::string text;
    text.reserve(bytes.size() / 4);
    for (std::size_t i = 0; i < bytes.size(); i += 4)
        if (!appendUtf8(text, unitAt(bytes, i, 4, isBig)))
            fail("it holds what is no character");
    return text;
}

std::string decodeBytes(std::string_view bytes, Encoding encoding) {
    std::string text;
    text.reserve(bytes.size());
    for (const char c : bytes) {
        char32_t character = static_cast<unsigned char>(c);
        const bool isControl = character >= 0x80 && character < 0xa0;
        if (encoding == Encoding::windows1252 && isControl)
            character = windows1252Characters[character - 0x80];
        const bool isUnknown =
            encoding == Encoding::ascii ? character >= 0x80 : character == 0 && c != '\0';
        if (isUnknown || !appendUtf8(text, character))
            fail("it holds a byte that its encoding does not know");
    }
    return text;
}

DecodedText decoded(std::string_view bytes, Encoding encoding) {
    switch (encoding) {
    case Encoding::utf16Little:
    case Encoding::utf16Big:
        if (auto text = decodeUtf16(bytes, encoding == Encoding::utf16Big))
            return DecodedText::copy(*std::move(text));
        fail("it holds half a character");
    case Encoding::utf32Little:
    case Encoding::utf32Big:
        return DecodedText::copy(decodeUtf32(bytes, encoding == Encoding::utf32Big));
    case Encoding::ascii:
    case Encoding::latin1:
    case Encoding::windows1252:
        return DecodedText::copy(decodeBytes(bytes, encoding));
    case Encoding::utf8:
        break;
    }
    return DecodedText::reference(bytes);
}

/// The number of ASCII bytes at the start of a text.
std::size_t asciiSize(std::string_view text) {
    constexpr std::uint64_t highBits = 0x8080808080808080;
    std::size_t size = 0;
    for (std::uint64_t eight = 0; size + sizeof eight <= text.size(); size += sizeof eight) {
        std::memcpy(&eight, text.data() + size, sizeof eight);
        if ((eight & highBits) != 0)
            break;
    }
    while (size < text.size() && static_cast<unsigned char>(text[size]) < 0x80)
        ++size;
    return size;
}

/// The size in bytes of the first character of a text, or zero where it is no valid UTF-8.
std::size_t characterSize(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const auto lead = byte(0);
    if (lead < 0x80)
        return 1;
    const std::size_t size = lead >= 0xf0 ? 4 : lead >= 0xe0 ? 3 : 2;
    if (lead < 0xc2 || lead > 0xf4 || text.size() < size)
        return 0;
    for (std::size_t i = 1; i < size; ++i)
        if ((byte(i) & 0xc0U) != 0x80)
            return 0;
    const bool isOverlong = (lead == 0xe0 && byte(1) < 0xa0) || (lead == 0xf0 && byte(1) < 0x90);
    const bool isHalf = lead == 0xed && byte(1) >= 0xa0;
    const bool isBeyond = lead == 0xf4 && byte(1) >= 0x90;
    return isOverlong || isHalf || isBeyond ? 0 : size;
}

} // namespace

DecodedText decodeText(std::string_view bytes) {
    for (const ByteOrderMark& mark : byteOrderMarks)
        if (bytes.size() >= mark.shortest && bytes.starts_with(mark.bytes))
            return decoded(bytes.substr(mark.bytes.size()), mark.encoding);
    const auto name = declaredEncoding(bytes);
    return decoded(bytes, name ? encodingOfName(*name) : Encoding::utf8);
}

std::optional<std::string> decodeUtf16(std::string_view bytes, bool isBigEndian) {
    if (bytes.size() % 2 != 0)
        return std::nullopt;
    std::string text;
    // Two bytes become up to three. The binary reader accounts this amount and no more.
    text.reserve(bytes.size() / 2 * 3);
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        char32_t character = unitAt(bytes, i, 2, isBigEndian);
        if (character >= 0xd800 && character <= 0xdbff && i + 2 < bytes.size()) {
            const char32_t low = unitAt(bytes, i + 2, 2, isBigEndian);
            if (low < 0xdc00 || low > 0xdfff)
                return std::nullopt;
            character = 0x10000 + ((character - 0xd800) << 10) + (low - 0xdc00);
            i += 2;
        }
        if (!appendUtf8(text, character))
            return std::nullopt;
    }
    return text;
}

bool isAscii(std::string_view text) { return asciiSize(text) == text.size(); }

bool isValidUtf8(std::string_view text) {
    for (;;) {
        text.remove_prefix(asciiSize(text));
        if (text.empty())
            return true;
        const std::size_t size = characterSize(text);
        if (size == 0)
            return false;
        text.remove_prefix(size);
    }
}

bool appendUtf8(std::string& text, char32_t character) {
    if (isSurrogate(character) || character > 0x10ffff)
        return false;
    const auto append = [&](char32_t byte) { text += static_cast<char>(byte); };
    if (character < 0x80) {
        append(character);
        return true;
    }
    if (character < 0x800) {
        append(0xc0 | (character >> 6));
    } else {
        if (character < 0x10000) {
            append(0xe0 | (character >> 12));
        } else {
            append(0xf0 | (character >> 18));
            append(0x80 | ((character >> 12) & 0x3f));
        }
        append(0x80 | ((character >> 6) & 0x3f));
    }
    append(0x80 | (character & 0x3f));
    return true;
}

} // namespace frimbolate
