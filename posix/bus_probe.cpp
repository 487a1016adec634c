#include "posix/bus_probe.h"

#include "posix/bus_messages.h"
#include "posix/local_socket.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <poll.h>
#include <sys/socket.h>

namespace frimbolate {

namespace {

/// Thrown when the deadline passes.
struct TimedOut {};
/// Thrown when the other side disconnects or breaks the protocol. Qt detects both without waiting.
struct Disconnected {};

/// A connection on which no call waits beyond the deadline.
/// \throws TimedOut, Disconnected from send(), line() and message()
class BusConnection {
  public:
    BusConnection(FileDescriptor socket, Deadline deadline)
        : socket_(std::move(socket)), deadline_(deadline) {}

    void send(std::string_view text) {
        while (!text.empty()) {
            const ssize_t sent =
                ::send(socket_.number(), text.data(), text.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
            if (sent >= 0)
                text.remove_prefix(static_cast<std::size_t>(sent));
            else
                waitFor(POLLOUT);
        }
    }
    std::string line() {
        std::size_t end = 0;
        while ((end = received_.find("\r\n")) == std::string::npos)
            receive();
        return taken(end + 2);
    }
    BusMessage message() {
        while (true) {
            const auto size = busMessageSize(received_);
            if (!size)
                throw Disconnected();
            if (*size > 0 && received_.size() >= *size)
                return parsedBusMessage(taken(*size));
            receive();
        }
    }

  private:
    void waitFor(short event) const {
        if (errno != EAGAIN && errno != EINTR)
            throw Disconnected();
        using namespace std::chrono;
        const auto left = ceil<milliseconds>(deadline_ - steady_clock::now()).count();
        pollfd state{socket_.number(), event, 0};
        if (left <= 0 || ::poll(&state, 1, static_cast<int>(left)) == 0)
            throw TimedOut();
    }
    void receive() {
        constexpr std::size_t longest = 1 << 16;
        char piece[4096];
        const ssize_t size = ::recv(socket_.number(), piece, sizeof piece, MSG_DONTWAIT);
        if (size == 0 || received_.size() > longest)
            throw Disconnected();
        if (size > 0)
            received_.append(piece, static_cast<std::size_t>(size));
        else
            waitFor(POLLIN);
    }
    std::string taken(std::size_t size) {
        std::string front = received_.substr(0, size);
        received_.erase(0, size);
        return front;
    }

    FileDescriptor socket_;
    Deadline deadline_;
    std::string received_;
};

void authenticate(BusConnection& bus) {
    std::string user;
    for (const char digit : std::to_string(::geteuid()))
        user += std::string("3") + digit; // in hexadecimal
    bus.send(std::string(1, '\0') + "AUTH EXTERNAL " + user + "\r\n");
    if (!bus.line().starts_with("OK"))
        throw Disconnected();
    bus.send("BEGIN\r\n");
}

/// The answer to the call of a serial number. Skips signals and other answers.
BusMessage answerTo(BusConnection& bus, std::uint32_t serial) {
    while (true)
        if (BusMessage message = bus.message(); message.answers == serial)
            return message;
}

void exchangeGreeting(BusConnection& bus, Question question, BusStatus& answer) {
    answer.isUnresponsive = true; // until the answer has arrived
    authenticate(bus);
    bus.send(busCall({.serial = 1,
                      .destination = "org.freedesktop.DBus",
                      .path = "/org/freedesktop/DBus",
                      .interface = "org.freedesktop.DBus",
                      .member = "Hello"}));
    answerTo(bus, 1);
    answer.isUnresponsive = false;
    if (question == Question::greeting)
        return;
    answer.isAccessibilityUnresponsive = true;
    bus.send(busCall({.serial = 2,
                      .destination = "org.a11y.Bus",
                      .path = "/org/a11y/bus",
                      .interface = "org.a11y.Bus",
                      .member = "GetAddress"}));
    answer.accessibilityAddress = answerTo(bus, 2).text;
    answer.isAccessibilityUnresponsive = false;
}

/// Decodes bytes written as % and two hexadecimal digits.
std::string unescaped(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned char byte = 0;
        const char* digits = text.data() + i + 1;
        if (text[i] == '%' && i + 2 < text.size() &&
            std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
            plain += static_cast<char>(byte);
            i += 2;
        } else {
            plain += text[i];
        }
    }
    return plain;
}

/// Calls a function with each piece between separators.
template <typename Use>
void forEachPiece(std::string_view text, char separator, Use use) {
    while (!text.empty()) {
        const std::string_view piece = text.substr(0, text.find(separator));
        text.remove_prefix(std::min(text.size(), piece.size() + 1));
        use(piece);
    }
}

/// The socket of one entry of an address; empty for an entry of another kind.
std::string socketOf(std::string_view entry) {
    constexpr std::string_view kind = "unix:", path = "path=", abstract = "abstract=";
    std::string socket;
    if (entry.starts_with(kind))
        forEachPiece(entry.substr(kind.size()), ',', [&](std::string_view pair) {
            if (pair.starts_with(path))
                socket = unescaped(pair.substr(path.size()));
            else if (pair.starts_with(abstract))
                socket.assign(1, '\0').append(unescaped(pair.substr(abstract.size())));
        });
    return socket;
}

} // namespace

std::vector<std::string> busSockets(std::string_view address) {
    std::vector<std::string> sockets;
    bool isKnown = true;
    forEachPiece(address, ';', [&](std::string_view entry) {
        const std::string socket = socketOf(entry);
        isKnown = isKnown && !socket.empty();
        if (isKnown)
            sockets.push_back(socket);
    });
    return sockets;
}

BusStatus probeConnectedBus(FileDescriptor socket, Question question, Deadline deadline) {
    BusConnection bus(std::move(socket), deadline);
    BusStatus answer;
    try {
        exchangeGreeting(bus, question, answer);
    } catch (const Disconnected&) {
        return {};
    } catch (const TimedOut&) {
    }
    return answer;
}

BusStatus probeBus(const std::string& address, Question question, Deadline deadline) {
    BusStatus answer;
    for (const std::string& path : busSockets(address)) {
        LocalConnection connection = connectToLocalSocket(path);
        if (connection.outcome == ConnectOutcome::refused)
            continue;
        answer.isUnresponsive = connection.outcome == ConnectOutcome::queueFull;
        if (answer.isUnresponsive)
            return answer;
        return probeConnectedBus(std::move(connection.socket), question, deadline);
    }
    return answer;
}

std::vector<std::string> accessibilityAddresses(const BusAddresses& addresses,
                                                const BusStatus& session) {
    if (!addresses.accessibility.empty())
        return {addresses.accessibility};
    return {session.accessibilityAddress, addresses.onXServer};
}

UnresponsiveBuses unresponsiveBuses(const BusAddresses& addresses,
                                    std::chrono::milliseconds limit) {
    const auto start = std::chrono::steady_clock::now();
    const bool isNamed = !addresses.accessibility.empty();
    // An unresponsive session bus leaves half of the time to the accessibility bus.
    const BusStatus session =
        probeBus(addresses.session, isNamed ? Question::greeting : Question::accessibilityBus,
                 start + limit / 2);
    UnresponsiveBuses buses{session.isUnresponsive, session.isAccessibilityUnresponsive};
    for (const std::string& address : accessibilityAddresses(addresses, session))
        buses.accessibility = buses.accessibility ||
                              probeBus(address, Question::greeting, start + limit).isUnresponsive;
    return buses;
}

} // namespace frimbolate
