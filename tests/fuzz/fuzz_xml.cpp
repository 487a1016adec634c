// The reader of XML property lists, and the finder of their keys' lines.
#include "plist/key_lines.h"
#include "plist/text_encoding.h"
#include "plist/xml_reader.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/fuzz/reader_properties.h"

#include <algorithm>

namespace frimbolate::test {

namespace {

Value readXml(std::string_view text) {
    TextCursor in(text);
    try {
        Value value = readXmlPlist(in);
        require(in.position() <= text.size(), "the reader stops within the text");
        require(in.bytesSearched() <= 3 * text.size(), "the search takes linear time");
        return value;
    } catch (...) {
        require(in.bytesSearched() <= 3 * text.size(), "the search takes linear time");
        throw;
    }
}

} // namespace

void fuzzXml(std::string_view input) {
    const auto lines = static_cast<std::size_t>(std::ranges::count(input, '\n')) + 1;
    for (const auto& [path, line] : keyLines(input))
        require(line >= 1 && line <= lines, "the line of a key is one of the file");
    if (const auto value = readTwice(readXml, input))
        requireXmlHolds(*value);
}

} // namespace frimbolate::test
