#include "tests/support/editor_test.h"
#include "tests/support/form_snapshot.h"

namespace frimbolate {

namespace {

using test::differences;
using test::EditorTest;
using test::nonDefaultForm;
using test::snapshot;
using test::with;
using testing::ElementsAre;
using testing::IsEmpty;
using Action = ToolbarItem::Action;

class DrawerTest : public EditorTest {
  protected:
    Action itemAction() const { return form.advancedToolbarItem.action; }

    void start() {
        platform.defaults.contents["ShowWelcomeWindow"] = "False - 3.0";
        editor.applicationDidFinishLaunching();
        platform.journal.clear();
    }

    /// Opens the drawer on the left edge without an action.
    void openByOtherMeans() { editor.advancedDrawer().openOnEdge(0); }
    void closeByOtherMeans() { editor.advancedDrawer().close(); }
};

TEST_F(DrawerTest, OpensOnTheRightAndCanThenBeClosed) {
    form = nonDefaultForm(false);
    form.advancedToolbarItem.action = Action::openAdvancedDrawer;
    const auto expected =
        with(snapshot(form), {{"advancedDrawer.open", "yes"},
                              {"advancedDrawer.edge", "2"},
                              {"advancedToolbarItem.action", "closeAdvancedDrawer"}});
    editor.openAdvancedDrawer();
    EXPECT_THAT(differences(expected, snapshot(form)), IsEmpty());
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
}

TEST_F(DrawerTest, ClosesAndCanThenBeOpened) {
    form = nonDefaultForm(true);
    const auto expected =
        with(snapshot(form),
             {{"advancedDrawer.open", "no"}, {"advancedToolbarItem.action", "openAdvancedDrawer"}});
    editor.closeAdvancedDrawer();
    EXPECT_THAT(differences(expected, snapshot(form)), IsEmpty());
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
}

TEST_F(DrawerTest, OpeningTwiceLeavesItOpen) {
    start();
    editor.openAdvancedDrawer();
    editor.openAdvancedDrawer();
    EXPECT_TRUE(form.advancedDrawer.open);
    EXPECT_EQ(itemAction(), Action::closeAdvancedDrawer);
}

TEST_F(DrawerTest, ClosingTwiceLeavesItClosed) {
    start();
    editor.closeAdvancedDrawer();
    editor.closeAdvancedDrawer();
    EXPECT_FALSE(form.advancedDrawer.open);
    EXPECT_EQ(itemAction(), Action::openAdvancedDrawer);
}

TEST_F(DrawerTest, TheToolbarItemTogglesBeforeStartUp) {
    editor.sendAdvancedToolbarItem();
    EXPECT_TRUE(form.advancedDrawer.open);
    EXPECT_EQ(itemAction(), Action::closeAdvancedDrawer);
    editor.sendAdvancedToolbarItem();
    EXPECT_FALSE(form.advancedDrawer.open);
    EXPECT_EQ(itemAction(), Action::openAdvancedDrawer);
}

TEST_F(DrawerTest, TheToolbarItemTogglesAfterStartUp) {
    start();
    for (int i = 0; i < 2; ++i) {
        editor.sendAdvancedToolbarItem();
        EXPECT_TRUE(form.advancedDrawer.open);
        EXPECT_EQ(itemAction(), Action::closeAdvancedDrawer);
        editor.sendAdvancedToolbarItem();
        EXPECT_FALSE(form.advancedDrawer.open);
        EXPECT_EQ(itemAction(), Action::openAdvancedDrawer);
    }
}

TEST_F(DrawerTest, OpenedByOtherMeansLeavesTheItemAtOpening) {
    start();
    openByOtherMeans();
    EXPECT_TRUE(form.advancedDrawer.open);
    EXPECT_EQ(itemAction(), Action::openAdvancedDrawer);

    // The first click opens what is open already; the second one closes it.
    editor.sendAdvancedToolbarItem();
    EXPECT_TRUE(form.advancedDrawer.open);
    EXPECT_EQ(itemAction(), Action::closeAdvancedDrawer);
    editor.sendAdvancedToolbarItem();
    EXPECT_FALSE(form.advancedDrawer.open);
}

TEST_F(DrawerTest, TheOpeningByOtherMeansItselfSetsTheItemToOpening) {
    start();
    form.advancedToolbarItem.action = Action::closeAdvancedDrawer;
    openByOtherMeans();
    EXPECT_EQ(itemAction(), Action::openAdvancedDrawer);
}

TEST_F(DrawerTest, TheClosingByOtherMeansItselfSetsTheItemToOpening) {
    start();
    editor.openAdvancedDrawer();
    closeByOtherMeans();
    EXPECT_FALSE(form.advancedDrawer.open);
    EXPECT_EQ(itemAction(), Action::openAdvancedDrawer);
}

TEST_F(DrawerTest, NothingIsRegisteredBeforeStartUp) {
    form.advancedToolbarItem.action = Action::closeAdvancedDrawer;
    openByOtherMeans();
    EXPECT_EQ(itemAction(), Action::closeAdvancedDrawer);
    closeByOtherMeans();
    EXPECT_EQ(itemAction(), Action::closeAdvancedDrawer);
}

TEST_F(DrawerTest, TheRegisteredHandlersRunBeforeTheDrawerMoves) {
    start();
    std::vector<std::string> seen;
    const auto see = [&] {
        seen.push_back(std::string(form.advancedDrawer.open ? "open" : "closed") +
                       (itemAction() == Action::openAdvancedDrawer ? ", opens" : ", closes"));
    };
    editor.advancedDrawer().addWillOpenObserver(see);
    editor.advancedDrawer().addWillCloseObserver(see);

    form.advancedToolbarItem.action = Action::closeAdvancedDrawer;
    openByOtherMeans();
    form.advancedToolbarItem.action = Action::closeAdvancedDrawer;
    closeByOtherMeans();
    EXPECT_THAT(seen, ElementsAre("closed, opens", "open, opens"));
}

TEST_F(DrawerTest, TheActionsSetTheItemOnlyAfterTheDrawer) {
    std::vector<Action> seen;
    const auto see = [&] { seen.push_back(itemAction()); };
    editor.advancedDrawer().addWillOpenObserver(see);
    editor.advancedDrawer().addWillCloseObserver(see);
    editor.openAdvancedDrawer();
    editor.closeAdvancedDrawer();
    EXPECT_THAT(seen, ElementsAre(Action::openAdvancedDrawer, Action::closeAdvancedDrawer));
}

TEST_F(DrawerTest, TheRegisteredHandlersLeaveTheToolbarSizeAlone) {
    start();
    form.mainWindowToolbar.sizeMode = 2;
    openByOtherMeans();
    closeByOtherMeans();
    EXPECT_EQ(form.mainWindowToolbar.sizeMode, 2);
}

TEST_F(DrawerTest, TheHandlerThatNothingRegistersSetsTheItemAndTheSize) {
    for (const auto& start : startForms()) {
        SCOPED_TRACE(start.name);
        form = start.form;
        const auto expected =
            with(snapshot(form), {{"advancedToolbarItem.action", "closeAdvancedDrawer"},
                                  {"mainWindowToolbar.sizeMode", "1"}});
        editor.advancedDrawerWillOpen();
        EXPECT_THAT(differences(expected, snapshot(form)), IsEmpty());
    }
}

TEST_F(DrawerTest, TheClosingHandlerSetsTheItemAlone) {
    for (const auto& start : startForms()) {
        SCOPED_TRACE(start.name);
        form = start.form;
        const auto expected =
            with(snapshot(form), {{"advancedToolbarItem.action", "openAdvancedDrawer"}});
        editor.advancedDrawerDidClose();
        EXPECT_THAT(differences(expected, snapshot(form)), IsEmpty());
    }
}

TEST_F(DrawerTest, AResetClosesIt) {
    start();
    editor.openAdvancedDrawer();
    editor.createNewAgent();
    EXPECT_FALSE(form.advancedDrawer.open);
    EXPECT_EQ(itemAction(), Action::openAdvancedDrawer);
}

TEST_F(DrawerTest, AResetClosesWhatOtherMeansOpened) {
    start();
    openByOtherMeans();
    editor.createNewAgent();
    EXPECT_FALSE(form.advancedDrawer.open);
    EXPECT_EQ(itemAction(), Action::openAdvancedDrawer);
}

TEST_F(DrawerTest, HasOneSizeFromStartUpOn) {
    start();
    EXPECT_EQ(form.advancedDrawer.contentSize, (Size{400, 380}));
    EXPECT_EQ(form.advancedDrawer.minContentSize, (Size{400, 380}));
    EXPECT_EQ(form.advancedDrawer.maxContentSize, (Size{400, 380}));
}

} // namespace

} // namespace frimbolate
