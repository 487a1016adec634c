#include "platform/qt/property_list_limits.h"
#include "platform/qt/property_list_xml_reader.h"
#include "tests/platform/property_lists.h"

#include <QString>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <clocale>
#include <limits>

namespace frimbolate::test {

namespace {

using testing::HasSubstr;

struct GoodRow {
    const char* name;
    const char* body;
    Value value;
};

void PrintTo(const GoodRow& row, std::ostream* out) { *out << row.name; }

class GoodXml : public testing::TestWithParam<GoodRow> {};

TEST_P(GoodXml, isRead) {
    EXPECT_EQ(readXmlPropertyList(xmlFile(GetParam().body)), GetParam().value);
}

constexpr auto infinity = std::numeric_limits<double>::infinity();

const GoodRow goodRows[] = {
    {"text", "<string>a b</string>", "a b"},
    {"emptyText", "<string/>", ""},
    {"textKeepsBlanks", "<string> a\n\tb </string>", " a\n\tb "},
    {"textWithEntities", "<string>&lt;&amp;&gt;&quot;&apos;&#233;&#x1F600;</string>", "<&>\"'é😀"},
    {"textWithCarriageReturn", "<string>a&#13;b</string>", "a\rb"},
    {"lineEndsAreMadeOne", "<string>a\r\nb\rc</string>", "a\nb\nc"},
    {"textInSections", "<string>a<![CDATA[<&]]>b</string>", "a<&b"},
    {"textAroundComment", "<string>a<!-- no -->b</string>", "ab"},
    {"textWithByteOrderMark", "<string>\xef\xbb\xbf-</string>", "\xef\xbb\xbf-"},
    {"true", "<true/>", true},
    {"false", "<false></false>", false},
    {"zero", "<integer>0</integer>", 0},
    {"leadingZeroIsNotOctal", "<integer>022</integer>", 22},
    {"negative", "<integer>-7</integer>", -7},
    {"plus", "<integer>+7</integer>", 7},
    {"hexadecimal", "<integer>0x1F</integer>", 31},
    {"negativeHexadecimal", "<integer>-0x10</integer>", -16},
    {"blanksAroundInteger", "<integer>\n\t5 </integer>", 5},
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
    {"data", "<data>AAEC/w==</data>", Data{{0, 1, 2, 255}}},
    {"dataOverLines", "<data>\n\tAA\n\tEC\n</data>", Data{{0, 1, 2}}},
    {"emptyData", "<data/>", Data{}},
    {"date", "<date>2001-02-03T04:05:06Z</date>", Date{981173106}},
    {"dateBeforeEpoch", "<date>1969-12-31T23:59:59Z</date>", Date{-1}},
    {"leapDay", "<date>2024-02-29T00:00:00Z</date>", Date{1709164800}},
    {"firstDate", "<date>0001-01-01T00:00:00Z</date>", Date{-62135596800}},
    {"lastDate", "<date>9999-12-31T23:59:59Z</date>", Date{253402300799}},
    {"emptyArray", "<array/>", Array{}},
    {"array", "<array>\n<integer>1</integer> <!-- two --> <integer>2</integer></array>",
     Array{1, 2}},
    {"emptyDictionary", "<dict></dict>", Dictionary{}},
    {"dictionary", "<dict><key>b</key><true/><key>a</key><array><string/></array></dict>",
     Dictionary{{"a", Array{""}}, {"b", true}}},
    {"emptyKey", "<dict><key/><string/></dict>", Dictionary{{"", ""}}},
};

INSTANTIATE_TEST_SUITE_P(Rows, GoodXml, testing::ValuesIn(goodRows),
                         [](const auto& row) { return std::string(row.param.name); });

struct BadRow {
    const char* name;
    const char* body; ///< inside <plist>, unless it begins with "<?xml" or "<!"
    const char* reason;
};

void PrintTo(const BadRow& row, std::ostream* out) { *out << row.name; }

class BadXml : public testing::TestWithParam<BadRow> {};

TEST_P(BadXml, isRefused) {
    const std::string_view body = GetParam().body;
    const bool isWhole = body.starts_with("<?xml") || body.starts_with("<!");
    const QByteArray file = isWhole ? QByteArray(GetParam().body) : xmlFile(body);
    const auto reason = reasonOf("Unreadable property list", [&] { readXmlPropertyList(file); });
    EXPECT_THAT(reason, HasSubstr(GetParam().reason));
    EXPECT_THAT(reason, HasSubstr(" (line "));
}

constexpr const char* declaredEntities =
    "<!DOCTYPE plist [<!ENTITY a \"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa\">"
    "<!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;\"><!ENTITY c \"&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;\">"
    "<!ENTITY d \"&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;\"><!ENTITY e \"&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;\">]>"
    "<plist><string>&e;</string></plist>";

const BadRow badRows[] = {
    {"noXml", "<?xml version=\"1.0\"?>", "well-formed"},
    {"otherRoot", "<!-- x --><list><true/></list>", "its root is <list>"},
    {"unknownEncoding", "<?xml version=\"1.0\" encoding=\"klingon\"?><plist><true/></plist>",
     "well-formed"},
    {"entities", declaredEntities, "document type"},
    {"attributeDefaults",
     "<!DOCTYPE plist [<!ATTLIST string x CDATA \"y\">]><plist><string/></plist>", "document type"},
    {"unknownEntity", "<string>&nbsp;</string>", ""},
    {"processingInstruction", "<?stop?><true/>", "processing instruction"},
    {"rootAttribute", "<!-- x --><plist kind=\"x\"><true/></plist>", "unknown attribute"},
    {"nothing", "", "is empty"},
    {"twoValues", "<true/><true/>", "more than one value"},
    {"textBesideValue", "<true/>x", "text stands between"},
    {"textBehindRoot", "<!-- x --><plist><true/></plist>x", "well-formed"},
    {"secondRoot", "<!-- x --><plist><true/></plist><plist/>", "well-formed"},
    {"textInArray", "<array>x</array>", "text stands between"},
    {"textInDictionary", "<dict>x</dict>", "text stands between"},
    {"unknownElement", "<set/>", "<set> is no known element"},
    {"keyAlone", "<key>a</key>", "<key> is no known element"},
    {"otherCase", "<True/>", "<True> is no known element"},
    {"prefixedElement", "<p:true xmlns:p=\"x\"/>", ""},
    {"attribute", "<string lang=\"en\">a</string>", "<string> has an attribute"},
    {"keyAttribute", "<dict><key a=\"b\">a</key><true/></dict>", "<key> has an attribute"},
    {"elementInText", "<string>a<b/></string>", "<string> holds another element"},
    {"elementInKey", "<dict><key><b/></key><true/></dict>", "<key> holds another element"},
    {"textInTrue", "<true>x</true>", "<true> is not empty"},
    {"elementInFalse", "<false><true/></false>", "<false> holds another element"},
    {"missingValue", "<dict><key>a</key></dict>", "\"a\" has no value"},
    {"keyForValue", "<dict><key>a</key><key>b</key></dict>", "\"a\" has no value"},
    {"missingKey", "<dict><true/></dict>", "<true> has no key"},
    {"doubleKey", "<dict><key>a</key><true/><key>a</key><false/></dict>",
     "\"a\" stands there twice"},
    {"emptyInteger", "<integer/>", "<integer> cannot be read"},
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
    {"hugeReal", "<real>1e999</real>", "\"1e999\""},
    {"nanWithPayload", "<real>nan(1)</real>", "\"nan(1)\""},
    {"unpaddedData", "<data>AAE</data>", "\"AAE\""},
    {"paddingInside", "<data>AA==AAEC</data>", "cannot be read"},
    {"otherAlphabet", "<data>AA-_</data>", "cannot be read"},
    {"leftOverBits", "<data>AAF=</data>", "cannot be read"},
    {"noBase64", "<data>a.b!</data>", "cannot be read"},
    {"emptyDate", "<date/>", "<date> cannot be read"},
    {"dateWithoutZone", "<date>2001-02-03T04:05:06</date>", "cannot be read"},
    {"dateWithOffset", "<date>2001-02-03T04:05:06+01:00</date>", "cannot be read"},
    {"dateWithFraction", "<date>2001-02-03T04:05:06.5Z</date>", "cannot be read"},
    {"shortDate", "<date>2001-2-3T04:05:06Z</date>", "cannot be read"},
    {"thirteenthMonth", "<date>2001-13-03T04:05:06Z</date>", "cannot be read"},
    {"noLeapDay", "<date>2023-02-29T00:00:00Z</date>", "cannot be read"},
    {"midnightAsTwentyFour", "<date>2001-02-03T24:00:00Z</date>", "cannot be read"},
    {"sixtiethMinute", "<date>2001-02-03T04:60:06Z</date>", "cannot be read"},
    {"leapSecond", "<date>2016-12-31T23:59:60Z</date>", "cannot be read"},
    {"yearZero", "<date>0000-01-01T00:00:00Z</date>", "cannot be read"},
    {"invalidUtf8", "<string>\xff</string>", ""},
    {"overlongUtf8", "<string>\xc0\xaf</string>", ""},
    {"surrogateInUtf8", "<string>\xed\xa0\x80</string>", ""},
    {"surrogateReference", "<string>&#xD800;</string>", ""},
    {"nulReference", "<string>a&#0;b</string>", ""},
    {"controlReference", "<string>&#1;</string>", ""},
    {"noCharacterReference", "<string>&#xFFFE;</string>", ""},
    {"controlCharacter", "<string>\x01</string>", ""},
    {"bareAmpersand", "<string>a & b</string>", ""},
    {"unclosed", "<string>a", ""},
};

INSTANTIATE_TEST_SUITE_P(Rows, BadXml, testing::ValuesIn(badRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(XmlReader, refusesTextBehindNul) {
    for (const std::string_view body : {std::string_view("<string>a\0b</string>", 20),
                                        std::string_view("<integer>5\0x</integer>", 22)})
        EXPECT_THROW(readXmlPropertyList(xmlFile(body)), Failure);
    EXPECT_THROW(readXmlPropertyList(xmlFile("<true/>") + QByteArray(1, '\0')), Failure);
}

TEST(XmlReader, readsNotANumber) {
    for (const char* text : {"<real>nan</real>", "<real>NaN</real>"}) {
        const Value value = readXmlPropertyList(xmlFile(text));
        ASSERT_TRUE(value.real());
        EXPECT_NE(*value.real(), *value.real());
    }
}

TEST(XmlReader, readsUtf16) {
    const QString text = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-16\"?>"
                                        "<plist><string>\u00e9</string></plist>");
    QByteArray file("\xff\xfe", 2);
    for (const QChar c : text) {
        file += static_cast<char>(c.unicode() & 0xff);
        file += static_cast<char>(c.unicode() >> 8);
    }
    EXPECT_EQ(readXmlPropertyList(file), Value("é"));
    // Half of a character, which no UTF-8 can hold
    file.replace(QByteArray("\xe9\x00", 2), QByteArray("\x3d\xd8", 2));
    EXPECT_THROW(readXmlPropertyList(file), Failure);
}

TEST(XmlReader, goesWithoutHeaderVersionAndLastLineEnd) {
    EXPECT_EQ(readXmlPropertyList("<plist><true/></plist>"), Value(true));
    EXPECT_EQ(readXmlPropertyList("\xef\xbb\xbf<plist version='0.9'><true/></plist>"), Value(true));
    EXPECT_EQ(readXmlPropertyList("<!-- a --><plist><true/></plist>\n<!-- b -->"), Value(true));
}

TEST(XmlReader, namesTheLine) {
    const auto reason = reasonOf("Unreadable property list", [] {
        readXmlPropertyList("<plist>\n<dict>\n<key>a</key>\n<integer>x</integer></dict></plist>");
    });
    EXPECT_EQ(reason, "this <integer> cannot be read: \"x\" (line 4)");
}

TEST(XmlReader, readsNumbersTheSameInEveryLocale) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* locale : {"de_DE.UTF-8", "C.UTF-8", "C"})
        if (std::setlocale(LC_ALL, locale)) {
            EXPECT_EQ(readXmlPropertyList(xmlFile("<real>1.5</real>")), Value(1.5)) << locale;
        }
    std::setlocale(LC_ALL, before.c_str());
}

std::string nested(int levels) {
    std::string body = "<true/>";
    for (int i = 0; i < levels; ++i)
        body = i % 2 == 0 ? "<array>" + body + "</array>" : "<dict><key>k</key>" + body + "</dict>";
    return body;
}

TEST(XmlReader, boundsTheDepth) {
    EXPECT_NO_THROW(readXmlPropertyList(xmlFile(nested(maximumPropertyListDepth))));
    for (const int levels : {maximumPropertyListDepth + 1, 20000})
        EXPECT_THAT(reasonOf("Unreadable property list",
                             [&] { readXmlPropertyList(xmlFile(nested(levels))); }),
                    HasSubstr("nested too deeply"));
}

TEST(XmlReader, boundsTheSize) {
    QByteArray file = xmlFile("<string>a</string>");
    const auto room = static_cast<qsizetype>(maximumPropertyListBytes) - file.size();
    file.replace(">a<", ">" + QByteArray(room + 1, 'a') + "<");
    ASSERT_EQ(static_cast<std::size_t>(file.size()), maximumPropertyListBytes);
    EXPECT_EQ(readXmlPropertyList(file).asString().size(), static_cast<std::size_t>(room) + 1);
    EXPECT_EQ(reasonOf("Unreadable property list", [&] { readXmlPropertyList(file + " "); }),
              "it is over 16 MiB");
}

} // namespace

} // namespace frimbolate::test
