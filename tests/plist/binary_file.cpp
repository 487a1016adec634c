#include "tests/plist/binary_file.h"

#include <bit>

namespace frimbolate::test {

namespace {

constexpr unsigned referenceSize = 4;

class Encoder {
  public:
    std::vector<std::string> objects;

    /// Adds a value and its content, and returns its object number.
    std::size_t add(const Value& value) {
        const std::size_t number = objects.size();
        objects.emplace_back();
        std::string bytes = encoded(value);
        objects[number] = std::move(bytes);
        return number;
    }

  private:
    static std::string marker(unsigned kind, std::size_t count) {
        const auto byte = [](std::size_t number) {
            return std::string(1, static_cast<char>(number));
        };
        if (count < 15)
            return byte(kind << 4 | count);
        return byte(kind << 4 | 15U) + "\x12" + bigEndian(count, 4);
    }

    /// Eight bytes after their marker.
    static std::string numberObject(char kind, std::uint64_t bits) {
        return std::string(1, kind).append(bigEndian(bits, 8));
    }

    std::string reference(const Value& value) { return bigEndian(add(value), referenceSize); }

    std::string encoded(const Value& value) {
        if (const auto* text = value.string())
            return textObject(*text);
        if (const auto* truth = value.boolean())
            return *truth ? "\x09" : "\x08";
        if (const auto* number = value.integer())
            return numberObject(0x13, static_cast<std::uint64_t>(*number));
        if (const auto* bigNumber = value.bigInteger())
            return std::string(1, '\x14').append(bigEndian(0, 8)).append(bigEndian(*bigNumber, 8));
        if (const auto* real = value.real())
            return numberObject(0x23, std::bit_cast<std::uint64_t>(*real));
        if (const auto* date = value.date()) {
            const auto seconds = static_cast<double>(date->secondsSinceEpoch - 978307200);
            return numberObject(0x33, std::bit_cast<std::uint64_t>(seconds));
        }
        if (const auto* data = value.data())
            return marker(4, data->bytes.size()) +
                   std::string(data->bytes.begin(), data->bytes.end());
        return container(value);
    }

    std::string container(const Value& value) {
        std::string keys;
        std::string values;
        if (const auto* array = value.array()) {
            for (const Value& element : *array)
                values += reference(element);
            return marker(10, array->size()) + values;
        }
        for (const auto& [key, entry] : value.asDictionary()) {
            keys += reference(key);
            values += reference(entry);
        }
        return marker(13, value.asDictionary().size()) + keys + values;
    }

    static std::string textObject(const std::string& text) {
        std::string units;
        bool isAscii = true;
        for (std::size_t i = 0; i < text.size();) {
            const auto lead = static_cast<unsigned char>(text[i]);
            const std::size_t size = lead < 0x80 ? 1 : lead < 0xe0 ? 2 : lead < 0xf0 ? 3 : 4;
            std::uint32_t character = size == 1 ? lead : lead & (0xffU >> (size + 1));
            for (std::size_t j = 1; j < size; ++j)
                character = character << 6 | (static_cast<unsigned char>(text[i + j]) & 0x3fU);
            isAscii = isAscii && size == 1;
            if (character >= 0x10000)
                units += bigEndian(0xd7c0 + (character >> 10), 2) +
                         bigEndian(0xdc00 + (character & 0x3ff), 2);
            else
                units += bigEndian(character, 2);
            i += size;
        }
        return isAscii ? marker(5, text.size()) + text : marker(6, units.size() / 2) + units;
    }
};

} // namespace

std::string bigEndian(std::uint64_t number, unsigned size) {
    std::string bytes(size, '\0');
    for (unsigned i = size; i-- > 0; number >>= 8)
        bytes[i] = static_cast<char>(number & 0xff);
    return bytes;
}

std::string BinaryFile::bytes() const {
    std::string file = magic;
    std::string table;
    for (const auto& object : objects) {
        table += bigEndian(file.size(), offsetSize);
        file += object;
    }
    const auto tableStart = file.size();
    return file + table + std::string(6, '\0') + static_cast<char>(offsetSize) +
           static_cast<char>(referenceSize) + bigEndian(objects.size(), 8) + bigEndian(0, 8) +
           bigEndian(tableStart, 8);
}

std::string binaryPlist(const Value& value) {
    Encoder encoder;
    encoder.add(value);
    return BinaryFile{std::move(encoder.objects), 4, referenceSize}.bytes();
}

} // namespace frimbolate::test
