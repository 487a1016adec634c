#include "posix/file_lock.h"
#include "posix/user_socket_folder.h"
#include "tests/support/child_process.h"
#include "tests/support/file_status.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace frimbolate::test {

namespace {

namespace fs = std::filesystem;

class UserSocketFolderTest : public testing::Test {
  protected:
    UserSocketFolderTest() {
        fs::create_directory(runtime);
        fs::create_directory(temporary);
    }
    std::string found(const std::string& where) const {
        return userSocketFolder(where, temporary, 16);
    }

    TemporaryFolder folder;
    std::string runtime = folder / "runtime", temporary = folder / "tmp";
    std::string first = runtime + "/frimbolate";
    std::string second = temporary + "/frimbolate-" + std::to_string(::geteuid());
};

TEST_F(UserSocketFolderTest, IsMadeInTheRuntimeFolder) {
    const mode_t before = ::umask(0);
    EXPECT_EQ(found(runtime), first);
    ::umask(before);
    EXPECT_EQ(modeOfFile(first), 0700U);
    EXPECT_EQ(found(runtime), first) << "the second time";
    EXPECT_FALSE(fs::exists(second));
}

TEST_F(UserSocketFolderTest, IsMadeAmongTemporaryFilesWithoutARuntimeFolder) {
    writeBytes(folder / "file", "");
    for (const std::string& wrong :
         {std::string(), std::string("runtime"), folder / "gone", folder / "file"}) {
        EXPECT_EQ(found(wrong), second) << wrong;
        EXPECT_EQ(modeOfFile(second), 0700U);
    }
}

TEST_F(UserSocketFolderTest, IsNotMadeInTheRuntimeFolderOfAnotherUser) {
    if (::geteuid() == 0) {
        ASSERT_EQ(::chown(runtime.c_str(), 65534, 65534), 0);
    }
    const std::string theirs = ::geteuid() == 0 ? runtime : "/";
    EXPECT_EQ(found(theirs), second);
    EXPECT_FALSE(fs::exists(first));
}

TEST_F(UserSocketFolderTest, IsNotOneThatOthersCanEnter) {
    fs::create_directory(first);
    fs::permissions(first, fs::perms(0750));
    EXPECT_EQ(found(runtime), second);
    EXPECT_EQ(modeOfFile(first), 0750U) << "and it stays as it is";
}

TEST_F(UserSocketFolderTest, IsNoSymbolicLinkAndNoFile) {
    fs::create_directory(folder / "own");
    fs::permissions(folder / "own", fs::perms::owner_all);
    fs::create_directory_symlink(folder / "own", first);
    EXPECT_EQ(found(runtime), second);
    fs::remove(first);
    writeBytes(first, "");
    EXPECT_EQ(found(runtime), second);
    fs::remove(second);
    fs::create_directory_symlink(folder / "own", second);
    EXPECT_EQ(found(runtime), "") << "there is no third place";
}

TEST_F(UserSocketFolderTest, IsNotThatOfAnotherUser) {
    // Only root can make one for another user; otherwise /proc/1, which is root's, serves.
    if (::geteuid() == 0) {
        fs::create_directory(second);
        fs::permissions(second, fs::perms::owner_all);
        ASSERT_EQ(::chown(second.c_str(), 65534, 65534), 0);
        EXPECT_EQ(found(""), "");
    } else {
        EXPECT_EQ(userSocketFolder("", "/proc/1", 16), "");
    }
}

TEST_F(UserSocketFolderTest, LeavesRoomForTheNameOfASocket) {
    const std::string deep = runtime + "/" + std::string(100, 'x');
    fs::create_directory(deep);
    EXPECT_EQ(found(deep), second);
    EXPECT_EQ(userSocketFolder(runtime, temporary, 100), "");
}

TEST_F(UserSocketFolderTest, IsNotMadeWhereItWouldDependOnTheWorkingFolder) {
    EXPECT_EQ(userSocketFolder("", "", 16), "");
    EXPECT_EQ(userSocketFolder("", ".", 16), "");
}

TEST(FileLockTest, IsHeldByOneAtATime) {
    const TemporaryFolder folder;
    const std::string path = folder / "lock";
    FileLock one, other;
    EXPECT_EQ(one.take(path), FileLock::State::held);
    EXPECT_EQ(other.take(path), FileLock::State::busy);
    EXPECT_TRUE(one.isHeld());
    EXPECT_FALSE(other.isHeld());
    one.release();
    EXPECT_FALSE(one.isHeld());
    EXPECT_EQ(other.take(path), FileLock::State::held);
    EXPECT_EQ(modeOfFile(path), 0600U);
}

TEST(FileLockTest, EndsWithItsProcess) {
    const TemporaryFolder folder;
    const std::string path = folder / "lock";
    EXPECT_TRUE(endedWell(statusOfChild(
        [&] { return (new FileLock)->take(path) == FileLock::State::held ? 0 : 1; })));
    EXPECT_EQ(FileLock().take(path), FileLock::State::held);
}

TEST(FileLockTest, IsNotHandedToAProgramThatIsStarted) {
    const TemporaryFolder folder;
    const std::string path = folder / "lock";
    FileLock lock;
    ASSERT_EQ(lock.take(path), FileLock::State::held);
    EXPECT_TRUE(endedWell(statusOfChild([&] {
        const std::string script = "! ls -l /proc/$$/fd | grep -q " + path;
        ::execl("/bin/sh", "sh", "-c", script.c_str(), nullptr);
        return 10;
    })));
}

TEST(FileLockTest, NeedsAPlaceForItsFile) {
    const TemporaryFolder folder;
    FileLock lock;
    EXPECT_EQ(lock.take(folder / "gone/lock"), FileLock::State::unavailable);
    fs::create_symlink(folder / "elsewhere", folder / "link");
    EXPECT_EQ(lock.take(folder / "link"), FileLock::State::unavailable);
    EXPECT_FALSE(fs::exists(folder / "elsewhere"));
}

} // namespace

} // namespace frimbolate::test
