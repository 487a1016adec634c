#include "cli/json_text.h"

#include <array>
#include <cstdint>
#include <cstdio>

namespace frimbolate {

namespace {

/// The length of the UTF-8 sequence at a position; 0 where it is none.
std::size_t sequenceLength(std::string_view text) {
    const auto byte = [&text](std::size_t at) {
        return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U;
    };
    const unsigned lead = byte(0);
    if (lead < 0x80)
        return 1;
    const std::size_t length = lead >= 0xf0 ? 4 : lead >= 0xe0 ? 3 : 2;
    if (lead < 0xc2 || lead > 0xf4)
        return 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((byte(i) & 0xc0U) != 0x80U)
            return 0;
    const unsigned second = byte(1);
    const bool isOverlong = (lead == 0xe0 && second < 0xa0) || (lead == 0xf0 && second < 0x90);
    const bool isBeyond = (lead == 0xed && second >= 0xa0) || (lead == 0xf4 && second >= 0x90);
    return isOverlong || isBeyond ? 0 : length;
}

std::string escaped(unsigned char character) {
    switch (character) {
    case '"':
        return "\\\"";
    case '\\':
        return "\\\\";
    case '\n':
        return "\\n";
    case '\t':
        return "\\t";
    case '\r':
        return "\\r";
    default:
        break;
    }
    if (character >= ' ' && character != 0x7f)
        return std::string(1, static_cast<char>(character));
    std::array<char, 8> code{};
    std::snprintf(code.data(), code.size(), "\\u%04x", static_cast<unsigned>(character));
    return code.data();
}

} // namespace

std::string jsonText(std::string_view text) {
    std::string json = "\"";
    while (!text.empty()) {
        const std::size_t length = sequenceLength(text);
        if (length == 1)
            json += escaped(static_cast<unsigned char>(text.front()));
        else
            json += length == 0 ? std::string_view("\\ufffd") : text.substr(0, length);
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return json + "\"";
}

void JsonWriter::key(std::string_view name) {
    beginValue();
    text_ += jsonText(name) + ": ";
    afterKey_ = true;
}

void JsonWriter::value(std::string_view json) {
    beginValue();
    text_ += json;
}

void JsonWriter::begin(char bracket) {
    beginValue();
    text_ += bracket;
    ++depth_;
    isEmpty_ = true;
}

void JsonWriter::end(char bracket) {
    --depth_;
    if (!isEmpty_)
        beginLine();
    text_ += bracket;
    isEmpty_ = false;
}

void JsonWriter::beginValue() {
    if (afterKey_) {
        afterKey_ = false;
        return;
    }
    if (depth_ > 0) {
        if (!isEmpty_)
            text_ += ',';
        beginLine();
    }
    isEmpty_ = false;
}

void JsonWriter::beginLine() {
    text_ += '\n';
    text_.append(2 * depth_, ' ');
}

} // namespace frimbolate
