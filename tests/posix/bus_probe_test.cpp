#include "posix/bus_probe.h"
#include "posix/file_descriptor.h"
#include "tests/posix/bus_replies.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/watchdog.h"

#include <gtest/gtest.h>

#include <sys/socket.h>
#include <sys/un.h>
#include <tuple>
#include <unistd.h>

namespace frimbolate::test {

namespace {

using namespace std::string_literals;

/// A listening socket that accepts no connection.
class Listening {
  public:
    explicit Listening(const std::string& path, int backlog = 5)
        : socket_(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        EXPECT_EQ(
            ::bind(socket_.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address),
            0);
        EXPECT_EQ(::listen(socket_.number(), backlog), 0);
    }

  private:
    FileDescriptor socket_;
};

const std::string accepted = "OK 0123456789abcdef\r\n";
const std::string welcome = busReturn(1, ":1.1") + busSignal("NameAcquired", ":1.1");
const std::string told = busReturn(2, "unix:abstract=a11y");

struct BusRow {
    const char* name;
    std::string said; ///< the bytes that the bus sends before it stops answering
    bool isUnresponsive, isAccessibilityUnresponsive;
    std::string accessibilityAddress;
    bool hangsUp = false; ///< closes the connection instead of keeping it open
};

void PrintTo(const BusRow& row, std::ostream* out) { *out << row.name; }

class ConnectedBus : public testing::TestWithParam<BusRow> {};

TEST_P(ConnectedBus, EndsWhereTheBusFallsSilent) {
    const Watchdog watchdog;
    int ends[2] = {-1, -1};
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM, 0, ends), 0);
    const FileDescriptor bus(ends[0]);
    ASSERT_TRUE(writeWholly(bus.number(), GetParam().said));
    if (GetParam().hangsUp)
        ::shutdown(bus.number(), SHUT_WR);
    // Everything that the bus sends is in the socket, so a deadline in the past suffices.
    const auto answer =
        probeConnectedBus(FileDescriptor(ends[1]), Question::accessibilityBus, Deadline());
    EXPECT_EQ(answer.isUnresponsive, GetParam().isUnresponsive);
    EXPECT_EQ(answer.isAccessibilityUnresponsive, GetParam().isAccessibilityUnresponsive);
    EXPECT_EQ(answer.accessibilityAddress, GetParam().accessibilityAddress);
}

TEST(BusProbeProtocol, NamesItsUserAndBeginsBeforeItsFirstMessage) {
    const Watchdog watchdog;
    int ends[2] = {-1, -1};
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM, 0, ends), 0);
    const FileDescriptor bus(ends[0]);
    ASSERT_TRUE(writeWholly(bus.number(), accepted + welcome + told));
    probeConnectedBus(FileDescriptor(ends[1]), Question::accessibilityBus, Deadline());
    std::string user;
    for (const char digit : std::to_string(::geteuid()))
        user += std::string("3") + digit;
    const std::string greeting = "\0AUTH EXTERNAL "s + user + "\r\nBEGIN\r\n";
    std::string sent(greeting.size() + 1, ' ');
    ASSERT_EQ(::recv(bus.number(), sent.data(), sent.size(), MSG_WAITALL), ssize_t(sent.size()));
    const char order = sent.back(); // of the bytes of the first message
    EXPECT_EQ(sent, greeting + order);
    EXPECT_TRUE(order == 'l' || order == 'B') << order;
}

INSTANTIATE_TEST_SUITE_P(
    BusProbe, ConnectedBus,
    testing::Values(
        BusRow{"Healthy", accepted + welcome + told, false, false, "unix:abstract=a11y"},
        BusRow{"SignalsInBetween",
               accepted + busSignal("A", "b") + welcome + busSignal("A", "b") + told, false, false,
               "unix:abstract=a11y"},
        BusRow{"NoAccessibilityBus", accepted + welcome + busError(2, "No owner"), false, false,
               ""},
        BusRow{"MuteAccessibilityService", accepted + welcome, false, true, ""},
        BusRow{"MuteWithinItsAnswer", accepted + welcome + told.substr(0, told.size() - 1), false,
               true, ""},
        BusRow{"MuteFromTheBeginning", "", true, false, ""},
        BusRow{"MuteWithinALine", "OK 0123", true, false, ""},
        BusRow{"MuteAfterAuthentication", accepted, true, false, ""},
        BusRow{"MuteWithinAMessage", accepted + welcome.substr(0, 30), true, false, ""},
        // None of these blocks, so the toolkit may handle them.
        BusRow{"HangsUp", "", false, false, "", true},
        BusRow{"HangsUpLater", accepted + welcome, false, false, "", true},
        BusRow{"Rejects", "REJECTED EXTERNAL\r\n", false, false, ""},
        BusRow{"OtherProtocol", accepted + "HTTP/1.1 400 Bad Request\r\n", false, false, ""},
        BusRow{"NeverEndingLine", std::string(100000, 'x'), false, false, ""}),
    [](const auto& row) { return std::string(row.param.name); });

