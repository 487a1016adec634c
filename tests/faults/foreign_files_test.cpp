// Files that are no ordinary agents of this user, or do not stay what they were: none is changed
// unless it is the chosen agent, nothing hangs, and each result is told as it is.
#include "posix/local_agent_folder.h"
#include "tests/cli/terminal_run.h"
#include "tests/faults/foreign_agent.h"
#include "tests/faults/immutable_file.h"
#include "tests/support/rows.h"
#include "tests/support/watchdog.h"

#include <gtest/gtest.h>

#include <any>
#include <optional>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/un.h>

namespace frimbolate::test {

namespace {

constexpr const char* otherKey = "elsewhere/other.plist";

void putSocket(const std::string& folder, const std::string& name) {
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder); // the names of sockets are short
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    name.copy(address.sun_path, sizeof address.sun_path - 1);
    succeed(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address));
    ::close(socket);
    std::filesystem::current_path(before);
}

enum class Does { succeed, fail };
constexpr auto yes = Does::succeed, no = Does::fail;

struct ForeignRow {
    const char* name;
    /// Puts the file at UserFolders::agent(). What it returns lives as long as the action.
    std::function<std::any(UserFolders&)> put;
    Does read;     ///< Edit, the list of agents, and "check"
    Does save;     ///< over it
    Does turnOff;  ///< the switch
    Does deletion; ///< of the file itself, never of a link's target
    /// What else a save or the switch changes: the target of a link.
    std::string changed = {};
    bool asOrdinaryUser = false;
    /// "check" looks into a folder, and a file without a property list is a finding.
    bool isChecked = false;
};

using Put = std::function<void(UserFolders&)>;

std::function<std::any(UserFolders&)> simply(Put put) {
    return [put](UserFolders& place) -> std::any {
        put(place);
        return {};
    };
}

std::function<std::any(UserFolders&)> linkTo(std::string target) {
    return simply([target](UserFolders& place) {
        putForeignAgent(place / otherKey);
        std::filesystem::create_symlink(target, place.agent());
    });
}

std::function<std::any(UserFolders&)> named(std::string name) {
    return simply([name](UserFolders& place) {
        place.agentName = "com.frimbolate." + name + ".plist";
        putForeignAgent(place.agent());
    });
}

std::function<std::any(UserFolders&)> flagged(FileFlag flag) {
    return [flag](UserFolders& place) -> std::any {
        putForeignAgent(place.agent());
        return std::make_shared<FlaggedFile>(place.agent(), flag);
    };
}

std::function<std::any(UserFolders&)> ofMode(mode_t mode) {
    return simply([mode](UserFolders& place) {
        putForeignAgent(place.agent());
        succeed(::chmod(place.agent().c_str(), mode));
    });
}

const std::string targetOfLink = std::string("../") + otherKey;

