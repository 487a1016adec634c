#include "core/agent_upgrade.h"
#include "tests/support/rows.h"

#include <gtest/gtest.h>

namespace frimbolate::test {

namespace {

struct UpgradeRow {
    const char* name;
    const char* oldPath;
    const char* fileName;
    const char* label;
};

class UpgradedNames : public testing::TestWithParam<UpgradeRow> {};

TEST_P(UpgradedNames, ComeFromTheFileName) {
    const auto names = upgradedNames(GetParam().oldPath);
    EXPECT_EQ(names.fileName, GetParam().fileName);
    EXPECT_EQ(names.label, GetParam().label);
}

constexpr UpgradeRow rows[] = {
    {"usual", "/Users/maya/Library/LaunchAgents/com.fr\u0131mbolate.Backup.plist",
     "com.frimbolate.Backup.plist", "com.frimbolate.Backup"},
    {"mark_in_a_folder_too", "/fr\u0131mbolate/com.fr\u0131mbolate.B.plist",
     "com.frimbolate.B.plist", "com.frimbolate.B"},
    {"mark_in_a_folder_alone", "/com.fr\u0131mbolate.d/Backup.plist", "Backup.plist",
     "com.frimbolate.Backup"},
    {"name_without_com", "/L/fr\u0131mbolate.B.plist", "frimbolate.B.plist",
     "com.frimbolate.frimbolate.B"},
    {"twice", "/L/com.fr\u0131mbolate.com.fr\u0131mbolate.B.plist",
     "com.frimbolate.com.frimbolate.B.plist", "com.frimbolate.B"},
    {"both_prefixes", "/L/com.frimbolate.com.fr\u0131mbolate.B.plist",
     "com.frimbolate.com.frimbolate.B.plist", "com.frimbolate.B"},
    {"mark_without_dot", "/L/com.fr\u0131mbolateB.plist", "com.frimbolateB.plist",
     "com.frimbolate.com.frimbolateB"},
    {"every_suffix", "/L/com.fr\u0131mbolate.B.plist.old.plist", "com.frimbolate.B.plist.old.plist",
     "com.frimbolate.B.old"},
    {"no_suffix", "/L/com.fr\u0131mbolate.B", "com.frimbolate.B", "com.frimbolate.B"},
    {"other_suffix_case", "/L/com.fr\u0131mbolate.B.PLIST", "com.frimbolate.B.PLIST",
     "com.frimbolate.B.PLIST"},
    {"empty_name", "/L/com.fr\u0131mbolate..plist", "com.frimbolate..plist", "com.frimbolate."},
    {"blanks_and_quotes", "/L/com.fr\u0131mbolate.My 'old' one.plist",
     "com.frimbolate.My 'old' one.plist", "com.frimbolate.My 'old' one"},
    {"other_dotless", "/L/com.fr\u0131mbolate.\u0131.plist", "com.frimbolate.\u0131.plist",
     "com.frimbolate.\u0131"},
    {"no_folder", "com.fr\u0131mbolate.B.plist", "com.frimbolate.B.plist", "com.frimbolate.B"},
    {"current_name_stays", "/L/com.frimbolate.B.plist", "com.frimbolate.B.plist",
     "com.frimbolate.B"}};
INSTANTIATE_TEST_SUITE_P(Upgrade, UpgradedNames, testing::ValuesIn(rows), NamedAfterRow());

} // namespace

} // namespace frimbolate::test
