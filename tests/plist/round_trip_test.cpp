// Writing and reading back gives the same value, in the XML and the binary form.
#include "core/named_error.h"
#include "plist/property_list_reader.h"
#include "plist/xml_writer.h"
#include "tests/plist/binary_file.h"
#include "tests/plist/value_notation.h"
#include "tests/plist/verdict.h"
#include "tests/support/random_values.h"

#include <gtest/gtest.h>

#include <limits>

namespace frimbolate::test {

namespace {

constexpr std::uint32_t rounds = 2000;

TEST(RoundTrip, OfRandomValuesThroughTheWriter) {
    for (std::uint32_t seed = 0; seed < rounds; ++seed) {
        const Dictionary dictionary = RandomValues(seed).dictionary(4);
        const std::string text = xmlPropertyList(dictionary);
        const Value again = readPropertyList(text);
        ASSERT_EQ(again, Value(dictionary)) << "seed " << seed << "\n" << text;
        ASSERT_EQ(xmlPropertyList(again.asDictionary()), text) << "seed " << seed;
    }
}

TEST(RoundTrip, OfRandomValuesInBinary) {
    for (std::uint32_t seed = 0; seed < rounds; ++seed) {
        const Value value = RandomValues(seed).dictionary(4);
        ASSERT_EQ(readPropertyList(binaryPlist(value)), value) << "seed " << seed;
    }
}

TEST(RoundTrip, OfTheEdges) {
    const Dictionary dictionary = {
        {"lines", "a\rb\nc\r\nd"},
        {"byteOrderMarkInside", "a\xef\xbb\xbf"},
        {"sectionEnd", "]]>"},
        {"infinity", std::numeric_limits<double>::infinity()},
        {"negativeInfinity", -std::numeric_limits<double>::infinity()},
        {"largest", std::numeric_limits<double>::max()},
        {"smallest", std::numeric_limits<double>::denorm_min()},
        {"negativeZero", -0.0},
        {"firstDate", Date{-62135596800}},
        {"lastDate", Date{253402300799}},
        {"emptyData", Data{}},
        {"uid", Dictionary{{"CF$UID", 7}}},
    };
    EXPECT_EQ(valueText(readPropertyList(xmlPropertyList(dictionary))), valueText(dictionary));
    const auto notANumber = xmlPropertyList({{"n", std::numeric_limits<double>::quiet_NaN()}});
    EXPECT_EQ(verdictOn(notANumber), "ok\t{\"n\"=Rnan}");
}

} // namespace

} // namespace frimbolate::test
