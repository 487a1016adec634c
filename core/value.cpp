#include "core/value.h"

#include "core/named_error.h"
#include "core/value_text.h"

#include <array>

namespace frimbolate {

namespace {

[[noreturn]] void raiseUnexpected(const Value& value, std::string_view wanted) {
    throw NamedError("Unexpected value", "Expected a " + std::string(wanted) + ", found a " +
                                             std::string(value.kind()));
}

bool isBareWord(std::string_view text) {
    if (text.empty())
        return false;
    for (const char c : text) {
        const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
        const bool digit = c >= '0' && c <= '9';
        if (!letter && !digit && c != '_' && c != '.' && c != '/' && c != '$' && c != ':')
            return false;
    }
    return true;
}

std::string quoted(std::string_view text) {
    if (isBareWord(text))
        return std::string(text);
    std::string result = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\')
            result += '\\';
        result += c;
    }
    return result + '"';
}

std::string describedData(const Data& data) {
    static constexpr std::string_view hexadecimal = "0123456789abcdef";
    std::string result = "<";
    for (const std::uint8_t byte : data.bytes) {
        result += hexadecimal[byte >> 4];
        result += hexadecimal[byte & 15];
    }
    return result + '>';
}

/// Writes a description into one text. An agent of deeply nested containers would take thousands of
/// times its size for the blanks before its lines, so the text ends early.
class Describer {
  public:
    std::string text(const Value& value) {
        if (const auto* text = value.string())
            return *text;
        append(value);
        return std::move(text_);
    }

  private:
    bool isFull() {
        constexpr std::size_t most = std::size_t{1} << 20;
        return text_.size() > most;
    }
    void beginLine() { text_.append(std::string_view("\n")).append(4 * depth_, ' '); }
    void append(const Value& value);
    void append(const Array& array);
    void append(const Dictionary& dictionary);

    std::string text_;
    std::size_t depth_ = 0;
};

void Describer::append(const Array& array) {
    text_ += '(';
    ++depth_;
    for (std::size_t i = 0; i < array.size() && !isFull(); ++i) {
        text_ += i == 0 ? "" : ",";
        beginLine();
        append(array[i]);
    }
    --depth_;
    beginLine();
    text_ += isFull() ? "\u2026)" : ")";
}

void Describer::append(const Dictionary& dictionary) {
    text_ += '{';
    ++depth_;
    for (const auto& [key, value] : dictionary) {
        if (isFull())
            break;
        beginLine();
        text_.append(quoted(key)).append(" = ");
        append(value);
        text_ += ';';
    }
    --depth_;
    beginLine();
    text_ += isFull() ? "\u2026}" : "}";
}

void Describer::append(const Value& value) {
    if (const auto* text = value.string())
        text_ += quoted(*text);
    else if (const auto* truth = value.boolean())
        text_ += *truth ? "1" : "0";
    else if (const auto* number = value.integer())
        text_ += std::to_string(*number);
    else if (const auto* bigNumber = value.bigInteger())
        text_ += std::to_string(*bigNumber);
    else if (const auto* real = value.real())
        text_ += shortestReal(*real);
    else if (const auto* data = value.data())
        text_ += describedData(*data);
    else if (const auto* date = value.date())
        text_ += utcText(*date, ' ', " +0000");
    else if (const auto* array = value.array())
        append(*array);
    else
        append(*value.dictionary());
}

} // namespace

std::string_view Value::kind() const {
    static constexpr std::array<std::string_view, 9> kinds = {
        "string", "boolean", "integer", "integer", "real", "data", "date", "array", "dictionary"};
    return kinds[content_.index()];
}

const std::string& Value::asString() const {
    if (const auto* text = string())
        return *text;
    raiseUnexpected(*this, "string");
}

const Array& Value::asArray() const {
    if (const auto* elements = array())
        return *elements;
    raiseUnexpected(*this, "array");
}

const Dictionary& Value::asDictionary() const {
    if (const auto* entries = dictionary())
        return *entries;
    raiseUnexpected(*this, "dictionary");
}

const Value* find(const Dictionary& dictionary, std::string_view key) {
    const auto found = dictionary.find(key);
    return found == dictionary.end() ? nullptr : &found->second;
}

std::string description(const Value& value) { return Describer().text(value); }

std::string description(const Value* value) { return value ? description(*value) : "(null)"; }

} // namespace frimbolate
