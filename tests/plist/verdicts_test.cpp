// The platform's verdict on made cases, and on every beginning of those that it reads.
#include "tests/plist/verdict.h"
#include "tests/support/rows.h"

namespace frimbolate::test {

namespace {

TEST(Verdicts, AreAllThere) {
    EXPECT_EQ(verdictRows().size(), 194U);
    EXPECT_EQ(readableRows().size(), 117U);
}

class Verdict : public testing::TestWithParam<VerdictRow> {};

TEST_P(Verdict, IsThePlatforms) { EXPECT_EQ(verdictOn(GetParam().file()), GetParam().verdict); }

INSTANTIATE_TEST_SUITE_P(Rows, Verdict, testing::ValuesIn(verdictRows()), NamedAfterRow());

/// Only blanks, as far as the beginning of a file goes.
bool isBlank(std::string_view file) {
    return file.find_first_not_of(" \t\r\n\xef\xbb\xbf") == std::string_view::npos;
}

class Beginnings : public testing::TestWithParam<VerdictRow> {};

/// A file that was cut off must not be read as less than it held. What follows the root of an XML
/// list counts for nothing, and texts of the older form have no end of their own.
TEST_P(Beginnings, AreRefusedOrReadAsTheWhole) {
    const std::string file = GetParam().file();
    const bool hasEnd = file.find_first_of("<{(") != std::string::npos;
    int refused = 0;
    for (std::size_t size = 0; size < file.size(); ++size) {
        const std::string_view beginning = std::string_view(file).substr(0, size);
        const std::string verdict = verdictOn(beginning);
        refused += verdict == "error" ? 1 : 0;
        if (hasEnd && verdict != "error") {
            ASSERT_EQ(verdict, isBlank(beginning) ? "ok\t{}" : GetParam().verdict) << size;
        }
    }
    EXPECT_GT(refused, 0);
}

INSTANTIATE_TEST_SUITE_P(Rows, Beginnings, testing::ValuesIn(readableRows()), NamedAfterRow());

} // namespace

} // namespace frimbolate::test
