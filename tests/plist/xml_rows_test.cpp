// The rules of the XML form, beside those that the verdicts show.
#include "tests/plist/verdict.h"
#include "tests/support/rows.h"

#include <gmock/gmock.h>

#include <clocale>

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

class GoodXml : public testing::TestWithParam<GoodRow> {};

TEST_P(GoodXml, isRead) { EXPECT_EQ(verdictOn(GetParam().file), "ok\t" + GetParam().value); }

const GoodRow goodRows[] = {
    {"tagEndsInsideOfQuotes", "<string a=\">\">b</string>", "S\"\\u0022>b\""},
    {"slashInsideOfAttribute", "<string a=\"/\">b</string>", "S\"b\""},
    {"slashBeforeBlankIsNoEnd", "<string / >b</string>", "S\"b\""},
    {"emptyWithAttribute", "<array a=\"b\"/>", "()"},
    {"lineFeedInTag", "<string\na='b'\r\n>c</string\n>", "S\"c\""},
    {"oddQuotesInHeader", "<?xml version=\"1.0?><plist><true/></plist>", "B1"},
    {"oddQuotesInDocumentType", "<!DOCTYPE plist \"x><true/>", "B1"},
    {"documentTypeWithoutName", "<!DOCTYPE><true/>", "B1"},
    {"twoDocumentTypes", "<!DOCTYPE a><!DOCTYPE b><true/>", "B1"},
    {"headerTwice", "<?xml version=\"1.0\"?><?xml version=\"1.0\"?><true/>", "B1"},
    {"dashesInComment", "<!-- a -- b --- c --><true/>", "B1"},
    {"commentOfDashes", "<plist><!-----><true/></plist>", "B1"},
    {"commentOfThreeDashes", "<plist><!---><true/></plist>", "B1"},
    {"tagsInComment", "<array><!-- <true/> > --><false/></array>", "(B0)"},
    {"foreignBytesInComment", "<array><!-- \xff --><?x \xff?><true a=\"\xff\"/></array>", "(B1)"},
    {"foreignBytesBehindRoot", "<true/>\xff\x00"s, "B1"},
    {"plistInPlist", "<plist><plist><true/></plist></plist>", "B1"},
    {"plistInArray", "<array><plist><true/></plist></array>", "(B1)"},
    {"plistAsValue", "<dict><key>a</key><plist><true/></plist></dict>", "{\"a\"=B1}"},
    {"keyAsRoot", "<plist><key>a</key></plist>", "S\"a\""},
    {"keyInArray", "<array><key>a</key></array>", "(S\"a\")"},
    {"keyAsValue", "<dict><key>a</key><key>b</key></dict>", "{\"a\"=S\"b\"}"},
    {"charactersByNumber", "<string>&#233;&#x1F600;&#x1f600;&#65;</string>",
     "S\"\\u00e9\\ud83d\\ude00\\ud83d\\ude00A\""},
    {"characterWithoutNumber", "<string>&#;&#x;</string>", "S\"\\u0000\\u0000\""},
    {"leadingZerosInNumber", "<string>&#0000000000000065;</string>", "S\"A\""},
    {"byteOrderMarkIsDropped", "<string>\xef\xbb\xbf-</string>", "S\"-\""},
    {"byteOrderMarkInKeyIsDropped",
     "<dict><key>\xef\xbb\xbf"
     "a</key><true/></dict>",
     "{\"a\"=B1}"},
    {"byteOrderMarkByNumberIsDropped", "<string>&#xfeff;-</string>", "S\"-\""},
    {"byteOrderMarkInSectionIsDropped", "<string><![CDATA[\xef\xbb\xbf-]]></string>", "S\"-\""},
    {"oneByteOrderMarkIsDropped", "<string>\xef\xbb\xbf\xef\xbb\xbf</string>", "S\"\\ufeff\""},
    {"innerByteOrderMark", "<string>-\xef\xbb\xbf</string>", "S\"-\\ufeff\""},
    {"characterOverSections", "<string>\xc3<![CDATA[\xa9]]></string>", "S\"\\u00e9\""},
    {"bracketsInSection", "<string><![CDATA[]]]]>]]&gt;</string>", "S\"]]]]>\""},
    {"sectionInKey", "<dict><key><![CDATA[<a>]]></key><true/></dict>", "{\"<a>\"=B1}"},
    {"emptySections", "<string><![CDATA[]]><![CDATA[]]></string>", "S\"\""},
    {"lastKeyHolds", "<dict><key>a</key><true/><key>b</key><true/><key>a</key><false/></dict>",
     "{\"a\"=B0,\"b\"=B1}"},
    {"realInSection", "<real><![CDATA[1.5]]></real>", "R3ff8000000000000"},
    {"realByNumber", "<real>&#49;</real>", "R3ff0000000000000"},
    {"binaryUidStaysDictionary", "<dict><key>CF$UID</key><integer>1</integer></dict>",
     "{\"CF$UID\"=I1}"},
    {"blankTextBetween", " <array>\t<true/>\r\n</array>", "(B1)"},
    {"keysOutOfOrder", "<dict><key>b</key><true/><key>a</key><dict/></dict>",
     "{\"a\"={},\"b\"=B1}"},
};

