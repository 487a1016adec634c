// The files that are read differently from the platform, each with its reason.
#include "plist/limits.h"
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

std::string repeated(std::string_view text, std::size_t times) {
    std::string result;
    for (; times > 0; --times)
        result += text;
    return result;
}

std::string binaryDate(double seconds) {
    return BinaryFile{{"\x33" + bigEndian(std::bit_cast<std::uint64_t>(seconds), 8)}}.bytes();
}

/// A chain of arrays, each with two references to the next one.
std::string doublingFile(int levels) {
    BinaryFile file;
    for (int i = 1; i <= levels; ++i)
        file.objects.push_back("\xa2" + std::string(2, static_cast<char>(i)));
    file.objects.emplace_back("\x09");
    return file.bytes();
}

std::string nestedBinary(std::size_t levels) {
    BinaryFile file;
    file.referenceSize = 2;
    for (std::size_t i = 1; i < levels; ++i)
        file.objects.push_back("\xa1" + bigEndian(i, 2));
    file.objects.emplace_back("\xa0");
    return file.bytes();
}

const std::string sixteenMiB(maximumPlistBytes - 17, 'a');

struct RefusedRow {
    const char* name;
    const char* why;
    std::string file;
    const char* reason;
};

void PrintTo(const RefusedRow& row, std::ostream* out) { *out << row.name << ": " << row.why; }

class RefusedHere : public testing::TestWithParam<RefusedRow> {};

TEST_P(RefusedHere, ThoughThePlatformReadsIt) {
    EXPECT_THAT(rejectionReasonFor(GetParam().file), HasSubstr(GetParam().reason))
        << GetParam().why;
}

const RefusedRow refusedRows[] = {
    {"Over16MiB", "memory is bounded", "<string>" + sixteenMiB + "a</string>", "over 16 MiB"},
    {"OldStyleOver160MiBOfMemory", "memory is bounded", "(" + repeated("a,", 3100000) + ")",
     "too much memory (line 1)"},
    {"XmlOver160MiBOfMemory", "memory is bounded",
     "<array>" + repeated("<true/>", (1U << 21) + 1) + "</array>", "too much memory (line 1)"},
    {"OldStyleOver512Levels", "the stack is bounded where a value is copied or destroyed",
     repeated("(", 513) + repeated(")", 513), "nested too deeply (line 1)"},
    {"BinaryOver512Levels", "the stack is bounded where a value is copied or destroyed",
     nestedBinary(513), "nested too deeply"},
    {"SharedObjects", "a value holds what it refers to, so sharing costs memory: 40 times the file",
     doublingFile(40), "too much memory"},
    {"SharedTexts", "a value holds what it refers to, so sharing costs memory: 40 times the file",
     BinaryFile{{"\xaf\x11" + bigEndian(100, 2) + std::string(100, '\x01'),
                 "\x5f\x12" + bigEndian(200000, 4) + std::string(200000, 'a')},
                4}
         .bytes(),
     "too much memory"},
    {"IntegerOver64Bits", "a value holds 64 bits, and readers disagree on the rest",
     BinaryFile{{"\x14" + bigEndian(1, 8) + bigEndian(0, 8)}}.bytes(), "more than 64 bits"},
    {"NegativeIntegerOf128Bits", "readers disagree on its sign",
     BinaryFile{{"\x14" + bigEndian(~std::uint64_t{0}, 8) + bigEndian(~std::uint64_t{0}, 8)}}
         .bytes(),
     "more than 64 bits"},
    {"Null", "a value cannot be null, nor can XML", BinaryFile{{"\x00"s}}.bytes(), "a null"},
    {"Set", "a value cannot be a set, nor can XML", BinaryFile{{"\xc1\x01", "\x09"}}.bytes(),
     "unknown kind"},
    {"HighSurrogateAlone", "a text is UTF-8, which has no half characters",
     BinaryFile{{"\x61\xd8\x3d"}}.bytes(), "half a character"},
    {"HighSurrogateBeforeOther", "a text is UTF-8, which has no half characters",
     BinaryFile{{"\x62\xd8\x3d\x00\x41"s}}.bytes(), "half a character"},
    {"SurrogatesSwapped", "a text is UTF-8, which has no half characters",
     BinaryFile{{"\x62\xde\x00\xd8\x3d"s}}.bytes(), "half a character"},
    {"SurrogateByNumber", "a text is UTF-8, which has no half characters",
     "<string>&#xd83d;&#xde00;</string>", "half a character"},
    {"SurrogateInOldStyle", "a text is UTF-8, which has no half characters", R"({a = "\Ud83d";})",
     "no character"},
    {"CharacterNumberThatWraps", "a number is not cut to fit", "<string>&#4294967361;</string>",
     "names no character"},
    {"OctalOverAByte", "a number is not cut to fit", R"({a = "\501";})", "no character"},
    {"OctalWithoutCharacter", "the encoding has no such character", R"({a = "\376";})",
     "no character"},
    {"DateNotANumber", "a date counts seconds",
     binaryDate(std::numeric_limits<double>::quiet_NaN()), "out of range"},
    {"DateInfinite", "a date counts seconds", binaryDate(std::numeric_limits<double>::infinity()),
     "out of range"},
    {"DateOfTheLastMonths", "no calendar says where month 14 begins",
     "<date>2001-14-01T00:00:00Z</date>", "<date> cannot be read"},
    {"DateBeyondExactSeconds", "the platform counts in doubles, which round there",
     "<date>285430000-01-01T00:00:00Z</date>", "<date> cannot be read"},
    {"OtherEncodings", "an encoding that is not known is not guessed",
     "<?xml version=\"1.0\" encoding=\"koi8-r\"?><true/>", "not known: \"koi8-r\" (line 1)"},
    {"UnassignedInWindows1252", "a byte without a character is not guessed",
     "<?xml encoding='windows-1252'?><string>\x81</string>", "its encoding does not know"},
    {"TextBehindStrings", "what follows would be lost when the file is written again",
     "a = b;\n) c", "where a key is expected (line 2)"},
};

