#include "posix/atomic_file.h"
#include "posix/file_descriptor.h"
#include "tests/support/file_status.h"
#include "tests/support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <vector>

namespace frimbolate::test {

namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using Names = std::set<std::string>;

constexpr const char* original = "the original";
constexpr const char* replacement = "what comes in its place";

gid_t groupOf(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_gid : gid_t(-1);
}

class AtomicFile : public testing::Test {
  protected:
    /// Expects that the write succeeds and the folder then holds these names alone.
    void expectWritten(const std::string& path, const Names& names) {
        EXPECT_EQ(writeFileAtomically(path, replacement), std::nullopt);
        EXPECT_EQ(bytesOf(path), replacement);
        EXPECT_EQ(folder.names(), names);
    }
    /// Expects that the write fails and leaves the folder as it was.
    void expectRefused(const std::string& path) {
        const auto names = folder.names();
        const auto reason = writeFileAtomically(path, replacement);
        EXPECT_TRUE(reason && !reason->empty());
        EXPECT_EQ(folder.names(), names);
    }

    TemporaryFolder folder;
    std::string file = folder / "a.plist";
};

TEST_F(AtomicFile, CreatesAFile) {
    const mode_t umaskBefore = ::umask(022);
    expectWritten(file, {"a.plist"});
    EXPECT_EQ(modeOfFile(file), 0644U);
    ::umask(077);
    expectWritten(folder / "b.plist", {"a.plist", "b.plist"});
    EXPECT_EQ(modeOfFile(folder / "b.plist"), 0600U);
    ::umask(umaskBefore);
}

TEST_F(AtomicFile, CreatesAFileOfAnotherMode) {
    EXPECT_EQ(writeFileAtomically(file, replacement, 0600), std::nullopt);
    EXPECT_EQ(modeOfFile(file), 0600U);
}

TEST_F(AtomicFile, ReplacesAFileAndKeepsItsMode) {
    for (const mode_t mode : std::initializer_list<mode_t>{0600, 0644, 0666, 0755, 0640}) {
        writeBytes(file, original);
        ASSERT_EQ(::chmod(file.c_str(), mode), 0);
        expectWritten(file, {"a.plist"});
        EXPECT_EQ(modeOfFile(file), mode);
    }
}

TEST_F(AtomicFile, ReplacesAReadOnlyFile) {
    // The permissions of the folder, not of the file, decide who may replace it.
    writeBytes(file, original);
    TemporaryFolder::forbidWriting(file);
    const auto mode = modeOfFile(file);
    expectWritten(file, {"a.plist"});
    EXPECT_EQ(modeOfFile(file), mode);
}

TEST_F(AtomicFile, KeepsTheOwnerWhereItMay) {
    writeBytes(file, original);
    const bool given = ::chown(file.c_str(), 65534, 65534) == 0;
    expectWritten(file, {"a.plist"});
    struct stat status {};
    ASSERT_EQ(::stat(file.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, given ? 65534 : ::geteuid());
}

TEST_F(AtomicFile, PutsANewFileInPlaceOfTheOldOne) {
    writeBytes(file, original);
    std::ifstream reader(file, std::ios::binary);
    expectWritten(file, {"a.plist"});
    // A reader that opened the old file still reads all of it.
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader), {}), original);
}

TEST_F(AtomicFile, LeavesTheOpenFilesOfTheProcessAsTheyWere) {
    const auto openFiles = [] {
        std::vector<int> numbers;
        for (int number = 0; number < 256; ++number)
            if (::fcntl(number, F_GETFD) != -1)
                numbers.push_back(number);
        return numbers;
    };
    // The first numbers belong to the standard streams.
    const FileDescriptor input(::open("/dev/null", O_RDONLY | O_CLOEXEC));
    const auto before = openFiles();
    EXPECT_EQ(before.front(), 0);
    expectWritten(file, {"a.plist"});
    EXPECT_EQ(openFiles(), before);
    expectWritten(file, {"a.plist"});
    EXPECT_EQ(openFiles(), before);
    expectRefused(folder / "gone/a.plist");
    EXPECT_EQ(openFiles(), before);
}

TEST_F(AtomicFile, WritesNothingAndMuch) {
    EXPECT_EQ(writeFileAtomically(file, ""), std::nullopt);
    EXPECT_EQ(bytesOf(file), "");
    const std::string much(5'000'000, 'x');
    EXPECT_EQ(writeFileAtomically(file, much), std::nullopt);
    EXPECT_EQ(bytesOf(file), much);
    EXPECT_EQ(writeFileAtomically(file, "a\0b"s), std::nullopt);
    EXPECT_EQ(bytesOf(file), "a\0b"s);
}

TEST_F(AtomicFile, TakesNamesOfEveryKind) {
    for (const std::string& name :
         {"a'b\"c"s, "line\nbreak"s, "😀"s, "e\u0301"s, "\u00e9"s, " blank "s, "-rf"s, "\xff\xfe"s,
          std::string(255, 'n'), std::string(63, 'x') + "😀"s}) {
        EXPECT_EQ(writeFileAtomically(folder / name, name), std::nullopt) << name;
        EXPECT_EQ(bytesOf(folder / name), name);
        EXPECT_THAT(folder.names(), ElementsAre(name));
        std::filesystem::remove(folder / name);
    }
    expectRefused(folder / std::string(256, 'n'));
}

