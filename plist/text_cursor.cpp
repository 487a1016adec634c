#include "plist/text_cursor.h"

#include "core/named_error.h"
#include "plist/limits.h"

namespace frimbolate {

namespace {

/// The line of a position. A line feed, a carriage return or the pair of both ends a line.
std::size_t lineOf(std::string_view text, std::size_t position) {
    std::size_t line = 1;
    for (std::size_t i = 0; i < position; ++i) {
        const bool isPair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        if (text[i] == '\n' || (text[i] == '\r' && !isPair))
            ++line;
    }
    return line;
}

} // namespace

void TextCursor::failAt(std::size_t position, const std::string& reason) const {
    throw NamedError(unreadablePlist,
                     reason + " (line " + std::to_string(lineOf(text_, position)) + ")");
}

void TextCursor::failUnexpected(const std::string& wanted) const {
    if (atEnd())
        fail("it ends where " + wanted + " is expected");
    std::string reason = "\"";
    reason += excerpt(text_.substr(position_, 1));
    reason += "\" stands where " + wanted + " is expected";
    fail(reason);
}

std::string excerpt(std::string_view text) {
    static constexpr std::string_view digits = "0123456789abcdef";
    constexpr std::size_t longest = 40;
    std::string result;
    for (const char c : text.substr(0, longest)) {
        if (c >= ' ' && c <= '~') {
            result += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        result += "\\x";
        result += digits[byte >> 4];
        result += digits[byte & 15];
    }
    return text.size() > longest ? result + "…" : result;
}

} // namespace frimbolate