INSTANTIATE_TEST_SUITE_P(Rows, RefusedHere, testing::ValuesIn(refusedRows), NamedAfterRow());

TEST(RefusedHere, ButNotJustBelowTheBounds) {
    ASSERT_EQ(maximumPlistBytes, 16U << 20);
    EXPECT_EQ(rejectionReasonFor("<string>" + sixteenMiB + "</string>"),
              "read as S\"" + sixteenMiB + "\"");
    for (const auto& file : {repeated("(", 512) + repeated(")", 512), nestedBinary(512),
                             repeated("<array>", 512) + repeated("</array>", 512)})
        EXPECT_EQ(verdictOn(file), "ok\t" + repeated("(", 512) + repeated(")", 512));
    EXPECT_NE(verdictOn(doublingFile(12)), "error");
}

struct OtherRow {
    const char* name;
    const char* why;
    std::string file;
    const char* value;
};

void PrintTo(const OtherRow& row, std::ostream* out) { *out << row.name << ": " << row.why; }

class ReadOtherwise : public testing::TestWithParam<OtherRow> {};

TEST_P(ReadOtherwise, ThanOnThePlatform) {
    EXPECT_EQ(verdictOn(GetParam().file), "ok\t"s + GetParam().value) << GetParam().why;
}

const OtherRow otherRows[] = {
    {"Uid", "a value has no UID; this is its form in XML", BinaryFile{{"\x80\x07"}}.bytes(),
     "{\"CF$UID\"=I7}"},
    {"UidInXml", "a value has no UID; this is its form in XML",
     "<dict><key>CF$UID</key><integer>7</integer></dict>", "{\"CF$UID\"=I7}"},
    {"PartsOfASecond", "a date counts whole seconds, as in XML", binaryDate(1.75), "T978307201"},
    {"PartsOfAnEarlySecond", "a date counts whole seconds, as in XML", binaryDate(-0.25),
     "T978307199"},
};

INSTANTIATE_TEST_SUITE_P(Rows, ReadOtherwise, testing::ValuesIn(otherRows), NamedAfterRow());

} // namespace

} // namespace frimbolate::test
