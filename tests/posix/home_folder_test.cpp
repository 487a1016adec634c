#include "posix/home_folder.h"

#include "tests/support/variable.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace frimbolate::test {

namespace {

TEST(HomeFolderTest, IsAFolderOfTheUserDatabaseWhateverTheEnvironmentSays) {
    const std::string home = homeFolderInUserDatabase();
    EXPECT_TRUE(std::filesystem::path(home).is_absolute());
    for (const char* other : {"/Users/maya/Library/Containers/com.qz.Frimbolate/Data", "", "/"}) {
        const Variable variable("HOME", other);
        EXPECT_EQ(homeFolderInUserDatabase(), home);
    }
}

} // namespace

} // namespace frimbolate::test
