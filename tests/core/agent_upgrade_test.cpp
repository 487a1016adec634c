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

constexpr UpgradeRow upgradeRows[] = {
    {"Usual", "/Users/maya/Library/LaunchAgents/com.fr\u0131mbolate.Backup.plist",
     "com.frimbolate.Backup.plist", "com.frimbolate.Backup"},
    {"MarkInAFolderToo", "/fr\u0131mbolate/com.fr\u0131mbolate.B.plist", "com.frimbolate.B.plist",
     "com.frimbolate.B"},
    {"MarkInAFolderAlone", "/com.fr\u0131mbolate.d/Backup.plist", "Backup.plist",
     "com.frimbolate.Backup"},
    {"NameWithoutCom", "/L/fr\u0131mbolate.B.plist", "frimbolate.B.plist",
     "com.frimbolate.frimbolate.B"},
    {"Twice", "/L/com.fr\u0131mbolate.com.fr\u0131mbolate.B.plist",
     "com.frimbolate.com.frimbolate.B.plist", "com.frimbolate.B"},
    {"BothPrefixes", "/L/com.frimbolate.com.fr\u0131mbolate.B.plist",
     "com.frimbolate.com.frimbolate.B.plist", "com.frimbolate.B"},
    {"MarkWithoutDot", "/L/com.fr\u0131mbolateB.plist", "com.frimbolateB.plist",
     "com.frimbolate.com.frimbolateB"},
    {"EverySuffix", "/L/com.fr\u0131mbolate.B.plist.old.plist", "com.frimbolate.B.plist.old.plist",
     "com.frimbolate.B.old"},
    {"NoSuffix", "/L/com.fr\u0131mbolate.B", "com.frimbolate.B", "com.frimbolate.B"},
    {"OtherSuffixCase", "/L/com.fr\u0131mbolate.B.PLIST", "com.frimbolate.B.PLIST",
     "com.frimbolate.B.PLIST"},
    {"EmptyName", "/L/com.fr\u0131mbolate..plist", "com.frimbolate..plist", "com.frimbolate."},
    {"BlanksAndQuotes", "/L/com.fr\u0131mbolate.My 'old' one.plist",
     "com.frimbolate.My 'old' one.plist", "com.frimbolate.My 'old' one"},
    {"OtherDotless", "/L/com.fr\u0131mbolate.\u0131.plist", "com.frimbolate.\u0131.plist",
     "com.frimbolate.\u0131"},
    {"NoFolder", "com.fr\u0131mbolate.B.plist", "com.frimbolate.B.plist", "com.frimbolate.B"},
    {"CurrentNameStays", "/L/com.frimbolate.B.plist", "com.frimbolate.B.plist",
     "com.frimbolate.B"}};
INSTANTIATE_TEST_SUITE_P(Upgrade, UpgradedNames, testing::ValuesIn(upgradeRows), NamedAfterRow());

} // namespace

} // namespace frimbolate::test
