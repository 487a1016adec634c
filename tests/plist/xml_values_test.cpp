// What stands in the XML files of tools and of people, whole and faulty, inside of an ordinary
// frame.
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

/// A whole XML file around one value.
std::string xmlFile(std::string_view body) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
           "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
           "<plist version=\"1.0\">" +
           std::string(body) + "</plist>\n";
}

struct GoodRow {
    const char* name;
    const char* body;
    Value value;
};

void PrintTo(const GoodRow& row, std::ostream* out) { *out << row.name; }

class XmlValue : public testing::TestWithParam<GoodRow> {};

TEST_P(XmlValue, isRead) {
    EXPECT_EQ(readPropertyList(xmlFile(GetParam().body)), GetParam().value);
}

constexpr auto infinity = std::numeric_limits<double>::infinity();

const GoodRow goodRows[] = {
    {"text", "<string>a b</string>", "a b"},
    {"emptyText", "<string/>", ""},
    {"textKeepsBlanks", "<string> a\n\tb </string>", " a\n\tb "},
    {"textWithEntities", "<string>&lt;&amp;&gt;&quot;&apos;&#233;&#x1F600;</string>", "<&>\"'é😀"},
    {"textWithCarriageReturn", "<string>a&#13;b</string>", "a\rb"},
    {"lineEndsAreKept", "<string>a\r\nb\rc</string>", "a\r\nb\rc"},
    {"textInSections", "<string>a<![CDATA[<&]]>b</string>", "a<&b"},
    {"textWithByteOrderMark", "<string>\xef\xbb\xbf-</string>", "-"},
    {"textWithNulByNumber", "<string>a&#0;b</string>", "a\0b"s},
    {"controlCharacterByNumber", "<string>&#1;</string>", "\x01"},
    {"controlCharacter", "<string>\x01</string>", "\x01"},
    {"noCharacterByNumber", "<string>&#xFFFE;</string>", "\xef\xbf\xbe"},
    {"textWithAttribute", "<string lang=\"en\">a</string>", "a"},
    {"keyAlone", "<key>a</key>", "a"},
    {"processingInstruction", "<?stop?><true/>", true},
    {"true", "<true/>", true},
    {"false", "<false></false>", false},
    {"zero", "<integer>0</integer>", 0},
    {"leadingZeroIsNotOctal", "<integer>022</integer>", 22},
    {"negative", "<integer>-7</integer>", -7},
    {"plus", "<integer>+7</integer>", 7},
    {"hexadecimal", "<integer>0x1F</integer>", 31},
    {"negativeHexadecimal", "<integer>-0x10</integer>", -16},
    {"blanksBeforeInteger", "<integer>\n\t5</integer>", 5},
    {"lowestInteger", "<integer>-9223372036854775808</integer>",
     std::numeric_limits<std::int64_t>::min()},
    {"highestSignedInteger", "<integer>9223372036854775807</integer>",
     std::numeric_limits<std::int64_t>::max()},
    {"firstUnsignedInteger", "<integer>9223372036854775808</integer>", std::uint64_t{1} << 63},
    {"highestInteger", "<integer>18446744073709551615</integer>",
     std::numeric_limits<std::uint64_t>::max()},
    {"real", "<real>1.5</real>", 1.5},
    {"wholeReal", "<real>3</real>", 3.0},
    {"realWithExponent", "<real>-2.5e-3</real>", -0.0025},
    {"realWithPlus", "<real>+0.5</real>", 0.5},
    {"infinity", "<real>inf</real>", infinity},
    {"infinityWithPlus", "<real>+Infinity</real>", infinity},
    {"negativeInfinity", "<real>-infinity</real>", -infinity},
    {"hugeReal", "<real>1e999</real>", infinity},
    {"data", "<data>AAEC/w==</data>", Data{{0, 1, 2, 255}}},
    {"dataOverLines", "<data>\n\tAA\n\tEC\n</data>", Data{{0, 1, 2}}},
    {"unpaddedData", "<data>AAE</data>", Data{}},
    {"paddingInside", "<data>AA==AAEC</data>", Data{{0, 0, 1, 2}}},
    {"otherAlphabet", "<data>AA-_</data>", Data{}},
    {"leftOverBits", "<data>AAF=</data>", Data{{0, 1}}},
    {"noBase64", "<data>a.b!</data>", Data{}},
    {"date", "<date>2001-02-03T04:05:06Z</date>", Date{981173106}},
    {"dateBeforeEpoch", "<date>1969-12-31T23:59:59Z</date>", Date{-1}},
    {"leapDay", "<date>2024-02-29T00:00:00Z</date>", Date{1709164800}},
    {"firstDate", "<date>0001-01-01T00:00:00Z</date>", Date{-62135596800}},
    {"lastDate", "<date>9999-12-31T23:59:59Z</date>", Date{253402300799}},
    {"thirteenthMonth", "<date>2001-13-03T04:05:06Z</date>", Date{1010030706}},
    {"noLeapDay", "<date>2023-02-29T00:00:00Z</date>", Date{1677628800}},
    {"midnightAsTwentyFour", "<date>2001-02-03T24:00:00Z</date>", Date{981244800}},
    {"sixtiethMinute", "<date>2001-02-03T04:60:06Z</date>", Date{981176406}},
    {"leapSecond", "<date>2016-12-31T23:59:60Z</date>", Date{1483228800}},
    {"yearZero", "<date>0000-01-01T00:00:00Z</date>", Date{-62167219200}},
    {"emptyArray", "<array/>", Array{}},
    {"array", "<array>\n<integer>1</integer> <!-- two --> <integer>2</integer></array>",
     Array{1, 2}},
    {"emptyDictionary", "<dict></dict>", Dictionary{}},
    {"dictionary", "<dict><key>b</key><true/><key>a</key><array><string/></array></dict>",
     Dictionary{{"a", Array{""}}, {"b", true}}},
    {"keyWithAttribute", "<dict><key a=\"b\">a</key><true/></dict>", Dictionary{{"a", true}}},
    {"keyAsValue", "<dict><key>a</key><key>b</key></dict>", Dictionary{{"a", "b"}}},
    {"doubleKey", "<dict><key>a</key><true/><key>a</key><false/></dict>", Dictionary{{"a", false}}},
    {"emptyKey", "<dict><key/><string/></dict>", Dictionary{{"", ""}}},
};

