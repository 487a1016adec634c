// Choosing the paths of the drawer in a panel.
#include "tests/support/editor_test.h"
#include "tests/support/expected_panels.h"
#include "tests/support/form_snapshot.h"
#include "tests/support/rows.h"

namespace frimbolate {

namespace {

using test::differences;
using test::EditorTest;
using test::expectPanel;
using test::NamedAfterRow;
using test::nonDefaultForm;
using test::selectPanel;
using test::snapshot;
using test::with;
using testing::IsEmpty;

struct PathRow {
    std::string_view name; ///< the outlet
    bool isFolder;
};

class PathChoice : public EditorTest, public testing::WithParamInterface<PathRow> {};

TEST_P(PathChoice, AsksForAFileOrFolder) {
    editor.choosePath(GetParam().name);
    auto expected =
        selectPanel(GetParam().isFolder ? "Please choose folder:" : "Please choose file:");
    expected.canChooseFiles = !GetParam().isFolder;
    expected.canChooseDirectories = GetParam().isFolder;
    expected.canCreateDirectories = GetParam().isFolder;
    expectPanel(platform.shownOpenPanel(), expected);
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
