// The validation of UTF-8.
#include "plist/text_encoding.h"
#include "tests/support/rows.h"

namespace frimbolate::test {

namespace {

struct Utf8Row {
    const char* name;
    std::string text;
    bool isValid;
};

void PrintTo(const Utf8Row& row, std::ostream* out) { *out << row.name; }

class Utf8 : public testing::TestWithParam<Utf8Row> {};

/// Tries each text at every offset within a machine word, after ASCII characters.
TEST_P(Utf8, IsJudgedAtEveryPlace) {
    for (std::size_t before = 0; before < 17; ++before)
        for (std::size_t behind = 0; behind < 17; ++behind) {
            const std::string text =
                std::string(before, 'a') + GetParam().text + std::string(behind, 'a');
            EXPECT_EQ(isValidUtf8(text), GetParam().isValid) << before << " " << behind;
        }
}

const Utf8Row utf8Rows[] = {
    {"Nothing", "", true},
    {"Delete", "\x7f", true},
    {"TwoBytes", "\xc2\x80\xdf\xbf", true},
    {"ThreeBytes", "\xe0\xa0\x80\xef\xbf\xbf", true},
    {"AroundSurrogates", "\xed\x9f\xbf\xee\x80\x80", true},
    {"FourBytes", "\xf0\x90\x80\x80\xf4\x8f\xbf\xbf", true},
    {"ContinuationAlone", "\x80", false},
    {"TwoBytesCut", "\xc3", false},
    {"ThreeBytesCut", "\xe2\x82", false},
    {"FourBytesCut", "\xf0\x9f\x98", false},
    {"MissingContinuation", "\xc3(", false},
    {"OverlongTwo", "\xc1\xbf", false},
    {"OverlongThree", "\xe0\x9f\xbf", false},
    {"OverlongFour", "\xf0\x8f\xbf\xbf", false},
    {"FirstSurrogate", "\xed\xa0\x80", false},
    {"LastSurrogate", "\xed\xbf\xbf", false},
    {"BeyondUnicode", "\xf4\x90\x80\x80", false},
    {"FiveBytes", "\xf8\x88\x80\x80\x80", false},
    {"NoLead", "\xff", false},
};

INSTANTIATE_TEST_SUITE_P(Rows, Utf8, testing::ValuesIn(utf8Rows), NamedAfterRow());

} // namespace

} // namespace frimbolate::test
