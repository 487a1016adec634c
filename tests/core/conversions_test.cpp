#include "core/conversions.h"

#include "core/named_error.h"
#include "tests/support/rows.h"

#include <gmock/gmock.h>

#include <limits>

namespace frimbolate {

namespace {

using test::NamedAfterRow;

constexpr auto most = std::numeric_limits<std::int64_t>::max();
constexpr auto least = std::numeric_limits<std::int64_t>::min();

struct IntegerRow {
    std::string_view name;
    std::string_view text;
    std::int64_t expected;
};

class LeadingInteger : public testing::TestWithParam<IntegerRow> {};

TEST_P(LeadingInteger, IsTakenFromTheText) {
    EXPECT_EQ(leadingInteger(GetParam().text), GetParam().expected);
    EXPECT_EQ(toInteger(Value(GetParam().text)), GetParam().expected);
}

const IntegerRow integers[] = {
    {"Empty", "", 0},
    {"Digits", "42", 42},
    {"LeadingZerosAreNotOctal", "022", 22},
    {"Blanks", " \t\n\v\f\r7", 7},
    {"BlankAfterSign", "- 7", 0},
    {"Minus", "-5", -5},
    {"Plus", "+5", 5},
    {"TwoSigns", "--5", 0},
    {"OnlyASign", "-", 0},
    {"StopsAtALetter", "3a", 3},
    {"StopsAtAPoint", "1.9", 1},
    {"NoHexadecimal", "0x10", 0},
    {"NoExponent", "1e3", 1},
    {"NoDigits", "abc", 0},
    {"ForeignDigits", "\u0663", 0},
    {"StopsAtNul", std::string_view("1\0002", 3), 1},
    {"StopsAtTheEnd", std::string_view("12", 1), 1},
    {"BlanksToTheEnd", std::string_view("  5", 1), 0},
    {"ControlCharacterIsNoBlank", "\0015", 0},
    {"BeforeTabIsNoBlank", "\0105", 0},
    {"AfterCarriageReturnIsNoBlank", "\0165", 0},
    {"NoBreakSpaceIsNoBlank", "\u00a05", 0},
    {"Most", "9223372036854775807", most},
    {"OneAboveMost", "9223372036854775808", most},
    {"FarAbove", "99999999999999999999999", most},
    {"Least", "-9223372036854775808", least},
    {"OneBelowLeast", "-9223372036854775809", least},
    {"FarBelow", "-99999999999999999999999", least},
    {"LastDigitSaturates", "9223372036854775809", most},
};

INSTANTIATE_TEST_SUITE_P(Texts, LeadingInteger, testing::ValuesIn(integers), NamedAfterRow());

/// Numbers that share all digits but the last, which runs from 0 to 9.
struct LastDigitRow {
    std::string_view name;
    std::string beginning;
    std::int64_t withZero; ///< the integer of "-", the beginning and a last digit 0
    int greatest;          ///< the greatest last digit that does not saturate; -1 for none
    int greatestNegative;  ///< the same for a negative number
};

class LastDigit : public testing::TestWithParam<LastDigitRow> {};

TEST_P(LastDigit, IsCountedUntilTheNumberSaturates) {
    const auto& row = GetParam();
    for (int digit = 0; digit <= 9; ++digit) {
        const auto text = row.beginning + std::to_string(digit);
        const auto negative = digit <= row.greatestNegative ? row.withZero - digit : least;
        const auto positive = digit <= row.greatest ? -(row.withZero - digit) : most;
        EXPECT_EQ(leadingInteger("-" + text), negative) << text;
        EXPECT_EQ(leadingInteger(text), positive) << text;
        EXPECT_EQ(leadingInteger("+" + text + " "), positive) << text;
        EXPECT_EQ(leadingInteger("-0" + text + "x"), negative) << text;
    }
}

const LastDigitRow lastDigits[] = {
    {"Digits1", "", 0, 9, 9},
    {"Digits17", "9999999999999999", -99999999999999990, 9, 9},
    {"Digits18", "99999999999999999", -999999999999999990, 9, 9},
    {"Digits19", "100000000000000000", -1000000000000000000, 9, 9},
    {"Digits19BelowTheBound", "922337203685477579", -9223372036854775790, 9, 9},
    {"Digits19AtTheBound", "922337203685477580", -9223372036854775800, 7, 8},
    {"Digits19BeyondTheBound", "922337203685477581", 0, -1, -1},
    {"Digits19FarBeyond", "999999999999999999", 0, -1, -1},
    {"Digits20", "1000000000000000000", 0, -1, -1},
    {"Digits20BehindTheBound", "9223372036854775807", 0, -1, -1},
    {"Digits20WithAZero", "0922337203685477580", -9223372036854775800, 7, 8},
    {"Digits21", "18446744073709551616", 0, -1, -1},
};

INSTANTIATE_TEST_SUITE_P(Numbers, LastDigit, testing::ValuesIn(lastDigits), NamedAfterRow());

struct TruncationRow {
    std::string_view name;
    std::int64_t number;
    std::int32_t expected;
};

class TruncatedTo32Bits : public testing::TestWithParam<TruncationRow> {};

TEST_P(TruncatedTo32Bits, KeepsTheLowBits) {
    EXPECT_EQ(truncatedTo32Bits(GetParam().number), GetParam().expected);
}

const TruncationRow truncations[] = {
    {"Zero", 0, 0},
    {"Negative", -20, -20},
    {"Most32", 2147483647, 2147483647},
    {"OneAboveMost32", 2147483648, -2147483647 - 1},
    {"Least32", -2147483648LL, -2147483647 - 1},
    {"OneBelowLeast32", -2147483649LL, 2147483647},
    {"WrapsToZero", 4294967296, 0},
    {"WrapsToTen", 4294967306, 10},
    {"Example", 99999999999, 1215752191},
    {"Most64", most, -1},
    {"Least64", least, 0},
};

INSTANTIATE_TEST_SUITE_P(Numbers, TruncatedTo32Bits, testing::ValuesIn(truncations),
                         NamedAfterRow());

struct TruthRow {
    std::string_view name;
    Value value;
    bool expected;
};

class Truth : public testing::TestWithParam<TruthRow> {};

TEST_P(Truth, ReadsTextsAndNumbers) {
    EXPECT_EQ(toBool(GetParam().value), GetParam().expected);
    EXPECT_EQ(toBoolOrFalse(GetParam().value), GetParam().expected);
    if (const auto* text = GetParam().value.string()) {
        EXPECT_EQ(parseBool(*text), GetParam().expected);
    }
}

TEST(ParseBool, EndsWithTheText) {
    EXPECT_FALSE(parseBool(std::string_view("0yes", 1)));
    EXPECT_FALSE(parseBool(std::string_view(" 1", 1)));
    EXPECT_FALSE(parseBool(std::string_view("-1", 1)));
}

const TruthRow truths[] = {
    {"BooleanTrue", true, true},
    {"BooleanFalse", false, false},
    {"NumberZero", 0, false},
    {"NumberOne", 1, true},
    {"NumberNegative", -1, true},
    {"NumberBig", std::uint64_t{1} << 63, true},
    {"RealZero", 0.0, false},
    {"RealSmall", 0.1, true},
    {"Empty", "", false},
    {"Yes", "Yes", true},
    {"Y", "y", true},
    {"True", "True", true},
    {"T", "t", true},
    {"One", "1", true},
    {"Nine", "9", true},
    {"Zero", "0", false},
    {"ZerosThenOne", "0001", true},
    {"ZerosThenYes", "00y", true},
    {"OnlyZeros", "000", false},
    {"BlanksFirst", "  \tYes", true},
    {"Sign", "-1", true},
    {"SignOnly", "+", false},
    {"No", "No", false},
    {"False", "False", false},
    {"On", "On", false},
    {"LaterLetterDoesNotCount", "oy", false},
    {"BlankAfterZero", "0 1", false},
};

INSTANTIATE_TEST_SUITE_P(Values, Truth, testing::ValuesIn(truths), NamedAfterRow());

struct NumberRow {
    std::string_view name;
    Value value;
    std::int64_t expected;
};

class IntegerValue : public testing::TestWithParam<NumberRow> {};

TEST_P(IntegerValue, IsTakenFromNumbers) {
    EXPECT_EQ(toInteger(GetParam().value), GetParam().expected);
}

const NumberRow numbers[] = {
    {"True", true, 1},
    {"False", false, 0},
    {"Integer", -20, -20},
    {"BigIntegerKeepsItsBits", std::numeric_limits<std::uint64_t>::max(), -1},
    {"FractionIsCutOff", 2.9, 2},
    {"NegativeFractionIsCutOff", -2.9, -2},
    {"NotANumber", std::numeric_limits<double>::quiet_NaN(), 0},
    {"Infinite", std::numeric_limits<double>::infinity(), most},
    {"NegativeInfinite", -std::numeric_limits<double>::infinity(), least},
    {"AtTheLimit", 9223372036854775808.0, most},
    {"AtTheLowerLimit", -9223372036854775808.0, least},
    {"BelowTheLimit", 9223372036854774784.0, 9223372036854774784},
    {"BeyondTheLowerLimit", -9223372036854777856.0, least},
};

INSTANTIATE_TEST_SUITE_P(Values, IntegerValue, testing::ValuesIn(numbers), NamedAfterRow());

class NoNumber : public testing::TestWithParam<TruthRow> {};

TEST_P(NoNumber, FailsTheStepButIsSimplyNotTrue) {
    const auto& value = GetParam().value;
    try {
        toInteger(value);
        ADD_FAILURE() << "has no integer";
    } catch (const NamedError& failure) {
        EXPECT_EQ(failure.name(), "Unexpected value");
        EXPECT_EQ(failure.reason(),
                  "Expected a text or a number, found a " + std::string(value.kind()));
    }
    EXPECT_THROW(toBool(value), NamedError);
    EXPECT_THROW(toInteger(value), NamedError);
    EXPECT_THROW(toDisplayString(value), NamedError);
    EXPECT_EQ(toBoolOrFalse(value), GetParam().expected);
}

const TruthRow noNumbers[] = {
    {"Data", Data{{'1'}}, false},
    {"Date", Date{1}, false},
    {"Array", Array{Value(true)}, false},
    {"Dictionary", Dictionary{{"a", true}}, false},
};

INSTANTIATE_TEST_SUITE_P(Values, NoNumber, testing::ValuesIn(noNumbers), NamedAfterRow());

TEST(Conversions, DisplayStringsOfTextsAndNumbers) {
    EXPECT_EQ(toDisplayString(Value("as it is \"so\"")), "as it is \"so\"");
    EXPECT_EQ(toDisplayString(Value("")), "");
    EXPECT_EQ(toDisplayString(Value(-20)), "-20");
    EXPECT_EQ(toDisplayString(Value(true)), "1");
    EXPECT_EQ(toDisplayString(Value(1.5)), "1.5");
    EXPECT_EQ(toDisplayString(Value(std::numeric_limits<std::uint64_t>::max())),
              "18446744073709551615");
}

struct PiecesRow {
    std::string_view name;
    std::string_view text;
    std::string_view separator;
    std::string_view first, last;
};

class Pieces : public testing::TestWithParam<PiecesRow> {};

TEST_P(Pieces, SplitAtTheSeparator) {
    EXPECT_EQ(beforeFirst(GetParam().text, GetParam().separator), GetParam().first);
    EXPECT_EQ(afterLast(GetParam().text, GetParam().separator), GetParam().last);
}

const PiecesRow pieces[] = {
    {"Empty", "", ".", "", ""},
    {"None", "/bin/run", ".", "/bin/run", "/bin/run"},
    {"One", "run.sh", ".", "run", "sh"},
    {"Two", "backup.tar.sh", ".", "backup", "sh"},
    {"AtTheEnd", "a.", ".", "a", ""},
    {"AtTheStart", ".sh", ".", "", "sh"},
    {"Adjacent", "a..b", ".", "a", "b"},
    {"OnlySeparator", ".", ".", "", ""},
    {"Long", "/A.app/Contents/MacOS/A", "/Contents/MacOS/", "/A.app", "A"},
    {"LongTwice", "xabyabz", "ab", "x", "z"},
};

INSTANTIATE_TEST_SUITE_P(Texts, Pieces, testing::ValuesIn(pieces), NamedAfterRow());

TEST(Conversions, ReplaceEveryOccurrence) {
    EXPECT_EQ(replacedAll("aXbXc", "X", "--"), "a--b--c");
    EXPECT_EQ(replacedAll("aaa", "aa", "b"), "ba") << "left to right, not overlapping";
    EXPECT_EQ(replacedAll("XX", "X", "XX"), "XXXX") << "what was put in is not replaced again";
    EXPECT_EQ(replacedAll("", "X", "y"), "");
    EXPECT_EQ(replacedAll("abc", "X", "y"), "abc");
    EXPECT_EQ(removeAll("a.plist.plist", ".plist"), "a");
}

struct UrlRow {
    std::string_view name;
    std::string_view path;
    std::string_view expected;
};

class FileUrl : public testing::TestWithParam<UrlRow> {};

TEST_P(FileUrl, IsPercentEncoded) { EXPECT_EQ(fileUrl(GetParam().path), GetParam().expected); }

const UrlRow urls[] = {
    {"Plain", "/Users/u/run.sh", "file:///Users/u/run.sh"},
    {"Blank", "/a b", "file:///a%20b"},
    {"TrailingSlashStays", "/A.app/", "file:///A.app/"},
    {"Percent", "/100%", "file:///100%25"},
    {"QueryAndFragment", "/a?b#c", "file:///a%3Fb%23c"},
    {"Utf8", "/\u00e9", "file:///%C3%A9"},
    {"Unreserved", "/-._~", "file:///-._~"},
    {"Quotes", "/\"<>", "file:///%22%3C%3E"},
};

INSTANTIATE_TEST_SUITE_P(Paths, FileUrl, testing::ValuesIn(urls), NamedAfterRow());

} // namespace

} // namespace frimbolate
