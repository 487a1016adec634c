// Reading the binary form: the single rules.
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

struct GoodBinaryRow {
    const char* name;
    std::vector<std::string> objects;
    std::string value;
};

void PrintTo(const GoodBinaryRow& row, std::ostream* out) { *out << row.name; }

class GoodBinary : public testing::TestWithParam<GoodBinaryRow> {};

TEST_P(GoodBinary, IsReadWhateverTheSizeOfItsReferences) {
    for (const unsigned offsetSize : {1U, 2U, 3U, 8U, 9U})
        EXPECT_EQ(verdictOn(BinaryFile{GetParam().objects, offsetSize}.bytes()),
                  "ok\t" + GetParam().value);
}

const GoodBinaryRow goodBinaryRows[] = {
    {"False", {"\x08"}, "B0"},
    {"True", {"\x09"}, "B1"},
    {"OneByte", {"\x10\xff"}, "I255"},
    {"TwoBytes", {"\x11\xff\xfe"}, "I65534"},
    {"FourBytes", {"\x12\xff\xff\xff\xff"}, "I4294967295"},
    {"EightBytes", {"\x13" + bigEndian(7, 8)}, "I7"},
    {"Negative", {"\x13" + bigEndian(~std::uint64_t{4}, 8)}, "I-5"},
    {"Lowest", {"\x13" + bigEndian(std::uint64_t{1} << 63, 8)}, "I-9223372036854775808"},
    {"SixteenBytes",
     {"\x14" + bigEndian(0, 8) + bigEndian(~std::uint64_t{0}, 8)},
     "I18446744073709551615"},
    {"SixteenBytesSmall", {"\x14" + bigEndian(0, 8) + bigEndian(3, 8)}, "I3"},
    {"Float", {"\x22" + bigEndian(std::bit_cast<std::uint32_t>(1.5F), 4)}, "R3ff8000000000000"},
    {"Double", {"\x23" + doubleBytes(0.1)}, "R3fb999999999999a"},
    {"NotANumber", {"\x23" + doubleBytes(std::numeric_limits<double>::quiet_NaN())}, "Rnan"},
    {"Date", {"\x33" + doubleBytes(0)}, "T978307200"},
    {"DateOfYear9999", {"\x33" + doubleBytes(252423993599)}, "T253402300799"},
    {"Data", {"\x42\x01\xff"}, "D01ff"},
    {"EmptyData", {"\x40"}, "D"},
    {"Ascii", {"\x53"s + "abc"}, "S\"abc\""},
    {"EmptyText", {"\x50"}, "S\"\""},
    {"TextWithNul", {"\x53"s + "a\0b"s}, "S\"a\\u0000b\""},
    {"LongText", {"\x5f\x10\x10"s + "0123456789abcdef"}, "S\"0123456789abcdef\""},
    {"CountOfTwoBytes", {"\x5f\x11"s + bigEndian(3, 2) + "abc"}, "S\"abc\""},
    {"CountOfEightBytes", {"\x5f\x13"s + bigEndian(3, 8) + "abc"}, "S\"abc\""},
    {"CountOfThirtyTwoBytes",
     {"\x5f\x15"s + std::string(24, '\0') + bigEndian(3, 8) + "abc"},
     "S\"abc\""},
    {"Utf16", {"\x63\x00\xe9\xd8\x3d\xde\x00"s}, "S\"\\u00e9\\ud83d\\ude00\""},
    {"EmptyUtf16", {"\x60"}, "S\"\""},
    {"ByteOrderMarkIsKept", {"\x61\xfe\xff"}, "S\"\\ufeff\""},
    {"EmptyArray", {"\xa0"}, "()"},
    {"Array", {"\xa2\x01\x02", "\x08", "\x09"}, "(B0,B1)"},
    {"ArrayOfFifteen",
     {"\xaf\x10\x0f" + std::string(15, '\x01'), "\x08"},
     "(B0,B0,B0,B0,B0,B0,B0,B0,B0,B0,B0,B0,B0,B0,B0)"},
    {"SharedContainer", {"\xa2\x01\x01", "\xa1\x02", "\x09"}, "((B1),(B1))"},
    {"EmptyDictionary", {"\xd0"}, "{}"},
    {"Dictionary",
     {"\xd2\x01\x02\x03\x04", "\x51\x62", "\x51\x61", "\x09", "\xa1\x03"},
     "{\"a\"=(B1),\"b\"=B1}"},
    {"KeyInUtf16", {"\xd1\x01\x02", "\x61\x00\xe9"s, "\x09"}, "{\"\\u00e9\"=B1}"},
    {"FirstKeyHolds",
     {"\xd2\x01\x02\x03\x04", "\x51\x61", "\x51\x61", "\x09", "\x08"},
     "{\"a\"=B1}"},
    {"KeyOfTwoForms",
     {"\xd2\x01\x02\x03\x04", "\x51\x61", "\x61\x00\x61"s, "\x09", "\x08"},
     "{\"a\"=B1}"},
    {"UnusedObjects", {"\x09", "\x00"s, "\xff"}, "B1"},
    {"Uid", {"\x80\x07"}, "{\"CF$UID\"=I7}"},
    {"UidOfFourBytes", {"\x83\xff\xff\xff\xff"}, "{\"CF$UID\"=I4294967295}"},
    {"UidOfSixteenBytes", {"\x8f" + bigEndian(0, 8) + bigEndian(0, 8)}, "{\"CF$UID\"=I0}"},
};

