// The part of the D-Bus wire format that a method call without arguments and an answer with one
// text need.
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

/// The bytes of a call, in the machine's byte order. The call never starts a service.
std::string busCall(const BusCall& call);

struct BusMessage {
    std::uint32_t answers = 0; ///< serial of the call that this is the return or the error of
    std::string text;          ///< the returned value if it is one text, else empty
};

/// The size in bytes of the first message; 0 where more bytes are needed to tell. Nothing where the
/// bytes are no message, or one of another byte order.
std::optional<std::size_t> busMessageSize(std::string_view bytes);

/// Parses a message up to the first damaged field.
/// \param bytes one complete message
BusMessage parsedBusMessage(std::string_view bytes);

} // namespace frimbolate
