#include "tests/fuzz/reader_properties.h"

#include "core/named_error.h"
#include "plist/binary_reader.h"
#include "plist/limits.h"
#include "plist/property_list_reader.h"
#include "plist/text_encoding.h"
#include "plist/written_scalars.h"
#include "plist/xml_writer.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/plist/binary_file.h"
#include "tests/plist/value_notation.h"

#include <algorithm>
#include <string>

namespace frimbolate::test {

namespace {

std::size_t depthOf(const Value& value) {
    std::size_t inner = 0;
    if (const auto* array = value.array())
        for (const Value& element : *array)
            inner = std::max(inner, depthOf(element));
    else if (const auto* dictionary = value.dictionary())
        for (const auto& [key, entry] : *dictionary)
            inner = std::max(inner, depthOf(entry));
    else
        return 0;
    return inner + 1;
}

bool holdsUtf8(const Value& value) {
    if (const auto* text = value.string())
        return isValidUtf8(*text);
    if (const auto* array = value.array())
        return std::ranges::all_of(*array, holdsUtf8);
    if (const auto* dictionary = value.dictionary())
        return std::ranges::all_of(*dictionary, [](const auto& entry) {
            return isValidUtf8(entry.first) && holdsUtf8(entry.second);
        });
    return true;
}

bool isWritable(const Value& value) {
    if (const auto* text = value.string())
        return !reasonUnwritable(*text);
    if (const auto* date = value.date())
        return plistTextOf(*date).has_value();
    if (const auto* array = value.array())
        return std::ranges::all_of(*array, isWritable);
    if (const auto* dictionary = value.dictionary())
        return std::ranges::all_of(*dictionary, [](const auto& entry) {
            return !reasonUnwritable(entry.first) && isWritable(entry.second);
        });
    return true;
}

/// No text has more lines than line feeds and carriage returns, in whatever encoding.
std::size_t mostLines(std::string_view bytes) {
    return 1 + static_cast<std::size_t>(
                   std::ranges::count_if(bytes, [](char c) { return c == '\n' || c == '\r'; }));
}

void requireNamed(const NamedError& error, std::string_view bytes) {
    require(error.name() == unreadablePlist, "a rejection is named as such");
    require(!error.reason().empty(), "a rejection has a reason");
    for (const char c : error.reason())
        require(static_cast<unsigned char>(c) >= 0x20 && c != 0x7f,
                "a reason holds no control character");
    const std::string opening = " (line ";
    const auto begin = error.reason().rfind(opening);
    if (begin == std::string::npos)
        return;
    const auto line = std::stoull(error.reason().substr(begin + opening.size()));
    require(line >= 1 && line <= mostLines(bytes), "a line of a rejection is one of the file");
}

struct ReadResult {
    std::optional<Value> value;
    std::string reason;
};

ReadResult readOnce(Value (*reader)(std::string_view), std::string_view bytes) try {
    return {reader(bytes), {}};
} catch (const NamedError& error) {
    requireNamed(error, bytes);
    return {std::nullopt, error.reason()};
}

} // namespace

bool isSame(const Value& a, const Value& b) { return a == b || valueText(a) == valueText(b); }

std::optional<Value> readTwice(Value (*reader)(std::string_view), std::string_view bytes) {
    ReadResult first = readOnce(reader, bytes);
    const ReadResult second = readOnce(reader, bytes);
    require(first.reason == second.reason, "reading again gives the same reason");
    require(first.value.has_value() == second.value.has_value(), "reading again gives the same");
    if (first.value) {
        require(isSame(*first.value, *second.value), "reading again gives the same value");
        require(depthOf(*first.value) <= maximumPlistDepth, "a value nests within the limit");
        require(holdsUtf8(*first.value), "every text of a value is valid UTF-8");
    }
    return std::move(first.value);
}

void requireBinaryHolds(const Value& value) {
    if (!value.dictionary() && !value.array())
        return;
    const auto again = readTwice(readBinaryPlist, binaryPlist(value));
    require(again && isSame(*again, value), "a value written in binary reads as the same");
}

void requireXmlHolds(const Value& value) {
    const auto* dictionary = value.dictionary();
    // One level less for the dictionary around it.
    if (!dictionary && depthOf(value) == maximumPlistDepth)
        return;
    const Dictionary root = dictionary ? *dictionary : Dictionary{{"value", value}};
    std::string text;
    try {
        text = xmlPropertyList(root);
    } catch (const NamedError& error) {
        require(error.name() == "Unwritable content", "the writer names its rejection");
        require(!isWritable(root), "the writer refuses only what XML cannot hold");
        return;
    }
    require(isWritable(root), "the writer refuses what XML cannot hold");
    const Value again = readPropertyList(text);
    require(isSame(again, root), "what was written reads as the same value");
    require(xmlPropertyList(again.asDictionary()) == text, "the same value gives the same bytes");
}

} // namespace frimbolate::test