INSTANTIATE_TEST_SUITE_P(Rows, GoodBinary, testing::ValuesIn(goodBinaryRows), NamedAfterRow());

struct BadBinaryRow {
    const char* name;
    std::vector<std::string> objects;
    const char* reason;
};

void PrintTo(const BadBinaryRow& row, std::ostream* out) { *out << row.name; }

class BadBinary : public testing::TestWithParam<BadBinaryRow> {};

TEST_P(BadBinary, IsRefused) {
    EXPECT_THAT(rejectionReasonFor(BinaryFile{GetParam().objects}.bytes()),
                HasSubstr(GetParam().reason));
}

constexpr std::uint64_t huge = 0x7fffffffffffffff;

const BadBinaryRow badBinaryRows[] = {
    {"OtherSingleton", {"\x0f"}, "a null"},
    {"OrderedSet", {"\xb1\x01", "\x09"}, "unknown kind"},
    {"UnusedMarker", {"\x70"}, "unknown kind"},
    {"IntegerOfThirtyTwoBytes", {"\x15" + std::string(32, '\0')}, "unknown size"},
    {"RealOfTwoBytes", {"\x21\x3c\x00"s}, "unknown size"},
    {"DateOfFourBytes", {"\x32" + bigEndian(0, 4)}, "unknown size"},
    {"CutInteger", {"\x13\x01"}, "beyond its end"},
    {"CutReal", {"\x23\x01"}, "beyond its end"},
    {"CutDate", {"\x33\x01"}, "beyond its end"},
    {"CutText", {"\x53"s + "ab"}, "beyond its end"},
    {"CutData", {"\x4f\x12\x7f\xff\xff\xff"}, "beyond its end"},
    {"CutUtf16", {"\x62\x00\x41\x00"s}, "beyond its end"},
    {"CutUid", {"\x83\x01"}, "beyond its end"},
    {"CutArray", {"\xa2\x00"s}, "beyond its end"},
    {"CutKeys", {"\xd2\x00"s}, "beyond its end"},
    {"CutValues", {"\xd2\x00\x00\x00"s}, "beyond its end"},
    {"HugeUtf16", {"\x6f\x13" + bigEndian(huge, 8)}, "beyond its end"},
    {"HugeUtf16ThatWraps", {"\x6f\x13" + bigEndian(huge + 2, 8) + "ab"}, "beyond its end"},
    {"HugeText", {"\x5f\x13" + bigEndian(huge, 8)}, "beyond its end"},
    {"HugeArray", {"\xaf\x13" + bigEndian(huge, 8)}, "beyond its end"},
    {"HugeDictionary", {"\xdf\x13" + bigEndian(huge, 8)}, "beyond its end"},
    {"NegativeCount", {"\xaf\x13" + bigEndian(~std::uint64_t{0}, 8)}, "beyond its end"},
    {"CountBeyond64Bits",
     {"\xaf\x14" + bigEndian(1, 8) + bigEndian(0, 8)},
     "count is out of range"},
    {"CountIsText", {"\xaf\x51\x41"}, "count is no integer"},
    {"CutCount", {"\xaf"}, "beyond its end"},
    {"CutNumberOfCount", {"\x5f\x13\x01"}, "beyond its end"},
    {"AsciiAbove127", {"\x51\x80"}, "ASCII"},
    {"UidBeyond32Bits", {"\x87" + bigEndian(std::uint64_t{1} << 32, 8)}, "UID is out of range"},
    {"UidBeyond64Bits", {"\x88\x01" + bigEndian(0, 8)}, "UID is out of range"},
    {"MissingElement", {"\xa1\x05"}, "not there"},
    {"MissingKey", {"\xd1\x05\x00"s}, "not there"},
    {"MissingValue", {"\xd1\x01\x05", "\x51\x61"}, "not there"},
    {"KeyIsNumber", {"\xd1\x01\x01", "\x10\x05"}, "a key is no text"},
    {"KeyIsDictionary", {"\xd1\x01\x01", "\xd0"}, "a key is no text"},
    {"KeyIsData", {"\xd1\x01\x01", "\x41\x61"}, "a key is no text"},
    {"SecondValueOfKey", {"\xd2\x01\x01\x02\x03", "\x51\x61", "\x09", "\x70"}, "unknown kind"},
    {"ArrayInItself", {"\xa1\x00"s}, "holds itself"},
    {"DictionaryInItself", {"\xd1\x01\x00"s, "\x51\x61"}, "holds itself"},
    {"CycleOfTwo", {"\xa1\x01", "\xa1\x00"s}, "holds itself"},
};