INSTANTIATE_TEST_SUITE_P(Rows, XmlValue, testing::ValuesIn(goodRows), NamedAfterRow());

struct BadRow {
    const char* name;
    const char* body; ///< inside <plist>, unless it begins with "<?xml" or "<!"
    const char* reason;
};

void PrintTo(const BadRow& row, std::ostream* out) { *out << row.name; }

class XmlRefusal : public testing::TestWithParam<BadRow> {};

TEST_P(XmlRefusal, isRefused) {
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

const BadRow badRows[] = {
    {"noXml", "<?xml version=\"1.0\"?>", "it ends where an element"},
    {"otherRoot", "<!-- x --><list><true/></list>", "<list> is no known element"},
    {"unknownEncoding", "<?xml version=\"1.0\" encoding=\"klingon\"?><plist><true/></plist>",
     "not known: \"klingon\""},
    {"entities", declaredEntities, "document type"},
    {"attributeDefaults",
     "<!DOCTYPE plist [<!ATTLIST string x CDATA \"y\">]><plist><string/></plist>", "document type"},
    {"unknownEntity", "<string>&nbsp;</string>", ""},
    {"nothing", "", "is empty"},
    {"twoValues", "<true/><true/>", "more than one value"},
    {"textBesideValue", "<true/>x", "text stands between"},
    {"textInArray", "<array>x</array>", "text stands between"},
    {"textInDictionary", "<dict>x</dict>", "text stands between"},
    {"unknownElement", "<set/>", "<set> is no known element"},
    {"otherCase", "<True/>", "<True> is no known element"},
    {"prefixedElement", "<p:true xmlns:p=\"x\"/>", ""},
    {"elementInText", "<string>a<b/></string>", "where </string> is expected"},
    {"commentInText", "<string>a<!-- no -->b</string>", "a text holds another element"},
    {"elementInKey", "<dict><key><b/></key><true/></dict>", "where </key> is expected"},
    {"textInTrue", "<true>x</true>", "where </true> is expected"},
    {"elementInFalse", "<false><true/></false>", "where </false> is expected"},
    {"missingValue", "<dict><key>a</key></dict>", "the last key of <dict> has no value"},
    {"missingKey", "<dict><true/></dict>", "<true> has no key"},
    {"emptyInteger", "<integer/>", "<integer> is empty"},
    {"blanksBehindInteger", "<integer>5 </integer>", "\"5 \""},
    {"word", "<integer>abc</integer>", "\"abc\""},
    {"fraction", "<integer>1.5</integer>", "\"1.5\""},
    {"twoSigns", "<integer>--5</integer>", "\"--5\""},
    {"plusMinus", "<integer>+-5</integer>", "\"+-5\""},
    {"onlySign", "<integer>-</integer>", "\"-\""},
    {"onlyHexPrefix", "<integer>0x</integer>", "\"0x\""},
    {"trailingText", "<integer>5 apples</integer>", "\"5 apples\""},
    {"thousandsSeparator", "<integer>1,000</integer>", "\"1,000\""},
    {"foreignDigits", "<integer>٣</integer>", "cannot be read"},
    {"aboveAll", "<integer>18446744073709551616</integer>", "cannot be read"},
    {"belowAll", "<integer>-9223372036854775809</integer>", "cannot be read"},
    {"emptyReal", "<real></real>", "<real> cannot be read"},
    {"decimalComma", "<real>1,5</real>", "\"1,5\""},
    {"hexReal", "<real>0x1p3</real>", "\"0x1p3\""},
    {"realPlusMinus", "<real>+-1</real>", "\"+-1\""},
    {"nanWithPayload", "<real>nan(1)</real>", "\"nan(1)\""},
    {"emptyData", "<data/>", "<data> is empty"},
    {"emptyDate", "<date/>", "<date> is empty"},
    {"dateWithoutZone", "<date>2001-02-03T04:05:06</date>", "cannot be read"},
    {"dateWithOffset", "<date>2001-02-03T04:05:06+01:00</date>", "cannot be read"},
    {"dateWithFraction", "<date>2001-02-03T04:05:06.5Z</date>", "cannot be read"},
    {"shortDate", "<date>2001-2-3T04:05:06Z</date>", "cannot be read"},
    {"invalidUtf8", "<string>\xff</string>", ""},
    {"overlongUtf8", "<string>\xc0\xaf</string>", ""},
    {"surrogateInUtf8", "<string>\xed\xa0\x80</string>", ""},
    {"surrogateReference", "<string>&#xD800;</string>", ""},
    {"bareAmpersand", "<string>a & b</string>", ""},
    {"unclosed", "<string>a", ""},
};

INSTANTIATE_TEST_SUITE_P(Rows, XmlRefusal, testing::ValuesIn(badRows), NamedAfterRow());

TEST(XmlFile, takesNulForACharacter) {
    EXPECT_EQ(readPropertyList(xmlFile("<string>a\0b</string>"s)), Value("a\0b"s));
    EXPECT_THROW(readPropertyList(xmlFile("<integer>5\0x</integer>"s)), NamedError);
}

TEST(XmlFile, readsNothingBehindItsRoot) {
    for (const auto& behind : {"x"s, "<plist/>"s, "\0"s})
        EXPECT_EQ(readPropertyList(xmlFile("<true/>") + behind), Value(true));
}

TEST(XmlFile, readsNotANumber) {
    for (const char* text : {"<real>nan</real>", "<real>NaN</real>"}) {
        const Value value = readPropertyList(xmlFile(text));
        ASSERT_TRUE(value.real());
        EXPECT_NE(*value.real(), *value.real());
    }
}

TEST(XmlFile, readsUtf16) {
    std::string file = "\xff\xfe";
    for (const char16_t unit :
         std::u16string_view(u"<?xml version=\"1.0\" "
                             u"encoding=\"UTF-16\"?><plist><string>\u00e9</string></plist>")) {
        file += static_cast<char>(unit & 0xff);
        file += static_cast<char>(unit >> 8);
    }
    EXPECT_EQ(readPropertyList(file), Value("é"));
    // Half of a character, which no UTF-8 can hold
    file.replace(file.find('\xe9'), 2, "\x3d\xd8");
    EXPECT_THROW(readPropertyList(file), NamedError);
}

TEST(XmlFile, goesWithoutHeaderVersionAndLastLineEnd) {
    EXPECT_EQ(readPropertyList("<plist><true/></plist>"), Value(true));
    EXPECT_EQ(readPropertyList("\xef\xbb\xbf<plist version='0.9'><true/></plist>"), Value(true));
    EXPECT_EQ(readPropertyList("<plist kind=\"x\"><true/></plist>"), Value(true));
    EXPECT_EQ(readPropertyList("<!-- a --><plist><true/></plist>\n<!-- b -->"), Value(true));
}

TEST(XmlFile, namesTheLine) {
    const auto reason = reasonOf("Unreadable property list", [] {
        readPropertyList("<plist>\n<dict>\n<key>a</key>\n<integer>x</integer></dict></plist>");
    });
    EXPECT_EQ(reason, "this <integer> cannot be read: \"x\" (line 4)");
}

TEST(XmlFile, readsNumbersTheSameInEveryLocale) {
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

TEST(XmlFile, boundsTheDepth) {
    EXPECT_NO_THROW(readPropertyList(xmlFile(nested(maximumPlistDepth))));
    for (const std::size_t levels : {maximumPlistDepth + 1, std::size_t{20000}})
        EXPECT_THAT(reasonOf("Unreadable property list",
                             [&] { readPropertyList(xmlFile(nested(levels))); }),
                    HasSubstr("nested too deeply"));
}

TEST(XmlFile, boundsTheSize) {
    std::string file = xmlFile("<string>a</string>");
    const auto room = maximumPlistBytes - file.size();
    file.replace(file.find(">a<"), 3, ">" + std::string(room + 1, 'a') + "<");
    ASSERT_EQ(file.size(), maximumPlistBytes);
    EXPECT_EQ(readPropertyList(file).asString().size(), room + 1);
    EXPECT_EQ(reasonOf("Unreadable property list", [&] { readPropertyList(file + " "); }),
              "it is over 16 MiB");
}

} // namespace

} // namespace frimbolate::test
