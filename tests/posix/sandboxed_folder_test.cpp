#include "posix/sandboxed_folder.h"

#include "tests/support/rows.h"

#include <gtest/gtest.h>

#include <vector>

namespace frimbolate::test {

namespace {

struct WritingRow {
    const char* name;
    FolderOwnership folder;
    uid_t user;
    std::vector<gid_t> groups;
    bool permitted;
};

class WritingToAFolder : public testing::TestWithParam<WritingRow> {};

TEST_P(WritingToAFolder, IsPermittedByItsMode) {
    const WritingRow& row = GetParam();
    EXPECT_EQ(modePermitsWriting(row.folder, row.user, row.groups), row.permitted);
}

const WritingRow rows[] = {
    {"OfTheOwner", {0755, 501, 20}, 501, {20}, true},
    {"OfAnotherUser", {0755, 0, 0}, 501, {20}, false},
    {"OfTheGroup", {0775, 0, 80}, 501, {20, 80}, true},
    {"OfAnotherGroup", {0775, 0, 80}, 501, {20}, false},
    {"OfEverybody", {01777, 0, 0}, 501, {}, true},
    {"NotOfItsOwner", {0577, 501, 20}, 501, {20}, false},
    {"NotOfItsGroup", {0757, 0, 20}, 501, {20}, false},
    {"ByRoot", {0555, 501, 20}, 0, {}, true},
};
INSTANTIATE_TEST_SUITE_P(Rows, WritingToAFolder, testing::ValuesIn(rows), NamedAfterRow());

} // namespace

} // namespace frimbolate::test