const ForeignRow foreignRows[] = {
    {"Ordinary", simply([](UserFolders& place) { putForeignAgent(place.agent()); }), yes, yes, yes,
     yes},
    {"Fifo", simply([](UserFolders& place) { succeed(::mkfifo(place.agent().c_str(), 0644)); }), no,
     no, no, yes},
    {"LinkToAFifo", simply([](UserFolders& place) {
         succeed(::mkfifo((place / otherKey).c_str(), 0644));
         std::filesystem::create_symlink(targetOfLink, place.agent());
     }),
     no, no, no, yes},
    {"Device", simply([](UserFolders& place) {
         // Without the privilege to make one, a link to one.
         if (::mknod(place.agent().c_str(), S_IFCHR | 0666, ::makedev(1, 5)) != 0)
             std::filesystem::create_symlink("/dev/zero", place.agent());
     }),
     no, no, no, yes},
    {"LinkToTheNullDevice", linkTo("/dev/null"), no, no, no, yes},
    {"LinkToAnEndlessDevice", linkTo("/dev/zero"), no, no, no, yes},
    {"LinkToAFullDevice", linkTo("/dev/full"), no, no, no, yes},
    {"LinkToATerminal", linkTo("/dev/ptmx"), no, no, no, yes},
    {"LinkToAFileOfTheKernel", linkTo("/proc/self/status"), no, no, no, yes, {}, false, true},
    {"Socket", simply([](UserFolders& place) { putSocket(place.agents(), place.agentName); }), no,
     no, no, yes},
    {"Folder",
     simply([](UserFolders& place) { std::filesystem::create_directory(place.agent()); }),
     no,
     no,
     no,
     no,
     {},
     false,
     true},
    {"FilledFolder",
     simply([](UserFolders& place) {
         std::filesystem::create_directory(place.agent());
         putForeignAgent(place.agent() + "/inner.plist");
     }),
     no,
     no,
     no,
     no,
     {},
     false,
     true},
    {"Link", linkTo(targetOfLink), yes, yes, yes, yes, otherKey},
    {"DanglingLink", linkTo("../elsewhere/gone.plist"), no, yes, no, no, "elsewhere/gone.plist"},
    {"LinkIntoNowhere", linkTo("../gone/gone.plist"), no, no, no, no},
    {"LinkToItself", linkTo("com.frimbolate.Backup.plist"), no, no, no, no},
    {"LinkToAFolder", linkTo("../elsewhere"), no, no, no, yes, {}, false, true},
    {"HardLink", simply([](UserFolders& place) {
         putForeignAgent(place / otherKey);
         std::filesystem::create_hard_link(place / otherKey, place.agent());
     }),
     yes, yes, yes, yes},
    {"Immutable", flagged(FileFlag::immutable), yes, no, no, no},
    {"AppendOnly", flagged(FileFlag::appendOnly), yes, no, no, no},
    // Only the folder decides who may put another file in the place of one.
    {"ReadOnlyFileOfAnotherUser", ofMode(0444), yes, yes, no, no, {}, true},
    {"FileThatItsAccessListDenies",
     simply([](UserFolders& place) {
         putForeignAgent(place.agent());
         succeed(::chmod(place.agent().c_str(), 0044));
         setAccessList(place.agent(), "u::---,u:65534:---,g::r--,m::r--,o::r--", ACL_TYPE_ACCESS);
     }),
     no,
     yes,
     no,
     no,
     {},
     true},
    {"UnreadableFile", ofMode(0), no, yes, no, no, {}, true},
    {"FolderOfAnotherUser",
     simply([](UserFolders& place) {
         putForeignAgent(place.agent());
         succeed(::chmod(place.agent().c_str(), 0444));
         succeed(::chmod(place.agents().c_str(), 0555));
     }),
     yes,
     no,
     no,
     no,
     {},
     true},
    {"FolderThatMayNotBeSearched",
     simply([](UserFolders& place) {
         putForeignAgent(place.agent());
         succeed(::chmod(place.agents().c_str(), 0));
     }),
     no,
     no,
     no,
     no,
     {},
     true},
    // No property list can hold the label that a save derives from such a name.
    {"NameBeyondUtf8", named("\xff\xfe"), yes, no, yes, yes},
    {"NameOfTwoLines", named("a\nb"), yes, yes, yes, yes},
    {"LongestName", named(std::string(234, 'n')), yes, yes, yes, yes},
    {"Vanished", simply([](UserFolders&) {}), no, yes, no, no},
    {"VanishedWithItsFolder",
     simply([](UserFolders& place) { std::filesystem::remove(place.agents()); }), no, no, no, no},
    {"FolderReplacedByAFile", simply([](UserFolders& place) {
         std::filesystem::remove(place.agents());
         writeBytes(place.agents(), "x");
     }),
     no, no, no, no},
};

class ForeignFile : public testing::TestWithParam<ForeignRow> {
  protected:
    using Action = std::function<bool(UserFolders&)>;

