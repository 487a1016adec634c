// The paths of the drawer, chosen in a panel.
#include "tests/support/editor_test.h"
#include "tests/support/form_snapshot.h"
#include "tests/support/rows.h"

namespace frimbolate {

namespace {

using test::differences;
using test::EditorTest;
using test::NamedAfterRow;
using test::nonDefaultForm;
using test::snapshot;
using test::with;
using testing::ElementsAre;
using testing::IsEmpty;

struct PathRow {
    std::string_view name; ///< the outlet
    bool isFolder;
};

class PathChoice : public EditorTest, public testing::WithParamInterface<PathRow> {};

TEST_P(PathChoice, AsksForAFileOrFolder) {
    editor.choosePath(GetParam().name);
    const OpenPanel panel = platform.shownOpenPanel();
    EXPECT_EQ(panel.canChooseFiles, !GetParam().isFolder);
    EXPECT_EQ(panel.canChooseDirectories, GetParam().isFolder);
    EXPECT_EQ(panel.canCreateDirectories, GetParam().isFolder);
    EXPECT_TRUE(panel.resolvesAliases);
    EXPECT_EQ(panel.prompt, "Select");
    EXPECT_EQ(panel.message, GetParam().isFolder ? "Please choose folder:" : "Please choose file:");
    EXPECT_THAT(panel.allowedFileTypes, IsEmpty());
    EXPECT_FALSE(panel.directory);
    platform.cancelPanel();
}

TEST_P(PathChoice, SetsThatFieldAlone) {
    form = nonDefaultForm(true);
    const auto expected = with(
        snapshot(form), {{std::string(GetParam().name) + ".stringValue", "\"/var/log/a b.log\""}});
    editor.choosePath(GetParam().name);
    platform.choose("/var/log/a b.log");
    EXPECT_THAT(differences(expected, snapshot(form)), IsEmpty());
    EXPECT_EQ(platform.journal.count("open panel"), 1u);
    EXPECT_EQ(platform.journal.lines().size(), 1u) << "nothing else happens";
}

TEST_P(PathChoice, ChangesNothingWhenCancelled) {
    form = nonDefaultForm(true);
    const auto before = snapshot(form);
    editor.choosePath(GetParam().name);
    platform.cancelPanel();
    EXPECT_THAT(differences(before, snapshot(form)), IsEmpty());
}

const PathRow pathRows[] = {
    {"standardInPathField", false},    {"standardOutPathField", false},
    {"standardErrorPathField", false}, {"workingDirectoryField", true},
    {"rootDirectoryField", true},      {"queueDirectoryField", true},
};

INSTANTIATE_TEST_SUITE_P(Fields, PathChoice, testing::ValuesIn(pathRows), NamedAfterRow());

TEST_F(EditorTest, NoPathIsChosenForAnythingElse) {
    for (const char* name : {"agentNameTextField", "niceLevelTextField", ""})
        editor.choosePath(name);
    EXPECT_FALSE(platform.isAsking());
}

} // namespace

} // namespace frimbolate
