// The reader of old-style property lists.
#include "plist/old_style_reader.h"
#include "plist/text_encoding.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/fuzz/reader_properties.h"

#include <string>

namespace frimbolate::test {

void fuzzOldStyle(std::string_view input) {
    const auto value = readTwice(readOldStylePlist, input);
    if (!value)
        return;
    requireXmlHolds(*value);
    if (input.starts_with(byteOrderMark))
        return;
    const auto marked = readTwice(readOldStylePlist, std::string(byteOrderMark).append(input));
    require(marked && *marked == *value, "a byte order mark changes nothing");
}

} // namespace frimbolate::test
