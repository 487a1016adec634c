// The bytes that are written, and the values that are refused since they would be read differently.
#include "core/named_error.h"
#include "plist/property_list_reader.h"
#include "plist/written_scalars.h"
#include "plist/xml_writer.h"
#include "tests/support/failures.h"
#include "tests/support/rows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

namespace frimbolate::test {

namespace {

using namespace std::string_literals;

TEST(Writer, WritesTheWholeFile) {
    const Dictionary dictionary = {
        {"Label", "com.frimbolate.Backup"},
        {"Empty", Array{}},
        {"Environment", Dictionary{}},
        {"KeepAlive", Dictionary{{"SuccessfulExit", false}}},
        {"Nice", -20},
        {"ProgramArguments", Array{"/bin/sh", "-c", "a && b > c\r\n\t\"d\""}},
        {"Ratio", 0.1},
        {"Since", Date{978307200}},
        {"Stamp", Data{{1, 2, 3}}},
        {"ZBig", std::numeric_limits<std::uint64_t>::max()},
    };
    EXPECT_EQ(xmlPropertyList(dictionary), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                           "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                                           "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                                           "<plist version=\"1.0\">\n"
                                           "<dict>\n"
                                           "\t<key>Empty</key>\n"
                                           "\t<array/>\n"
                                           "\t<key>Environment</key>\n"
                                           "\t<dict/>\n"
                                           "\t<key>KeepAlive</key>\n"
                                           "\t<dict>\n"
                                           "\t\t<key>SuccessfulExit</key>\n"
                                           "\t\t<false/>\n"
                                           "\t</dict>\n"
                                           "\t<key>Label</key>\n"
                                           "\t<string>com.frimbolate.Backup</string>\n"
                                           "\t<key>Nice</key>\n"
                                           "\t<integer>-20</integer>\n"
                                           "\t<key>ProgramArguments</key>\n"
                                           "\t<array>\n"
                                           "\t\t<string>/bin/sh</string>\n"
                                           "\t\t<string>-c</string>\n"
                                           "\t\t<string>a &amp;&amp; b &gt; c&#13;\n"
                                           "\t\"d\"</string>\n"
                                           "\t</array>\n"
                                           "\t<key>Ratio</key>\n"
                                           "\t<real>0.1</real>\n"
                                           "\t<key>Since</key>\n"
                                           "\t<date>2001-01-01T00:00:00Z</date>\n"
                                           "\t<key>Stamp</key>\n"
                                           "\t<data>\n"
                                           "\tAQID\n"
                                           "\t</data>\n"
                                           "\t<key>ZBig</key>\n"
                                           "\t<integer>18446744073709551615</integer>\n"
                                           "</dict>\n"
                                           "</plist>\n");
}

TEST(Writer, BreaksLongDataIntoLines) {
    const auto text = xmlPropertyList({{"d", Data{std::vector<std::uint8_t>(52, 0)}}});
    EXPECT_THAT(text, testing::HasSubstr("\n\t" + std::string(68, 'A') + "\n\tAA==\n\t</data>"));
}

struct UnwritableRow {
    const char* name;
    Value value;
};

void PrintTo(const UnwritableRow& row, std::ostream* out) { *out << row.name; }

class Unwritable : public testing::TestWithParam<UnwritableRow> {};

TEST_P(Unwritable, IsRefusedWhereverItStands) {
    const auto& value = GetParam().value;
    EXPECT_NE(reasonOf("Unwritable content",
                       [&] {
                           xmlPropertyList({{"k", value}});
                       }),
              "no failure");
    EXPECT_THROW(xmlPropertyList({{"k", Array{Dictionary{{"j", value}}}}}), NamedError);
    if (const auto* text = value.string()) {
        EXPECT_THROW(xmlPropertyList({{*text, true}}), NamedError);
    }
}

const UnwritableRow unwritableRows[] = {
    {"Nul", "a\0b"s},
    {"FirstControl", "\x01"},
    {"Escape", "\x1b[1m"},
    {"LastControl", "\x1f"},
    {"NoCharacter", "\xef\xbf\xbe"},
    {"OtherNoCharacter", "\xef\xbf\xbf"},
    {"Surrogate", "\xed\xa0\x80"},
    {"LonelyContinuation", "\x80"},
    {"CutCharacter", "\xe2\x82"},
    {"MissingContinuation", "\xc3("},
    {"Overlong", "\xc0\xaf"},
    {"OverlongThree", "\xe0\x80\xaf"},
    {"OverlongFour", "\xf0\x80\x80\xaf"},
    {"AboveUnicode", "\xf4\x90\x80\x80"},
    {"NoLeadByte", "\xff"},
    {"ByteOrderMark", "\xef\xbb\xbf"},
    {"ByteOrderMarkFirst", "\xef\xbb\xbf-"},
    {"YearZero", Date{-62135596801}},
    {"Year10000", Date{253402300800}},
    {"EndOfTime", Date{std::numeric_limits<std::int64_t>::max()}},
    {"BeginningOfTime", Date{std::numeric_limits<std::int64_t>::min()}},
};

INSTANTIATE_TEST_SUITE_P(Rows, Unwritable, testing::ValuesIn(unwritableRows), NamedAfterRow());

struct WritableRow {
    const char* name;
    Value value;
};

void PrintTo(const WritableRow& row, std::ostream* out) { *out << row.name; }

class Writable : public testing::TestWithParam<WritableRow> {};

TEST_P(Writable, IsReadAgainAsItWas) {
    const auto text = xmlPropertyList({{"k", GetParam().value}});
    EXPECT_EQ(readPropertyList(text), Value(Dictionary{{"k", GetParam().value}}));
}

const WritableRow writableRows[] = {
    {"AllAscii",
     [] {
         std::string text = "\t\n\r";
         for (char c = ' '; c < 0x7f; ++c)
             text += c;
         return text + '\x7f';
     }()},
    {"LineEnds", "a\rb\nc\r\nd"},
    {"OuterBlanks", "\t a \n"},
    {"OnlyBlanks", " \n "},
    {"SectionEnd", "]]>"},
    {"LooksLikeXml", "<!-- a --><b c=\"d\">&amp;</b>"},
    {"CombiningMark", "e\u0301"},
    {"ByteOrderMarkInside", "-\xef\xbb\xbf"},
    {"LastOfBasicPlane", "\xef\xbf\xbd"},
    {"LastOfAll", "\xf4\x8f\xbf\xbd"},
    {"NextLine", "\xc2\x85"},
    {"LineSeparator", "\xe2\x80\xa8"},
    {"NegativeZero", -0.0},
    {"SmallestReal", std::numeric_limits<double>::denorm_min()},
    {"LargestReal", std::numeric_limits<double>::max()},
    {"Third", 1.0 / 3},
    {"WholeReal", 1e22},
    {"Infinity", std::numeric_limits<double>::infinity()},
    {"NegativeInfinity", -std::numeric_limits<double>::infinity()},
    {"FirstDate", Date{-62135596800}},
    {"LastDate", Date{253402300799}},
};

INSTANTIATE_TEST_SUITE_P(Rows, Writable, testing::ValuesIn(writableRows), NamedAfterRow());

TEST(Writer, KeepsTheSignOfZeroAndNotANumber) {
    EXPECT_EQ(plistTextOf(-0.0), "-0");
    const auto again = [](double number) {
        return *readPropertyList(xmlPropertyList({{"k", number}})).asDictionary().at("k").real();
    };
    EXPECT_TRUE(std::signbit(again(-0.0)));
    EXPECT_TRUE(std::isnan(again(std::numeric_limits<double>::quiet_NaN())));
}

struct TextRow {
    const char* name;
    std::string text;
    const char* reason;
};

void PrintTo(const TextRow& row, std::ostream* out) { *out << row.name; }

class UnwritableText : public testing::TestWithParam<TextRow> {};

TEST_P(UnwritableText, SaysWhy) { EXPECT_EQ(reasonUnwritable(GetParam().text), GetParam().reason); }

const TextRow textRows[] = {
    {"Control", "a\x01", "it holds the character U+0001"},
    {"LastControl", "é\x1f", "it holds the character U+001F"},
    {"NoCharacter", "\xef\xbf\xbd\xef\xbf\xbe", "it holds the character U+FFFE"},
    {"OtherNoCharacter", "\xef\xbf\xbf", "it holds the character U+FFFF"},
    {"CutCharacter", "a\xef\xbf", "it is not valid UTF-8"},
    {"ByteOrderMark", "\xef\xbb\xbf", "it begins with the character U+FEFF, which readers drop"},
};

INSTANTIATE_TEST_SUITE_P(Rows, UnwritableText, testing::ValuesIn(textRows), NamedAfterRow());

TEST(Writer, PadsBase64) {
    constexpr const char* texts[] = {"", "AA==", "AP8=", "AP8Q", "AP8Q+w=="};
    Data data;
    for (const char* text : texts) {
        EXPECT_EQ(plistTextOf(data), text);
        data.bytes.push_back(std::array<std::uint8_t, 5>{0, 255, 16, 251, 0}[data.bytes.size()]);
    }
}

} // namespace

} // namespace frimbolate::test
