#include "platform/qt/property_list_binary_reader.h"
#include "platform/qt/property_list_limits.h"
#include "tests/platform/property_lists.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <limits>

namespace frimbolate::test {

namespace {

using namespace std::string_literals;
using testing::HasSubstr;

std::string dateObject(double seconds) {
    return "\x33" + bigEndian(std::bit_cast<std::uint64_t>(seconds), 8);
}

struct GoodRow {
    const char* name;
    std::vector<std::string> objects;
    Value value;
};

void PrintTo(const GoodRow& row, std::ostream* out) { *out << row.name; }

class GoodBinary : public testing::TestWithParam<GoodRow> {};

TEST_P(GoodBinary, isRead) {
    for (const unsigned offsetSize : {1U, 2U, 3U, 8U})
        EXPECT_EQ(readBinaryPropertyList(BinaryFile{GetParam().objects, offsetSize}.bytes()),
                  GetParam().value);
}

const GoodRow goodRows[] = {
    {"false", {"\x08"}, false},
    {"true", {"\x09"}, true},
    {"oneByte", {"\x10\xff"}, 255},
    {"twoBytes", {"\x11\xff\xfe"}, 65534},
    {"fourBytes", {"\x12\xff\xff\xff\xff"}, 4294967295},
    {"eightBytes", {"\x13" + bigEndian(7, 8)}, 7},
    {"negative", {"\x13" + bigEndian(~std::uint64_t{4}, 8)}, -5},
    {"lowest",
     {"\x13" + bigEndian(std::uint64_t{1} << 63, 8)},
     std::numeric_limits<std::int64_t>::min()},
    {"sixteenBytes",
     {"\x14" + bigEndian(0, 8) + bigEndian(~std::uint64_t{0}, 8)},
     std::numeric_limits<std::uint64_t>::max()},
    {"sixteenBytesSmall", {"\x14" + bigEndian(0, 8) + bigEndian(3, 8)}, 3},
    {"sixteenBytesNegative",
     {"\x14" + bigEndian(~std::uint64_t{0}, 8) + bigEndian(~std::uint64_t{0}, 8)},
     -1},
    {"float", {"\x22" + bigEndian(std::bit_cast<std::uint32_t>(1.5F), 4)}, 1.5},
    {"double", {"\x23" + bigEndian(std::bit_cast<std::uint64_t>(0.1), 8)}, 0.1},
    {"date", {dateObject(0)}, Date{978307200}},
    {"dateIsCutToSeconds", {dateObject(1.75)}, Date{978307201}},
    {"earlyDateIsCutDownwards", {dateObject(-0.25)}, Date{978307199}},
    {"data", {"\x42\x01\xff"}, Data{{1, 255}}},
    {"emptyData", {"\x40"}, Data{}},
    {"ascii", {"\x53"s + "abc"}, "abc"},
    {"emptyText", {"\x50"}, ""},
    {"textWithNul", {"\x53"s + "a\0b"s}, "a\0b"s},
    {"longText", {"\x5f\x10\x10"s + "0123456789abcdef"}, "0123456789abcdef"},
    {"countOfTwoBytes", {"\x5f\x11"s + bigEndian(3, 2) + "abc"}, "abc"},
    {"countOfEightBytes", {"\x5f\x13"s + bigEndian(3, 8) + "abc"}, "abc"},
    {"utf16", {"\x63\x00\xe9\xd8\x3d\xde\x00"s}, "é😀"},
    {"utf16ByteOrderMark", {"\x61\xfe\xff"}, "\xef\xbb\xbf"},
    {"emptyArray", {"\xa0"}, Array{}},
    {"array", {"\xa2\x01\x02", "\x08", "\x09"}, Array{false, true}},
    {"sharedObject", {"\xa2\x01\x01", "\x10\x05"}, Array{5, 5}},
    {"emptyDictionary", {"\xd0"}, Dictionary{}},
    {"dictionary",
     {"\xd2\x01\x02\x03\x04", "\x51\x62", "\x51\x61", "\x09", "\xa1\x03"},
     Dictionary{{"a", Array{true}}, {"b", true}}},
};

INSTANTIATE_TEST_SUITE_P(Rows, GoodBinary, testing::ValuesIn(goodRows),
                         [](const auto& row) { return std::string(row.param.name); });

struct BadRow {
    const char* name;
    std::vector<std::string> objects;
    const char* reason;
};

void PrintTo(const BadRow& row, std::ostream* out) { *out << row.name; }

class BadBinary : public testing::TestWithParam<BadRow> {};

TEST_P(BadBinary, isRefused) {
    const auto file = BinaryFile{GetParam().objects}.bytes();
    EXPECT_THAT(reasonOf("Unreadable property list", [&] { readBinaryPropertyList(file); }),
                HasSubstr(GetParam().reason));
}

const BadRow badRows[] = {
    {"noObjects", {}, "not there"},
    {"null", {"\x00"s}, "null"},
    {"fill", {"\x0f"}, "null"},
    {"identifier", {"\x80\x01"}, "unknown kind"},
    {"set", {"\xc1\x01", "\x09"}, "unknown kind"},
    {"orderedSet", {"\xb1\x01", "\x09"}, "unknown kind"},
    {"unusedMarker", {"\x70"}, "unknown kind"},
    {"hugeInteger", {"\x15" + std::string(32, '\0')}, "unknown size"},
    {"integerBeyond64Bits", {"\x14" + bigEndian(1, 8) + bigEndian(0, 8)}, "64 bits"},
    {"integerBelow64Bits", {"\x14" + bigEndian(~std::uint64_t{0}, 8) + bigEndian(0, 8)}, "64 bits"},
    {"tinyReal", {"\x21\x3c\x00"s}, "unknown size"},
    {"shortDate", {"\x32" + bigEndian(0, 4)}, "unknown size"},
    {"dateNotANumber", {dateObject(std::numeric_limits<double>::quiet_NaN())}, "out of range"},
    {"dateInfinite", {dateObject(std::numeric_limits<double>::infinity())}, "out of range"},
    {"dateBeforeYearOne", {dateObject(-63113904001.0)}, "out of range"},
    {"dateAfterYear9999", {dateObject(252423993600.0)}, "out of range"},
    {"cutInteger", {"\x13\x01"}, "beyond its end"},
    {"cutText", {"\x53"s + "ab"}, "beyond its end"},
    {"cutData", {"\x4f\x12\x7f\xff\xff\xff"}, "beyond its end"},
    {"cutUtf16", {"\x62\x00\x41\x00"s}, "beyond its end"},
    {"hugeUtf16Count", {"\x6f\x13" + bigEndian(0x7fffffffffffffff, 8)}, "beyond its end"},
    {"hugeTextCount", {"\x5f\x13" + bigEndian(0x7fffffffffffffff, 8)}, "beyond its end"},
    {"hugeArrayCount", {"\xaf\x13" + bigEndian(0x7fffffffffffffff, 8)}, "beyond its end"},
    {"hugeDictionaryCount", {"\xdf\x13" + bigEndian(0x7fffffffffffffff, 8)}, "beyond its end"},
    {"negativeCount", {"\xaf\x13" + bigEndian(~std::uint64_t{0}, 8)}, "count is out of range"},
    {"countIsText", {"\xaf\x51\x41"}, "count is no integer"},
    {"cutCount", {"\xaf"}, "beyond its end"},
    {"asciiAbove127", {"\x51\x80"}, "ASCII"},
    {"highSurrogateAlone", {"\x61\xd8\x3d"}, "half a character"},
    {"lowSurrogateAlone", {"\x61\xde\x00"s}, "half a character"},
    {"surrogatesSwapped", {"\x62\xde\x00\xd8\x3d"s}, "half a character"},
    {"missingReference", {"\xa1\x05"}, "not there"},
    {"keyIsNumber", {"\xd1\x01\x01", "\x10\x05"}, "no text"},
    {"keyIsDictionary", {"\xd1\x01\x01", "\xd0"}, "no text"},
    {"doubleKey",
     {"\xd2\x01\x02\x03\x03", "\x51\x61", "\x51\x61", "\x09"},
     "\"a\" stands there twice"},
    {"arrayInItself", {"\xa1\x00"s}, "holds itself"},
    {"dictionaryInItself", {"\xd1\x01\x00"s, "\x51\x61"}, "holds itself"},
    {"circleOfTwo", {"\xa1\x01", "\xa1\x00"s}, "holds itself"},
};

INSTANTIATE_TEST_SUITE_P(Rows, BadBinary, testing::ValuesIn(badRows),
                         [](const auto& row) { return std::string(row.param.name); });

struct TrailerRow {
    const char* name;
    int place; ///< counted from the end of the file
    std::string bytes;
    const char* reason;
};

void PrintTo(const TrailerRow& row, std::ostream* out) { *out << row.name; }

class DamagedTrailer : public testing::TestWithParam<TrailerRow> {};

TEST_P(DamagedTrailer, isRefused) {
    auto file = BinaryFile{{"\xa1\x01", "\x09"}}.bytes();
    file.replace(file.size() - GetParam().place, static_cast<qsizetype>(GetParam().bytes.size()),
                 QByteArray::fromStdString(GetParam().bytes));
    EXPECT_THAT(reasonOf("Unreadable property list", [&] { readBinaryPropertyList(file); }),
                HasSubstr(GetParam().reason));
}

const TrailerRow trailerRows[] = {
    {"noOffsetSize", 26, "\0"s, "trailer"},
    {"largeOffsetSize", 26, "\x09", "trailer"},
    {"noReferenceSize", 25, "\0"s, "trailer"},
    {"largeReferenceSize", 25, "\xff", "trailer"},
    {"oneObjectTooMany", 24, bigEndian(3, 8), "does not fit"},
    {"countThatWrapsAround", 24, bigEndian(std::uint64_t{1} << 63, 8), "does not fit"},
    {"topBeyondObjects", 16, bigEndian(2, 8), "not there"},
    {"tableInHeader", 8, bigEndian(7, 8), "does not fit"},
    {"tableInTrailer", 8, bigEndian(100, 8), "does not fit"},
    {"tableFarAway", 8, bigEndian(~std::uint64_t{0}, 8), "does not fit"},
    {"offsetInHeader", 36, bigEndian(7, 2), "outside"},
    {"offsetInTable", 36, bigEndian(11, 2), "outside"},
};

INSTANTIATE_TEST_SUITE_P(Rows, DamagedTrailer, testing::ValuesIn(trailerRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(BinaryReader, knowsItsFiles) {
    EXPECT_TRUE(isBinaryPropertyList("bplist00 and more"));
    for (const char* other : {"", "bplist", "bplist15", "<?xml version=\"1.0\"?>"}) {
        EXPECT_FALSE(isBinaryPropertyList(other)) << other;
        EXPECT_THROW(readBinaryPropertyList(other), Failure) << other;
    }
}

/// Arrays in a row, each with two references to the next: every level doubles what is asked for.
QByteArray bomb(int levels, const std::string& last) {
    BinaryFile file;
    for (int i = 1; i <= levels; ++i)
        file.objects.push_back("\xa2" + std::string(2, static_cast<char>(i)));
    file.objects.push_back(last);
    return file.bytes();
}

TEST(BinaryReader, boundsTheObjectsThatAreAskedFor) {
    EXPECT_NO_THROW(readBinaryPropertyList(bomb(10, "\x09")));
    const auto file = bomb(40, "\x09");
    ASSERT_LT(file.size(), 358);
    EXPECT_THAT(reasonOf("Unreadable property list", [&] { readBinaryPropertyList(file); }),
                HasSubstr("too many objects"));
}

TEST(BinaryReader, boundsTheBytesThatAreAskedFor) {
    const std::string text = "\x5f\x12" + bigEndian(1 << 20, 4) + std::string(1 << 20, 'a');
    EXPECT_NO_THROW(readBinaryPropertyList(bomb(4, text)));
    EXPECT_THAT(
        reasonOf("Unreadable property list", [&] { readBinaryPropertyList(bomb(5, text)); }),
        HasSubstr("over 16 MiB"));
}

TEST(BinaryReader, boundsTheDepth) {
    const auto nested = [](int levels) {
        BinaryFile file;
        file.referenceSize = 2;
        for (int i = 1; i < levels; ++i)
            file.objects.push_back("\xa1" + bigEndian(static_cast<std::uint64_t>(i), 2));
        file.objects.push_back("\xa0");
        return file.bytes();
    };
    EXPECT_NO_THROW(readBinaryPropertyList(nested(maximumPropertyListDepth)));
    for (const int levels : {maximumPropertyListDepth + 1, 10000})
        EXPECT_THAT(
            reasonOf("Unreadable property list", [&] { readBinaryPropertyList(nested(levels)); }),
            HasSubstr("nested too deeply"));
}

TEST(BinaryReader, boundsTheSize) {
    const auto fileOf = [](std::size_t size) {
        BinaryFile file{{""}, 4};
        const auto frame = static_cast<std::size_t>(file.bytes().size()) + 6;
        file.objects[0] = "\x4f\x12" + bigEndian(size - frame, 4) + std::string(size - frame, 'd');
        return file.bytes();
    };
    const auto largest = fileOf(maximumPropertyListBytes);
    ASSERT_EQ(static_cast<std::size_t>(largest.size()), maximumPropertyListBytes);
    EXPECT_TRUE(readBinaryPropertyList(largest).data());
    EXPECT_EQ(reasonOf("Unreadable property list",
                       [&] { readBinaryPropertyList(fileOf(maximumPropertyListBytes + 1)); }),
              "it is over 16 MiB");
}

} // namespace

} // namespace frimbolate::test
