#include "posix/bus_messages.h"

#include <bit>
#include <cstring>

namespace frimbolate {

namespace {

constexpr char byteOrder = std::endian::native == std::endian::little ? 'l' : 'B';
constexpr char methodCall = 1, methodReturn = 2, methodError = 3;
constexpr char noAutoStart = 2, version = 1;
/// The codes of the header fields.
constexpr char pathField = 1, interfaceField = 2, memberField = 3, answersField = 5,
               destinationField = 6, signatureField = 8;
/// Bytes before the header fields: order, type, flags, version, and three numbers.
constexpr std::size_t fixedSize = 16;

constexpr std::size_t aligned(std::size_t position, std::size_t size) {
    return (position + size - 1) / size * size;
}

void append(std::string& bytes, std::uint32_t number) {
    bytes.append(aligned(bytes.size(), 4) - bytes.size(), '\0');
    bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
}

void append(std::string& bytes, char field, char type, std::string_view text) {
    bytes.append(aligned(bytes.size(), 8) - bytes.size(), '\0');
    bytes += {field, 1, type, 0};
    append(bytes, static_cast<std::uint32_t>(text.size()));
    bytes.append(text);
    bytes += '\0';
}

std::uint32_t numberAt(std::string_view bytes, std::size_t position) {
    std::uint32_t number = 0;
    std::memcpy(&number, bytes.data() + position, sizeof number);
    return number;
}

/// Iterates over the header fields of one message.
class Fields {
  public:
    Fields(std::string_view bytes, std::size_t end) : bytes_(bytes.substr(0, end)) {}

    /// Reads the next field. Returns whether there is one, of a type that occurs in headers.
    bool next() {
        position_ = aligned(position_, 8);
        if (position_ + 4 > bytes_.size() || bytes_[position_ + 1] != 1 || bytes_[position_ + 3])
            return false;
        code_ = bytes_[position_];
        const char type = bytes_[position_ + 2];
        position_ += 4;
        value_ = {};
        if (type == 'u')
            return take(4);
        if (type == 'g' && take(1))
            return takeText(static_cast<unsigned char>(value_.front()));
        return (type == 's' || type == 'o') && take(4) && takeText(numberAt(value_, 0));
    }
    char code() const { return code_; }
    std::string_view value() const { return value_; }

  private:
    bool take(std::size_t size) {
        if (size > bytes_.size() - position_)
            return false;
        value_ = bytes_.substr(position_, size);
        position_ += size;
        return true;
    }
    /// A text ends with a NUL that its size does not count.
    bool takeText(std::size_t size) {
        if (!take(size + 1))
            return false;
        value_.remove_suffix(1);
        return true;
    }

    std::string_view bytes_;
    std::size_t position_ = fixedSize;
    char code_ = 0;
    std::string_view value_;
};

} // namespace

std::string busCall(const BusCall& call) {
    std::string bytes{byteOrder, methodCall, noAutoStart, version};
    append(bytes, 0U); // size of the body
    append(bytes, call.serial);
    append(bytes, 0U); // size of the fields, known below
    append(bytes, pathField, 'o', call.path);
    append(bytes, interfaceField, 's', call.interface);
    append(bytes, memberField, 's', call.member);
    append(bytes, destinationField, 's', call.destination);
    const auto size = static_cast<std::uint32_t>(bytes.size() - fixedSize);
    std::memcpy(bytes.data() + fixedSize - sizeof size, &size, sizeof size);
    bytes.append(aligned(bytes.size(), 8) - bytes.size(), '\0');
    return bytes;
}

std::optional<std::size_t> busMessageSize(std::string_view bytes) {
    if (!bytes.empty() && bytes.front() != byteOrder)
        return std::nullopt;
    if (bytes.size() < fixedSize)
        return 0;
    return aligned(fixedSize + std::size_t{numberAt(bytes, 12)}, 8) + numberAt(bytes, 4);
}

BusMessage parsedBusMessage(std::string_view bytes) {
    BusMessage message;
    if (bytes.size() < fixedSize || (bytes[1] != methodReturn && bytes[1] != methodError))
        return message;
    const std::size_t end = fixedSize + std::size_t{numberAt(bytes, 12)};
    bool isText = false;
    for (Fields fields(bytes, end); fields.next();) {
        if (fields.code() == answersField && fields.value().size() == sizeof message.answers)
            message.answers = numberAt(fields.value(), 0);
        else if (fields.code() == signatureField)
            isText = fields.value() == "s";
    }
    const std::size_t body = aligned(end, 8);
    if (bytes[1] == methodReturn && isText && body + 4 <= bytes.size())
        message.text = bytes.substr(body + 4, numberAt(bytes, body));
    return message;
}

} // namespace frimbolate
