#include "plist/old_style_reader.h"

#include "plist/escaped_text.h"
#include "plist/limits.h"
#include "plist/text_cursor.h"
#include "plist/text_encoding.h"
#include "plist/value_builder.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace frimbolate {

namespace {

/// Line and paragraph separator.
constexpr std::string_view wideSeparators[] = {"\u2028", "\u2029"};

constexpr bool standsWithoutQuotes(char c) {
    return (c >= 'a' && c <= 'z') || (c >= '-' && c <= ':') || (c >= 'A' && c <= 'Z') || c == '_' ||
           c == '$';
}

std::optional<std::uint8_t> hexadecimalDigit(char c) {
    if (c >= '0' && c <= '9')
        return static_cast<std::uint8_t>(c - '0');
    if (c >= 'a' && c <= 'f')
        return static_cast<std::uint8_t>(c - 'a' + 10);
    if (c >= 'A' && c <= 'F')
        return static_cast<std::uint8_t>(c - 'A' + 10);
    return std::nullopt;
}

/// The position of a text in the file, without its quotes.
struct Token {
    std::size_t start;
    std::size_t end;
    bool isEscaped; ///< contains a backslash
};

/// Makes one pass over a file. The first pass counts the elements of each array, the second builds
/// the value: an element can be two bytes long, and an array that grows by reallocation would take
/// many times the memory of the final one.
class OldStyleReader {
  public:
    /// All must outlive the reader.
    /// \param counts  elements of each array, in the order of their starts
    /// \param builder null in the first pass
    OldStyleReader(std::string_view text, std::vector<std::uint32_t>& counts, ValueBuilder* builder)
        : in_(text), counts_(counts), builder_(builder) {}

    void document();

  private:
    /// "strings" is a dictionary without braces. The end of the file closes it.
    enum class Kind { array, dictionary, strings };
    struct Level {
        Kind kind;
        std::size_t countIndex; ///< into counts_; for an array
    };

    bool skipSpace();
    bool takeSpace();
    bool takeWideSeparator();
    void skipLineComment();
    void skipBlockComment();
    bool startsText() const;
    Token token();
    std::string content(const Token& token) const;
    void step();
    void object();
    void begin(Kind kind);
    void end();
    void entry(const Token& key);
    void text(const Token& token);
    bool takeBlankInData();
    void data();
    void afterValue();

