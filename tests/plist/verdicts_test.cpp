// The platform's verdict on each case, and on every prefix of the cases that it reads.
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

/// Whether a prefix holds blanks alone.
bool isBlank(std::string_view file) {
    return file.find_first_not_of(" \t\r\n\xef\xbb\xbf") == std::string_view::npos;
}

class Prefixes : public testing::TestWithParam<VerdictRow> {};

/// A truncated file must not be read as a smaller value. Content behind the root of an XML list is
/// ignored, and texts of the older form have no terminator, so such prefixes may be read.
TEST_P(Prefixes, AreRefusedOrReadAsTheWhole) {
    const std::string file = GetParam().file();
    const bool hasEnd = file.find_first_of("<{(") != std::string::npos;
    int refused = 0;
    for (std::size_t size = 0; size < file.size(); ++size) {
        const std::string_view prefix = std::string_view(file).substr(0, size);
        const std::string verdict = verdictOn(prefix);
        refused += verdict == "error" ? 1 : 0;
        if (hasEnd && verdict != "error") {
            ASSERT_EQ(verdict, isBlank(prefix) ? "ok\t{}" : GetParam().verdict) << size;
        }
    }
    EXPECT_GT(refused, 0);
}

INSTANTIATE_TEST_SUITE_P(Rows, Prefixes, testing::ValuesIn(readableRows()), NamedAfterRow());

} // namespace

} // namespace frimbolate::test
