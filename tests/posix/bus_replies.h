// Messages of a bus in the wire format of D-Bus.
#pragma once

#include <bit>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace frimbolate::test {

/// Builds a message field by field, each aligned as its type requires.
class BusBytes {
  public:
    void align(std::size_t size) { bytes_.append((size - bytes_.size() % size) % size, '\0'); }
    void number(std::uint32_t value) {
        align(4);
        bytes_.append(reinterpret_cast<const char*>(&value), sizeof value);
    }
    void text(std::string_view value) {
        number(static_cast<std::uint32_t>(value.size()));
        bytes_.append(value);
        bytes_ += '\0';
    }
    void field(char code, char type) {
        align(8);
        bytes_ += {code, 1, type, 0};
    }
    void signature(std::string_view value) {
        field(8, 'g');
        bytes_ += static_cast<char>(value.size());
        bytes_.append(value);
        bytes_ += '\0';
    }
    const std::string& bytes() const { return bytes_; }

  private:
    std::string bytes_;
};

/// \param type 2 for a return, 3 for an error, 4 for a signal
inline std::string busMessage(char type, const std::string& fields,
                              const std::optional<std::string>& text) {
    BusBytes body;
    if (text)
        body.text(*text);
    BusBytes head;
    head.number(static_cast<std::uint32_t>(body.bytes().size()));
    head.number(99); // serial of the reply
    head.number(static_cast<std::uint32_t>(fields.size()));
    const char order = std::endian::native == std::endian::little ? 'l' : 'B';
    std::string bytes = std::string{order, type, 1, 1} + head.bytes() + fields;
    bytes.append((8 - bytes.size() % 8) % 8, '\0');
    return bytes + body.bytes();
}

/// The fields begin at an offset that is aligned as the start of the message is.
inline std::string busReturn(std::uint32_t serial, const std::optional<std::string>& text) {
    BusBytes fields;
    fields.field(5, 'u');
    fields.number(serial);
    fields.field(7, 's');
    fields.text("org.freedesktop.DBus");
    if (text)
        fields.signature("s");
    return busMessage(2, fields.bytes(), text);
}

inline std::string busError(std::uint32_t serial, const std::string& text) {
    BusBytes fields;
    fields.field(4, 's');
    fields.text("org.freedesktop.DBus.Error.NameHasNoOwner");
    fields.field(5, 'u');
    fields.number(serial);
    fields.signature("s");
    return busMessage(3, fields.bytes(), text);
}

inline std::string busSignal(const std::string& member, const std::string& text) {
    BusBytes fields;
    fields.field(1, 'o');
    fields.text("/org/freedesktop/DBus");
    fields.field(3, 's');
    fields.text(member);
    fields.signature("s");
    return busMessage(4, fields.bytes(), text);
}

} // namespace frimbolate::test
