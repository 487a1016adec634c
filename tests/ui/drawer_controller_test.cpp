#include "ui/drawer_controller.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace frimbolate {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DrawerControllerTest : public testing::Test {
  protected:
    /// An observer that records its name and the state of the drawer when it runs.
    DrawerController::Observer recorded(const std::string& name) {
        return [this, name] {
            calls.push_back(name + (drawer.open ? ", open on " : ", closed on ") +
                            std::to_string(drawer.edge));
        };
    }

    void observe() {
        controller.addWillOpenObserver(recorded("will open"));
        controller.addWillOpenObserver(recorded("will open, second"));
        controller.addWillCloseObserver(recorded("will close"));
        controller.addWillCloseObserver(recorded("will close, second"));
    }

    Drawer drawer{false, 1, {}, {}, {}};
    DrawerController controller{drawer};
    std::vector<std::string> calls;
};

TEST_F(DrawerControllerTest, NotifiesInOrderBeforeItOpens) {
    observe();
    controller.openOnEdge(2);
    EXPECT_THAT(calls, ElementsAre("will open, closed on 1", "will open, second, closed on 1"));
    EXPECT_TRUE(drawer.open);
    EXPECT_EQ(drawer.edge, 2);
}

TEST_F(DrawerControllerTest, NotifiesInOrderBeforeItCloses) {
    drawer.open = true;
    observe();
    controller.close();
    EXPECT_THAT(calls, ElementsAre("will close, open on 1", "will close, second, open on 1"));
    EXPECT_FALSE(drawer.open);
    EXPECT_EQ(drawer.edge, 1);
}

TEST_F(DrawerControllerTest, LeavesAnOpenDrawerWhereItIsWithoutANotification) {
    drawer.open = true;
    observe();
    controller.openOnEdge(2);
    EXPECT_THAT(calls, IsEmpty());
    EXPECT_TRUE(drawer.open);
    EXPECT_EQ(drawer.edge, 1);
}

TEST_F(DrawerControllerTest, LeavesAClosedDrawerClosedWithoutANotification) {
    observe();
    controller.close();
    EXPECT_THAT(calls, IsEmpty());
    EXPECT_FALSE(drawer.open);
}

TEST_F(DrawerControllerTest, NeedsNoObserver) {
    controller.openOnEdge(2);
    EXPECT_TRUE(drawer.open);
    controller.close();
    EXPECT_FALSE(drawer.open);
}

} // namespace

} // namespace frimbolate
