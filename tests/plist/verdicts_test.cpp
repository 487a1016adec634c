// The platform's verdict on made cases, and on every beginning of those that it reads.
#include "tests/plist/verdict.h"
#include "tests/support/rows.h"

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <vector>

namespace frimbolate::test {

namespace {

const std::string folder = FRIMBOLATE_PLIST_TESTS;

struct VerdictRow {
    std::string name;
    std::string verdict; ///< in the notation of verdictOn()
};

void PrintTo(const VerdictRow& row, std::ostream* out) { *out << row.name; }

std::string contentOf(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in)
        throw std::runtime_error(path + " is missing");
    return {std::istreambuf_iterator<char>(in), {}};
}

std::string caseOf(const VerdictRow& row) {
    return contentOf(folder + "/cases/" + row.name + ".plist");
}

bool isOk(const VerdictRow& row) { return row.verdict.starts_with("ok\t"); }

std::vector<VerdictRow> verdictRows() {
    std::vector<VerdictRow> rows;
    std::ifstream in(folder + "/verdicts.tsv");
    for (std::string line; std::getline(in, line);) {
        const auto tab = line.find('\t');
        std::string verdict = line.substr(tab + 1);
        rows.push_back({line.substr(0, tab), verdict == "error\t" ? "error" : verdict});
    }
    return rows;
}

std::vector<VerdictRow> readableRows() {
    auto rows = verdictRows();
    std::erase_if(rows, [](const VerdictRow& row) { return !isOk(row); });
    return rows;
}

TEST(Verdicts, areAllThere) {
    EXPECT_EQ(verdictRows().size(), 194U);
    EXPECT_EQ(readableRows().size(), 117U);
}

class Verdict : public testing::TestWithParam<VerdictRow> {};

TEST_P(Verdict, isThePlatforms) { EXPECT_EQ(verdictOn(caseOf(GetParam())), GetParam().verdict); }

INSTANTIATE_TEST_SUITE_P(Rows, Verdict, testing::ValuesIn(verdictRows()), NamedAfterRow());

/// Only blanks, as far as the beginning of a file goes.
bool isBlank(std::string_view file) {
    return file.find_first_not_of(" \t\r\n\xef\xbb\xbf") == std::string_view::npos;
}

class Beginnings : public testing::TestWithParam<VerdictRow> {};

/// A file that was cut off must not be read as less than it held. What follows the root of an XML
/// list counts for nothing, and texts of the older form have no end of their own.
TEST_P(Beginnings, areRefusedOrReadAsTheWhole) {
    const std::string file = caseOf(GetParam());
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
