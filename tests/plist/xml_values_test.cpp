// Reading XML as tools and people write it: valid and faulty values in an ordinary frame.
#include "core/named_error.h"
#include "plist/limits.h"
#include "plist/property_list_reader.h"
#include "tests/support/failures.h"
#include "tests/support/rows.h"

#include <gmock/gmock.h>

#include <clocale>
#include <limits>

namespace frimbolate::test {

namespace {

using namespace std::string_literals;
using testing::HasSubstr;

/// A complete XML file around one value.
std::string xmlFile(std::string_view body) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
           "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
           "<plist version=\"1.0\">" +
           std::string(body) + "</plist>\n";
}

struct XmlValueRow {
    const char* name;
    const char* body;
    Value value;
};

void PrintTo(const XmlValueRow& row, std::ostream* out) { *out << row.name; }

class XmlValue : public testing::TestWithParam<XmlValueRow> {};

TEST_P(XmlValue, IsRead) {
    EXPECT_EQ(readPropertyList(xmlFile(GetParam().body)), GetParam().value);
}

constexpr auto infinity = std::numeric_limits<double>::infinity();

const XmlValueRow xmlValueRows[] = {
    {"Text", "<string>a b</string>", "a b"},
    {"EmptyText", "<string/>", ""},
    {"TextKeepsBlanks", "<string> a\n\tb </string>", " a\n\tb "},
    {"TextWithEntities", "<string>&lt;&amp;&gt;&quot;&apos;&#233;&#x1F600;</string>", "<&>\"'é😀"},
    {"TextWithCarriageReturn", "<string>a&#13;b</string>", "a\rb"},
    {"LineEndsAreKept", "<string>a\r\nb\rc</string>", "a\r\nb\rc"},
    {"TextInSections", "<string>a<![CDATA[<&]]>b</string>", "a<&b"},
    {"TextWithByteOrderMark", "<string>\xef\xbb\xbf-</string>", "-"},
    {"TextWithNulByNumber", "<string>a&#0;b</string>", "a\0b"s},
    {"ControlCharacterByNumber", "<string>&#1;</string>", "\x01"},
    {"ControlCharacter", "<string>\x01</string>", "\x01"},
    {"NoCharacterByNumber", "<string>&#xFFFE;</string>", "\xef\xbf\xbe"},
    {"TextWithAttribute", "<string lang=\"en\">a</string>", "a"},
    {"KeyAlone", "<key>a</key>", "a"},
    {"ProcessingInstruction", "<?stop?><true/>", true},
    {"True", "<true/>", true},
    {"False", "<false></false>", false},
    {"Zero", "<integer>0</integer>", 0},
    {"LeadingZeroIsNotOctal", "<integer>022</integer>", 22},
    {"Negative", "<integer>-7</integer>", -7},
    {"Plus", "<integer>+7</integer>", 7},
    {"Hexadecimal", "<integer>0x1F</integer>", 31},
    {"NegativeHexadecimal", "<integer>-0x10</integer>", -16},
    {"BlanksBeforeInteger", "<integer>\n\t5</integer>", 5},
    {"LowestInteger", "<integer>-9223372036854775808</integer>",
     std::numeric_limits<std::int64_t>::min()},
    {"HighestSignedInteger", "<integer>9223372036854775807</integer>",
     std::numeric_limits<std::int64_t>::max()},
    {"FirstUnsignedInteger", "<integer>9223372036854775808</integer>", std::uint64_t{1} << 63},
    {"HighestInteger", "<integer>18446744073709551615</integer>",
     std::numeric_limits<std::uint64_t>::max()},
    {"Real", "<real>1.5</real>", 1.5},
    {"WholeReal", "<real>3</real>", 3.0},
    {"RealWithExponent", "<real>-2.5e-3</real>", -0.0025},
    {"RealWithPlus", "<real>+0.5</real>", 0.5},
    {"Infinity", "<real>inf</real>", infinity},
    {"InfinityWithPlus", "<real>+Infinity</real>", infinity},
    {"NegativeInfinity", "<real>-infinity</real>", -infinity},
    {"HugeReal", "<real>1e999</real>", infinity},
    {"Data", "<data>AAEC/w==</data>", Data{{0, 1, 2, 255}}},
    {"DataOverLines", "<data>\n\tAA\n\tEC\n</data>", Data{{0, 1, 2}}},
    {"UnpaddedData", "<data>AAE</data>", Data{}},
    {"PaddingInside", "<data>AA==AAEC</data>", Data{{0, 0, 1, 2}}},
    {"OtherAlphabet", "<data>AA-_</data>", Data{}},
    {"LeftOverBits", "<data>AAF=</data>", Data{{0, 1}}},
    {"NoBase64", "<data>a.b!</data>", Data{}},
    {"Date", "<date>2001-02-03T04:05:06Z</date>", Date{981173106}},
    {"DateBeforeEpoch", "<date>1969-12-31T23:59:59Z</date>", Date{-1}},
    {"LeapDay", "<date>2024-02-29T00:00:00Z</date>", Date{1709164800}},
    {"FirstDate", "<date>0001-01-01T00:00:00Z</date>", Date{-62135596800}},
    {"LastDate", "<date>9999-12-31T23:59:59Z</date>", Date{253402300799}},
    {"ThirteenthMonth", "<date>2001-13-03T04:05:06Z</date>", Date{1010030706}},
    {"NoLeapDay", "<date>2023-02-29T00:00:00Z</date>", Date{1677628800}},
    {"MidnightAsTwentyFour", "<date>2001-02-03T24:00:00Z</date>", Date{981244800}},
    {"SixtiethMinute", "<date>2001-02-03T04:60:06Z</date>", Date{981176406}},
    {"LeapSecond", "<date>2016-12-31T23:59:60Z</date>", Date{1483228800}},
    {"YearZero", "<date>0000-01-01T00:00:00Z</date>", Date{-62167219200}},
    {"EmptyArray", "<array/>", Array{}},
    {"Array", "<array>\n<integer>1</integer> <!-- two --> <integer>2</integer></array>",
     Array{1, 2}},
    {"EmptyDictionary", "<dict></dict>", Dictionary{}},
    {"Dictionary", "<dict><key>b</key><true/><key>a</key><array><string/></array></dict>",
     Dictionary{{"a", Array{""}}, {"b", true}}},
    {"KeyWithAttribute", "<dict><key a=\"b\">a</key><true/></dict>", Dictionary{{"a", true}}},
    {"KeyAsValue", "<dict><key>a</key><key>b</key></dict>", Dictionary{{"a", "b"}}},
    {"DoubleKey", "<dict><key>a</key><true/><key>a</key><false/></dict>", Dictionary{{"a", false}}},
    {"EmptyKey", "<dict><key/><string/></dict>", Dictionary{{"", ""}}},
};

INSTANTIATE_TEST_SUITE_P(Rows, XmlValue, testing::ValuesIn(xmlValueRows), NamedAfterRow());

struct XmlRefusalRow {
    const char* name;
    const char* body; ///< inside <plist>, unless it begins with "<?xml" or "<!"
    const char* reason;
};

void PrintTo(const XmlRefusalRow& row, std::ostream* out) { *out << row.name; }

class XmlRefusal : public testing::TestWithParam<XmlRefusalRow> {};

TEST_P(XmlRefusal, IsRefused) {
    const std::string_view body = GetParam().body;
    const bool isWhole = body.starts_with("<?xml") || body.starts_with("<!");
    const std::string file = isWhole ? std::string(body) : xmlFile(body);
    const auto reason = reasonOf("Unreadable property list", [&] { readPropertyList(file); });
    EXPECT_THAT(reason, HasSubstr(GetParam().reason));
    EXPECT_THAT(reason, HasSubstr(" (line "));
}

constexpr const char* declaredEntities =
    "<!DOCTYPE plist [<!ENTITY a \"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa\">"
    "<!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;\"><!ENTITY c \"&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;\">"
    "<!ENTITY d \"&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;\"><!ENTITY e \"&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;\">]>"
    "<plist><string>&e;</string></plist>";

const XmlRefusalRow xmlRefusalRows[] = {
    {"NoXml", "<?xml version=\"1.0\"?>", "it ends where an element"},
    {"OtherRoot", "<!-- x --><list><true/></list>", "<list> is no known element"},
    {"UnknownEncoding", "<?xml version=\"1.0\" encoding=\"klingon\"?><plist><true/></plist>",
     "not known: \"klingon\""},
    {"Entities", declaredEntities, "document type"},
    {"AttributeDefaults",
     "<!DOCTYPE plist [<!ATTLIST string x CDATA \"y\">]><plist><string/></plist>", "document type"},
    {"UnknownEntity", "<string>&nbsp;</string>", ""},
    {"Nothing", "", "is empty"},
    {"TwoValues", "<true/><true/>", "more than one value"},
    {"TextBesideValue", "<true/>x", "text stands between"},
    {"TextInArray", "<array>x</array>", "text stands between"},
    {"TextInDictionary", "<dict>x</dict>", "text stands between"},
    {"UnknownElement", "<set/>", "<set> is no known element"},
    {"OtherCase", "<True/>", "<True> is no known element"},
    {"PrefixedElement", "<p:true xmlns:p=\"x\"/>", ""},
    {"ElementInText", "<string>a<b/></string>", "where </string> is expected"},
    {"CommentInText", "<string>a<!-- no -->b</string>", "a text holds another element"},
    {"ElementInKey", "<dict><key><b/></key><true/></dict>", "where </key> is expected"},
    {"TextInTrue", "<true>x</true>", "where </true> is expected"},
    {"ElementInFalse", "<false><true/></false>", "where </false> is expected"},
    {"MissingValue", "<dict><key>a</key></dict>", "the last key of <dict> has no value"},
    {"MissingKey", "<dict><true/></dict>", "<true> has no key"},
    {"EmptyInteger", "<integer/>", "<integer> is empty"},
    {"BlanksBehindInteger", "<integer>5 </integer>", "\"5 \""},
    {"Word", "<integer>abc</integer>", "\"abc\""},
    {"Fraction", "<integer>1.5</integer>", "\"1.5\""},
    {"TwoSigns", "<integer>--5</integer>", "\"--5\""},
    {"PlusMinus", "<integer>+-5</integer>", "\"+-5\""},
    {"OnlySign", "<integer>-</integer>", "\"-\""},
    {"OnlyHexPrefix", "<integer>0x</integer>", "\"0x\""},
    {"TrailingText", "<integer>5 apples</integer>", "\"5 apples\""},
    {"ThousandsSeparator", "<integer>1,000</integer>", "\"1,000\""},
    {"ForeignDigits", "<integer>٣</integer>", "cannot be read"},
    {"AboveAll", "<integer>18446744073709551616</integer>", "cannot be read"},
    {"BelowAll", "<integer>-9223372036854775809</integer>", "cannot be read"},
    {"EmptyReal", "<real></real>", "<real> cannot be read"},
    {"DecimalComma", "<real>1,5</real>", "\"1,5\""},
    {"HexReal", "<real>0x1p3</real>", "\"0x1p3\""},
    {"RealPlusMinus", "<real>+-1</real>", "\"+-1\""},
    {"NanWithPayload", "<real>nan(1)</real>", "\"nan(1)\""},
    {"EmptyData", "<data/>", "<data> is empty"},
    {"EmptyDate", "<date/>", "<date> is empty"},
    {"DateWithoutZone", "<date>2001-02-03T04:05:06</date>", "cannot be read"},
    {"DateWithOffset", "<date>2001-02-03T04:05:06+01:00</date>", "cannot be read"},
    {"DateWithFraction", "<date>2001-02-03T04:05:06.5Z</date>", "cannot be read"},
    {"ShortDate", "<date>2001-2-3T04:05:06Z</date>", "cannot be read"},
    {"InvalidUtf8", "<string>\xff</string>", ""},
    {"OverlongUtf8", "<string>\xc0\xaf</string>", ""},
    {"SurrogateInUtf8", "<string>\xed\xa0\x80</string>", ""},
    {"SurrogateReference", "<string>&#xD800;</string>", ""},
    {"BareAmpersand", "<string>a & b</string>", ""},
    {"Unclosed", "<string>a", ""},
};

INSTANTIATE_TEST_SUITE_P(Rows, XmlRefusal, testing::ValuesIn(xmlRefusalRows), NamedAfterRow());

TEST(XmlFile, KeepsNul) {
    EXPECT_EQ(readPropertyList(xmlFile("<string>a\0b</string>"s)), Value("a\0b"s));
    EXPECT_THROW(readPropertyList(xmlFile("<integer>5\0x</integer>"s)), NamedError);
}

TEST(XmlFile, ReadsNothingBehindItsRoot) {
    for (const auto& behind : {"x"s, "<plist/>"s, "\0"s})
        EXPECT_EQ(readPropertyList(xmlFile("<true/>") + behind), Value(true));
}

TEST(XmlFile, ReadsNotANumber) {
    for (const char* text : {"<real>nan</real>", "<real>NaN</real>"}) {
        const Value value = readPropertyList(xmlFile(text));
        ASSERT_TRUE(value.real());
        EXPECT_NE(*value.real(), *value.real());
    }
}

TEST(XmlFile, ReadsUtf16) {
    std::string file = "\xff\xfe";
    for (const char16_t unit :
         std::u16string_view(u"<?xml version=\"1.0\" "
                             u"encoding=\"UTF-16\"?><plist><string>\u00e9</string></plist>")) {
        file += static_cast<char>(unit & 0xff);
        file += static_cast<char>(unit >> 8);
    }
    EXPECT_EQ(readPropertyList(file), Value("é"));
    // Half of a surrogate pair, which UTF-8 cannot hold
    file.replace(file.find('\xe9'), 2, "\x3d\xd8");
    EXPECT_THROW(readPropertyList(file), NamedError);
}

TEST(XmlFile, GoesWithoutHeaderVersionAndLastLineEnd) {
    EXPECT_EQ(readPropertyList("<plist><true/></plist>"), Value(true));
    EXPECT_EQ(readPropertyList("\xef\xbb\xbf<plist version='0.9'><true/></plist>"), Value(true));
    EXPECT_EQ(readPropertyList("<plist kind=\"x\"><true/></plist>"), Value(true));
    EXPECT_EQ(readPropertyList("<!-- a --><plist><true/></plist>\n<!-- b -->"), Value(true));
}

TEST(XmlFile, NamesTheLine) {
    const auto reason = reasonOf("Unreadable property list", [] {
        readPropertyList("<plist>\n<dict>\n<key>a</key>\n<integer>x</integer></dict></plist>");
    });
    EXPECT_EQ(reason, "this <integer> cannot be read: \"x\" (line 4)");
}

TEST(XmlFile, ReadsNumbersTheSameInEveryLocale) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* locale : {"de_DE.UTF-8", "C.UTF-8", "C"})
        if (std::setlocale(LC_ALL, locale)) {
            EXPECT_EQ(readPropertyList(xmlFile("<real>1.5</real>")), Value(1.5)) << locale;
        }
    std::setlocale(LC_ALL, before.c_str());
}

