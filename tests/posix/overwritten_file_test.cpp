#include "posix/overwritten_file.h"

#include "posix/atomic_file.h"
#include "tests/posix/failing_calls.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/variable.h"

#include <gmock/gmock.h>

#include <sys/stat.h>

namespace frimbolate::test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* overwritten = "the original";
constexpr const char* overwriting = "what comes in its place";

class OverwrittenFile : public testing::Test {
  protected:
    std::optional<std::string> overwrite(std::string_view content = overwriting,
                                         mode_t keptMode = 07777) {
        return overwriteFile(file, content, 0644, keptMode, copies.path());
    }
    unsigned mode() const {
        struct stat status {};
        return ::stat(file.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
    }
    ino_t inode() const {
        struct stat status {};
        return ::stat(file.c_str(), &status) == 0 ? status.st_ino : 0;
    }

    TemporaryFolder folder;
    TemporaryFolder copies;
    std::string file = folder / "a.plist";
};

TEST_F(OverwrittenFile, ReplacesTheContentOfTheFileItself) {
    for (const std::string& content : {std::string(overwriting), std::string(), std::string("x"),
                                       std::string(200000, 'y'), std::string(overwritten)}) {
        writeBytes(file, overwritten);
        const ino_t same = inode();
        EXPECT_EQ(overwrite(content), std::nullopt);
        EXPECT_EQ(bytesOf(file), content);
        EXPECT_EQ(inode(), same);
        EXPECT_THAT(copies.names(), IsEmpty());
        EXPECT_THAT(folder.names(), ElementsAre("a.plist"));
    }
}

TEST_F(OverwrittenFile, ReplacesALargeFile) {
    writeBytes(file, std::string(200000, 'z'));
    EXPECT_EQ(overwrite(), std::nullopt);
    EXPECT_EQ(bytesOf(file), overwriting);
}

TEST_F(OverwrittenFile, CreatesAFile) {
    const mode_t umaskBefore = ::umask(022);
    EXPECT_EQ(overwrite(), std::nullopt);
    ::umask(umaskBefore);
    EXPECT_EQ(bytesOf(file), overwriting);
    EXPECT_EQ(mode(), 0644U);
}

TEST_F(OverwrittenFile, KeepsTheModeButForTheBitsToBeTaken) {
    writeBytes(file, overwritten);
    ASSERT_EQ(::chmod(file.c_str(), 0666), 0);
    EXPECT_EQ(overwrite(), std::nullopt);
    EXPECT_EQ(mode(), 0666U);
    EXPECT_EQ(overwrite("x", 0755), std::nullopt);
    EXPECT_EQ(mode(), 0644U);
}

TEST_F(OverwrittenFile, RefusesWhatIsNoFile) {
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    EXPECT_EQ(overwrite(), "it is not a regular file");
    std::filesystem::remove(file);
    const std::string elsewhere = folder / "elsewhere";
    writeBytes(elsewhere, overwritten);
    std::filesystem::create_symlink(elsewhere, file);
    EXPECT_NE(overwrite(), std::nullopt);
    EXPECT_EQ(bytesOf(elsewhere), overwritten);
}

// Failures

TEST_F(OverwrittenFile, AFailedCopyLeavesTheFileAlone) {
    writeBytes(file, overwritten);
    const FailingFlush failing(1);
    const auto reason = overwrite();
    EXPECT_THAT(reason.value_or(""),
                StartsWith("no copy of it can be kept in " + copies.path() + ": "));
    EXPECT_EQ(bytesOf(file), overwritten);
    EXPECT_THAT(copies.names(), IsEmpty());
}

TEST_F(OverwrittenFile, WithoutAPlaceForTheCopyNothingIsWritten) {
    writeBytes(file, overwritten);
    EXPECT_NE(overwriteFile(file, overwriting, 0644, 07777, folder / "gone"), std::nullopt);
    EXPECT_EQ(bytesOf(file), overwritten);
}

TEST_F(OverwrittenFile, AFailedWriteIsTakenBack) {
    writeBytes(file, overwritten);
    ASSERT_EQ(::chmod(file.c_str(), 0666), 0);
    const std::string large(4096, 'x');
    {
        const FullDisk disk(20);
        EXPECT_NE(overwrite(large, 0755), std::nullopt);
    }
    EXPECT_EQ(bytesOf(file), overwritten);
    EXPECT_EQ(mode(), 0666U);
    EXPECT_THAT(copies.names(), IsEmpty());
}

TEST_F(OverwrittenFile, AFailedFlushIsTakenBack) {
    writeBytes(file, overwritten);
    const FailingFlush failing(2, 2);
    EXPECT_NE(overwrite(), std::nullopt);
    EXPECT_EQ(bytesOf(file), overwritten);
    EXPECT_THAT(copies.names(), IsEmpty());
}

TEST_F(OverwrittenFile, TheCopyStaysWhereTheOldContentCannotBePutBack) {
    writeBytes(file, overwritten);
    const FailingFlush failing(2);
    const auto reason = overwrite();
    ASSERT_EQ(copies.names().size(), 1U);
    const std::string copy = copies / *copies.names().begin();
    EXPECT_THAT(reason.value_or(""), HasSubstr("; its old content is in " + copy));
    EXPECT_EQ(bytesOf(copy), overwritten);
}

TEST_F(OverwrittenFile, AFileThatCannotBeWrittenIsNotCreated) {
    const FailingFlush failing(1);
    EXPECT_NE(overwrite(), std::nullopt);
    EXPECT_THAT(folder.names(), IsEmpty());
}

// Where a write is not atomic

class RefusedTemporaryFile : public OverwrittenFile {
  protected:
    Variable temporary{"TMPDIR", copies.path()};
};

TEST_F(RefusedTemporaryFile, TheChosenFileIsWrittenItself) {
    writeBytes(file, overwritten);
    const ino_t same = inode();
    const RefusedCreation refused;
    EXPECT_EQ(writeFileAtomically(file, overwriting), std::nullopt);
    EXPECT_EQ(bytesOf(file), overwriting);
    EXPECT_EQ(inode(), same);
    EXPECT_THAT(folder.names(), ElementsAre("a.plist"));
    EXPECT_THAT(copies.names(), IsEmpty());
}

TEST_F(RefusedTemporaryFile, TheChosenFileIsCreated) {
    const RefusedCreation refused;
    EXPECT_EQ(writeFileAtomically(file, overwriting), std::nullopt);
    EXPECT_EQ(bytesOf(file), overwriting);
}

TEST_F(RefusedTemporaryFile, SoItIsWhereTheFolderCannotBeOpened) {
    writeBytes(file, overwritten);
    const ino_t same = inode();
    const RefusedFolder refused(folder.path());
    EXPECT_EQ(writeFileAtomically(file, overwriting, 0644, 0600), std::nullopt);
    EXPECT_EQ(bytesOf(file), overwriting);
    EXPECT_EQ(inode(), same);
    EXPECT_EQ(mode(), 0600U);
}

TEST_F(RefusedTemporaryFile, ALinkToTheChosenFileStaysALink) {
    writeBytes(file, overwritten);
    std::filesystem::create_symlink("a.plist", folder / "link");
    const RefusedCreation refused;
    EXPECT_EQ(writeFileAtomically(folder / "link", overwriting), std::nullopt);
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link"));
    EXPECT_EQ(bytesOf(file), overwriting);
}

TEST_F(OverwrittenFile, IsNotThatOfAFolderWithoutWritePermission) {
    const OrdinaryUser user;
    const TemporaryFolder own;
    writeBytes(own / "a.plist", overwritten);
    TemporaryFolder::forbidWriting(own.path());
    EXPECT_NE(writeFileAtomically(own / "a.plist", overwriting), std::nullopt);
    EXPECT_EQ(bytesOf(own / "a.plist"), overwritten);
}

TEST_F(RefusedTemporaryFile, AnOrdinaryWriteReplacesTheFile) {
    writeBytes(file, overwritten);
    const ino_t old = inode();
    EXPECT_EQ(writeFileAtomically(file, overwriting), std::nullopt);
    EXPECT_NE(inode(), old);
}

} // namespace

} // namespace frimbolate::test