    TextCursor in_;
    std::vector<std::uint32_t>& counts_;
    std::size_t arrays_ = 0;
    ValueBuilder* builder_; ///< null while counting
    std::vector<Level> levels_;
};

void OldStyleReader::document() {
    if (!skipSpace()) {
        begin(Kind::strings);
        end();
        return;
    }
    if (startsText()) {
        const Token first = token();
        if (!skipSpace())
            return text(first);
        begin(Kind::strings);
        entry(first);
    } else {
        object();
    }
    while (!levels_.empty())
        step();
    if (skipSpace())
        in_.fail("something follows its value");
}

bool OldStyleReader::takeSpace() {
    const char c = in_.peek();
    if (c == ' ' || (c >= '\t' && c <= '\r')) {
        in_.advance();
        return true;
    }
    return takeWideSeparator();
}

bool OldStyleReader::takeWideSeparator() {
    return in_.peek() == wideSeparators[0].front() &&
           (in_.take(wideSeparators[0]) || in_.take(wideSeparators[1]));
}

/// Advances past blanks and comments; false at the end of the file.
bool OldStyleReader::skipSpace() {
    while (!in_.atEnd()) {
        if (takeSpace())
            continue;
        if (in_.peek() != '/')
            return true;
        if (in_.take("//"))
            skipLineComment();
        else if (in_.take("/*"))
            skipBlockComment();
        else
            return true;
    }
    return false;
}

void OldStyleReader::skipLineComment() {
    while (!in_.atEnd() && in_.peek() != '\n' && in_.peek() != '\r' &&
           !in_.rest().starts_with(wideSeparators[0]) && !in_.rest().starts_with(wideSeparators[1]))
        in_.advance();
}

void OldStyleReader::skipBlockComment() {
    const auto end = in_.find("*/");
    if (end == std::string_view::npos)
        in_.advance(in_.rest().size());
    else
        in_.moveTo(end + 2);
}

bool OldStyleReader::startsText() const {
    const char c = in_.peek();
    return c == '"' || c == '\'' || standsWithoutQuotes(c);
}

Token OldStyleReader::token() {
    const char quote = in_.peek();
    const bool isQuoted = quote == '"' || quote == '\'';
    std::size_t start = in_.position();
    if (!isQuoted) {
        while (!in_.atEnd() && standsWithoutQuotes(in_.peek()))
            in_.advance();
        return {start, in_.position(), false};
    }
    in_.advance();
    bool isEscaped = false;
    while (!in_.atEnd() && in_.peek() != quote) {
        const bool isBackslash = in_.take('\\');
        isEscaped = isEscaped || isBackslash;
        if (!in_.atEnd() || !isBackslash)
            in_.advance();
    }
    const Token result{start + 1, in_.position(), isEscaped};
    if (!in_.take(quote))
        in_.failAt(start, "a quoted text does not end");
    return result;
}

std::string OldStyleReader::content(const Token& token) const {
    const std::string_view raw = in_.between(token.start, token.end);
    if (!token.isEscaped)
        return std::string(raw);
    auto unescaped = unescapedText(raw);
    if (!unescaped)
        in_.failAt(token.start, "an escape sequence stands for no character");
    return *std::move(unescaped);
}

/// Reads one element, one entry, or the end of the innermost container.
void OldStyleReader::step() {
    const Kind kind = levels_.back().kind;
    if (builder_ && builder_->isTooLarge())
        in_.fail(tooMuchMemory);
    const bool isMore = skipSpace();
    if (kind == Kind::array ? in_.take(')') : kind == Kind::dictionary && in_.take('}'))
        return end();
    if (kind == Kind::strings && !isMore)
        return end();
    if (kind == Kind::array)
        return object();
    if (!startsText())
        in_.failUnexpected("a key");
    entry(token());
}

void OldStyleReader::object() {
    if (in_.take('{'))
        begin(Kind::dictionary);
    else if (in_.take('('))
        begin(Kind::array);
    else if (in_.take('<'))
        data();
    else if (startsText())
        text(token());
    else
        in_.failUnexpected("a value");
}

void OldStyleReader::begin(Kind kind) {
    if (levels_.size() >= maximumPlistDepth)
        in_.fail("it is nested too deeply");
    levels_.push_back({kind, arrays_});
    const bool isArray = kind == Kind::array;
    if (isArray && !builder_)
        counts_.push_back(0);
    if (isArray && builder_)
        builder_->beginArray(counts_[arrays_]);
    if (!isArray && builder_)
        builder_->beginDictionary();
    arrays_ += isArray ? 1 : 0;
}

void OldStyleReader::end() {
    levels_.pop_back();
    if (builder_)
        builder_->end();
    afterValue();
}

void OldStyleReader::entry(const Token& key) {
    if (builder_)
        builder_->key(content(key));
    skipSpace();
    if (in_.peek() == ';')
        return text(key);
    if (!in_.take('='))
        in_.failUnexpected("\"=\" or \";\"");
    skipSpace();
    object();
}

void OldStyleReader::text(const Token& token) {
    if (builder_)
        builder_->value(content(token));
    afterValue();
}

bool OldStyleReader::takeBlankInData() {
    if (!in_.atEnd() && TextCursor::isBlank(in_.peek())) {
        in_.advance();
        return true;
    }
    return takeWideSeparator();
}

/// Reads pairs of hexadecimal digits up to ">". Blanks are allowed between the pairs only.
void OldStyleReader::data() {
    Data data;
    while (!in_.take('>')) {
        if (takeBlankInData())
            continue;
        const auto high = hexadecimalDigit(in_.peek());
        if (!high)
            in_.failUnexpected("a hexadecimal digit");
        in_.advance();
        const auto low = hexadecimalDigit(in_.peek());
        if (!low)
            in_.failUnexpected("a second hexadecimal digit");
        in_.advance();
        if (builder_)
            data.bytes.push_back(static_cast<std::uint8_t>(*high << 4 | *low));
    }
    if (builder_)
        builder_->value(std::move(data));
    afterValue();
}

void OldStyleReader::afterValue() {
    if (levels_.empty())
        return;
    const Level& level = levels_.back();
    skipSpace();
    if (level.kind != Kind::array) {
        if (!in_.take(';'))
            in_.failUnexpected("\";\"");
        return;
    }
    if (!builder_)
        ++counts_[level.countIndex];
    if (!in_.take(',') && in_.peek() != ')')
        in_.failUnexpected("\",\" or \")\"");
}

} // namespace

Value readOldStylePlist(std::string_view text) {
    if (text.starts_with(byteOrderMark))
        text.remove_prefix(byteOrderMark.size());
    if (!isValidUtf8(text))
        TextCursor(text).fail("it is no valid UTF-8");
    std::vector<std::uint32_t> counts;
    OldStyleReader(text, counts, nullptr).document();
    counts.shrink_to_fit();
    ValueBuilder builder(DuplicateKeys::last, maximumPlistMemory(text.size()));
    OldStyleReader(text, counts, &builder).document();
    return builder.take();
}

} // namespace frimbolate
