// A read position in a text that can report its line.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace frimbolate {

class TextCursor {
  public:
    /// \param text must outlive the cursor
    explicit TextCursor(std::string_view text) : text_(text) {}

    bool atEnd() const { return position_ == text_.size(); }
    /// The next byte; NUL at the end. atEnd() distinguishes it from a NUL in the text.
    char peek() const { return atEnd() ? '\0' : text_[position_]; }
    std::size_t position() const { return position_; }
    std::string_view rest() const { return text_.substr(position_); }
    std::string_view between(std::size_t start, std::size_t end) const {
        return text_.substr(start, end - start);
    }

    void moveTo(std::size_t position) { position_ = position; }
    void advance(std::size_t bytes = 1) { position_ += bytes; }

    /// Advances past an expected text. Returns false, without moving, where another follows.
    bool take(std::string_view expected) {
        if (text_.compare(position_, expected.size(), expected) != 0)
            return false;
        position_ += expected.size();
        return true;
    }
    bool take(char expected) {
        if (atEnd() || text_[position_] != expected)
            return false;
        ++position_;
        return true;
    }
    /// Advances past the white space of XML.
    void skipBlanks() {
        while (!atEnd() && isBlank(text_[position_]))
            ++position_;
    }
    /// The position of the next occurrence of a text or character, or std::string_view::npos.
    template <typename Piece>
    std::size_t find(Piece piece) {
        return searched(text_.find(piece, position_), text_.size());
    }
    /// The position of the next occurrence of a character before an end, or the end.
    std::size_t find(char character, std::size_t end) {
        const std::size_t found = between(position_, end).find(character);
        return searched(found == std::string_view::npos ? end : position_ + found, end);
    }
    /// The number of bytes that all calls of find() searched. Tests use it to show that a reader
    /// takes linear time.
    std::size_t bytesSearched() const { return bytesSearched_; }

    static bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

    /// \throws NamedError with the reason and the line of the position; the first line is 1
    [[noreturn]] void failAt(std::size_t position, const std::string& reason) const;
    [[noreturn]] void fail(const std::string& reason) const { failAt(position_, reason); }
    /// \throws NamedError "it ends too early" at the end of the text, else with the next character
    ///         and what was wanted
    [[noreturn]] void failUnexpected(const std::string& wanted) const;

  private:
    std::size_t searched(std::size_t found, std::size_t end) {
        bytesSearched_ += std::min(found, end) - position_;
        return found;
    }

    std::string_view text_;
    std::size_t position_ = 0;
    std::size_t bytesSearched_ = 0;
};

/// A part of a file for a message: shortened, and printable characters only.
std::string excerpt(std::string_view text);

} // namespace frimbolate
