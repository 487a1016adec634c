// Agents that change or vanish between the question and the answer, and a full disk.
#include "tests/cli/terminal_run.h"
#include "tests/faults/foreign_agent.h"
#include "tests/faults/one_fault.h"
#include "tests/support/child_process.h"
#include "tests/support/rows.h"
#include "tests/support/watchdog.h"

#include <gtest/gtest.h>

#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>

namespace frimbolate::test {

namespace {

/// What happens to the agent while an alert asks about it.
struct MeanwhileRow {
    const char* name;
    std::function<void(const std::string&)> change;
    bool switches;
    bool deletes;
};

class ChangedMeanwhile : public testing::TestWithParam<MeanwhileRow> {
  protected:
    ChangedMeanwhile() { putForeignAgent(place.agent()); }
    void change() {
        GetParam().change(place.agent());
        changed = place.state();
    }

    UserFolders place;
    FolderState changed;
};

TEST_P(ChangedMeanwhile, IsSwitchedOrNot) {
    const Watchdog watchdog;
    EXPECT_EQ(switchesInWindow(place, [this] { change(); }), GetParam().switches);
    if (!GetParam().switches)
        EXPECT_TRUE(place.state() == changed);
    else // the agent that the question was about
        EXPECT_EQ(bytesOf(place.agent()), [] {
            auto agent = foreignAgent();
            agent["Enabled"] = false;
            return xmlPropertyList(agent);
        }());
}

TEST_P(ChangedMeanwhile, IsDeletedOrNot) {
    const Watchdog watchdog;
    EXPECT_EQ(deletesInWindow(place, [this] { change(); }), GetParam().deletes);
    if (!GetParam().deletes)
        EXPECT_TRUE(place.state() == changed);
    else
        EXPECT_FALSE(std::filesystem::exists(place.agent()));
}

const MeanwhileRow meanwhileRows[] = {
    {"Nothing", [](const std::string&) {}, true, true},
    {"AnotherContent", [](const std::string& path) { writeBytes(path, "another"); }, true, true},
    {"Removed", [](const std::string& path) { std::filesystem::remove(path); }, false, false},
    {"AFifo",
     [](const std::string& path) {
         std::filesystem::remove(path);
         succeed(::mkfifo(path.c_str(), 0644));
     },
     false, true},
    {"AFolder",
     [](const std::string& path) {
         std::filesystem::remove(path);
         std::filesystem::create_directory(path);
     },
     false, false},
    {"TheFolderIsGone",
     [](const std::string& path) {
         std::filesystem::remove_all(std::filesystem::path(path).parent_path());
     },
     false, false},
};
INSTANTIATE_TEST_SUITE_P(Rows, ChangedMeanwhile, testing::ValuesIn(meanwhileRows), NamedAfterRow());

/// A disk of a few pages for the agents, filled to the last one. Where this user may not mount one,
/// every write in the folder finds no space instead.
std::shared_ptr<void> fillDisk(const UserFolders& place) {
    if (::unshare(CLONE_NEWNS) == 0 &&
        ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
        ::mount("tmpfs", place.agents().c_str(), "tmpfs", 0, "size=16k") == 0) {
        putForeignAgent(place.agent());
        std::ofstream(place.agents() + "/filler") << std::string(64 * 1024, 'x');
        return nullptr;
    }
    putForeignAgent(place.agent());
    return std::make_shared<OneFault>(place.agents(), "write", FaultKind::noSpace);
}

TEST(FullFolder, KeepsItsAgentsAndTellsTheFailure) {
    const int status = statusOfChild([] {
        const UserFolders place;
        const auto disk = fillDisk(place);
        const auto before = place.state();
        if (switchesInWindow(place) || !(place.state() == before))
            return 1;
        if (run({"off", place.agent()}).code == ExitCode::Nothing || !(place.state() == before))
            return 2;
        return deletesInWindow(place) && !std::filesystem::exists(place.agent()) ? 0 : 3;
    });
    EXPECT_TRUE(endedWell(status)) << status;
}

} // namespace

} // namespace frimbolate::test