    /// \param key what the action may change where it succeeds
    void expect(Does expected, const Action& act, const std::string& changed) {
        UserFolders place;
        // An ordinary user reaches the files and may add some to the folder.
        std::filesystem::permissions(place.path(), std::filesystem::perms(0755));
        std::filesystem::permissions(place.agents(), std::filesystem::perms::all);
        const std::any kept = GetParam().put(place);
        const auto before = place.state();
        bool succeeded = false;
        {
            std::optional<OrdinaryUser> user;
            if (GetParam().asOrdinaryUser)
                user.emplace();
            const Watchdog watchdog;
            succeeded = act(place);
        }
        EXPECT_EQ(succeeded, expected == yes);
        auto wanted = before;
        auto now = place.state();
        // Of a success the changed file itself: its content is for the tests of the operation.
        if (expected == yes) {
            const auto key = changed.empty() ? place.agentKey() : changed;
            wanted.erase(key);
            now.erase(key);
        }
        EXPECT_EQ(now == wanted, true) << differenceOf(wanted, now);
    }

    static std::string differenceOf(const FolderState& wanted, const FolderState& now) {
        for (const auto& [path, item] : now)
            if (!itemAt(wanted, path) || !(*itemAt(wanted, path) == item))
                return path;
        for (const auto& [path, item] : wanted)
            if (!itemAt(now, path))
                return "gone: " + path;
        return {};
    }

    /// The desk of a place whose folder may be gone.
    struct Desk : ScriptedDesk {
        explicit Desk(const UserFolders& place) : ScriptedDesk(place / "elsewhere") {}
    };
    static constexpr const char* nothing = "nothing";
};

TEST_P(ForeignFile, IsEditedOrNot) {
    expect(
        GetParam().read,
        [](UserFolders& place) {
            Desk desk(place);
            return desk.editor.editAgent(place.agent()) && desk.alert().empty();
        },
        nothing);
}

TEST_P(ForeignFile, IsListedAsItIs) {
    expect(
        GetParam().read,
        [](UserFolders& place) {
            static_cast<void>(LocalAgentFolder().list(place.agents()));
            return LocalAgentFolder().read(place.agent(), {}).kind != AgentKind::Unreadable;
        },
        nothing);
}

TEST_P(ForeignFile, IsCheckedInATerminal) {
    expect(
        GetParam().isChecked ? yes : GetParam().read,
        [](UserFolders& place) {
            return run({"check", place.agent()}).code != ExitCode::Failed;
        },
        nothing);
}

/// The alert after a save does not depend on the write; the log does.
TEST_P(ForeignFile, IsReplacedByASaveOrNot) {
    expect(
        GetParam().save,
        [](UserFolders& place) {
            Desk desk(place);
            desk.editor.createNewAgent();
            desk.editor.form().agentTargetButton.selectedItem = TargetType::Script;
            desk.editor.saveLaunchAgent();
            desk.platform.saveAs(place.agent());
            return desk.alert() == "Your launch agent was created." &&
                   !desk.logged("Could not write property list");
        },
        GetParam().changed);
}

TEST_P(ForeignFile, IsSwitchedOrNot) {
    expect(
        GetParam().turnOff, [](UserFolders& place) { return switchesInWindow(place); },
        GetParam().changed);
}

TEST_P(ForeignFile, IsSwitchedInATerminalOrNot) {
    expect(
        GetParam().turnOff,
        [](UserFolders& place) {
            return run({"off", place.agent()}).code == ExitCode::Nothing;
        },
        GetParam().changed);
}

TEST_P(ForeignFile, IsDeletedOrNot) {
    expect(GetParam().deletion, [](UserFolders& place) { return deletesInWindow(place); }, {});
}

INSTANTIATE_TEST_SUITE_P(Rows, ForeignFile, testing::ValuesIn(foreignRows), NamedAfterRow());

} // namespace

} // namespace frimbolate::test
