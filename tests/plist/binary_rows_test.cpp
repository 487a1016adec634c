// The rules of the binary form.
#include "tests/plist/binary_file.h"
#include "tests/plist/verdict.h"
#include "tests/support/rows.h"

#include <gmock/gmock.h>

#include <bit>
#include <limits>

namespace frimbolate::test {

namespace {

using namespace std::string_literals;
using testing::HasSubstr;

std::string doubleBytes(double number) {
    return bigEndian(std::bit_cast<std::uint64_t>(number), 8);
}

struct GoodRow {
    const char* name;
    std::vector<std::string> objects;
    std::string value;
};

void PrintTo(const GoodRow& row, std::ostream* out) { *out << row.name; }

class GoodBinary : public testing::TestWithParam<GoodRow> {};

TEST_P(GoodBinary, isReadWhateverTheSizeOfItsReferences) {
    for (const unsigned offsetSize : {1U, 2U, 3U, 8U, 9U})
        EXPECT_EQ(verdictOn(BinaryFile{GetParam().objects, offsetSize}.bytes()),
                  "ok\t" + GetParam().value);
}

const GoodRow goodRows[] = {
    {"false", {"\x08"}, "B0"},
    {"true", {"\x09"}, "B1"},
    {"oneByte", {"\x10\xff"}, "I255"},
    {"twoBytes", {"\x11\xff\xfe"}, "I65534"},
    {"fourBytes", {"\x12\xff\xff\xff\xff"}, "I4294967295"},
    {"eightBytes", {"\x13" + bigEndian(7, 8)}, "I7"},
    {"negative", {"\x13" + bigEndian(~std::uint64_t{4}, 8)}, "I-5"},
    {"lowest", {"\x13" + bigEndian(std::uint64_t{1} << 63, 8)}, "I-9223372036854775808"},
    {"sixteenBytes",
     {"\x14" + bigEndian(0, 8) + bigEndian(~std::uint64_t{0}, 8)},
     "I18446744073709551615"},
    {"sixteenBytesSmall", {"\x14" + bigEndian(0, 8) + bigEndian(3, 8)}, "I3"},
    {"float", {"\x22" + bigEndian(std::bit_cast<std::uint32_t>(1.5F), 4)}, "R3ff8000000000000"},
    {"double", {"\x23" + doubleBytes(0.1)}, "R3fb999999999999a"},
    {"notANumber", {"\x23" + doubleBytes(std::numeric_limits<double>::quiet_NaN())}, "Rnan"},
    {"date", {"\x33" + doubleBytes(0)}, "T978307200"},
    {"dateOfYear9999", {"\x33" + doubleBytes(252423993599)}, "T253402300799"},
    {"data", {"\x42\x01\xff"}, "D01ff"},
    {"emptyData", {"\x40"}, "D"},
    {"ascii", {"\x53"s + "abc"}, "S\"abc\""},
    {"emptyText", {"\x50"}, "S\"\""},
    {"textWithNul", {"\x53"s + "a\0b"s}, "S\"a\\u0000b\""},
    {"longText", {"\x5f\x10\x10"s + "0123456789abcdef"}, "S\"0123456789abcdef\""},
    {"countOfTwoBytes", {"\x5f\x11"s + bigEndian(3, 2) + "abc"}, "S\"abc\""},
    {"countOfEightBytes", {"\x5f\x13"s + bigEndian(3, 8) + "abc"}, "S\"abc\""},
    {"countOfThirtyTwoBytes",
     {"\x5f\x15"s + std::string(24, '\0') + bigEndian(3, 8) + "abc"},
     "S\"abc\""},
    {"utf16", {"\x63\x00\xe9\xd8\x3d\xde\x00"s}, "S\"\\u00e9\\ud83d\\ude00\""},
    {"emptyUtf16", {"\x60"}, "S\"\""},
    {"byteOrderMarkIsKept", {"\x61\xfe\xff"}, "S\"\\ufeff\""},
    {"emptyArray", {"\xa0"}, "()"},
    {"array", {"\xa2\x01\x02", "\x08", "\x09"}, "(B0,B1)"},
    {"arrayOfFifteen",
     {"\xaf\x10\x0f" + std::string(15, '\x01'), "\x08"},
     "(B0,B0,B0,B0,B0,B0,B0,B0,B0,B0,B0,B0,B0,B0,B0)"},
    {"sharedContainer", {"\xa2\x01\x01", "\xa1\x02", "\x09"}, "((B1),(B1))"},
    {"emptyDictionary", {"\xd0"}, "{}"},
    {"dictionary",
     {"\xd2\x01\x02\x03\x04", "\x51\x62", "\x51\x61", "\x09", "\xa1\x03"},
     "{\"a\"=(B1),\"b\"=B1}"},
    {"keyInUtf16", {"\xd1\x01\x02", "\x61\x00\xe9"s, "\x09"}, "{\"\\u00e9\"=B1}"},
    {"firstKeyHolds",
     {"\xd2\x01\x02\x03\x04", "\x51\x61", "\x51\x61", "\x09", "\x08"},
     "{\"a\"=B1}"},
    {"keyOfTwoForms",
     {"\xd2\x01\x02\x03\x04", "\x51\x61", "\x61\x00\x61"s, "\x09", "\x08"},
     "{\"a\"=B1}"},
    {"unusedObjects", {"\x09", "\x00"s, "\xff"}, "B1"},
    {"uid", {"\x80\x07"}, "{\"CF$UID\"=I7}"},
    {"uidOfFourBytes", {"\x83\xff\xff\xff\xff"}, "{\"CF$UID\"=I4294967295}"},
    {"uidOfSixteenBytes", {"\x8f" + bigEndian(0, 8) + bigEndian(0, 8)}, "{\"CF$UID\"=I0}"},
};

INSTANTIATE_TEST_SUITE_P(Rows, GoodBinary, testing::ValuesIn(goodRows), NamedAfterRow());

struct BadRow {
    const char* name;
    std::vector<std::string> objects;
    const char* reason;
};

void PrintTo(const BadRow& row, std::ostream* out) { *out << row.name; }

class BadBinary : public testing::TestWithParam<BadRow> {};

TEST_P(BadBinary, isRefused) {
    EXPECT_THAT(rejectionReasonFor(BinaryFile{GetParam().objects}.bytes()),
                HasSubstr(GetParam().reason));
}

constexpr std::uint64_t huge = 0x7fffffffffffffff;

const BadRow badRows[] = {
    {"otherSingleton", {"\x0f"}, "a null"},
    {"orderedSet", {"\xb1\x01", "\x09"}, "unknown kind"},
    {"unusedMarker", {"\x70"}, "unknown kind"},
    {"integerOfThirtyTwoBytes", {"\x15" + std::string(32, '\0')}, "unknown size"},
    {"realOfTwoBytes", {"\x21\x3c\x00"s}, "unknown size"},
    {"dateOfFourBytes", {"\x32" + bigEndian(0, 4)}, "unknown size"},
    {"cutInteger", {"\x13\x01"}, "beyond its end"},
    {"cutReal", {"\x23\x01"}, "beyond its end"},
    {"cutDate", {"\x33\x01"}, "beyond its end"},
    {"cutText", {"\x53"s + "ab"}, "beyond its end"},
    {"cutData", {"\x4f\x12\x7f\xff\xff\xff"}, "beyond its end"},
    {"cutUtf16", {"\x62\x00\x41\x00"s}, "beyond its end"},
    {"cutUid", {"\x83\x01"}, "beyond its end"},
    {"cutArray", {"\xa2\x00"s}, "beyond its end"},
    {"cutKeys", {"\xd2\x00"s}, "beyond its end"},
    {"cutValues", {"\xd2\x00\x00\x00"s}, "beyond its end"},
    {"hugeUtf16", {"\x6f\x13" + bigEndian(huge, 8)}, "beyond its end"},
    {"hugeUtf16ThatWraps", {"\x6f\x13" + bigEndian(huge + 2, 8) + "ab"}, "beyond its end"},
    {"hugeText", {"\x5f\x13" + bigEndian(huge, 8)}, "beyond its end"},
    {"hugeArray", {"\xaf\x13" + bigEndian(huge, 8)}, "beyond its end"},
    {"hugeDictionary", {"\xdf\x13" + bigEndian(huge, 8)}, "beyond its end"},
    {"negativeCount", {"\xaf\x13" + bigEndian(~std::uint64_t{0}, 8)}, "beyond its end"},
    {"countBeyond64Bits",
     {"\xaf\x14" + bigEndian(1, 8) + bigEndian(0, 8)},
     "count is out of range"},
    {"countIsText", {"\xaf\x51\x41"}, "count is no integer"},
    {"cutCount", {"\xaf"}, "beyond its end"},
    {"cutNumberOfCount", {"\x5f\x13\x01"}, "beyond its end"},
    {"asciiAbove127", {"\x51\x80"}, "ASCII"},
    {"uidBeyond32Bits", {"\x87" + bigEndian(std::uint64_t{1} << 32, 8)}, "UID is out of range"},
    {"uidBeyond64Bits", {"\x88\x01" + bigEndian(0, 8)}, "UID is out of range"},
    {"missingElement", {"\xa1\x05"}, "not there"},
    {"missingKey", {"\xd1\x05\x00"s}, "not there"},
    {"missingValue", {"\xd1\x01\x05", "\x51\x61"}, "not there"},
    {"keyIsNumber", {"\xd1\x01\x01", "\x10\x05"}, "a key is no text"},
    {"keyIsDictionary", {"\xd1\x01\x01", "\xd0"}, "a key is no text"},
    {"keyIsData", {"\xd1\x01\x01", "\x41\x61"}, "a key is no text"},
    {"secondValueOfKey", {"\xd2\x01\x01\x02\x03", "\x51\x61", "\x09", "\x70"}, "unknown kind"},
    {"arrayInItself", {"\xa1\x00"s}, "holds itself"},
    {"dictionaryInItself", {"\xd1\x01\x00"s, "\x51\x61"}, "holds itself"},
    {"cycleOfTwo", {"\xa1\x01", "\xa1\x00"s}, "holds itself"},
};

INSTANTIATE_TEST_SUITE_P(Rows, BadBinary, testing::ValuesIn(badRows), NamedAfterRow());

struct FrameRow {
    const char* name;
    int place; ///< counted from the end of the file
    std::string bytes;
    const char* reason;
};

void PrintTo(const FrameRow& row, std::ostream* out) { *out << row.name; }

class DamagedFrame : public testing::TestWithParam<FrameRow> {};

/// Objects of four bytes, a table of two offsets of two bytes, and the trailer.
const std::string framed = BinaryFile{{"\xa1\x01", "\x10\x05"}}.bytes();

TEST_P(DamagedFrame, isRefused) {
    ASSERT_EQ(verdictOn(framed), "ok\t(I5)");
    auto file = framed;
    file.replace(file.size() - static_cast<std::size_t>(GetParam().place), GetParam().bytes.size(),
                 GetParam().bytes);
    EXPECT_THAT(rejectionReasonFor(file), HasSubstr(GetParam().reason));
}

const FrameRow frameRows[] = {
    {"noOffsetSize", 26, "\0"s, "trailer is damaged"},
    {"otherOffsetSize", 26, "\x01", "does not fit in"},
    {"noReferenceSize", 25, "\0"s, "trailer is damaged"},
    {"oneObjectTooMany", 24, bigEndian(3, 8), "does not fit in"},
    {"oneObjectTooFew", 24, bigEndian(1, 8), "does not fit in"},
    {"noObjects", 24, bigEndian(0, 8), "does not fit in"},
    {"countThatWrapsAround", 24, bigEndian((std::uint64_t{1} << 63) + 2, 8), "does not fit in"},
    {"rootBeyondObjects", 16, bigEndian(2, 8), "first object is not there"},
    {"tableInHeader", 8, bigEndian(7, 8), "does not fit in"},
    {"tableTooEarly", 8, bigEndian(10, 8), "does not fit in"},
    {"tableInTrailer", 8, bigEndian(100, 8), "does not fit in"},
    {"tableFarAway", 8, bigEndian(~std::uint64_t{0}, 8), "does not fit in"},
    {"rootInHeader", 36, bigEndian(7, 2), "lies outside of it"},
    {"elementInHeader", 34, bigEndian(7, 2), "lies outside of it"},
    {"elementInTable", 34, bigEndian(12, 2), "lies outside of it"},
};

INSTANTIATE_TEST_SUITE_P(Rows, DamagedFrame, testing::ValuesIn(frameRows), NamedAfterRow());

TEST(BinaryFrame, fillsTheFile) {
    EXPECT_THAT(rejectionReasonFor(framed + '\0'), HasSubstr(""));
    EXPECT_EQ(verdictOn(framed + '\0'), "error");
    auto gap = framed;
    gap.insert(gap.size() - 32, 1, '\0');
    EXPECT_THAT(rejectionReasonFor(gap), HasSubstr("does not fit in"));
    EXPECT_EQ(rejectionReasonFor(framed.substr(0, 40)), "it is cut off");
}

TEST(BinaryFrame, hasAnyVersionOfZero) {
    for (const char* magic : {"bplist00", "bplist01", "bplist0?"})
        EXPECT_EQ(verdictOn(BinaryFile{{"\x09"}, 2, 1, magic}.bytes()), "ok\tB1") << magic;
    EXPECT_EQ(verdictOn(BinaryFile{{"\x09"}, 2, 1, "bplist15"}.bytes()), "error");
}

TEST(BinaryFrame, hasReferencesThatReachEveryObject) {
    BinaryFile file{std::vector<std::string>(255, "\x09"), 2, 1};
    EXPECT_EQ(verdictOn(file.bytes()), "ok\tB1");
    file.objects.emplace_back("\x09");
    EXPECT_EQ(rejectionReasonFor(file.bytes()), "its references are too short");
    file.referenceSize = 2;
    EXPECT_EQ(verdictOn(file.bytes()), "ok\tB1");
    file.offsetSize = 1;
    EXPECT_EQ(rejectionReasonFor(file.bytes()), "its references are too short");
}

TEST(BinaryFrame, readsWideReferences) {
    for (const unsigned size : {1U, 2U, 5U, 8U, 20U}) {
        const BinaryFile file{
            {"\xa2" + bigEndian(1, size) + bigEndian(2, size), "\x09", "\x08"}, 2, size};
        EXPECT_EQ(verdictOn(file.bytes()), "ok\t(B1,B0)") << size;
    }
}

} // namespace

} // namespace frimbolate::test
