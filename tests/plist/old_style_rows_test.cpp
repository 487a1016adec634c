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
    {"NextStepFrom200", R"("\200\201\202\203\204\205\206\207\210\211\212\213")",
     R"(S"\u00a0\u00c0\u00c1\u00c2\u00c3\u00c4\u00c5\u00c7\u00c8\u00c9\u00ca\u00cb")"},
    {"NextStepFrom214", R"("\214\215\216\217\220\221\222\223\224\225\226\227")",
     R"(S"\u00cc\u00cd\u00ce\u00cf\u00d0\u00d1\u00d2\u00d3\u00d4\u00d5\u00d6\u00d9")"},
    {"NextStepFrom230", R"("\230\231\232\233\234\235\236\237\240\241\242\243")",
     R"(S"\u00da\u00db\u00dc\u00dd\u00de\u00b5\u00d7\u00f7\u00a9\u00a1\u00a2\u00a3")"},
    {"NextStepFrom244", R"("\244\245\246\247\250\251\252\253\254\255\256\257")",
     R"(S"\u2044\u00a5\u0192\u00a7\u00a4\u2019\u201c\u00ab\u2039\u203a\ufb01\ufb02")"},
    {"NextStepFrom260", R"("\260\261\262\263\264\265\266\267\270\271\272\273")",
     R"(S"\u00ae\u2013\u2020\u2021\u00b7\u00a6\u00b6\u2022\u201a\u201e\u201d\u00bb")"},
    {"NextStepFrom274", R"("\274\275\276\277\300\301\302\303\304\305\306\307")",
     R"(S"\u2026\u2030\u00ac\u00bf\u00b9\u02cb\u00b4\u02c6\u02dc\u00af\u02d8\u02d9")"},
    {"NextStepFrom310", R"("\310\311\312\313\314\315\316\317\320\321\322\323")",
     R"(S"\u00a8\u00b2\u02da\u00b8\u00b3\u02dd\u02db\u02c7\u2014\u00b1\u00bc\u00bd")"},
    {"NextStepFrom324", R"("\324\325\326\327\330\331\332\333\334\335\336\337")",
     R"(S"\u00be\u00e0\u00e1\u00e2\u00e3\u00e4\u00e5\u00e7\u00e8\u00e9\u00ea\u00eb")"},
    {"NextStepFrom340", R"("\340\341\342\343\344\345\346\347\350\351\352\353")",
     R"(S"\u00ec\u00c6\u00ed\u00aa\u00ee\u00ef\u00f0\u00f1\u0141\u00d8\u0152\u00ba")"},
    {"NextStepFrom354", R"("\354\355\356\357\360\361\362\363\364\365\366\367")",
     R"(S"\u00f2\u00f3\u00f4\u00f5\u00f6\u00e6\u00f9\u00fa\u00fb\u0131\u00fc\u00fd")"},
    {"NextStepFrom370", R"("\370\371\372\373\374\375")",
     R"(S"\u0142\u00f8\u0153\u00df\u00fe\u00ff")"},
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
    {"LastPrintable", "{a = ~;}", "\"~\" stands where a value is expected"},
    {"Delete", "{a = \x7F;}", "\"\\x7f\" stands where a value is expected"},
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
