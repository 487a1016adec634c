// Numbers, dates and data of the XML form.
#include "plist/scalar_text.h"
#include "tests/plist/value_notation.h"
#include "tests/support/rows.h"

#include <cmath>

namespace frimbolate::test {

namespace {

struct ScalarRow {
    const char* name;
    std::string text;
    std::string value; ///< empty where the text is refused
};

void PrintTo(const ScalarRow& row, std::ostream* out) { *out << row.name; }

template <typename Result>
std::string resultText(const Result& result) {
    return result ? valueText(*result) : "";
}

class PlistInteger : public testing::TestWithParam<ScalarRow> {};

TEST_P(PlistInteger, IsParsed) {
    EXPECT_EQ(resultText(parsePlistInteger(GetParam().text)), GetParam().value);
}

const ScalarRow integerRows[] = {
    {"Zero", "0", "I0"},
    {"ManyZeros", "0000", "I0"},
    {"LeadingZeroIsNotOctal", "022", "I22"},
    {"LeadingZeroBeforeNine", "09", "I9"},
    {"Hexadecimal", "0x1F", "I31"},
    {"UpperCasePrefix", "0X1f", "I31"},
    {"HexadecimalZeros", "0x00", "I0"},
    {"PlusAndBlanks", " \t\n\v\f\r+ \t5", "I5"},
    {"ManyZerosBefore", std::string(1000, '0') + "7", "I7"},
    {"Lowest", "-9223372036854775808", "I-9223372036854775808"},
    {"NegativeHexadecimalBelow", "-0x8000000000000001", ""},
    {"Above64Bits", "18446744073709551616", ""},
    {"TwoSigns", "+-5", ""},
    {"SignBehindPrefix", "0x-5", ""},
    {"PrefixTwice", "0x0x5", ""},
    {"Letters", "5a", ""},
    {"Point", "5.0", ""},
    {"Nothing", "", ""},
};

INSTANTIATE_TEST_SUITE_P(Rows, PlistInteger, testing::ValuesIn(integerRows), NamedAfterRow());

class PlistReal : public testing::TestWithParam<ScalarRow> {};

TEST_P(PlistReal, IsParsedTheSameByEveryLibrary) {
    EXPECT_EQ(resultText(parsePlistReal(GetParam().text)), GetParam().value);
    EXPECT_EQ(resultText(parsePlistRealByStream(GetParam().text)), GetParam().value);
}

const std::string manyZeros(400, '0');

const ScalarRow realRows[] = {
    {"Zero", "0", "R0000000000000000"},
    {"NegativeZero", "-0.0", "R8000000000000000"},
    {"OnlyZerosAndExponent", "0.00e99999", "R0000000000000000"},
    {"UpperCaseExponent", "1E2", "R4059000000000000"},
    {"ExponentWithPlus", "1e+2", "R4059000000000000"},
    {"ExponentWithMinus", "-2.5e-3", "Rbf647ae147ae147b"},
    {"Blanks", " \t\n\v\f\r+1", "R3ff0000000000000"},
    {"Largest", "1.7976931348623157e308", "R7fefffffffffffff"},
    {"JustTooLarge", "1.7976931348623159e308", "R7ff0000000000000"},
    {"NegativeTooLarge", "-1e999", "Rfff0000000000000"},
    {"SmallestNormal", "2.2250738585072014e-308", "R0010000000000000"},
    {"Denormal", "-1e-310", "R800012688b70e62b"},
    {"Smallest", "4.9406564584124654e-324", "R0000000000000001"},
    {"RoundedToSmallest", "3e-324", "R0000000000000001"},
    {"RoundedToZero", "2e-324", "R0000000000000000"},
    {"NegativeTooSmall", "-1e-999", "R8000000000000000"},
    {"HugeExponent", "1e99999999999999999999", "R7ff0000000000000"},
    {"HugeNegativeExponent", "1e-99999999999999999999", "R0000000000000000"},
    {"LargeWithoutExponent", "1" + manyZeros, "R7ff0000000000000"},
    {"LargeBySmallExponent", "1" + manyZeros + "e-400", "R3ff0000000000000"},
    {"SmallWithoutExponent", "0." + manyZeros + "1", "R0000000000000000"},
    {"SmallByLargeExponent", "0." + manyZeros + "1e401", "R3ff0000000000000"},
    {"TooLargeInFraction", "0." + manyZeros + "1e9999", "R7ff0000000000000"},
    {"TooSmallInWhole", "1" + manyZeros + "e-9999", "R0000000000000000"},
    {"Infinity", "iNf", "R7ff0000000000000"},
    {"InfinityWithPlus", "+INFINITY", "R7ff0000000000000"},
    {"NegativeInfinity", "-inf", "Rfff0000000000000"},
    {"NotANumber", "nAn", "Rnan"},
    {"SignedNotANumber", "-nan", ""},
    {"BlankBeforeInfinity", " inf", ""},
    {"BlankBehindSign", "- 1", ""},
    {"TwoSigns", "+-1", ""},
    {"SignTwice", "--1", ""},
    {"TwoPoints", "1.2.3", ""},
    {"PointInExponent", "1e2.5", ""},
    {"ExponentOfSign", "1e-", ""},
    {"ExponentAlone", "e5", ""},
    {"InfinityCut", "infi", ""},
    {"BlankInside", "1 2", ""},
    {"NulBehind", std::string("1\0", 2), ""},
};

INSTANTIATE_TEST_SUITE_P(Rows, PlistReal, testing::ValuesIn(realRows), NamedAfterRow());

class PlistDate : public testing::TestWithParam<ScalarRow> {};

TEST_P(PlistDate, IsParsed) {
    EXPECT_EQ(resultText(parsePlistDate(GetParam().text)), GetParam().value);
}

const ScalarRow dateRows[] = {
    {"Epoch", "1970-01-01T00:00:00Z", "T0"},
    {"BeforeEpoch", "1969-12-31T23:59:59Z", "T-1"},
    {"LeapDay", "2024-02-29T00:00:00Z", "T1709164800"},
    {"BehindLeapDay", "2024-03-01T00:00:00Z", "T1709251200"},
    {"NoLeapDay", "2023-02-29T00:00:00Z", "T1677628800"},
    {"NoLeapDayIn1900", "1900-03-01T00:00:00Z", "T-2203891200"},
    {"LeapDayIn2000", "2000-03-01T00:00:00Z", "T951868800"},
    {"Day99", "2001-01-99T00:00:00Z", "T986774400"},
    {"DayZero", "2001-01-00T00:00:00Z", "T978220800"},
    {"Month13OfLeapYear", "2000-13-01T00:00:00Z", "T978307200"},
    {"LargestTime", "2001-01-01T99:99:99Z", "T978669639"},
    {"LeapSecond", "2001-01-01T00:00:60Z", "T978307260"},
    {"ShortYear", "1-01-01T00:00:00Z", "T-62135596800"},
    {"LongYear", "12345-01-01T00:00:00Z", "T327403382400"},
    {"ZerosBeforeYear", "0000002001-01-01T00:00:00Z", "T978307200"},
    {"NegativeYear", "-0001-01-01T00:00:00Z", "T-62198755200"},
    {"NegativeLeapYear", "-0004-03-01T00:00:00Z", "T-62288265600"},
    {"NegativeZeroYear", "-0000-01-01T00:00:00Z", "T-62167219200"},
    {"WithoutYear", "--01-01T00:00:00Z", ""},
    {"OnlyDashes", "-", ""},
    {"PlusBeforeYear", "+2001-01-01T00:00:00Z", ""},
    {"HugeYear", "99999999999999999999-01-01T00:00:00Z", ""},
    {"Month14", "2001-14-01T00:00:00Z", ""},
    {"Month99", "2001-99-01T00:00:00Z", ""},
    {"ThreeDigits", "2001-001-01T00:00:00Z", ""},
    {"WithoutZone", "2001-01-01T00:00:00", ""},
    {"WithoutSeconds", "2001-01-01T00:00Z", ""},
    {"Dots", "2001.01.01T00:00:00Z", ""},
    {"Nothing", "", ""},
};

INSTANTIATE_TEST_SUITE_P(Rows, PlistDate, testing::ValuesIn(dateRows), NamedAfterRow());

class PlistData : public testing::TestWithParam<ScalarRow> {};

TEST_P(PlistData, IsDecoded) {
    EXPECT_EQ(valueText(decodePlistData(GetParam().text)), GetParam().value);
}

const ScalarRow dataRows[] = {
    {"AllBits", "+/9aAz09", "Dfbff5a033d3d"},
    {"OneByte", "/w==", "Dff"},
    {"TwoBytes", "//8=", "Dffff"},
    {"BitsBeyondTheByte", "/x==", "Dff"},
    {"OverLines", "\n\tAA\r\n\tE C\n", "D000102"},
    {"GroupsBehindPadding", "/w==//8=", "Dffffff"},
    {"BlanksInPadding", "/w=\n=", "Dff"},
    {"OtherInPadding", "/w=.=", "Dff00"},
    {"IncompleteGroup", "AAECAw", "D000102"},
    {"UrlAlphabetIsNone", "A-A_EC", "D000102"},
    {"ForeignBytes",
     "A\xff\x80"
     "A\xc3\xa9"
     "EC",
     "D000102"},
    {"Nul", std::string("AA\0EC", 5), "D000102"},
};

INSTANTIATE_TEST_SUITE_P(Rows, PlistData, testing::ValuesIn(dataRows), NamedAfterRow());

} // namespace

} // namespace frimbolate::test
