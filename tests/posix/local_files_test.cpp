#include "plist/limits.h"
#include "plist/xml_writer.h"
#include "posix/local_files.h"
#include "posix/property_list_file.h"
#include "tests/plist/binary_file.h"
#include "tests/support/failures.h"
#include "tests/support/recording_log.h"
#include "tests/support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>

namespace frimbolate::test {

namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class LocalFilesTest : public testing::Test {
  protected:
    void expectUnreadable(const std::string& path, const std::string& reason) {
        log.lines.clear();
        EXPECT_EQ(files.readDictionary(path), std::nullopt);
        EXPECT_THAT(log.lines, IsEmpty());
        EXPECT_EQ(readPropertyListFile(path).reason, reason);
    }
    /// A refused content is logged; a missing or inaccessible file is not.
    void expectRefused(const std::string& path, const std::string& reason) {
        log.lines.clear();
        EXPECT_EQ(files.readDictionary(path), std::nullopt);
        EXPECT_THAT(log.lines, ElementsAre("Could not read property list " + path + ": " + reason));
        EXPECT_EQ(readPropertyListFile(path).reason, reason);
    }

    TemporaryFolder folder;
    RecordingLog log;
    LocalFiles files{log};
    std::string file = folder / "a.plist";
    const Dictionary agent = {{"Label", "x"}, {"Nice", -5}};
};

TEST_F(LocalFilesTest, ParsesOnlyAFileThatHasOtherBytes) {
    std::string known;
    const auto condition = [&] { return readChangedPropertyListFile(file, known).condition; };
    EXPECT_EQ(condition(), FileCondition::missing);
    writeBytes(file, "{a = 1;}");
    EXPECT_EQ(condition(), FileCondition::read);
    EXPECT_EQ(known, "{a = 1;}");
    EXPECT_EQ(condition(), FileCondition::unchanged);
    writeBytes(file, "{a = 2;}");
    EXPECT_EQ(readChangedPropertyListFile(file, known).dictionary, (Dictionary{{"a", "2"}}));
    for (const char* damaged : {"{a = 3;", ""}) {
        writeBytes(file, damaged);
        EXPECT_EQ(condition(), FileCondition::damaged);
        EXPECT_EQ(condition(), FileCondition::damaged);
        EXPECT_EQ(known, "");
    }
}

TEST_F(LocalFilesTest, ReadsEveryForm) {
    writeBytes(file, xmlPropertyList(agent));
    EXPECT_EQ(files.readDictionary(file), agent);
    const auto binary = BinaryFile{{"\xd1\x01\x02", "\x55Label", "\x51x"}}.bytes();
    writeBytes(file, binary);
    EXPECT_EQ(files.readDictionary(file), (Dictionary{{"Label", "x"}}));
    writeBytes(file, "{ Label = x; }");
    EXPECT_EQ(files.readDictionary(file), (Dictionary{{"Label", "x"}}));
    std::filesystem::create_symlink("a.plist", folder / "link");
    EXPECT_EQ(files.readDictionary(folder / "link"), (Dictionary{{"Label", "x"}}));
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(LocalFilesTest, WritesNoAgentThatOthersThanItsOwnerMayWrite) {
    const std::pair<mode_t, mode_t> modes[] = {{0666, 0644}, {0664, 0644}, {0646, 0644},
                                               {0622, 0600}, {0600, 0600}, {0755, 0755},
                                               {0640, 0640}, {0604, 0604}};
    for (const auto& [before, after] : modes) {
        writeBytes(file, "{}");
        ASSERT_EQ(::chmod(file.c_str(), before), 0);
        EXPECT_TRUE(files.writeDictionary(file, agent));
        struct stat status {};
        ASSERT_EQ(::stat(file.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, after) << std::oct << before;
    }
    EXPECT_EQ(files.readDictionary(file), agent);
}

TEST_F(LocalFilesTest, WritesANewAgentThatAllMayRead) {
    const mode_t before = ::umask(0);
    EXPECT_TRUE(files.writeDictionary(file, agent));
    ::umask(before);
    struct stat status {};
    ASSERT_EQ(::stat(file.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0644U);
}

TEST_F(LocalFilesTest, TellsWhyAFileCannotBeRead) {
    expectUnreadable(file, "No such file or directory");
    expectUnreadable(folder.path(), "it is not a regular file");
    expectUnreadable(file + "\0b"s, "its path holds a NUL");
    writeBytes(file, "<plist>\n<array/></plist>");
    expectRefused(file, "it holds no dictionary, but: array");
    writeBytes(file, "<plist>\n<dict><key>a</key></dict></plist>");
    expectRefused(file, "the last key of <dict> has no value (line 2)");
    writeBytes(file, "bplist00\0"s);
    expectRefused(file, "it is cut off");
    std::filesystem::create_symlink("gone", folder / "link");
    expectUnreadable(folder / "link", "No such file or directory");
}

TEST_F(LocalFilesTest, DoesNotWaitForAPipe) {
    ASSERT_EQ(::mkfifo(file.c_str(), 0666), 0);
    expectUnreadable(file, "it is not a regular file");
    std::filesystem::create_symlink("a.plist", folder / "link");
    expectUnreadable(folder / "link", "it is not a regular file");
}

TEST_F(LocalFilesTest, ReadsUpTo16MiB) {
    std::string content = xmlPropertyList(agent);
    content.resize(maximumPlistBytes, '\n');
    writeBytes(file, content);
    EXPECT_EQ(files.readDictionary(file), agent);
    writeBytes(file, content + '\n');
    expectRefused(file, "it is over 16 MiB");
    std::filesystem::resize_file(file, std::uintmax_t{1} << 40);
    expectRefused(file, "it is over 16 MiB");
}

TEST_F(LocalFilesTest, WritesNothingThatItWouldNotRead) {
    writeBytes(file, "original");
    const Dictionary large = {{"k", std::string(maximumPlistBytes, 'x')}};
    EXPECT_FALSE(files.writeDictionary(file, large));
    EXPECT_THAT(log.lines, ElementsAre(HasSubstr("over 16 MiB")));
    EXPECT_EQ(bytesOf(file), "original");
}

TEST_F(LocalFilesTest, TheTextOfAPropertyListIsWhatIsWritten) {
    const auto path = folder / "a.plist";
    const Dictionary odd = {{"Label", "a & <b>"}, {"Nice", -5}, {"Empty", Dictionary{}}};
    ASSERT_TRUE(files.writeDictionary(path, odd));
    EXPECT_EQ(files.propertyListText(odd), bytesOf(path));
    const Dictionary unwritable = {{"Label", "a\x01"}};
    EXPECT_THROW(files.propertyListText(unwritable), NamedError);
}

TEST_F(LocalFilesTest, UnwritableContentRaisesAndLeavesTheOriginal) {
    writeBytes(file, "original");
    EXPECT_NE(reasonOf("Unwritable content",
                       [&] {
                           files.writeDictionary(file, {{"k", "\x1b"}});
                       }),
              "no failure");
    EXPECT_EQ(bytesOf(file), "original");
    EXPECT_THAT(folder.names(), ElementsAre("a.plist"));
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(LocalFilesTest, TellsWhyAFileWasNotWritten) {
    const std::string path = folder / "gone/a.plist";
    EXPECT_FALSE(files.writeDictionary(path, agent));
    EXPECT_THAT(log.lines, ElementsAre("Could not write property list " + path +
                                       ": No such file or directory"));
}

TEST_F(LocalFilesTest, ALinkThatLeadsNowhereDoesNotExist) {
    std::filesystem::create_symlink("gone", file);
    EXPECT_FALSE(files.exists(file));
    EXPECT_FALSE(files.isWritable(file));
    EXPECT_TRUE(files.remove(file));
    EXPECT_THAT(folder.names(), IsEmpty());
}

TEST_F(LocalFilesTest, RemovesALinkAndNotItsTarget) {
    writeBytes(folder / "target", "x");
    std::filesystem::create_symlink("target", file);
    EXPECT_TRUE(files.exists(file));
    EXPECT_TRUE(files.remove(file));
    EXPECT_THAT(folder.names(), ElementsAre("target"));
}

TEST_F(LocalFilesTest, RemovesNoFolderNotEvenAnEmptyOne) {
    std::filesystem::create_directory(folder / "bundle.app");
    EXPECT_FALSE(files.remove(folder / "bundle.app"));
    EXPECT_THAT(folder.names(), ElementsAre("bundle.app"));
}

TEST_F(LocalFilesTest, APathEndsNotAtItsNul) {
    writeBytes(file, "x");
    EXPECT_FALSE(files.exists(file + "\0b"s));
    EXPECT_FALSE(files.isWritable(file + "\0b"s));
    EXPECT_FALSE(files.remove(file + "\0b"s));
    EXPECT_FALSE(files.writeDictionary(file + "\0b"s, agent));
    EXPECT_EQ(bytesOf(file), "x");
}

TEST(LocalFilesOfOrdinaryUser, IsHeldBackByPermissions) {
    const OrdinaryUser user;
    const TemporaryFolder folder;
    RecordingLog log;
    LocalFiles files(log);
    const std::string file = folder / "a.plist";
    ASSERT_TRUE(files.writeDictionary(file, {}));
    ASSERT_EQ(::chmod(file.c_str(), 0), 0);
    EXPECT_EQ(files.readDictionary(file), std::nullopt);
    EXPECT_EQ(readPropertyListFile(file).reason, "Permission denied");
    EXPECT_FALSE(files.isWritable(file));
    EXPECT_FALSE(files.isWritable("/etc"));
    TemporaryFolder::forbidWriting(folder.path());
    EXPECT_FALSE(files.remove(file));
    EXPECT_TRUE(files.exists(file));
}

} // namespace

} // namespace frimbolate::test
