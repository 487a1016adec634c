#include "core/named_error.h"
#include "posix/local_clock.h"
#include "posix/path_folder_access.h"
#include "posix/process_setup.h"
#include "posix/system_log.h"
#include "qt/qt_application.h"
#include "qt/qt_workspace.h"
#include "qt/window_blending.h"
#include "tests/support/eventually.h"
#include "tests/support/failures.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/variable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <ctime>
#include <sys/socket.h>

namespace frimbolate::test {

namespace {

using namespace std::string_literals;

// Workspace

class WorkspaceTest : public testing::Test {
  protected:
    /// Makes a program that writes its name, arguments and folder to the file `sign`.
    void putProgram(const std::string& name) {
        const auto path = folder / name;
        writeBytes(path, "#!/bin/sh\nprintf '%s|' \"" + name +
                             "\" \"$@\" \"$PWD\" > \"$FRIMBOLATE_TEST_SIGN.draft\"\n"
                             "/bin/mv \"$FRIMBOLATE_TEST_SIGN.draft\" \"$FRIMBOLATE_TEST_SIGN\"\n");
        std::filesystem::permissions(path, std::filesystem::perms::all);
    }
    std::string openedTerminal() {
        workspace.openTerminal();
        EXPECT_TRUE(eventually([&] { return std::filesystem::exists(sign); }));
        const auto text = bytesOf(sign);
        std::filesystem::remove(sign);
        return text;
    }

    TemporaryFolder folder;
    std::string sign = folder / "sign";
    std::string home = folder.path();
    Variable homeVariable{"HOME", home};
    Variable signVariable{"FRIMBOLATE_TEST_SIGN", sign};
    Variable pathVariable{"PATH", folder.path()};
    Variable terminalVariable{"TERMINAL", ""};
    QtWorkspace workspace;
};

TEST(WindowBlending, IsOffOnAPlainDisplay) { EXPECT_FALSE(blendsWindows()); }

TEST_F(WorkspaceTest, OpensTheFirstTerminalThereIs) {
    putProgram("xterm");
    EXPECT_EQ(openedTerminal(), "xterm|" + home + "|");
    putProgram("konsole");
    EXPECT_EQ(openedTerminal(), "konsole|" + home + "|");
    putProgram("my term");
    {
        const Variable chosen("TERMINAL", "\"my term\" --title 'a b;$(touch x)'");
        EXPECT_EQ(openedTerminal(), "my term|--title|'a|b;$(touch|x)'|" + home + "|");
    }
    putProgram("x-terminal-emulator");
    EXPECT_EQ(openedTerminal(), "x-terminal-emulator|" + home + "|");
    putProgram("xdg-terminal-exec");
    EXPECT_EQ(openedTerminal(), "xdg-terminal-exec|" + home + "|");
}

TEST_F(WorkspaceTest, OpensAnotherTerminalWhereTheChosenOneDoesNotStart) {
    for (const std::string& chosen : {""s, "   "s, "no-such-terminal -e x"s, "\""s, "\"\""s,
                                      "\"\"\""s, " \" "s, home, "\"no such\""s}) {
        const Variable variable("TERMINAL", chosen);
        EXPECT_NO_THROW(workspace.openTerminal()) << chosen;
        EXPECT_FALSE(std::filesystem::exists(sign)) << chosen;
    }
    putProgram("xterm");
    for (const std::string& chosen : {""s, "   "s, "no-such-terminal -e x"s, "\""s, "\"\""s,
                                      "\"\"\""s, " \" "s, home, "\"no such\""s}) {
        const Variable variable("TERMINAL", chosen);
        EXPECT_EQ(openedTerminal(), "xterm|" + home + "|") << chosen;
    }
}

TEST_F(WorkspaceTest, GivesATerminalTheEnvironmentAndSignalsOfOrdinaryPrograms) {
    writeBytes(folder / "xterm",
               "#!/bin/sh\n"
               "{ echo \"$FRIMBOLATE_TEST_BUS\"\n"
               "/bin/grep SigIgn /proc/self/status; } > \"$FRIMBOLATE_TEST_SIGN.draft\"\n"
               "/bin/mv \"$FRIMBOLATE_TEST_SIGN.draft\" \"$FRIMBOLATE_TEST_SIGN\"\n");
    std::filesystem::permissions(folder / "xterm", std::filesystem::perms::all);
    const Variable before("FRIMBOLATE_TEST_BUS", "as it was");
    workspace = QtWorkspace(QProcessEnvironment::systemEnvironment());
    const Variable changed("FRIMBOLATE_TEST_BUS", "disabled:");
    surviveFailedWrites();
    EXPECT_EQ(openedTerminal(), "as it was\nSigIgn:\t0000000000000000\n");
}

TEST_F(WorkspaceTest, OpensTheFolderOfAFileWhereNoFileManagerAnswers) {
    const Variable bus("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    putProgram("xdg-open");
    workspace.showFile(folder / "a b.plist");
    ASSERT_TRUE(eventually([&] { return std::filesystem::exists(sign); }));
    EXPECT_TRUE(bytesOf(sign).starts_with("xdg-open|" + folder.path() + "|")) << bytesOf(sign);
}

TEST_F(WorkspaceTest, LaunchesItselfWithAnArgument) {
    workspace.launchNewInstance();
    ASSERT_TRUE(eventually([&] { return std::filesystem::exists(sign); }));
    EXPECT_EQ(bytesOf(sign), "--new-instance");
}

TEST_F(WorkspaceTest, ReturnsTheNameOfTheUser) {
    const Variable misleading("USER", "misled");
    const auto name = workspace.userName();
    EXPECT_NE(name, "");
    EXPECT_NE(name, "misled");
    {
        const OrdinaryUser user;
        EXPECT_EQ(workspace.userName(), name == "root" ? "nobody" : name);
    }
}

// Log

TEST(SystemLogTest, WritesEachEntryInOnePiece) {
    int ends[2] = {-1, -1};
    // A datagram socket keeps the boundaries of writes.
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_DGRAM, 0, ends), 0);
    const TemporaryFolder folder;
    SystemLog log(ends[0], folder / "log");
    for (const std::string& text :
         {"Saving launch agent, logging all saved values..."s, ""s, "100 %s %n"s,
          "{\n    a = 1;\n}"s, "é😀"s, std::string(20000, 'x')}) {
        log.line(text);
        std::string message(30000, '\0');
        const auto size = ::recv(ends[1], message.data(), message.size(), MSG_DONTWAIT);
        ASSERT_GE(size, 0);
        message.resize(static_cast<std::size_t>(size));
        EXPECT_EQ(message, text + "\n");
    }
    ::close(ends[0]);
    ::close(ends[1]);
}

TEST(SystemLogTest, MasksWhatATerminalWouldActOn) {
    int ends[2] = {-1, -1};
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_DGRAM, 0, ends), 0);
    const TemporaryFolder folder;
    SystemLog(ends[0], folder / "log").line("\x1b[31m\r\u009b1m\0\n\ta"s);
    std::string message(100, '\0');
    const auto size = ::recv(ends[1], message.data(), message.size(), MSG_DONTWAIT);
    ASSERT_GE(size, 0);
    EXPECT_EQ(message.substr(0, static_cast<std::size_t>(size)), "?[31m??1m?\n\ta\n");
    ::close(ends[0]);
    ::close(ends[1]);
}