INSTANTIATE_TEST_SUITE_P(Rows, BadBinary, testing::ValuesIn(badBinaryRows), NamedAfterRow());

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

TEST_P(DamagedFrame, IsRefused) {
    ASSERT_EQ(verdictOn(framed), "ok\t(I5)");
    auto file = framed;
    file.replace(file.size() - static_cast<std::size_t>(GetParam().place), GetParam().bytes.size(),
                 GetParam().bytes);
    EXPECT_THAT(rejectionReasonFor(file), HasSubstr(GetParam().reason));
}

const FrameRow frameRows[] = {
    {"NoOffsetSize", 26, "\0"s, "trailer is damaged"},
    {"OtherOffsetSize", 26, "\x01", "does not fit in"},
    {"NoReferenceSize", 25, "\0"s, "trailer is damaged"},
    {"OneObjectTooMany", 24, bigEndian(3, 8), "does not fit in"},
    {"OneObjectTooFew", 24, bigEndian(1, 8), "does not fit in"},
    {"NoObjects", 24, bigEndian(0, 8), "does not fit in"},
    {"CountThatWrapsAround", 24, bigEndian((std::uint64_t{1} << 63) + 2, 8), "does not fit in"},
    {"RootBeyondObjects", 16, bigEndian(2, 8), "first object is not there"},
    {"TableInHeader", 8, bigEndian(7, 8), "does not fit in"},
    {"TableTooEarly", 8, bigEndian(10, 8), "does not fit in"},
    {"TableInTrailer", 8, bigEndian(100, 8), "does not fit in"},
    {"TableFarAway", 8, bigEndian(~std::uint64_t{0}, 8), "does not fit in"},
    {"RootInHeader", 36, bigEndian(7, 2), "lies outside of it"},
    {"ElementInHeader", 34, bigEndian(7, 2), "lies outside of it"},
    {"ElementInTable", 34, bigEndian(12, 2), "lies outside of it"},
};

INSTANTIATE_TEST_SUITE_P(Rows, DamagedFrame, testing::ValuesIn(frameRows), NamedAfterRow());

TEST(BinaryFrame, FillsTheFile) {
    EXPECT_THAT(rejectionReasonFor(framed + '\0'), HasSubstr(""));
    EXPECT_EQ(verdictOn(framed + '\0'), "error");
    auto gap = framed;
    gap.insert(gap.size() - 32, 1, '\0');
    EXPECT_THAT(rejectionReasonFor(gap), HasSubstr("does not fit in"));
    EXPECT_EQ(rejectionReasonFor(framed.substr(0, 40)), "it is cut off");
}

TEST(BinaryFrame, HasAnyVersionOfZero) {
    for (const char* magic : {"bplist00", "bplist01", "bplist0?"})
        EXPECT_EQ(verdictOn(BinaryFile{{"\x09"}, 2, 1, magic}.bytes()), "ok\tB1") << magic;
    EXPECT_EQ(verdictOn(BinaryFile{{"\x09"}, 2, 1, "bplist15"}.bytes()), "error");
}

TEST(BinaryFrame, HasReferencesThatReachEveryObject) {
    BinaryFile file{std::vector<std::string>(255, "\x09"), 2, 1};
    EXPECT_EQ(verdictOn(file.bytes()), "ok\tB1");
    file.objects.emplace_back("\x09");
    EXPECT_EQ(rejectionReasonFor(file.bytes()), "its references are too short");
    file.referenceSize = 2;
    EXPECT_EQ(verdictOn(file.bytes()), "ok\tB1");
    file.offsetSize = 1;
    EXPECT_EQ(rejectionReasonFor(file.bytes()), "its references are too short");
}

TEST(BinaryFrame, ReadsWideReferences) {
    for (const unsigned size : {1U, 2U, 5U, 8U, 20U}) {
        const BinaryFile file{
            {"\xa2" + bigEndian(1, size) + bigEndian(2, size), "\x09", "\x08"}, 2, size};
        EXPECT_EQ(verdictOn(file.bytes()), "ok\t(B1,B0)") << size;
    }
}

} // namespace

} // namespace frimbolate::test
