// Reading the XML form: the single rules that verdicts.tsv does not cover.
#include "tests/plist/text_rows.h"
#include "tests/plist/verdict.h"
#include "tests/support/rows.h"

#include <gmock/gmock.h>

#include <clocale>

namespace frimbolate::test {

namespace {

using namespace std::string_literals;
using testing::HasSubstr;

class GoodXml : public testing::TestWithParam<GoodRow> {};

TEST_P(GoodXml, IsRead) { EXPECT_EQ(verdictOn(GetParam().file), "ok\t" + GetParam().value); }

const GoodRow goodXmlRows[] = {
    {"TagEndsInsideOfQuotes", "<string a=\">\">b</string>", "S\"\\u0022>b\""},
    {"SlashInsideOfAttribute", "<string a=\"/\">b</string>", "S\"b\""},
    {"SlashBeforeBlankIsNoEnd", "<string / >b</string>", "S\"b\""},
    {"EmptyWithAttribute", "<array a=\"b\"/>", "()"},
    {"LineFeedInTag", "<string\na='b'\r\n>c</string\n>", "S\"c\""},
    {"OddQuotesInHeader", "<?xml version=\"1.0?><plist><true/></plist>", "B1"},
    {"OddQuotesInDocumentType", "<!DOCTYPE plist \"x><true/>", "B1"},
    {"DocumentTypeWithoutName", "<!DOCTYPE><true/>", "B1"},
    {"TwoDocumentTypes", "<!DOCTYPE a><!DOCTYPE b><true/>", "B1"},
    {"HeaderTwice", "<?xml version=\"1.0\"?><?xml version=\"1.0\"?><true/>", "B1"},
    {"DashesInComment", "<!-- a -- b --- c --><true/>", "B1"},
    {"CommentOfDashes", "<plist><!-----><true/></plist>", "B1"},
    {"CommentOfThreeDashes", "<plist><!---><true/></plist>", "B1"},
    {"TagsInComment", "<array><!-- <true/> > --><false/></array>", "(B0)"},
    {"ForeignBytesInComment", "<array><!-- \xff --><?x \xff?><true a=\"\xff\"/></array>", "(B1)"},
    {"ForeignBytesBehindRoot", "<true/>\xff\x00"s, "B1"},
    {"PlistInPlist", "<plist><plist><true/></plist></plist>", "B1"},
    {"PlistInArray", "<array><plist><true/></plist></array>", "(B1)"},
    {"PlistAsValue", "<dict><key>a</key><plist><true/></plist></dict>", "{\"a\"=B1}"},
    {"KeyAsRoot", "<plist><key>a</key></plist>", "S\"a\""},
    {"KeyInArray", "<array><key>a</key></array>", "(S\"a\")"},
    {"KeyAsValue", "<dict><key>a</key><key>b</key></dict>", "{\"a\"=S\"b\"}"},
    {"CharactersByNumber", "<string>&#233;&#x1F600;&#x1f600;&#65;</string>",
     "S\"\\u00e9\\ud83d\\ude00\\ud83d\\ude00A\""},
    {"CharacterWithoutNumber", "<string>&#;&#x;</string>", "S\"\\u0000\\u0000\""},
    {"LeadingZerosInNumber", "<string>&#0000000000000065;</string>", "S\"A\""},
    {"ByteOrderMarkIsDropped", "<string>\xef\xbb\xbf-</string>", "S\"-\""},
    {"ByteOrderMarkInKeyIsDropped",
     "<dict><key>\xef\xbb\xbf"
     "a</key><true/></dict>",
     "{\"a\"=B1}"},
    {"ByteOrderMarkByNumberIsDropped", "<string>&#xfeff;-</string>", "S\"-\""},
    {"ByteOrderMarkInSectionIsDropped", "<string><![CDATA[\xef\xbb\xbf-]]></string>", "S\"-\""},
    {"OneByteOrderMarkIsDropped", "<string>\xef\xbb\xbf\xef\xbb\xbf</string>", "S\"\\ufeff\""},
    {"InnerByteOrderMark", "<string>-\xef\xbb\xbf</string>", "S\"-\\ufeff\""},
    {"CharacterOverSections", "<string>\xc3<![CDATA[\xa9]]></string>", "S\"\\u00e9\""},
    {"BracketsInSection", "<string><![CDATA[]]]]>]]&gt;</string>", "S\"]]]]>\""},
    {"SectionInKey", "<dict><key><![CDATA[<a>]]></key><true/></dict>", "{\"<a>\"=B1}"},
    {"EmptySections", "<string><![CDATA[]]><![CDATA[]]></string>", "S\"\""},
    {"LastKeyHolds", "<dict><key>a</key><true/><key>b</key><true/><key>a</key><false/></dict>",
     "{\"a\"=B0,\"b\"=B1}"},
    {"RealInSection", "<real><![CDATA[1.5]]></real>", "R3ff8000000000000"},
    {"RealByNumber", "<real>&#49;</real>", "R3ff0000000000000"},
    {"BinaryUidStaysDictionary", "<dict><key>CF$UID</key><integer>1</integer></dict>",
     "{\"CF$UID\"=I1}"},
    {"BlankTextBetween", " <array>\t<true/>\r\n</array>", "(B1)"},
    {"KeysOutOfOrder", "<dict><key>b</key><true/><key>a</key><dict/></dict>",
     "{\"a\"={},\"b\"=B1}"},
};

INSTANTIATE_TEST_SUITE_P(Rows, GoodXml, testing::ValuesIn(goodXmlRows), NamedAfterRow());

class BadXml : public testing::TestWithParam<BadRow> {};

TEST_P(BadXml, IsRefused) {
    EXPECT_THAT(rejectionReasonFor(GetParam().file), HasSubstr(GetParam().reason));
}

const BadRow badXmlRows[] = {
    {"OnlyHeader", "<?xml version=\"1.0\"?>", "ends where an element is expected (line 1)"},
    {"OpenComment", "<!-- a -><true/>", "a comment does not end (line 1)"},
    {"CommentOfThreeDashesInFront", "<!---><true/>", "a comment does not end"},
    {"OpenInstruction", "<?xml>", "a processing instruction does not end"},
    {"OpenDocumentType", "<!DOCTYPE plist", "a document type does not end"},
    {"EntityDeclaration", "<!ENTITY a \"b\"><true/>", "unknown declaration"},
    {"DocumentTypeInside", "<plist><!DOCTYPE plist><true/></plist>", "stands between the elements"},
    {"OpenTag", "<plist><string a=\"b", "a tag does not end"},
    {"BlankBeforeName", "< true/>", "a tag has no name"},
    {"SlashAlone", "</>", "a tag has no name"},
    {"SlashInName", "<true/ >", "<true/> is no known element"},
    {"TwoSlashes", "<true//>", "<true/> is no known element"},
    {"ClosingTagFirst", "</plist>", "</plist> is no known element"},
    {"Prefix", "<p:true/>", "<p:true> is no known element"},
    {"BlankBeforeClosingName", "<array></ array>", "does not match <array>"},
    {"AttributeInClosingTag", "<array></array a=\"b\">", "does not match <array>"},
    {"LongerClosingName", "<array></arrays>", "does not match <array>"},
    {"TextBesideValue", "<plist>\n\n<true/>xy</plist>", "between the elements: \"xy\" (line 3)"},
    {"TextInArray", "<array>x</array>", "between the elements: \"x\""},
    {"ArrayIsNotClosed", "<array>\r\n<true/>\r\n", "<array> is not closed (line 3)"},
    {"LinesEndInCarriageReturns", "<array>\r<true/>\rx", "(line 3)"},
    {"ValueIsMissing", "<dict><key>a</key></dict>", "has no value"},
    {"PlistAsKey", "<dict><plist><key>a</key></plist><true/></dict>", "<plist> has no key"},
    {"InnerPlistIsEmpty", "<array><plist></plist></array>", "<plist> is empty"},
    {"OpenText", "<string>a", "a text does not end"},
    {"OpenSection", "<string><![CDATA[a]]", "a CDATA section does not end"},
    {"OtherSection", "<string><![cdata[a]]></string>", "holds another element"},
    {"UnknownEntity", "<string>&nbsp;</string>", "unknown entity"},
    {"UpperCaseEntity", "<string>&LT;</string>", "unknown entity"},
    {"UpperCaseHexadecimal", "<string>&#X41;</string>", "a digit of a character's number"},
    {"HexadecimalDigitInDecimal", "<string>&#4a;</string>", "a digit of a character's number"},
    {"NegativeCharacter", "<string>&#-1;</string>", "a digit of a character's number"},
    {"OpenReference", "<string>&#65</string>", "a digit of a character's number"},
    {"ForeignBytesInText", "<array>\n<string>\xff</string></array>", "no valid UTF-8 (line 2)"},
    {"ForeignBytesInKey", "<dict><key>\xff</key><true/></dict>", "no valid UTF-8"},
    {"CutCharacter", "<string>\xc3</string>", "no valid UTF-8"},
    {"OpenInteger", "<integer>5", "ends where </integer> is expected"},
    {"IntegerByNumber", "<integer>&#53;</integer>", "cannot be read: \"&#53;\""},
    {"CommentInInteger", "<integer>5<!-- --></integer>", "</integer> is expected"},
    {"LongInteger", "<integer>" + std::string(100, 'x') + "</integer>",
     "cannot be read: \"xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx…\""},
    {"EmptyDate", "<date></date>", "this <date> cannot be read"},
    {"EmptyRoot", "<integer/>", "<integer> is empty"},
    {"DataWithTag", "<data>AA<b/></data>", "</data> is expected"},
};

INSTANTIATE_TEST_SUITE_P(Rows, BadXml, testing::ValuesIn(badXmlRows), NamedAfterRow());

TEST(XmlRows, DoNotAskTheLocale) {
    const char* const commas = std::setlocale(LC_ALL, "de_DE.UTF-8");
    EXPECT_EQ(verdictOn("<real>1.5</real>"), "ok\tR3ff8000000000000") << (commas ? commas : "C");
    EXPECT_EQ(verdictOn("<real>1,5</real>"), "error");
    std::setlocale(LC_ALL, "C");
}

} // namespace

} // namespace frimbolate::test