std::string nested(std::size_t levels) {
    std::string body = "<true/>";
    for (std::size_t i = 0; i < levels; ++i)
        body = i % 2 == 0 ? "<array>" + body + "</array>" : "<dict><key>k</key>" + body + "</dict>";
    return body;
}

TEST(XmlFile, BoundsTheDepth) {
    EXPECT_NO_THROW(readPropertyList(xmlFile(nested(maximumPlistDepth))));
    for (const std::size_t levels : {maximumPlistDepth + 1, std::size_t{20000}})
        EXPECT_THAT(reasonOf("Unreadable property list",
                             [&] { readPropertyList(xmlFile(nested(levels))); }),
                    HasSubstr("nested too deeply"));
}

TEST(XmlFile, BoundsTheSize) {
    std::string file = xmlFile("<string>a</string>");
    const auto space = maximumPlistBytes - file.size();
    file.replace(file.find(">a<"), 3, ">" + std::string(space + 1, 'a') + "<");
    ASSERT_EQ(file.size(), maximumPlistBytes);
    EXPECT_EQ(readPropertyList(file).asString().size(), space + 1);
    EXPECT_EQ(reasonOf("Unreadable property list", [&] { readPropertyList(file + " "); }),
              "it is over 16 MiB");
}

} // namespace

} // namespace frimbolate::test
