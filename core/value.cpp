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

std::string described(const Value& value, int depth);

std::string describedArray(const Array& array, int depth) {
    const std::string indent(static_cast<std::size_t>(depth) * 4, ' ');
    std::string result = "(";
    for (std::size_t i = 0; i < array.size(); ++i)
        result += (i == 0 ? "\n" : ",\n") + indent + "    " + described(array[i], depth + 1);
    return result + "\n" + indent + ")";
}

std::string describedDictionary(const Dictionary& dictionary, int depth) {
    const std::string indent(static_cast<std::size_t>(depth) * 4, ' ');
    std::string result = "{\n";
    for (const auto& [key, value] : dictionary)
        result += indent + "    " + quoted(key) + " = " + described(value, depth + 1) + ";\n";
    return result + indent + "}";
}

std::string described(const Value& value, int depth) {
    if (const auto* text = value.string())
        return depth == 0 ? *text : quoted(*text);
    if (const auto* truth = value.boolean())
        return *truth ? "1" : "0";
    if (const auto* number = value.integer())
        return std::to_string(*number);
    if (const auto* number = value.bigInteger())
        return std::to_string(*number);
    if (const auto* number = value.real())
        return shortestReal(*number);
    if (const auto* data = value.data())
        return describedData(*data);
    if (const auto* date = value.date())
        return utcText(*date, ' ', " +0000");
    if (const auto* array = value.array())
        return describedArray(*array, depth);
    return describedDictionary(*value.dictionary(), depth);
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

std::string description(const Value& value) { return described(value, 0); }

std::string description(const Value* value) { return value ? described(*value, 0) : "(null)"; }

} // namespace frimbolate
