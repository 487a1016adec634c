#include "core/root_hint.h"

#include <gtest/gtest.h>

namespace frimbolate::test {
namespace {

TEST(RootHint, IsGivenForARootFolderAlone) {
    EXPECT_EQ(rootFolderHint(""), "");
    EXPECT_EQ(rootFolderHint("/jail"),
              "Only root may change the root folder, and an agent runs as you");
}

TEST(RootHint, IsGivenForANiceLevelBelowZero) {
    EXPECT_EQ(niceLevelHint(20), "");
    EXPECT_EQ(niceLevelHint(0), "");
    EXPECT_EQ(niceLevelHint(-1), "Only root may go below 0, and an agent runs as you");
    EXPECT_EQ(niceLevelHint(-20), niceLevelHint(-1));
}

} // namespace
} // namespace frimbolate::test
