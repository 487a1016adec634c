// Reading the form that is older than XML: the single rules.
#include "tests/plist/text_rows.h"
#include "tests/plist/verdict.h"
#include "tests/support/rows.h"

#include <gmock/gmock.h>

namespace frimbolate::test {

namespace {

using namespace std::string_literals;
using testing::HasSubstr;

class GoodOldStyle : public testing::TestWithParam<GoodRow> {};

TEST_P(GoodOldStyle, IsRead) { EXPECT_EQ(verdictOn(GetParam().file), "ok\t" + GetParam().value); }

const GoodRow goodOldStyleRows[] = {
    {"OnlyComments", "// a\n/* b */", "{}"},
    {"OpenBlockComment", "/* a", "{}"},
    {"OnlyByteOrderMark", "\xef\xbb\xbf", "{}"},
    {"Strings", "/* a */\n\"k\" = \"v\";\nb = c;", "{\"b\"=S\"c\",\"k\"=S\"v\"}"},
    {"StringsWithValues", "a = (b, {c = d;}, <00>);", "{\"a\"=(S\"b\",{\"c\"=S\"d\"},D00)}"},
    {"ShortEntries", "a; \"b c\";", "{\"a\"=S\"a\",\"b c\"=S\"b c\"}"},
    {"ShortEntryInBraces", "{a;}", "{\"a\"=S\"a\"}"},
    {"LastKeyHolds", "a = 1; b = 2; a = 3;", "{\"a\"=S\"3\",\"b\"=S\"2\"}"},
    {"CommaBehindLast", "(a, b,)", "(S\"a\",S\"b\")"},
    {"EmptyArray", "( )", "()"},
    {"Nested", "((), ({}), (a, (b)))", "((),({}),(S\"a\",(S\"b\")))"},
    {"BareCharacters", "aZ09_$/:.-", "S\"aZ09_$/:.-\""},
    {"Path", "{p = /bin/sh;}", "{\"p\"=S\"/bin/sh\"}"},
    {"SlashAtTheEnd", "/", "S\"/\""},
    {"SlashesInsideOfBareText", "a//b", "S\"a//b\""},
    {"LineComments", "(a, // x\nb // y\r, c // z\u2028)", "(S\"a\",S\"b\",S\"c\")"},
    {"BlockComments", "{/**/a /* * / */=/*\n*/b /*;*/;/**/}/**/", "{\"a\"=S\"b\"}"},
    {"AllBlanks", "\t\n\v\f\r \u2028\u2029(\u2028\va\u2029)", "(S\"a\")"},
    {"SingleQuotes", "'a \"b\"'", "S\"a \\u0022b\\u0022\""},
    {"OtherQuoteInside", "\"it's\"", "S\"it's\""},
    {"LineFeedInQuotes", "\"a\nb\"", "S\"a\\u000ab\""},
    {"NulInQuotes", "\"a\0b\""s, "S\"a\\u0000b\""},
    {"EmptyText", "\"\"", "S\"\""},
    {"OtherCharacters", "\"é😀\"", "S\"\\u00e9\\ud83d\\ude00\""},
    {"InnerByteOrderMark", "\"\xef\xbb\xbf\"", "S\"\\ufeff\""},
    {"Letters", R"("\a\b\f\n\r\t\v")", R"(S"\u0007\u0008\u000c\u000a\u000d\u0009\u000b")"},
    {"OrdinaryCharacters", R"("\"\'\\\q\u0041")", R"(S"\u0022'\u005cqu0041")"},
    {"EscapedLineFeed", "\"a\\\nb\"", "S\"a\\u000ab\""},
    {"EscapedCharacter", "\"\\é\"", "S\"\\u00e9\""},
    {"Octal", R"("\101\12\0\0019")", R"(S"A\u000a\u0000\u00019")"},
    {"OctalOfNextStep", R"("\200\222\306\341\375")", R"(S"\u00a0\u00d2\u02d8\u00c6\u00ff")"},
    {"Unit", R"("\U00e9\U0041")", R"(S"\u00e9A")"},
    {"PairOfUnits", R"("\Ud83d\Ude00")", R"(S"\ud83d\ude00")"},
    {"ShortUnit", R"("\U41g\U")", R"(S"Ag\u0000")"},
    {"EscapesInKey", R"({"\101"=b;})", R"({"A"=S"b"})"},
    {"Data", "<0fBD 77\n\t1c>", "D0fbd771c"},
    {"EmptyData", "<>", "D"},
    {"BlanksInData", "< \u2028 00\u2029>", "D00"},
    {"NumbersAreTexts", "{a = 0x10; b = 1.5;}", "{\"a\"=S\"0x10\",\"b\"=S\"1.5\"}"},
    {"MagicOfBinaryAsWord", "bplist00", "S\"bplist00\""},
};

INSTANTIATE_TEST_SUITE_P(Rows, GoodOldStyle, testing::ValuesIn(goodOldStyleRows), NamedAfterRow());

class BadOldStyle : public testing::TestWithParam<BadRow> {};

TEST_P(BadOldStyle, IsRefused) {
    EXPECT_THAT(rejectionReasonFor(GetParam().file), HasSubstr(GetParam().reason));
}

const BadRow badOldStyleRows[] = {
    {"OpenArray", "(a,\n b", "it ends where \",\" or \")\" is expected (line 2)"},
    {"OpenArrayBehindComma", "(a,", "it ends where a value is expected"},
    {"CommaFirst", "(,)", "\",\" stands where a value is expected"},
    {"TwoCommas", "(a,,b)", "\",\" stands where a value is expected"},
    {"MissingComma", "(a b)", "\"b\" stands where \",\" or \")\" is expected"},
    {"ClosedByBrace", "(a}", "\"}\" stands where"},
    {"OpenDictionary", "{a = b;", "it ends where a key is expected"},
    {"MissingValue", "{a = ;}", "\";\" stands where a value is expected"},
    {"MissingSemicolon", "{a = b c = d;}", "\"c\" stands where \";\" is expected"},
    {"MissingEquals", "{a b;}", "stands where \"=\" or \";\" is expected"},
    {"KeyIsArray", "{(a) = b;}", "\"(\" stands where a key is expected"},
    {"StringsWithoutEnd", "a = b; c = d", "it ends where \";\" is expected"},
    {"OpenQuotes", "{a = \"b;\n}", "a quoted text does not end (line 1)"},
    {"OpenQuotesBehindBackslash", "\"a\\\"", "a quoted text does not end"},
    {"BackslashAtTheEnd", "\"a\\", "a quoted text does not end"},
    {"OtherQuoteAtTheEnd", "\"a'", "a quoted text does not end"},
    {"SomethingBehind", "(a) b", "something follows its value"},
    {"TwoDictionaries", "{}{}", "something follows its value"},
    {"ForeignBytes", "{a = \"\xff\";}", "no valid UTF-8"},
    {"ForeignBytesInComment", "// \xff\n{}", "no valid UTF-8"},
    {"OtherLetters", "é", "stands where a value is expected"},
    {"OddDigits", "{a = <0>;}", "\">\" stands where a second hexadecimal digit is expected"},
    {"BlankInsideOfPair", "{a = <0 0>;}", "a second hexadecimal digit"},
    {"LetterInData", "{a = <0g>;}", "a second hexadecimal digit"},
    {"OpenData", "{a = <00", "it ends where a hexadecimal digit is expected"},
    {"StarInData", "{a = <*I5>;}", "\"*\" stands where a hexadecimal digit is expected"},
    {"Nul", "\0"s, "\"\\x00\" stands where a value is expected"},
    {"HighUnitAlone", R"({a = "\Ud83d";})", "stands for no character"},
    {"HighUnitBeforeText", R"({a = "\Ud83dx";})", "stands for no character"},
    {"LowUnitAlone", R"({a = "\Ude00";})", "stands for no character"},
    {"HighUnitTwice", R"({a = "\Ud83d\Ud83d";})", "stands for no character"},
};

INSTANTIATE_TEST_SUITE_P(Rows, BadOldStyle, testing::ValuesIn(badOldStyleRows), NamedAfterRow());

} // namespace

} // namespace frimbolate::test
