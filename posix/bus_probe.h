// Whether the message buses of the desktop answer, found out within a time limit. Knows no Qt.
//
// Qt connects to them while the application is being made, and waits without a limit for a bus that
// takes the connection and then says nothing, as a stopped one does.
#pragma once

#include "posix/file_descriptor.h"

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace frimbolate {

/// The sockets of a bus address such as "unix:path=/run/user/1000/bus,guid=0123", in its order and
/// as connectToLocalSocket() takes them. An entry of another kind ends the list.
std::vector<std::string> busSockets(std::string_view address);

/// When to give up waiting for any of the buses.
using Deadline = std::chrono::steady_clock::time_point;

/// What is known of a bus at the deadline.
struct BusStatus {
    /// The bus took the connection and did not answer. One that cannot be connected to, or hangs
    /// up, is not that: Qt goes on at once then.
    bool isUnresponsive = false;
    /// The service that tells the address of the accessibility bus is there and did not answer.
    bool isAccessibilityUnresponsive = false;
    /// The address of the accessibility bus; empty where none is there.
    std::string accessibilityAddress;
};

enum class Question { greeting, accessibilityBus };

/// Authenticates on a bus and says hello as a client does, then asks for the accessibility bus if
/// that is the question. Starts no service. What has arrived already is read after the deadline,
/// too.
/// \param socket connected to the bus
BusStatus probeConnectedBus(FileDescriptor socket, Question question, Deadline deadline);

/// The same with the first bus of an address that accepts a connection.
BusStatus probeBus(const std::string& address, Question question, Deadline deadline);

/// Where the buses are, as the environment and the X server tell.
struct BusAddresses {
    std::string session;       ///< DBUS_SESSION_BUS_ADDRESS, or the place where it is otherwise
    std::string accessibility; ///< AT_SPI_BUS_ADDRESS; else the session bus is asked
    std::string onXServer;     ///< AT_SPI_BUS of the X server
};

/// Where the accessibility bus may be, once the session bus has answered.
std::vector<std::string> accessibilityAddresses(const BusAddresses& addresses,
                                                const BusStatus& session);

struct UnresponsiveBuses {
    bool session = false, accessibility = false;
};

/// \param limit for all of them together
UnresponsiveBuses unresponsiveBuses(const BusAddresses& addresses, std::chrono::milliseconds limit);

} // namespace frimbolate
