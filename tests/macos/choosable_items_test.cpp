#include "platform/choosable_items.h"

#include "tests/support/rows.h"

#include <gtest/gtest.h>

namespace frimbolate::test {

namespace {

/// What a panel lets the user choose.
struct Choosable {
    bool files = true;
    bool folders = false;
    std::vector<std::string> types = {};
};

struct RuleRow {
    const char* name;
    Choosable panel;
    std::string item;
    bool isFolder;
    bool choosable;
};

const std::vector<std::string> targets = {"app", "sh", "workflow"};

const RuleRow rows[] = {
    {"AnyFile", {}, "a", false, true},
    {"NoFolder", {}, "a", true, false},
    {"Folder", {.files = false, .folders = true}, "LaunchAgents", true, true},
    {"NoFileInItsPlace", {.files = false, .folders = true}, "a.txt", false, false},
    {"FileOrFolder", {.folders = true}, "a.txt", false, true},
    {"FolderOrFile", {.folders = true}, "a", true, true},
    {"FileOfTheType", {.types = {"plist"}}, "a.b.plist", false, true},
    {"CaseDoesNotMatter", {.types = {"plist"}}, "a.PList", false, true},
    {"FileOfAnotherType", {.types = {"plist"}}, "a.plist.txt", false, false},
    {"TypeAsTheWholeName", {.types = {"plist"}}, "plist", false, false},
    {"FolderWithTheExtensionOfAFile", {.types = {"plist"}}, "a.plist", true, false},
    {"KindOfAnAllowedType", {.types = targets}, "a.command", false, false},
    {"Application", {.types = targets}, "A.app", true, true},
    {"Workflow", {.types = targets}, "a.WORKFLOW", true, true},
    {"BundleOfAnotherKind", {.types = targets}, "a.rtfd", true, false},
    {"ApplicationWhereNoneIsAllowed", {.types = {"plist"}}, "A.app", true, false},
    {"ApplicationAsAFolder", {.files = false, .folders = true}, "A.app", true, true},
};

class ChoosableItemsTest : public testing::TestWithParam<RuleRow> {};

TEST_P(ChoosableItemsTest, AreThoseOfThePanel) {
    const RuleRow& row = GetParam();
    OpenPanel panel;
    panel.canChooseFiles = row.panel.files;
    panel.canChooseDirectories = row.panel.folders;
    panel.allowedFileTypes = row.panel.types;
    EXPECT_EQ(isChoosable(panel, row.item, row.isFolder), row.choosable);
}

INSTANTIATE_TEST_SUITE_P(For, ChoosableItemsTest, testing::ValuesIn(rows), NamedAfterRow());

} // namespace

} // namespace frimbolate::test