TEST(SystemLogTest, ContinuesWithoutAListener) {
    const TemporaryFolder folder;
    SystemLog log(-1, folder / "log");
    EXPECT_NO_THROW(log.line("a"));
}

// Clock

/// Seconds since 1970, with the local date and time taken as UTC.
std::int64_t secondsOf(const LocalDateTime& time) {
    using namespace std::chrono;
    const year_month_day date(year{time.year}, month{static_cast<unsigned>(time.month)},
                              day{static_cast<unsigned>(time.day)});
    return sys_seconds(sys_days(date)).time_since_epoch().count() + time.hour * 3600 +
           time.minute * 60 + time.second;
}

TEST(LocalClockTest, UsesTheLocalTimeZone) {
    for (const auto& [zone, offset] :
         {std::pair{"UTC0", 0}, {"ABC-5:30", 19800}, {"DEF11", -39600}}) {
        const Variable variable("TZ", zone);
        ::tzset();
        const auto before = std::time(nullptr);
        const auto now = secondsOf(LocalClock().now()) - offset;
        EXPECT_GE(now, before) << zone;
        EXPECT_LE(now, std::time(nullptr)) << zone;
    }
    ::tzset();
}

// Application

TEST(QtApplicationTest, QuitsAfterTheCallHasReturned) {
    bool quits = false;
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, qApp, [&] { quits = true; });
    QtApplication application([](const std::string&) {});
    QMetaObject::invokeMethod(
        qApp,
        [&] {
            application.terminate();
            EXPECT_FALSE(quits);
        },
        Qt::QueuedConnection);
    EXPECT_EQ(QCoreApplication::exec(), 0);
    EXPECT_TRUE(quits);
}

TEST(QtApplicationTest, ForwardsErrors) {
    std::string shown;
    QtApplication application([&](const std::string& text) { shown = text; });
    application.presentError("No bookmark can be made");
    EXPECT_EQ(shown, "No bookmark can be made");
}

// Folder access

TEST(PathFolderAccessTest, MakesNoBookmarkOfWhatIsNoFolder) {
    const TemporaryFolder folder;
    PathFolderAccess access;
    writeBytes(folder / "file", "");
    for (const std::string& path :
         {folder / "file", folder / "gone", ""s, "."s, folder.path() + "\0x"s})
        EXPECT_EQ(reasonOf("Bookmark not created", [&] { access.createBookmark(path); }),
                  "There is no folder " + path);
}

TEST(PathFolderAccessTest, ResolvesOnlyBookmarksOfItsOwn) {
    const TemporaryFolder folder;
    PathFolderAccess access;
    const Data bookmark = access.createBookmark(folder.path());
    EXPECT_EQ(access.resolve(bookmark), folder.path());
    for (const std::string& text : {""s, "path1:"s, folder.path(), "path2:" + folder.path(),
                                    "path1:"s + folder.path() + "\0"s, "path1:relative"s})
        EXPECT_EQ(access.resolve(Data{{text.begin(), text.end()}}), std::nullopt) << text;
    std::filesystem::create_directory(folder / "sub");
    const Data other = access.createBookmark(folder / "sub");
    std::filesystem::remove(folder / "sub");
    writeBytes(folder / "sub", "a file by now");
    EXPECT_EQ(access.resolve(other), std::nullopt);
}

} // namespace

} // namespace frimbolate::test
