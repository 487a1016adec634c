// Checks within a time limit whether the message buses of the desktop answer.
//
// Qt connects to them in the constructor of the application, and waits without a limit for a bus
// that accepts the connection and does not answer, such as a stopped process.
#pragma once

#include "posix/file_descriptor.h"

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace frimbolate {

/// The sockets of a bus address such as "unix:path=/run/user/1000/bus,guid=0123", in its order and
/// in the form of connectToLocalSocket(). An entry of another kind ends the list.
std::vector<std::string> busSockets(std::string_view address);

/// The moment to stop waiting for a bus.
using Deadline = std::chrono::steady_clock::time_point;

/// The state of a bus at the deadline.
struct BusStatus {
    /// The bus accepted the connection and did not answer. False for a bus that rejects or closes
    /// the connection: Qt does not wait for it.
    bool isUnresponsive = false;
    /// The service that gives the address of the accessibility bus exists and did not answer.
    bool isAccessibilityUnresponsive = false;
    /// The address of the accessibility bus; empty where there is none.
    std::string accessibilityAddress;
};

enum class Question { greeting, accessibilityBus };

/// Authenticates on a bus and calls Hello as a client does, then asks for the accessibility bus if
/// that is the question. Starts no service. Data that has arrived is read also after the deadline.
/// \param socket connected to the bus
BusStatus probeConnectedBus(FileDescriptor socket, Question question, Deadline deadline);

/// The same with the first bus of an address that accepts a connection.
BusStatus probeBus(const std::string& address, Question question, Deadline deadline);

/// The addresses of the buses from the environment and the X server.
struct BusAddresses {
    std::string session;       ///< DBUS_SESSION_BUS_ADDRESS, or the default address
    std::string accessibility; ///< AT_SPI_BUS_ADDRESS; if empty, the session bus is asked
    std::string onXServer;     ///< AT_SPI_BUS of the X server
};

/// The possible addresses of the accessibility bus, after the session bus was asked.
std::vector<std::string> accessibilityAddresses(const BusAddresses& addresses,
                                                const BusStatus& session);

struct UnresponsiveBuses {
    bool session = false, accessibility = false;
};

/// Probes the session bus and the accessibility bus.
/// \param limit for all probes together
UnresponsiveBuses unresponsiveBuses(const BusAddresses& addresses, std::chrono::milliseconds limit);

} // namespace frimbolate