class BusProbeTest : public testing::Test {
  protected:
    Watchdog watchdog;
    TemporaryFolder folder;
    std::string path = folder / "bus";
    std::string address = "unix:path=" + path;
};

TEST_F(BusProbeTest, AListenerThatTakesNoConnectionIsMute) {
    EXPECT_FALSE(probeBus(address, Question::greeting, Deadline()).isUnresponsive)
        << "nobody listens";
    const Listening listening(path);
    EXPECT_TRUE(probeBus(address, Question::greeting, Deadline()).isUnresponsive);
}

TEST_F(BusProbeTest, AListenerWithAFullQueueIsMute) {
    const Listening listening(path, 0);
    std::vector<FileDescriptor> queue;
    sockaddr_un name{};
    name.sun_family = AF_UNIX;
    path.copy(name.sun_path, sizeof name.sun_path - 1);
    for (int taken = 0; taken == 0;) {
        queue.emplace_back(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0));
        taken =
            ::connect(queue.back().number(), reinterpret_cast<const sockaddr*>(&name), sizeof name);
    }
    EXPECT_TRUE(probeBus(address, Question::greeting, Deadline::max()).isUnresponsive);
}

TEST_F(BusProbeTest, TheFirstThatTakesTheConnectionCounts) {
    const Listening listening(path);
    const std::string gone = "unix:path=" + (folder / "gone");
    EXPECT_TRUE(probeBus(gone + ";" + address, Question::greeting, Deadline()).isUnresponsive);
    EXPECT_FALSE(
        probeBus(gone + ";tcp:host=localhost,port=1;" + address, Question::greeting, Deadline())
            .isUnresponsive)
        << "an address of another kind is not tried";
}

TEST_F(BusProbeTest, EachBusCanBeMute) {
    using namespace std::chrono_literals;
    const Listening listening(path);
    for (const auto& [addresses, session, accessibility] :
         {std::tuple{BusAddresses{address, "", ""}, true, false},
          {BusAddresses{"", address, ""}, false, true},
          {BusAddresses{"", "", address}, false, true},
          {BusAddresses{address, address, ""}, true, true},
          {BusAddresses{"disabled:", "disabled:", address}, false, false}}) {
        const UnresponsiveBuses mute = unresponsiveBuses(addresses, 1ms);
        EXPECT_EQ(mute.session, session);
        EXPECT_EQ(mute.accessibility, accessibility);
    }
}

TEST_F(BusProbeTest, TheAccessibilityBusMayBeInSeveralPlaces) {
    BusStatus session;
    session.accessibilityAddress = "told";
    using Addresses = std::vector<std::string>;
    EXPECT_EQ(accessibilityAddresses({"", "", "x"}, session), (Addresses{"told", "x"}));
    EXPECT_EQ(accessibilityAddresses({"", "named", "x"}, session), (Addresses{"named"}));
}

// Addresses

struct AddressRow {
    const char* name;
    const char* address;
    std::vector<std::string> sockets;
};

void PrintTo(const AddressRow& row, std::ostream* out) { *out << row.name; }

class BusAddress : public testing::TestWithParam<AddressRow> {};

TEST_P(BusAddress, NamesItsSockets) {
    EXPECT_EQ(busSockets(GetParam().address), GetParam().sockets);
}

INSTANTIATE_TEST_SUITE_P(
    BusProbe, BusAddress,
    testing::Values(AddressRow{"Path", "unix:path=/run/user/1000/bus", {"/run/user/1000/bus"}},
                    AddressRow{"PathAndGuid", "unix:path=/a,guid=01", {"/a"}},
                    AddressRow{"GuidAndPath", "unix:guid=01,path=/a", {"/a"}},
                    AddressRow{"Abstract", "unix:abstract=/tmp/dbus-x,guid=01", {"\0/tmp/dbus-x"s}},
                    AddressRow{"Escaped", "unix:path=/a%20b%2cc", {"/a b,c"}},
                    AddressRow{"EscapedBadly", "unix:path=/a%2", {"/a%2"}},
                    AddressRow{"NoDigits", "unix:path=/a%zzb", {"/a%zzb"}},
                    AddressRow{"Several", "unix:path=/a;unix:path=/b", {"/a", "/b"}},
                    AddressRow{"OtherKind", "tcp:host=localhost,port=1", {}},
                    AddressRow{
                        "OtherKindInBetween", "unix:path=/a;autolaunch:;unix:path=/b", {"/a"}},
                    AddressRow{"Disabled", "disabled:", {}}, AddressRow{"Empty", "", {}},
                    AddressRow{"NoPath", "unix:tmpdir=/tmp", {}}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace

} // namespace frimbolate::test
