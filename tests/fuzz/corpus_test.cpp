// Runs every fuzz target over its corpus, without a fuzzer.
#include "tests/fuzz/fuzz_target.h"
#include "tests/support/rows.h"
#include "tests/support/temporary_folder.h"

#include <algorithm>

namespace frimbolate::test {

void PrintTo(const FuzzTarget& target, std::ostream* out) { *out << target.name; }

namespace {

namespace fs = std::filesystem;

/// A corpus has to be read by those who change it, and replayed with every test run.
constexpr std::uintmax_t mostBytes = 300000, mostBytesOfFile = 4096;
constexpr std::size_t fewestFiles = 4;

std::vector<fs::path> filesIn(const fs::path& folder) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(folder))
        files.push_back(entry.path());
    std::ranges::sort(files);
    return files;
}

fs::path corpusOf(const FuzzTarget& target) {
    return fs::path(FRIMBOLATE_FUZZ_CORPUS) / target.name;
}

class Corpus : public testing::TestWithParam<FuzzTarget> {};

TEST_P(Corpus, KeepsEveryPropertyOfItsTarget) {
    const auto files = filesIn(corpusOf(GetParam()));
    EXPECT_GE(files.size(), fewestFiles);
    for (const auto& file : files) {
        SCOPED_TRACE(file.filename());
        EXPECT_LE(fs::file_size(file), mostBytesOfFile);
        EXPECT_NO_THROW(GetParam().run(bytesOf(file.string())));
    }
}

INSTANTIATE_TEST_SUITE_P(Targets, Corpus,
                         testing::ValuesIn(fuzzTargets().begin(), fuzzTargets().end()),
                         NamedAfterRow());

class Cases : public testing::TestWithParam<FuzzTarget> {};

TEST_P(Cases, KeepEveryPropertyOfTheReaders) {
    const auto files = filesIn(FRIMBOLATE_FUZZ_CASES);
    EXPECT_GE(files.size(), 100U);
    for (const auto& file : files) {
        SCOPED_TRACE(file.filename());
        EXPECT_NO_THROW(GetParam().run(bytesOf(file.string())));
    }
}

INSTANTIATE_TEST_SUITE_P(Targets, Cases,
                         testing::Values(*fuzzTarget("any_form"), *fuzzTarget("binary"),
                                         *fuzzTarget("old_style"), *fuzzTarget("xml")),
                         NamedAfterRow());

TEST(FuzzTargets, HaveACorpusEachWhichIsSmall) {
    std::uintmax_t bytes = 0;
    std::set<std::string> folders, names;
    for (const auto& folder : filesIn(FRIMBOLATE_FUZZ_CORPUS)) {
        folders.insert(folder.filename().string());
        for (const auto& file : filesIn(folder))
            bytes += fs::file_size(file);
    }
    for (const auto& target : fuzzTargets())
        names.insert(target.name);
    EXPECT_EQ(folders, names);
    EXPECT_LE(bytes, mostBytes);
}

TEST(FuzzTargets, FailWhereAPropertyDoesNotHold) {
    EXPECT_NO_THROW(require(true, "it holds"));
    EXPECT_THROW(require(false, "it does not hold"), BrokenProperty);
    EXPECT_EQ(fuzzTarget("unknown"), nullptr);
}

} // namespace
} // namespace frimbolate::test
