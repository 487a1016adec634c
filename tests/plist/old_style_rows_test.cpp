// The rules of the property lists that are older than XML.
#include "tests/plist/verdict.h"
#include "tests/support/rows.h"

#include <gmock/gmock.h>

namespace frimbolate::test {

namespace {

using namespace std::string_literals;
using testing::HasSubstr;

struct GoodRow {
    const char* name;
    std::string file;
    std::string value;
};

void PrintTo(const GoodRow& row, std::ostream* out) { *out << row.name; }

class GoodOldStyle : public testing::TestWithParam<GoodRow> {};

TEST_P(GoodOldStyle, isRead) { EXPECT_EQ(verdictOn(GetParam().file), "ok\t" + GetParam().value); }

const GoodRow goodRows[] = {
    {"onlyComments", "// a\n/* b */", "{}"},
    {"openBlockComment", "/* a", "{}"},
    {"onlyByteOrderMark", "\xef\xbb\xbf", "{}"},
    {"strings", "/* a */\n\"k\" = \"v\";\nb = c;", "{\"b\"=S\"c\",\"k\"=S\"v\"}"},
    {"stringsWithValues", "a = (b, {c = d;}, <00>);", "{\"a\"=(S\"b\",{\"c\"=S\"d\"},D00)}"},
    {"shortEntries", "a; \"b c\";", "{\"a\"=S\"a\",\"b c\"=S\"b c\"}"},
    {"shortEntryInBraces", "{a;}", "{\"a\"=S\"a\"}"},
    {"lastKeyHolds", "a = 1; b = 2; a = 3;", "{\"a\"=S\"3\",\"b\"=S\"2\"}"},
    {"commaBehindLast", "(a, b,)", "(S\"a\",S\"b\")"},
    {"emptyArray", "( )", "()"},
    {"nested", "((), ({}), (a, (b)))", "((),({}),(S\"a\",(S\"b\")))"},
    {"bareCharacters", "aZ09_$/:.-", "S\"aZ09_$/:.-\""},
    {"path", "{p = /bin/sh;}", "{\"p\"=S\"/bin/sh\"}"},
    {"slashAtTheEnd", "/", "S\"/\""},
    {"slashesInsideOfBareText", "a//b", "S\"a//b\""},
    {"lineComments", "(a, // x\nb // y\r, c // z\u2028)", "(S\"a\",S\"b\",S\"c\")"},
    {"blockComments", "{/**/a /* * / */=/*\n*/b /*;*/;/**/}/**/", "{\"a\"=S\"b\"}"},
    {"allBlanks", "\t\n\v\f\r \u2028\u2029(\u2028\va\u2029)", "(S\"a\")"},
    {"singleQuotes", "'a \"b\"'", "S\"a \\u0022b\\u0022\""},
    {"otherQuoteInside", "\"it's\"", "S\"it's\""},
    {"lineFeedInQuotes", "\"a\nb\"", "S\"a\\u000ab\""},
    {"nulInQuotes", "\"a\0b\""s, "S\"a\\u0000b\""},
    {"emptyText", "\"\"", "S\"\""},
    {"otherCharacters", "\"é😀\"", "S\"\\u00e9\\ud83d\\ude00\""},
    {"innerByteOrderMark", "\"\xef\xbb\xbf\"", "S\"\\ufeff\""},
    {"letters", R"("\a\b\f\n\r\t\v")", R"(S"\u0007\u0008\u000c\u000a\u000d\u0009\u000b")"},
    {"ordinaryCharacters", R"("\"\'\\\q\u0041")", R"(S"\u0022'\u005cqu0041")"},
    {"escapedLineFeed", "\"a\\\nb\"", "S\"a\\u000ab\""},
    {"escapedCharacter", "\"\\é\"", "S\"\\u00e9\""},
    {"octal", R"("\101\12\0\0019")", R"(S"A\u000a\u0000\u00019")"},
    {"octalOfNextStep", R"("\200\222\306\341\375")", R"(S"\u00a0\u00d2\u02d8\u00c6\u00ff")"},
    {"unit", R"("\U00e9\U0041")", R"(S"\u00e9A")"},
    {"pairOfUnits", R"("\Ud83d\Ude00")", R"(S"\ud83d\ude00")"},
    {"shortUnit", R"("\U41g\U")", R"(S"Ag\u0000")"},
    {"escapesInKey", R"({"\101"=b;})", R"({"A"=S"b"})"},
    {"data", "<0fBD 77\n\t1c>", "D0fbd771c"},
    {"emptyData", "<>", "D"},
    {"blanksInData", "< \u2028 00\u2029>", "D00"},
    {"numbersAreTexts", "{a = 0x10; b = 1.5;}", "{\"a\"=S\"0x10\",\"b\"=S\"1.5\"}"},
    {"magicOfBinaryAsWord", "bplist00", "S\"bplist00\""},
};

INSTANTIATE_TEST_SUITE_P(Rows, GoodOldStyle, testing::ValuesIn(goodRows), NamedAfterRow());

struct BadRow {
    const char* name;
    std::string file;
    const char* reason;
};

void PrintTo(const BadRow& row, std::ostream* out) { *out << row.name; }

class BadOldStyle : public testing::TestWithParam<BadRow> {};

TEST_P(BadOldStyle, isRefused) {
    EXPECT_THAT(rejectionReasonFor(GetParam().file), HasSubstr(GetParam().reason));
}

const BadRow badRows[] = {
    {"openArray", "(a,\n b", "it ends where \",\" or \")\" is expected (line 2)"},
    {"openArrayBehindComma", "(a,", "it ends where a value is expected"},
    {"commaFirst", "(,)", "\",\" stands where a value is expected"},
    {"twoCommas", "(a,,b)", "\",\" stands where a value is expected"},
    {"missingComma", "(a b)", "\"b\" stands where \",\" or \")\" is expected"},
    {"closedByBrace", "(a}", "\"}\" stands where"},
    {"openDictionary", "{a = b;", "it ends where a key is expected"},
    {"missingValue", "{a = ;}", "\";\" stands where a value is expected"},
    {"missingSemicolon", "{a = b c = d;}", "\"c\" stands where \";\" is expected"},
    {"missingEquals", "{a b;}", "stands where \"=\" or \";\" is expected"},
    {"keyIsArray", "{(a) = b;}", "\"(\" stands where a key is expected"},
    {"stringsWithoutEnd", "a = b; c = d", "it ends where \";\" is expected"},
    {"openQuotes", "{a = \"b;\n}", "a quoted text does not end (line 1)"},
    {"openQuotesBehindBackslash", "\"a\\\"", "a quoted text does not end"},
    {"backslashAtTheEnd", "\"a\\", "a quoted text does not end"},
    {"otherQuoteAtTheEnd", "\"a'", "a quoted text does not end"},
    {"somethingBehind", "(a) b", "something follows its value"},
    {"twoDictionaries", "{}{}", "something follows its value"},
    {"foreignBytes", "{a = \"\xff\";}", "no valid UTF-8"},
    {"foreignBytesInComment", "// \xff\n{}", "no valid UTF-8"},
    {"otherLetters", "é", "stands where a value is expected"},
    {"oddDigits", "{a = <0>;}", "\">\" stands where a second hexadecimal digit is expected"},
    {"blankInsideOfPair", "{a = <0 0>;}", "a second hexadecimal digit"},
    {"letterInData", "{a = <0g>;}", "a second hexadecimal digit"},
    {"openData", "{a = <00", "it ends where a hexadecimal digit is expected"},
    {"starInData", "{a = <*I5>;}", "\"*\" stands where a hexadecimal digit is expected"},
    {"nul", "\0"s, "\"\\x00\" stands where a value is expected"},
    {"highUnitAlone", R"({a = "\Ud83d";})", "stands for no character"},
    {"highUnitBeforeText", R"({a = "\Ud83dx";})", "stands for no character"},
    {"lowUnitAlone", R"({a = "\Ude00";})", "stands for no character"},
    {"highUnitTwice", R"({a = "\Ud83d\Ud83d";})", "stands for no character"},
};

INSTANTIATE_TEST_SUITE_P(Rows, BadOldStyle, testing::ValuesIn(badRows), NamedAfterRow());

} // namespace

} // namespace frimbolate::test
