// As much of the wire format of D-Bus as it takes to call a method without arguments and to read a
// text as its answer. Knows no Qt.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace frimbolate {

struct BusCall {
    std::uint32_t serial; ///< not 0
    std::string destination, path, interface, member;
};

/// The bytes of a call, in the machine's order. It starts no service that is not there.
std::string busCall(const BusCall& call);

struct BusMessage {
    std::uint32_t answers = 0; ///< serial of the call to which this is the return or the error
    std::string text;          ///< what the call returned, where that is one text; else empty
};

/// The size in bytes of the message at the front, 0 where too little is there to tell; nothing
/// where it is no message, or one of another byte order.
std::optional<std::size_t> busMessageSize(std::string_view bytes);

/// \param bytes one whole message; what follows on damage in it is left out
BusMessage parsedBusMessage(std::string_view bytes);

} // namespace frimbolate
