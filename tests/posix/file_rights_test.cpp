#include "posix/file_rights.h"
#include "tests/posix/rights_of_users.h"
#include "tests/support/rows.h"

#include <gtest/gtest.h>

namespace frimbolate::test {

namespace {

// The rights of the replacement

struct ReplacementRow {
    const char* name;
    FileRights before;
    bool sameOwner;
    bool sameGroup;
    FileRights after;
};

class RightsOfReplacement : public testing::TestWithParam<ReplacementRow> {};

TEST_P(RightsOfReplacement, AreNoMoreThanBefore) {
    const auto& row = GetParam();
    EXPECT_EQ(rightsOfReplacement(row.before, row.sameOwner, row.sameGroup), row.after);
}

const ReplacementRow replacements[] = {
    {"SameUsers", rightsInMode(07654), true, true, rightsInMode(07654)},
    {"SameUsersWithList", {02000, 7, 1, 4, 6}, true, true, {02000, 7, 1, 4, 6}},
    {"OtherGroup", rightsInMode(0664), true, false, rightsInMode(0644)},
    {"OtherGroupOfPrivateFile", rightsInMode(0660), true, false, rightsInMode(0600)},
    {"OtherGroupWhereTheOldOneMayNothing", rightsInMode(0604), true, false, rightsInMode(0600)},
    {"OtherGroupWithList", {0, 6, 6, 4, 7}, true, false, {0, 6, 0, 4, 7}},
    {"OtherGroupWithListThatMasksTheOldOne", {0, 6, 6, 4, 2}, true, false, {0, 6, 0, 0, 2}},
    {"OtherOwner", rightsInMode(0664), false, true, rightsInMode(0664)},
    {"OtherOwnerWhereTheOldOneMayOnlyRead", rightsInMode(0466), false, true, rightsInMode(0444)},
    {"OtherOwnerWithList", {0, 4, 6, 6, 7}, false, true, {0, 4, 4, 4, 4}},
    {"OtherUsers", rightsInMode(0664), false, false, rightsInMode(0644)},
    {"OtherOwnerOfSpecialFile", rightsInMode(07755), false, true, rightsInMode(0755)},
    {"OtherGroupOfSpecialFile", rightsInMode(07755), true, false, rightsInMode(0755)}};
INSTANTIATE_TEST_SUITE_P(Rows, RightsOfReplacement, testing::ValuesIn(replacements),
                         NamedAfterRow());

/// Tries all rights and all kinds of users, by the rules of the system.
TEST(RightsOfReplacement, WidenNoRightsWhateverTheyWere) {
    forAllRights([](const FileRights& before, unsigned namedGroup) {
        for (const bool sameOwner : {true, false})
            for (const bool sameGroup : {true, false}) {
                const auto after = rightsOfReplacement(before, sameOwner, sameGroup);
                for (const auto& user : usersOfFile(sameOwner, sameGroup)) {
                    const unsigned had = rightsOf(user.before, before, namedGroup);
                    const unsigned has = rightsOf(user.after, after, namedGroup);
                    ASSERT_EQ(has & ~had, 0U)
                        << user.name << " had " << had << " and has " << has << ", mode "
                        << std::oct << modeOf(before) << ", named group " << namedGroup;
                }
            }
    });
}

TEST(FileRightsTest, AModeShowsTheMaskInPlaceOfTheGroup) {
    EXPECT_EQ(modeOf({01000, 7, 1, 4, 6}), 01764U);
    EXPECT_EQ(modeOf({0, 6, 4, 0}), 0640U);
    EXPECT_EQ(rightsInMode(S_IFREG | 04751), (FileRights{04000, 7, 5, 1}));
}

TEST(FileRightsTest, OnlyTheOwnersRightsStandWithoutAList) {
    EXPECT_EQ(rightsWithoutList({07000, 6, 7, 7, 7}), (FileRights{0, 6, 0, 0}));
}

// Extended attributes

struct AttributeRow {
    const char* name;
    const char* attribute;
    bool carriedOver;
};

class Attribute : public testing::TestWithParam<AttributeRow> {};

TEST_P(Attribute, IsCarriedOver) {
    EXPECT_EQ(isAttributeCarriedOver(GetParam().attribute), GetParam().carriedOver);
}

const AttributeRow attributes[] = {{"TheUsers", "user.xdg.tags", true},
                                   {"Label", "security.selinux", true},
                                   {"Trusted", "trusted.backup", true},
                                   {"NotCapabilities", "security.capability", false},
                                   {"NotMeasuredContent", "security.ima", false},
                                   {"NotSignedMetadata", "security.evm", false},
                                   {"NotTheLayersOfAMount", "trusted.overlay.origin", false},
                                   {"NotTheList", "system.posix_acl_access", false},
                                   {"NotTheListOfTheNetwork", "system.nfs4_acl", false}};
INSTANTIATE_TEST_SUITE_P(Rows, Attribute, testing::ValuesIn(attributes), NamedAfterRow());

} // namespace

} // namespace frimbolate::test
