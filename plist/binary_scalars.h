// Decodes single objects of a binary property list. Each starts with a marker byte.
#pragma once

#include "core/value.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace frimbolate {

/// \throws NamedError "Unreadable property list", always
[[noreturn]] void failBinary(const std::string& reason);

/// An unsigned number of a fixed size in bytes, most significant first. Written so that compilers
/// emit one load instruction.
template <std::size_t size>
std::uint64_t fixedBigEndian(const char* bytes) {
    std::uint64_t number = 0;
    [&]<std::size_t... i>(std::index_sequence<i...>) {
        ((number |= std::uint64_t{static_cast<unsigned char>(bytes[i])} << (8 * (size - 1 - i))),
         ...);
    }
    (std::make_index_sequence<size>{});
    return number;
}

/// An unsigned number, most significant byte first. Only the last eight bytes are used.
inline std::uint64_t bigEndianNumber(std::string_view bytes) {
    switch (bytes.size()) {
    case 1:
        return static_cast<unsigned char>(bytes.front());
    case 2:
        return fixedBigEndian<2>(bytes.data());
    case 4:
        return fixedBigEndian<4>(bytes.data());
    case 8:
        return fixedBigEndian<8>(bytes.data());
    default:
        std::uint64_t number = 0;
        for (const char byte : bytes)
            number = (number << 8) | static_cast<unsigned char>(byte);
        return number;
    }
}

/// The upper four bits of a marker.
enum class BinaryKind : unsigned char {
    singleton = 0x0,
    integer = 0x1,
    real = 0x2,
    date = 0x3,
    data = 0x4,
    ascii = 0x5,
    utf16 = 0x6,
    uid = 0x8,
    array = 0xa,
    set = 0xc,
    dictionary = 0xd
};

struct BinaryObject {
    BinaryKind kind;
    unsigned nibble; ///< the lower four bits: a size, a count, or the number of a singleton

    bool isText() const { return kind == BinaryKind::ascii || kind == BinaryKind::utf16; }
    bool isContainer() const { return kind == BinaryKind::array || kind == BinaryKind::dictionary; }
};

/// A position among the objects, whose bytes must outlive it. Every step is checked against their
/// end.
/// \throws NamedError "Unreadable property list"
class BinaryCursor {
  public:
    BinaryCursor(std::string_view objects, std::size_t offset)
        : objects_(objects), position_(offset) {}

    /// Advances past a marker.
    BinaryObject object() {
        const auto marker = static_cast<unsigned char>(take(1).front());
        return {static_cast<BinaryKind>(marker >> 4), marker & 0x0fU};
    }
    /// Advances past the count of an object. A count below 15 is in its marker, any other in an
    /// integer after the marker.
    std::uint64_t count(BinaryObject object) {
        return object.nibble == 0x0f ? longCount() : object.nibble;
    }
    /// Advances past the count and the bytes of a text or data.
    std::string_view content(BinaryObject object) {
        const std::uint64_t length = count(object);
        return take(length, object.kind == BinaryKind::utf16 ? 2 : 1);
    }
    /// Advances past a number of items of a size in bytes.
    std::string_view take(std::uint64_t count, std::size_t size = 1) {
        const std::size_t left = objects_.size() - position_;
        if (count > left || count * size > left)
            failBeyondEnd();
        const std::string_view bytes(objects_.data() + position_, count * size);
        position_ += bytes.size();
        return bytes;
    }

  private:
    std::uint64_t longCount();
    [[noreturn]] static void failBeyondEnd();

    std::string_view objects_;
    std::size_t position_;
};

/// The value of an object that is neither container, text nor data.
/// \param in positioned after the marker of the object
/// \throws NamedError "Unreadable property list"
Value readBinaryScalar(BinaryObject object, BinaryCursor in);

/// The content of a text object as UTF-8.
/// \throws NamedError "Unreadable property list"
std::string decodeBinaryText(BinaryKind kind, std::string_view bytes);

} // namespace frimbolate
