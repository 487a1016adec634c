#include "posix/local_agent_folder.h"

#include "plist/limits.h"
#include "plist/xml_writer.h"
#include "tests/support/temporary_folder.h"

#include <gmock/gmock.h>

#include <sys/stat.h>
#include <thread>

namespace frimbolate::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class LocalAgentFolders : public testing::Test {
  protected:
    std::string make(const char* name) {
        writeBytes(folder_ / name, xmlPropertyList({{"Label", "org.example.a"}}));
        return folder_ / name;
    }

    TemporaryFolder folder_;
    LocalAgentFolder agents_;
};

TEST_F(LocalAgentFolders, ListThePropertyListsInOrder) {
    make("b.plist");
    make("a.plist");
    make(".hidden.plist");
    make("a.plist.bak");
    const auto listed = agents_.list(folder_.path());
    ASSERT_TRUE(listed);
    EXPECT_THAT(*listed, ElementsAre(folder_ / "a.plist", folder_ / "b.plist"));
    EXPECT_EQ(agents_.list(folder_.path() + "/"), listed);
}

TEST_F(LocalAgentFolders, TellAnEmptyFolderFromOneThatCannotBeRead) {
    EXPECT_EQ(agents_.list(folder_.path()), std::vector<std::string>());
    EXPECT_EQ(agents_.list(folder_ / "none"), std::nullopt);
    EXPECT_EQ(agents_.list(make("a.plist")), std::nullopt);
}

TEST_F(LocalAgentFolders, ReadAnAgent) {
    const auto overview = agents_.read(make("org.example.a.plist"), {});
    EXPECT_EQ(overview.kind, AgentKind::OtherProgram);
    EXPECT_EQ(overview.name, "org.example.a");
}

TEST_F(LocalAgentFolders, GiveTheReasonOfWhatIsNoAgent) {
    ASSERT_EQ(::mkfifo((folder_ / "pipe.plist").c_str(), 0600), 0);
    writeBytes(folder_ / "damaged.plist", "<plist>");
    writeBytes(folder_ / "huge.plist", "");
    std::filesystem::resize_file(folder_ / "huge.plist", maximumPlistBytes + 1);
    const auto reasonOf = [this](const std::string& path) {
        const auto overview = agents_.read(path, {});
        EXPECT_EQ(overview.kind, AgentKind::Unreadable) << path;
        return overview.sentence;
    };
    EXPECT_EQ(reasonOf(folder_ / "pipe.plist"), "Cannot be read: it is not a regular file.");
    EXPECT_EQ(reasonOf("/dev/zero"), "Cannot be read: it is not a regular file.");
    EXPECT_EQ(reasonOf(folder_ / "huge.plist"), "Cannot be read: it is over 16 MiB.");
    EXPECT_THAT(reasonOf(folder_ / "damaged.plist"), HasSubstr("(line 1)"));
    EXPECT_THAT(reasonOf(folder_ / "none.plist"), HasSubstr("No such file"));
}

TEST_F(LocalAgentFolders, KnowTheRightsOfAFileForTheChecks) {
    const auto path = make("org.example.a.plist");
    ::chmod(path.c_str(), 0666);
    const auto file = readPropertyListFile(path);
    const auto context = localCheckContext(path, file, "/Users/ada");
    EXPECT_EQ(context.mode, 0666U);
    EXPECT_EQ(context.ownedByUser, true);
    EXPECT_EQ(context.home, "/Users/ada");
    EXPECT_EQ(context.filePath, path);
    auto foreign = file;
    foreign.owner = ::getuid() + 1;
    EXPECT_EQ(localCheckContext(path, foreign, "").ownedByUser, false);
}

TEST_F(LocalAgentFolders, KnowWhatStandsAtAPath) {
    const auto path = make("a.plist");
    ::chmod(path.c_str(), 0644);
    EXPECT_EQ(localPathState(path), PathState::File);
    ::chmod(path.c_str(), 0755);
    EXPECT_EQ(localPathState(path), PathState::Executable);
    EXPECT_EQ(localPathState(folder_.path()), PathState::Folder);
    EXPECT_EQ(localPathState(path + "/below"), PathState::Missing);
    EXPECT_EQ(localPathState(folder_ / "none"), PathState::Missing);
    EXPECT_EQ(localPathState(std::string("/\0", 2)), PathState::Unknown);
}

TEST_F(LocalAgentFolders, ReadOnSeveralThreads) {
    const auto path = make("org.example.a.plist");
    std::vector<std::thread> threads;
    std::vector<std::string> names(4);
    for (auto& name : names)
        threads.emplace_back([&] { name = agents_.read(path, {}).name; });
    for (auto& thread : threads)
        thread.join();
    EXPECT_THAT(names, testing::Each("org.example.a"));
}

} // namespace
} // namespace frimbolate::test
