#include "qt/single_instance.h"
#include "tests/support/eventually.h"
#include "tests/support/temporary_folder.h"

#include <QEventLoop>
#include <QTimer>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <thread>

namespace frimbolate::test {

namespace {

using namespace std::chrono_literals;

/// For an instance that answers, however slow the machine is.
constexpr SingleInstance::Limits patient{60000ms, 60000ms};
/// For an instance that never answers: the length of the wait does not matter.
constexpr SingleInstance::Limits impatient{1ms, 1ms};

/// The result of another start in a second thread, while this one runs the event loop of the
/// running instance.
RunningInstance anotherStart(const std::string& preferences,
                             SingleInstance::Limits limits = patient) {
    std::atomic<bool> hasFound = false;
    auto found = RunningInstance::none;
    std::thread other([&] {
        found = SingleInstance(preferences, limits).askRunningInstance();
        hasFound = true;
    });
    EXPECT_TRUE(eventually([&] { return hasFound.load(); }));
    other.join();
    return found;
}

class SingleInstanceTest : public testing::Test {
  protected:
    void listenAsTheFirst() {
        ASSERT_EQ(running.askRunningInstance(), RunningInstance::none);
        running.listen([&] { ++reopened; });
        ASSERT_TRUE(running.isListening());
    }

    TemporaryFolder folder;
    std::string preferences = folder / "com.qz.Frimbolate.plist";
    SingleInstance running{preferences};
    int reopened = 0;
};

TEST_F(SingleInstanceTest, NoInstanceIsRunning) {
    EXPECT_EQ(running.askRunningInstance(), RunningInstance::none);
    EXPECT_FALSE(running.isListening());
}

TEST_F(SingleInstanceTest, TheRunningInstanceIsNotified) {
    listenAsTheFirst();
    for (int start = 1; start <= 3; ++start) {
        EXPECT_EQ(anotherStart(preferences), RunningInstance::told);
        EXPECT_TRUE(eventually([&] { return reopened == start; }));
    }
}

TEST_F(SingleInstanceTest, OneThatListensAndDoesNotAnswerIsSilent) {
    listenAsTheFirst();
    // The event loop of the running instance does not run during the call.
    EXPECT_EQ(SingleInstance(preferences, {1ms, 60000ms}).askRunningInstance(),
              RunningInstance::silent);
    EXPECT_EQ(anotherStart(preferences), RunningInstance::told) << "once it goes on";
}

TEST_F(SingleInstanceTest, OneThatIsStillStartingIsWaitedFor) {
    ASSERT_EQ(running.askRunningInstance(), RunningInstance::none);
    EXPECT_EQ(SingleInstance(preferences, impatient).askRunningInstance(), RunningInstance::silent);
    QTimer::singleShot(0, &running, [&] { running.listen([&] { ++reopened; }); });
    EXPECT_EQ(anotherStart(preferences), RunningInstance::told);
    EXPECT_EQ(reopened, 1);
}

TEST_F(SingleInstanceTest, OneOfManyStartsIsTheFirst) {
    std::array<RunningInstance, 8> found{};
    std::atomic<std::size_t> done = 0;
    std::vector<std::thread> starts;
    for (RunningInstance& one : found)
        starts.emplace_back([&] {
            SingleInstance instance(preferences, patient);
            one = instance.askRunningInstance();
            ++done;
            if (one == RunningInstance::none) {
                QEventLoop loop;
                instance.listen([] {});
                while (done < found.size())
                    loop.processEvents();
            }
        });
    for (std::thread& start : starts)
        start.join();
    EXPECT_EQ(std::count(found.begin(), found.end(), RunningInstance::none), 1);
    EXPECT_EQ(std::count(found.begin(), found.end(), RunningInstance::told), 7);
}

TEST_F(SingleInstanceTest, OtherPreferencesAreAnotherInstance) {
    listenAsTheFirst();
    SingleInstance other(folder / "other.plist");
    EXPECT_EQ(other.askRunningInstance(), RunningInstance::none);
    other.listen([] {});
    EXPECT_TRUE(other.isListening());
    EXPECT_TRUE(running.isListening());
}

TEST_F(SingleInstanceTest, TheSocketIsForThisUserAlone) {
    listenAsTheFirst();
    const std::string name = running.socketName().toStdString();
    for (const std::string& path : {name, std::filesystem::path(name).parent_path().string()}) {
        struct stat status {};
        ASSERT_EQ(::stat(path.c_str(), &status), 0);
        EXPECT_EQ(S_ISSOCK(status.st_mode), path == name);
        EXPECT_EQ(status.st_mode & 077U, 0U);
    }
}

TEST_F(SingleInstanceTest, TheSocketOfACrashIsCleanedAway) {
    const std::string name = running.socketName().toStdString();
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    name.copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ::close(socket);
    ASSERT_TRUE(std::filesystem::exists(name));

    listenAsTheFirst();
    EXPECT_EQ(anotherStart(preferences), RunningInstance::told);
    EXPECT_TRUE(eventually([&] { return reopened == 1; }));
}

TEST_F(SingleInstanceTest, AnInstanceStartedBesideAnotherTakesOver) {
    auto first = std::make_unique<SingleInstance>(preferences);
    first->listen([&] { ADD_FAILURE() << "the second start did not ask"; });
    ASSERT_TRUE(first->isListening());
    running.listen([&] { ++reopened; });
    EXPECT_FALSE(running.isListening());
    QCoreApplication::processEvents();

    first.reset();
    EXPECT_TRUE(eventually([&] { return running.isListening(); }));
    EXPECT_EQ(anotherStart(preferences), RunningInstance::told);
    EXPECT_TRUE(eventually([&] { return reopened == 1; }));
}

TEST_F(SingleInstanceTest, OneOfSeveralStartedBesideItTakesOver) {
    auto first = std::make_unique<SingleInstance>(preferences);
    SingleInstance second(preferences);
    first->listen([] {});
    running.listen([&] { ++reopened; });
    second.listen([&] { ++reopened; });
    QCoreApplication::processEvents();

    first.reset();
    EXPECT_TRUE(eventually([&] { return running.isListening() || second.isListening(); }));
    EXPECT_EQ(anotherStart(preferences), RunningInstance::told);
    EXPECT_EQ(reopened, 1);
    EXPECT_NE(running.isListening(), second.isListening());
}

/// A process does not end at once: its connection may close before its lock and its socket do.
TEST_F(SingleInstanceTest, AnInstanceThatEndsInPiecesIsFollowed) {
    FileLock lock;
    ASSERT_EQ(lock.take(running.socketName().toStdString() + ".lock"), FileLock::State::held);
    auto first = std::make_unique<QLocalServer>();
    ASSERT_TRUE(first->listen(running.socketName()));
    running.listen([&] { ++reopened; });
    for (int piece = 0; piece < 3; ++piece) {
        ASSERT_TRUE(eventually([&] { return first->hasPendingConnections(); }));
        first->nextPendingConnection()->abort();
    }
    ASSERT_TRUE(eventually([&] { return first->hasPendingConnections(); }));
    first.reset();
    lock.release();
    EXPECT_TRUE(eventually([&] { return running.isListening(); }));
}

TEST_F(SingleInstanceTest, AnInstanceThatEndsBeforeItListensIsFollowed) {
    auto first = std::make_unique<SingleInstance>(preferences);
    ASSERT_EQ(first->askRunningInstance(), RunningInstance::none);
    running.listen([&] { ++reopened; });
    QCoreApplication::processEvents();
    EXPECT_FALSE(running.isListening());
    first.reset();
    EXPECT_TRUE(eventually([&] { return running.isListening(); }));
}

TEST_F(SingleInstanceTest, OtherMessagesMeanNothing) {
    listenAsTheFirst();
    QLocalSocket stranger;
    stranger.connectToServer(running.socketName());
    ASSERT_TRUE(stranger.waitForConnected());
    stranger.write("format the disk\n");
    stranger.disconnectFromServer();
    EXPECT_EQ(anotherStart(preferences), RunningInstance::told);
    EXPECT_TRUE(eventually([&] { return reopened > 0; }));
    EXPECT_EQ(reopened, 1);
}

TEST_F(SingleInstanceTest, ASocketOfAnotherUserIsNotTrusted) {
    const std::string name = running.socketName().toStdString();
    const std::string runtime = std::filesystem::path(name).parent_path().string();
    FileLock lock; // stands for a running instance
    ASSERT_EQ(lock.take(name + ".lock"), FileLock::State::held);
    const auto above = std::filesystem::path(runtime).parent_path();
    for (const auto& open : {above.string(), runtime})
        std::filesystem::permissions(open, std::filesystem::perms::all);
    QLocalServer impostor;
    QObject::connect(&impostor, &QLocalServer::newConnection, &impostor,
                     [&] { impostor.nextPendingConnection()->write("reopened\n"); });
    bool isAnotherUser = false;
    {
        const auto me = ::geteuid();
        const OrdinaryUser user;
        isAnotherUser = ::geteuid() != me;
        impostor.setSocketOptions(QLocalServer::WorldAccessOption);
        ASSERT_TRUE(impostor.listen(running.socketName()));
    }
    for (const auto& open : {above.string(), runtime})
        std::filesystem::permissions(open, std::filesystem::perms::owner_all);
    // Under root, the socket belongs to another user; otherwise to the user of the test.
    EXPECT_EQ(anotherStart(preferences, {60000ms, isAnotherUser ? 1ms : 60000ms}),
              isAnotherUser ? RunningInstance::silent : RunningInstance::told);
}

TEST_F(SingleInstanceTest, WithoutAFolderEveryStartIsOnItsOwn) {
    const std::string runtime = qEnvironmentVariable("XDG_RUNTIME_DIR").toStdString();
    qputenv("XDG_RUNTIME_DIR", "");
    qputenv("TMPDIR", "/proc"); // in which nothing can be made
    SingleInstance lonely(preferences);
    qputenv("XDG_RUNTIME_DIR", runtime.c_str());
    qunsetenv("TMPDIR");
    EXPECT_EQ(lonely.socketName(), "");
    EXPECT_EQ(lonely.askRunningInstance(), RunningInstance::none);
    lonely.listen([] {});
    EXPECT_FALSE(lonely.isListening());
}

} // namespace

} // namespace frimbolate::test
