#include "plist/xml_text.h"

#include "plist/text_encoding.h"

#include <cstdint>
#include <optional>

namespace frimbolate {

namespace {

constexpr std::string_view sectionBegin = "<![CDATA[";
constexpr std::string_view sectionEnd = "]]>";

struct Entity {
    std::string_view name;
    char character;
};

constexpr Entity entities[] = {
    {"lt;", '<'}, {"gt;", '>'}, {"amp;", '&'}, {"apos;", '\''}, {"quot;", '"'},
};

void readSection(TextCursor& in, std::string& text) {
    if (!in.take(sectionBegin))
        in.fail("a text holds another element");
    const std::size_t start = in.position();
    const std::size_t end = in.find(sectionEnd);
    if (end == std::string_view::npos)
        in.fail("a CDATA section does not end");
    text += in.between(start, end);
    in.moveTo(end + sectionEnd.size());
}

std::optional<char32_t> digitValue(char c, bool isHexadecimal) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (isHexadecimal && c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (isHexadecimal && c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return std::nullopt;
}

/// Reads a numeric character reference from after its "&#". A reference without digits means zero.
void readCharacter(TextCursor& in, std::string& text) {
    const bool isHexadecimal = in.take('x');
    char32_t character = 0;
    while (!in.take(';')) {
        const auto digit = digitValue(in.peek(), isHexadecimal);
        if (!digit)
            in.failUnexpected("a digit of a character's number");
        character = character * (isHexadecimal ? 16 : 10) + *digit;
        if (character > 0x10ffff)
            in.fail("a reference names no character");
        in.advance();
    }
    if (!appendUtf8(text, character))
        in.fail("a reference names half a character");
}

void readReference(TextCursor& in, std::string& text) {
    in.advance();
    if (in.take('#'))
        return readCharacter(in, text);
    for (const Entity& entity : entities)
        if (in.take(entity.name)) {
            text += entity.character;
            return;
        }
    in.fail("it holds an unknown entity");
}

} // namespace

std::string readXmlText(TextCursor& in) {
    std::string text;
    for (;;) {
        const std::size_t tag = in.find('<');
        if (tag == std::string_view::npos)
            in.fail("a text does not end");
        // The tag is searched once for all references before it: quadratic time otherwise.
        while (in.position() < tag) {
            const std::size_t start = in.position();
            in.moveTo(in.find('&', tag));
            text += in.between(start, in.position());
            if (in.position() < tag)
                readReference(in, text);
        }
        if (!in.rest().starts_with("<!"))
            break;
        readSection(in, text);
    }
    if (!isValidUtf8(text))
        in.fail("a text is no valid UTF-8");
    if (text.starts_with(byteOrderMark))
        text.erase(0, byteOrderMark.size());
    return text;
}

} // namespace frimbolate
