// The encodings of the text forms, and how the one of a file is detected.
#include "tests/plist/verdict.h"
#include "tests/support/rows.h"

#include <gmock/gmock.h>

namespace frimbolate::test {

namespace {

using namespace std::string_literals;
using testing::HasSubstr;

enum class Order { little, big };

/// ASCII text as code units of `size` bytes each.
std::string wide(std::string_view text, std::size_t size, Order order) {
    std::string result;
    for (const char c : text) {
        const std::string zeros(size - 1, '\0');
        result += order == Order::big ? zeros + c : c + zeros;
    }
    return result;
}

struct EncodingRow {
    const char* name;
    std::string file;
    std::string value;
};

void PrintTo(const EncodingRow& row, std::ostream* out) { *out << row.name; }

class KnownEncoding : public testing::TestWithParam<EncodingRow> {};

TEST_P(KnownEncoding, IsRead) { EXPECT_EQ(verdictOn(GetParam().file), "ok\t" + GetParam().value); }

constexpr std::string_view list = "<?xml version=\"1.0\" encoding=\"x\"?><string>a</string>";

const EncodingRow knownRows[] = {
    {"Utf16Little", "\xff\xfe" + wide(list, 2, Order::little), "S\"a\""},
    {"Utf16Big", "\xfe\xff" + wide(list, 2, Order::big), "S\"a\""},
    {"Utf32Little", "\xff\xfe\0\0"s + wide(list, 4, Order::little), "S\"a\""},
    {"Utf32Big", "\0\0\xfe\xff"s + wide(list, 4, Order::big), "S\"a\""},
    {"Utf8Mark", "\xef\xbb\xbf" + std::string(list), "S\"a\""},
    {"OldStyleInUtf16", "\xfe\xff" + wide("{a=b;}", 2, Order::big), "{\"a\"=S\"b\"}"},
    {"PairInUtf16",
     "\xfe\xff" + wide("<string>", 2, Order::big) + "\xd8\x3d\xde\x00"s +
         wide("</string>", 2, Order::big),
     "S\"\\ud83d\\ude00\""},
    {"HighPlaneInUtf32",
     "\0\0\xfe\xff"s + wide("<string>", 4, Order::big) + "\x00\x01\xf6\x00"s +
         wide("</string>", 4, Order::big),
     "S\"\\ud83d\\ude00\""},
    {"Latin1", "<?xml encoding='ISO-8859-1'?><string>\xe9\x80</string>", "S\"\\u00e9\\u0080\""},
    {"Latin1ByOtherName", "<?xml encoding='Latin1'?><string>\xe9</string>", "S\"\\u00e9\""},
    {"Windows1252", "<?xml encoding='WINDOWS-1252'?><string>\x80\x9f\xe9</string>",
     "S\"\\u20ac\\u0178\\u00e9\""},
    {"Windows1252WithNul", "<?xml encoding='cp1252'?><string>\0</string>"s, "S\"\\u0000\""},
    {"Ascii", "<?xml encoding='us-ascii'?><string>a\0</string>"s, "S\"a\\u0000\""},
    {"Utf8InSingleQuotes", "<?xml encoding='utf-8'?><string>é</string>", "S\"\\u00e9\""},
    {"BlanksAroundEqualsCountForNothing", "<?xml encoding = 'koi8-r'?><string>é</string>",
     "S\"\\u00e9\""},
    {"WithoutQuotesCountsForNothing", "<?xml encoding=koi8-r?><true/>", "B1"},
    {"OpenQuotesCountForNothing", "<?xml encoding='koi8-r?><true/>", "B1"},
    {"BehindTheHeaderCountsForNothing", "<?xml?><!-- encoding='koi8-r' --><true/>", "B1"},
    {"BehindGreaterCountsForNothing", "<?xml > encoding='koi8-r'?><true/>", "B1"},
    {"BehindBlanksCountsForNothing", "\n<?xml encoding='koi8-r'?><true/>", "B1"},
    {"MarkBeforeDeclaration", "\xef\xbb\xbf<?xml encoding='latin1'?><string>é</string>",
     "S\"\\u00e9\""},
};

INSTANTIATE_TEST_SUITE_P(Rows, KnownEncoding, testing::ValuesIn(knownRows), NamedAfterRow());

struct UnknownRow {
    const char* name;
    std::string file;
    const char* reason;
};

void PrintTo(const UnknownRow& row, std::ostream* out) { *out << row.name; }

class UnknownEncoding : public testing::TestWithParam<UnknownRow> {};

TEST_P(UnknownEncoding, IsRefused) {
    EXPECT_THAT(rejectionReasonFor(GetParam().file), HasSubstr(GetParam().reason));
}

const UnknownRow unknownRows[] = {
    {"OtherName", "<?xml encoding='klingon'?><true/>", "not known: \"klingon\""},
    {"EmptyName", "<?xml encoding=''?><true/>", "not known: \"\""},
    {"NameInOtherQuotes", "<?xml encoding='utf-8\"?><string a='b'/>", "not known: \"utf-8\"?>"},
    {"Utf16WithoutMark", wide("<true/>", 2, Order::little), "is no known element"},
    {"Utf16ThatIsNone", "<?xml encoding='utf-16'?><true/>", "not known: \"utf-16\""},
    {"Utf32WithoutMark", wide("<true/>", 4, Order::big), "\"\\x00\" stands where"},
    {"AsciiThatIsNone", "<?xml encoding='ascii'?><string>\xe9</string>", "does not know"},
    {"OddUtf16", "\xfe\xff" + wide("<true/>", 2, Order::big) + "x", "half a character"},
    {"OddUtf32", "\0\0\xfe\xff"s + wide("<true/>", 4, Order::big) + "x", "inside of a character"},
    {"HighHalfInUtf16", "\xfe\xff\xd8\x3d\x00\x41"s, "half a character"},
    {"HighHalfAtTheEnd", "\xfe\xff\x00\x41\xd8\x3d"s, "half a character"},
    {"LowHalfInUtf16", "\xfe\xff\xde\x00\x00\x41"s, "half a character"},
    {"SurrogateInUtf32", "\0\0\xfe\xff\0\0\xd8\x3d"s, "no character"},
    {"BeyondUnicodeInUtf32", "\0\0\xfe\xff\0\x11\0\0"s, "no character"},
};

INSTANTIATE_TEST_SUITE_P(Rows, UnknownEncoding, testing::ValuesIn(unknownRows), NamedAfterRow());

} // namespace

} // namespace frimbolate::test
