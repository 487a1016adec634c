#include "platform/qt/single_instance.h"
#include "tests/platform/eventually.h"
#include "tests/platform/temporary_folder.h"

#include <gtest/gtest.h>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

namespace frimbolate::test {

namespace {

class SingleInstanceTest : public testing::Test {
  protected:
    TemporaryFolder folder;
    std::string preferences = folder / "com.qz.Frimbolate.plist";
    SingleInstance running{preferences};
    int reopened = 0;
};

TEST_F(SingleInstanceTest, nobodyIsRunning) {
    EXPECT_FALSE(running.tellRunningInstance());
    EXPECT_FALSE(running.isListening());
}

TEST_F(SingleInstanceTest, theRunningOneIsTold) {
    running.listen([&] { ++reopened; });
    ASSERT_TRUE(running.isListening());
    for (int start = 1; start <= 3; ++start) {
        EXPECT_TRUE(SingleInstance(preferences).tellRunningInstance());
        EXPECT_TRUE(eventually([&] { return reopened == start; }));
    }
}

TEST_F(SingleInstanceTest, otherPreferencesAreAnotherInstance) {
    running.listen([&] { ++reopened; });
    SingleInstance other(folder / "other.plist");
    EXPECT_FALSE(other.tellRunningInstance());
    other.listen([] {});
    EXPECT_TRUE(other.isListening());
    EXPECT_TRUE(running.isListening());
}

TEST_F(SingleInstanceTest, theSocketIsForThisPersonAlone) {
    running.listen([] {});
    struct stat status {};
    ASSERT_EQ(::stat(running.socketName().toStdString().c_str(), &status), 0);
    EXPECT_TRUE(S_ISSOCK(status.st_mode));
    EXPECT_EQ(status.st_mode & 077U, 0U);
}

TEST_F(SingleInstanceTest, theSocketOfACrashIsCleanedAway) {
    const std::string name = running.socketName().toStdString();
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    name.copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ::close(socket);
    ASSERT_TRUE(std::filesystem::exists(name));

    EXPECT_FALSE(running.tellRunningInstance());
    running.listen([&] { ++reopened; });
    ASSERT_TRUE(running.isListening());
    EXPECT_TRUE(SingleInstance(preferences).tellRunningInstance());
    EXPECT_TRUE(eventually([&] { return reopened == 1; }));
}

TEST_F(SingleInstanceTest, anInstanceStartedBesideAnotherTakesOver) {
    auto first = std::make_unique<SingleInstance>(preferences);
    first->listen([&] { ADD_FAILURE() << "the second start did not ask"; });
    running.listen([&] { ++reopened; });
    EXPECT_FALSE(running.isListening());
    QCoreApplication::processEvents();

    first.reset();
    EXPECT_TRUE(eventually([&] { return running.isListening(); }));
    EXPECT_TRUE(SingleInstance(preferences).tellRunningInstance());
    EXPECT_TRUE(eventually([&] { return reopened == 1; }));
}

TEST_F(SingleInstanceTest, otherMessagesMeanNothing) {
    running.listen([&] { ++reopened; });
    QLocalSocket stranger;
    stranger.connectToServer(running.socketName());
    ASSERT_TRUE(stranger.waitForConnected());
    stranger.write("format the disk\n");
    stranger.disconnectFromServer();
    EXPECT_TRUE(SingleInstance(preferences).tellRunningInstance());
    EXPECT_TRUE(eventually([&] { return reopened > 0; }));
    EXPECT_EQ(reopened, 1);
}

TEST_F(SingleInstanceTest, aSocketOfSomebodyElseIsNotTrusted) {
    const std::string name = running.socketName().toStdString();
    const std::string runtime = std::filesystem::path(name).parent_path().string();
    std::filesystem::permissions(runtime, std::filesystem::perms::all);
    QLocalServer impostor;
    bool isSomebodyElse = false;
    {
        const auto me = ::geteuid();
        const OrdinaryUser user;
        isSomebodyElse = ::geteuid() != me;
        impostor.setSocketOptions(QLocalServer::WorldAccessOption);
        ASSERT_TRUE(impostor.listen(running.socketName()));
    }
    // Whoever starts the tests as root meets a stranger, everybody else themselves.
    EXPECT_EQ(running.tellRunningInstance(), !isSomebodyElse);
    std::filesystem::permissions(runtime, std::filesystem::perms::owner_all);
}

} // namespace

} // namespace frimbolate::test
