#include "plist/limits.h"
#include "plist/xml_writer.h"
#include "posix/plist_defaults.h"
#include "tests/support/file_status.h"
#include "tests/support/recording_log.h"
#include "tests/support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>

namespace frimbolate::test {

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class PlistDefaultsTest : public testing::Test {
  protected:
    /// The values that the next start of the program reads.
    Dictionary onDisk() {
        RecordingLog unheard;
        PlistDefaults defaults(path, unheard);
        Dictionary content;
        for (const auto& key : defaults.keys())
            content[key] = *defaults.object(key);
        return content;
    }

    TemporaryFolder folder;
    RecordingLog log;
    std::string path = folder / "config/com.qz.Frimbolate.plist";
};

TEST_F(PlistDefaultsTest, WritesNothingUnlessAsked) {
    PlistDefaults defaults(path, log);
    defaults.synchronize();
    defaults.remove("a");
    EXPECT_THAT(folder.names(), IsEmpty());
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(PlistDefaultsTest, IsOnDiskAtOnceForItsOwnerAlone) {
    PlistDefaults defaults(path, log);
    defaults.set("WarnForDelete", true);
    EXPECT_EQ(onDisk(), (Dictionary{{"WarnForDelete", true}}));
    EXPECT_EQ(modeOfFile(folder / "config"), 0700U);
    EXPECT_EQ(modeOfFile(path), 0600U);
    defaults.set("Bookmark", Data{{1, 2}});
    defaults.remove("WarnForDelete");
    EXPECT_EQ(bytesOf(path), xmlPropertyList({{"Bookmark", Data{{1, 2}}}}));
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(PlistDefaultsTest, TwoInstancesKeepEachOthersChanges) {
    PlistDefaults first(path, log);
    PlistDefaults second(path, log);
    first.set("a", 1);
    second.set("b", 2);
    first.set("c", 3);
    EXPECT_EQ(onDisk(), (Dictionary{{"a", 1}, {"b", 2}, {"c", 3}}));
    second.synchronize();
    EXPECT_THAT(second.keys(), ElementsAre("a", "b", "c"));
    first.remove("b");
    second.synchronize();
    EXPECT_EQ(second.object("b"), std::nullopt);
}

TEST_F(PlistDefaultsTest, SeesAChangeThatLeavesTheSizeAndTheTime) {
    PlistDefaults defaults(path, log);
    defaults.set("a", 1);
    defaults.synchronize();
    const auto time = std::filesystem::last_write_time(path);
    writeBytes(path, xmlPropertyList({{"a", 2}}));
    std::filesystem::last_write_time(path, time);
    defaults.set("b", 3);
    EXPECT_EQ(defaults.object("a"), Value(2));
    EXPECT_EQ(onDisk(), (Dictionary{{"a", 2}, {"b", 3}}));
}

TEST_F(PlistDefaultsTest, KeepsItsValuesAlsoWhereTheFileWasNotParsedAgain) {
    PlistDefaults(path, log).set("a", 1);
    PlistDefaults defaults(path, log);
    for (int i = 0; i < 3; ++i) {
        defaults.synchronize();
        EXPECT_EQ(defaults.object("a"), Value(1));
    }
    defaults.set("b", 2);
    defaults.remove("a");
    EXPECT_EQ(onDisk(), (Dictionary{{"b", 2}}));
}

TEST_F(PlistDefaultsTest, TakesNoValueThatNoFileHolds) {
    PlistDefaults defaults(path, log);
    defaults.set("a", "1");
    defaults.set("a", "\x1b");
    EXPECT_THAT(log.lines, ElementsAre("Could not keep preference a: A text of this content cannot "
                                       "be written: it holds the character U+001B"));
    EXPECT_EQ(defaults.object("a"), Value("1"));
    EXPECT_EQ(onDisk(), (Dictionary{{"a", "1"}}));
}

TEST_F(PlistDefaultsTest, SetsADamagedFileAside) {
    std::filesystem::create_directory(folder / "config");
    const std::string large(maximumPlistBytes + 1, ' ');
    const std::string rubbish[] = {"", "rubbish", "<plist><array/></plist>", "bplist00", large};
    int number = 0;
    for (const auto& content : rubbish) {
        writeBytes(path, content);
        log.lines.clear();
        PlistDefaults defaults(path, log);
        const std::string aside =
            folder / "config/com.qz.Frimbolate.damaged-" + std::to_string(++number) + ".plist";
        EXPECT_THAT(log.lines, ElementsAre(AllOf(HasSubstr(path), HasSubstr(aside))));
        EXPECT_TRUE(bytesOf(aside) == content);
        EXPECT_FALSE(std::filesystem::exists(path));
        EXPECT_THAT(defaults.keys(), IsEmpty());
        defaults.set("a", 1);
        EXPECT_EQ(onDisk(), (Dictionary{{"a", 1}}));
    }
}

TEST_F(PlistDefaultsTest, KeepsWhatItKnewWhenTheFileIsDamagedMeanwhile) {
    PlistDefaults defaults(path, log);
    defaults.set("a", 1);
    defaults.set("b", 2);
    writeBytes(path, "rubbish");
    defaults.remove("b");
    EXPECT_EQ(onDisk(), (Dictionary{{"a", 1}}));
    EXPECT_EQ(bytesOf(folder / "config/com.qz.Frimbolate.damaged-1.plist"), "rubbish");
}

TEST_F(PlistDefaultsTest, WritesLaterWhatAFullDiskRefused) {
    PlistDefaults defaults(path, log);
    defaults.set("a", 1);
    const auto before = bytesOf(path);
    {
        const FullDisk disk(10);
        defaults.set("b", 2);
        defaults.remove("a");
        defaults.synchronize();
    }
    EXPECT_THAT(log.lines,
                ElementsAre("Could not write the preferences " + path + ": File too large"));
    EXPECT_EQ(bytesOf(path), before);
    EXPECT_THAT(defaults.keys(), ElementsAre("b"));
    defaults.synchronize();
    EXPECT_EQ(onDisk(), (Dictionary{{"b", 2}}));
}

TEST_F(PlistDefaultsTest, KeepsALinkALink) {
    writeBytes(folder / "elsewhere.plist", xmlPropertyList({{"a", 1}}));
    std::filesystem::create_symlink("elsewhere.plist", folder / "link.plist");
    path = folder / "link.plist";
    PlistDefaults defaults(path, log);
    defaults.set("b", 2);
    EXPECT_TRUE(std::filesystem::is_symlink(path));
    EXPECT_EQ(bytesOf(folder / "elsewhere.plist"), xmlPropertyList({{"a", 1}, {"b", 2}}));
}

TEST_F(PlistDefaultsTest, LivesInMemoryWhereAFolderIsInTheWay) {
    std::filesystem::create_directories(path);
    PlistDefaults defaults(path, log);
    defaults.set("a", 1);
    defaults.set("b", 2);
    EXPECT_THAT(defaults.keys(), ElementsAre("a", "b"));
    EXPECT_THAT(log.lines, ElementsAre(HasSubstr("it is not a regular file")));
    EXPECT_TRUE(std::filesystem::is_directory(path));
}

TEST(PlistDefaultsOfOrdinaryUser, NeverWritesOverAFileThatItMayNotRead) {
    const OrdinaryUser user;
    const TemporaryFolder folder;
    const std::string path = folder / "com.qz.Frimbolate.plist";
    const auto content = xmlPropertyList({{"a", 1}});
    writeBytes(path, content);
    ASSERT_EQ(::chmod(path.c_str(), 0), 0);
    RecordingLog log;
    PlistDefaults defaults(path, log);
    defaults.set("b", 2);
    defaults.synchronize();
    EXPECT_THAT(log.lines,
                ElementsAre("Could not read the preferences " + path + ": Permission denied"));
    EXPECT_EQ(defaults.object("b"), Value(2));
    EXPECT_THAT(folder.names(), ElementsAre("com.qz.Frimbolate.plist"));
    ASSERT_EQ(::chmod(path.c_str(), 0600), 0);
    EXPECT_EQ(bytesOf(path), content);
    // The next write that succeeds contains both.
    defaults.synchronize();
    EXPECT_EQ(bytesOf(path), xmlPropertyList({{"a", 1}, {"b", 2}}));
}

TEST(PlistDefaultsOfOrdinaryUser, LeavesADamagedFileThatItCannotSetAside) {
    const OrdinaryUser user;
    const TemporaryFolder folder;
    const std::string path = folder / "com.qz.Frimbolate.plist";
    writeBytes(path, "rubbish");
    TemporaryFolder::forbidWriting(folder.path());
    RecordingLog log;
    PlistDefaults defaults(path, log);
    defaults.set("b", 2);
    EXPECT_EQ(defaults.object("b"), Value(2));
    EXPECT_EQ(bytesOf(path), "rubbish");
    EXPECT_THAT(log.lines, ElementsAre(HasSubstr("nor set them aside")));
}

class Environment {
  public:
    explicit Environment(const char* configHome) {
        const char* value = std::getenv(name);
        before_ = value ? value : "";
        configHome ? ::setenv(name, configHome, 1) : ::unsetenv(name);
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;
    ~Environment() { ::setenv(name, before_.c_str(), 1); }

  private:
    static constexpr const char* name = "XDG_CONFIG_HOME";
    std::string before_;
};

TEST(PlistDefaultsPath, ComesFromTheEnvironment) {
    {
        const Environment environment("/somewhere/config");
        EXPECT_EQ(PlistDefaults::defaultPath(), "/somewhere/config/com.qz.Frimbolate.plist");
    }
    for (const char* useless : {static_cast<const char*>(nullptr), "", "relative/config"}) {
        const Environment environment(useless);
        EXPECT_EQ(PlistDefaults::defaultPath(),
                  std::string(std::getenv("HOME")) + "/.config/com.qz.Frimbolate.plist");
    }
}

} // namespace

} // namespace frimbolate::test
