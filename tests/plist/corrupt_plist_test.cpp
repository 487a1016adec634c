// Corrupt files of every form: a reader returns a value or throws a NamedError. The sanitizers of
// the build detect accesses out of bounds.
#include "plist/xml_writer.h"
#include "tests/plist/binary_file.h"
#include "tests/plist/verdict.h"
#include "tests/support/random_values.h"

#include <gtest/gtest.h>

namespace frimbolate::test {

namespace {

const std::string binary = binaryPlist(Dictionary{
    {"array", Array{Value(true), Value(-5), Value(1.5)}},
    {"data", Data{{1, 2, 3}}},
    {"date", Date{978307200}},
    {"text", "a long enough text"},
    {"é", "日本 😀"},
});
constexpr const char* oldStyle =
    "// a\n{ \"a b\" = (c, \"\\Ud83d\\Ude00\\101\", <00 ff>,); /* d */ e = { f; }; é\\ = 'g'; }";

std::string xml() { return xmlPropertyList(RandomValues(7).dictionary(3)); }

int readPrefixes(const std::string& file) {
    int read = 0;
    for (std::size_t size = 0; size < file.size(); ++size)
        read += verdictOn(std::string_view(file).substr(0, size)) == "error" ? 0 : 1;
    return read;
}

TEST(CorruptPlists, EveryPrefixIsRefused) {
    ASSERT_NE(verdictOn(binary), "error");
    EXPECT_EQ(readPrefixes(binary), 8) << "\"b\" to \"bplist00\" are words of the older form";
    // The file is complete without its last line end.
    auto file = xml();
    ASSERT_NE(verdictOn(file), "error");
    file.pop_back();
    EXPECT_EQ(readPrefixes(file), 0);
}

void flipBytes(const std::string& file, bool isRead = true) {
    RandomValues random(20011);
    int read = 0;
    constexpr int rounds = 3000;
    for (int round = 0; round < rounds; ++round) {
        std::string damaged = file;
        for (auto flips = 1 + random.below(4); flips > 0; --flips)
            damaged[random.below(damaged.size())] = static_cast<char>(random.below(256));
        read += verdictOn(damaged) == "error" ? 0 : 1;
    }
    // Otherwise the damage never produced the case that the test is about.
    EXPECT_EQ(read > 0, isRead);
    EXPECT_LT(read, rounds);
}

TEST(CorruptPlists, FlippedBytesInXml) { flipBytes(xml()); }
TEST(CorruptPlists, FlippedBytesInBinary) { flipBytes(binary); }
TEST(CorruptPlists, FlippedBytesInOldStyle) { flipBytes(oldStyle); }

TEST(CorruptPlists, EveryByteOfABinaryFileWithEveryValue) {
    std::size_t judged = 0;
    for (std::size_t place = 0; place < binary.size(); ++place)
        for (int byte = 0; byte < 256; ++byte) {
            std::string damaged = binary;
            damaged[place] = static_cast<char>(byte);
            const std::string verdict = verdictOn(damaged);
            judged += verdict == "error" || verdict.starts_with("ok\t") ? 1 : 0;
        }
    EXPECT_EQ(judged, binary.size() * 256);
}

} // namespace

} // namespace frimbolate::test