TEST_F(AtomicFile, FollowsALinkAndLeavesItALink) {
    const std::string target = folder / "target";
    writeBytes(target, original);
    std::filesystem::create_directory(folder / "sub");
    std::filesystem::create_symlink("../target", folder / "sub/relative");
    std::filesystem::create_symlink(folder / "sub/relative", file);
    expectWritten(file, {"a.plist", "sub", "target"});
    EXPECT_TRUE(std::filesystem::is_symlink(file));
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "sub/relative"));
    EXPECT_FALSE(std::filesystem::is_symlink(target));
    EXPECT_EQ(bytesOf(target), replacement);
}

TEST_F(AtomicFile, CreatesTheTargetOfADanglingLink) {
    std::filesystem::create_symlink("target", file);
    expectWritten(file, {"a.plist", "target"});
    EXPECT_TRUE(std::filesystem::is_symlink(file));
}

TEST_F(AtomicFile, RefusesALinkIntoNowhere) {
    std::filesystem::create_symlink(folder / "gone/target", file);
    expectRefused(file);
    EXPECT_TRUE(std::filesystem::is_symlink(file));
}

TEST_F(AtomicFile, RefusesLinksInACircle) {
    std::filesystem::create_symlink("b", file);
    std::filesystem::create_symlink("a.plist", folder / "b");
    expectRefused(file);
}

TEST_F(AtomicFile, RefusesWhatIsNoRegularFile) {
    std::filesystem::create_directory(folder / "folder");
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0666), 0);
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM, 0));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    (folder / "socket").copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(::bind(socket.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address),
              0);
    for (const char* name : {"folder", "pipe", "socket"}) {
        expectRefused(folder / name);
        std::filesystem::create_symlink(name, folder / "link");
        expectRefused(folder / "link");
        std::filesystem::remove(folder / "link");
    }
    EXPECT_TRUE(std::filesystem::is_directory(folder / "folder"));
    EXPECT_TRUE(std::filesystem::is_fifo(folder / "pipe"));
    EXPECT_TRUE(std::filesystem::is_socket(folder / "socket"));
}

TEST_F(AtomicFile, RefusesPathsThatLeadNowhere) {
    writeBytes(file, original);
    expectRefused(folder / "gone/a.plist");
    expectRefused(file + "/b");
    expectRefused(folder / "");
    expectRefused("");
    expectRefused(file + '\0' + "b");
    EXPECT_EQ(bytesOf(file), original);
}

TEST_F(AtomicFile, LeavesTheOriginalOnAFullDisk) {
    writeBytes(file, original);
    const std::string much(100'000, 'x');
    // Room for nothing, for a part, and for all but the last byte
    for (const rlim_t space : {rlim_t{0}, rlim_t{4096}, rlim_t{99'999}}) {
        std::optional<std::string> reason;
        std::optional<std::string> reasonOfNew;
        {
            const FullDisk disk(space);
            reason = writeFileAtomically(file, much);
            reasonOfNew = writeFileAtomically(folder / "new.plist", much);
        }
        EXPECT_EQ(reason, "File too large");
        EXPECT_EQ(reasonOfNew, "File too large");
        EXPECT_EQ(bytesOf(file), original);
        EXPECT_THAT(folder.names(), ElementsAre("a.plist"));
    }
    const FullDisk disk(100'000);
    EXPECT_EQ(writeFileAtomically(file, much), std::nullopt);
}

TEST(AtomicFileOfOrdinaryUser, LeavesTheOriginalInAReadOnlyFolder) {
    const OrdinaryUser user;
    const TemporaryFolder folder;
    const std::string file = folder / "a.plist";
    writeBytes(file, original);
    TemporaryFolder::forbidWriting(folder.path());
    EXPECT_EQ(writeFileAtomically(file, replacement), "Permission denied");
    EXPECT_EQ(writeFileAtomically(folder / "b.plist", replacement), "Permission denied");
    EXPECT_EQ(bytesOf(file), original);
    EXPECT_THAT(folder.names(), ElementsAre("a.plist"));
}

TEST(AtomicFileOfOrdinaryUser, WritesOverAFileOfAnotherUser) {
    TemporaryFolder folder;
    std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
    const std::string file = folder / "a.plist";
    writeBytes(file, original);
    ASSERT_EQ(::chmod(file.c_str(), 0664), 0);
    const gid_t group = groupOf(file);
    const OrdinaryUser user;
    EXPECT_EQ(writeFileAtomically(file, replacement), std::nullopt);
    EXPECT_EQ(bytesOf(file), replacement);
    // A file that cannot keep its group loses the group's right to write.
    EXPECT_EQ(modeOfFile(file), groupOf(file) == group ? 0664U : 0644U);
    EXPECT_THAT(folder.names(), ElementsAre("a.plist"));
}

} // namespace

} // namespace frimbolate::test
