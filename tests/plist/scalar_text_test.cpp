// Numbers, dates and data of the XML form.
#include "plist/scalar_text.h"
#include "tests/plist/value_text.h"
#include "tests/support/rows.h"

#include <cmath>

namespace frimbolate::test {

namespace {

struct ScalarRow {
    const char* name;
    std::string text;
    std::string value; ///< "" where the text is refused
};

void PrintTo(const ScalarRow& row, std::ostream* out) { *out << row.name; }

template <typename Result>
std::string textOf(const Result& result) {
    return result ? valueText(*result) : "";
}

class PlistInteger : public testing::TestWithParam<ScalarRow> {};

TEST_P(PlistInteger, isParsed) {
    EXPECT_EQ(textOf(parsePlistInteger(GetParam().text)), GetParam().value);
}

const ScalarRow integerRows[] = {
    {"zero", "0", "I0"},
    {"manyZeros", "0000", "I0"},
    {"leadingZeroIsNotOctal", "022", "I22"},
    {"leadingZeroBeforeNine", "09", "I9"},
    {"hexadecimal", "0x1F", "I31"},
    {"upperCasePrefix", "0X1f", "I31"},
    {"hexadecimalZeros", "0x00", "I0"},
    {"plusAndBlanks", " \t\n\v\f\r+ \t5", "I5"},
    {"manyZerosBefore", std::string(1000, '0') + "7", "I7"},
    {"lowest", "-9223372036854775808", "I-9223372036854775808"},
    {"negativeHexadecimalBelow", "-0x8000000000000001", ""},
    {"above64Bits", "18446744073709551616", ""},
    {"twoSigns", "+-5", ""},
    {"signBehindPrefix", "0x-5", ""},
    {"prefixTwice", "0x0x5", ""},
    {"letters", "5a", ""},
    {"point", "5.0", ""},
    {"nothing", "", ""},
};

INSTANTIATE_TEST_SUITE_P(Rows, PlistInteger, testing::ValuesIn(integerRows), NamedAfterRow());

class PlistReal : public testing::TestWithParam<ScalarRow> {};

TEST_P(PlistReal, isParsedTheSameByEveryLibrary) {
    EXPECT_EQ(textOf(parsePlistReal(GetParam().text)), GetParam().value);
    EXPECT_EQ(textOf(parsePlistRealByStream(GetParam().text)), GetParam().value);
}

const std::string zeros(400, '0');

const ScalarRow realRows[] = {
    {"zero", "0", "R0000000000000000"},
    {"negativeZero", "-0.0", "R8000000000000000"},
    {"onlyZerosAndExponent", "0.00e99999", "R0000000000000000"},
    {"upperCaseExponent", "1E2", "R4059000000000000"},
    {"exponentWithPlus", "1e+2", "R4059000000000000"},
    {"exponentWithMinus", "-2.5e-3", "Rbf647ae147ae147b"},
    {"blanks", " \t\n\v\f\r+1", "R3ff0000000000000"},
    {"largest", "1.7976931348623157e308", "R7fefffffffffffff"},
    {"justTooLarge", "1.7976931348623159e308", "R7ff0000000000000"},
    {"negativeTooLarge", "-1e999", "Rfff0000000000000"},
    {"smallestNormal", "2.2250738585072014e-308", "R0010000000000000"},
    {"denormal", "-1e-310", "R800012688b70e62b"},
    {"smallest", "4.9406564584124654e-324", "R0000000000000001"},
    {"roundedToSmallest", "3e-324", "R0000000000000001"},
    {"roundedToZero", "2e-324", "R0000000000000000"},
    {"negativeTooSmall", "-1e-999", "R8000000000000000"},
    {"hugeExponent", "1e99999999999999999999", "R7ff0000000000000"},
    {"hugeNegativeExponent", "1e-99999999999999999999", "R0000000000000000"},
    {"largeWithoutExponent", "1" + zeros, "R7ff0000000000000"},
    {"largeBySmallExponent", "1" + zeros + "e-400", "R3ff0000000000000"},
    {"smallWithoutExponent", "0." + zeros + "1", "R0000000000000000"},
    {"smallByLargeExponent", "0." + zeros + "1e401", "R3ff0000000000000"},
    {"tooLargeInFraction", "0." + zeros + "1e9999", "R7ff0000000000000"},
    {"tooSmallInWhole", "1" + zeros + "e-9999", "R0000000000000000"},
    {"infinity", "iNf", "R7ff0000000000000"},
    {"infinityWithPlus", "+INFINITY", "R7ff0000000000000"},
    {"negativeInfinity", "-inf", "Rfff0000000000000"},
    {"notANumber", "nAn", "Rnan"},
    {"signedNotANumber", "-nan", ""},
    {"blankBeforeInfinity", " inf", ""},
    {"blankBehindSign", "- 1", ""},
    {"twoSigns", "+-1", ""},
    {"signTwice", "--1", ""},
    {"twoPoints", "1.2.3", ""},
    {"pointInExponent", "1e2.5", ""},
    {"exponentOfSign", "1e-", ""},
    {"exponentAlone", "e5", ""},
    {"infinityCut", "infi", ""},
    {"blankInside", "1 2", ""},
    {"nulBehind", std::string("1\0", 2), ""},
};

INSTANTIATE_TEST_SUITE_P(Rows, PlistReal, testing::ValuesIn(realRows), NamedAfterRow());

class PlistDate : public testing::TestWithParam<ScalarRow> {};

TEST_P(PlistDate, isParsed) {
    EXPECT_EQ(textOf(parsePlistDate(GetParam().text)), GetParam().value);
}

const ScalarRow dateRows[] = {
    {"epoch", "1970-01-01T00:00:00Z", "T0"},
    {"beforeEpoch", "1969-12-31T23:59:59Z", "T-1"},
    {"leapDay", "2024-02-29T00:00:00Z", "T1709164800"},
    {"behindLeapDay", "2024-03-01T00:00:00Z", "T1709251200"},
    {"noLeapDay", "2023-02-29T00:00:00Z", "T1677628800"},
    {"noLeapDayIn1900", "1900-03-01T00:00:00Z", "T-2203891200"},
    {"leapDayIn2000", "2000-03-01T00:00:00Z", "T951868800"},
    {"day99", "2001-01-99T00:00:00Z", "T986774400"},
    {"dayZero", "2001-01-00T00:00:00Z", "T978220800"},
    {"month13OfLeapYear", "2000-13-01T00:00:00Z", "T978307200"},
    {"largestTime", "2001-01-01T99:99:99Z", "T978669639"},
    {"leapSecond", "2001-01-01T00:00:60Z", "T978307260"},
    {"shortYear", "1-01-01T00:00:00Z", "T-62135596800"},
    {"longYear", "12345-01-01T00:00:00Z", "T327403382400"},
    {"zerosBeforeYear", "0000002001-01-01T00:00:00Z", "T978307200"},
    {"negativeYear", "-0001-01-01T00:00:00Z", "T-62198755200"},
    {"negativeLeapYear", "-0004-03-01T00:00:00Z", "T-62288265600"},
    {"negativeZeroYear", "-0000-01-01T00:00:00Z", "T-62167219200"},
    {"withoutYear", "--01-01T00:00:00Z", ""},
    {"onlyDashes", "-", ""},
    {"plusBeforeYear", "+2001-01-01T00:00:00Z", ""},
    {"hugeYear", "99999999999999999999-01-01T00:00:00Z", ""},
    {"month14", "2001-14-01T00:00:00Z", ""},
    {"month99", "2001-99-01T00:00:00Z", ""},
    {"threeDigits", "2001-001-01T00:00:00Z", ""},
    {"withoutZone", "2001-01-01T00:00:00", ""},
    {"withoutSeconds", "2001-01-01T00:00Z", ""},
    {"dots", "2001.01.01T00:00:00Z", ""},
    {"nothing", "", ""},
};

INSTANTIATE_TEST_SUITE_P(Rows, PlistDate, testing::ValuesIn(dateRows), NamedAfterRow());

class PlistData : public testing::TestWithParam<ScalarRow> {};

TEST_P(PlistData, isDecoded) {
    EXPECT_EQ(valueText(decodePlistData(GetParam().text)), GetParam().value);
}

const ScalarRow dataRows[] = {
    {"allBits", "+/9aAz09", "Dfbff5a033d3d"},
    {"oneByte", "/w==", "Dff"},
    {"twoBytes", "//8=", "Dffff"},
    {"bitsBeyondTheByte", "/x==", "Dff"},
    {"overLines", "\n\tAA\r\n\tE C\n", "D000102"},
    {"groupsBehindPadding", "/w==//8=", "Dffffff"},
    {"blanksInPadding", "/w=\n=", "Dff"},
    {"otherInPadding", "/w=.=", "Dff00"},
    {"incompleteGroup", "AAECAw", "D000102"},
    {"urlAlphabetIsNone", "A-A_EC", "D000102"},
    {"foreignBytes",
     "A\xff\x80"
     "A\xc3\xa9"
     "EC",
     "D000102"},
    {"nul", std::string("AA\0EC", 5), "D000102"},
};

INSTANTIATE_TEST_SUITE_P(Rows, PlistData, testing::ValuesIn(dataRows), NamedAfterRow());

} // namespace

} // namespace frimbolate::test