INSTANTIATE_TEST_SUITE_P(Rows, GoodXml, testing::ValuesIn(goodRows), NamedAfterRow());

struct BadRow {
    const char* name;
    std::string file;
    const char* reason;
};

void PrintTo(const BadRow& row, std::ostream* out) { *out << row.name; }

class BadXml : public testing::TestWithParam<BadRow> {};

TEST_P(BadXml, isRefused) {
    EXPECT_THAT(rejectionReasonFor(GetParam().file), HasSubstr(GetParam().reason));
}

const BadRow badRows[] = {
    {"onlyHeader", "<?xml version=\"1.0\"?>", "ends where an element is expected (line 1)"},
    {"openComment", "<!-- a -><true/>", "a comment does not end (line 1)"},
    {"commentOfThreeDashesInFront", "<!---><true/>", "a comment does not end"},
    {"openInstruction", "<?xml>", "a processing instruction does not end"},
    {"openDocumentType", "<!DOCTYPE plist", "a document type does not end"},
    {"entityDeclaration", "<!ENTITY a \"b\"><true/>", "unknown declaration"},
    {"documentTypeInside", "<plist><!DOCTYPE plist><true/></plist>", "stands between the elements"},
    {"openTag", "<plist><string a=\"b", "a tag does not end"},
    {"blankBeforeName", "< true/>", "a tag has no name"},
    {"slashAlone", "</>", "a tag has no name"},
    {"slashInName", "<true/ >", "<true/> is no known element"},
    {"twoSlashes", "<true//>", "<true/> is no known element"},
    {"closingTagFirst", "</plist>", "</plist> is no known element"},
    {"prefix", "<p:true/>", "<p:true> is no known element"},
    {"blankBeforeClosingName", "<array></ array>", "does not match <array>"},
    {"attributeInClosingTag", "<array></array a=\"b\">", "does not match <array>"},
    {"longerClosingName", "<array></arrays>", "does not match <array>"},
    {"textBesideValue", "<plist>\n\n<true/>xy</plist>", "between the elements: \"xy\" (line 3)"},
    {"textInArray", "<array>x</array>", "between the elements: \"x\""},
    {"arrayIsNotClosed", "<array>\r\n<true/>\r\n", "<array> is not closed (line 3)"},
    {"linesEndInCarriageReturns", "<array>\r<true/>\rx", "(line 3)"},
    {"valueIsMissing", "<dict><key>a</key></dict>", "has no value"},
    {"plistAsKey", "<dict><plist><key>a</key></plist><true/></dict>", "<plist> has no key"},
    {"innerPlistIsEmpty", "<array><plist></plist></array>", "<plist> is empty"},
    {"openText", "<string>a", "a text does not end"},
    {"openSection", "<string><![CDATA[a]]", "a CDATA section does not end"},
    {"otherSection", "<string><![cdata[a]]></string>", "holds another element"},
    {"unknownEntity", "<string>&nbsp;</string>", "unknown entity"},
    {"upperCaseEntity", "<string>&LT;</string>", "unknown entity"},
    {"upperCaseHexadecimal", "<string>&#X41;</string>", "a digit of a character's number"},
    {"hexadecimalDigitInDecimal", "<string>&#4a;</string>", "a digit of a character's number"},
    {"negativeCharacter", "<string>&#-1;</string>", "a digit of a character's number"},
    {"openReference", "<string>&#65</string>", "a digit of a character's number"},
    {"foreignBytesInText", "<array>\n<string>\xff</string></array>", "no valid UTF-8 (line 2)"},
    {"foreignBytesInKey", "<dict><key>\xff</key><true/></dict>", "no valid UTF-8"},
    {"cutCharacter", "<string>\xc3</string>", "no valid UTF-8"},
    {"openInteger", "<integer>5", "ends where </integer> is expected"},
    {"integerByNumber", "<integer>&#53;</integer>", "cannot be read: \"&#53;\""},
    {"commentInInteger", "<integer>5<!-- --></integer>", "</integer> is expected"},
    {"longInteger", "<integer>" + std::string(100, 'x') + "</integer>",
     "cannot be read: \"xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx…\""},
    {"emptyDate", "<date></date>", "this <date> cannot be read"},
    {"emptyRoot", "<integer/>", "<integer> is empty"},
    {"dataWithTag", "<data>AA<b/></data>", "</data> is expected"},
};

INSTANTIATE_TEST_SUITE_P(Rows, BadXml, testing::ValuesIn(badRows), NamedAfterRow());

TEST(XmlRows, doNotAskTheLocale) {
    const char* const commas = std::setlocale(LC_ALL, "de_DE.UTF-8");
    EXPECT_EQ(verdictOn("<real>1.5</real>"), "ok\tR3ff8000000000000") << (commas ? commas : "C");
    EXPECT_EQ(verdictOn("<real>1,5</real>"), "error");
    std::setlocale(LC_ALL, "C");
}

} // namespace

} // namespace frimbolate::test
