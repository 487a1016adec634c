// The choice of the form and of the encoding.
#include "plist/property_list_reader.h"
#include "plist/text_encoding.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/fuzz/reader_properties.h"

#include <string>

namespace frimbolate::test {

namespace {

/// A text of ASCII in an encoding of two or four bytes, with its mark.
std::string wide(std::string_view text, std::size_t size, bool isBigEndian) {
    std::string result;
    const auto append = [&](char low, char high) {
        std::string unit(size, '\0');
        unit[isBigEndian ? size - 1 : 0] = low;
        unit[isBigEndian ? size - 2 : 1] = high;
        result += unit;
    };
    append('\xff', '\xfe');
    for (const char c : text)
        append(c, '\0');
    return result;
}

} // namespace

void fuzzAnyForm(std::string_view input) {
    const auto value = readTwice(readPropertyList, input);
    if (value) {
        requireXmlHolds(*value);
        requireBinaryHolds(*value);
    }
    // A header could name an encoding, a binary file is no text, and the readers stop at a NUL in
    // one form and not in the other.
    const bool isPlain = isAscii(input) && !input.empty() &&
                         input.find("encoding") == std::string_view::npos &&
                         !input.starts_with("bplist") && input.find('\0') == std::string_view::npos;
    if (!isPlain)
        return;
    for (const std::size_t size : {2U, 4U})
        for (const bool isBigEndian : {false, true}) {
            const auto same = readTwice(readPropertyList, wide(input, size, isBigEndian));
            require(same.has_value() == value.has_value(), "every encoding is read alike");
            require(!value || isSame(*same, *value), "every encoding gives the same value");
        }
}

} // namespace frimbolate::test
