#include "tests/platform/property_lists.h"

#include <array>
#include <bit>
#include <cmath>
#include <limits>

namespace frimbolate::test {

namespace {

using Random = std::mt19937_64;

std::uint64_t below(Random& random, std::uint64_t limit) { return random() % limit; }

std::string randomText(Random& random) {
    static constexpr std::array<const char*, 18> pieces = {"a",   "Z", "7",       " ", "\t",   "\n",
                                                           "\r",  "&", "<",       ">", "\"",   "'",
                                                           "]]>", "é", "e\u0301", "ı", "日本", "😀"};
    std::string text;
    for (auto length = below(random, 12); length > 0; --length)
        text += pieces[below(random, pieces.size())];
    return text;
}

Value randomInteger(Random& random) {
    static constexpr auto lowest = std::numeric_limits<std::int64_t>::min();
    static constexpr auto highest = std::numeric_limits<std::int64_t>::max();
    const std::array<Value, 8> edges = {0,
                                        -1,
                                        255,
                                        lowest,
                                        highest,
                                        std::uint64_t{1} << 63,
                                        std::numeric_limits<std::uint64_t>::max(),
                                        4294967296};
    const auto choice = below(random, 2 * edges.size());
    return choice < edges.size() ? edges[choice] : Value(random());
}

double randomReal(Random& random) {
    const double number = std::bit_cast<double>(random());
    return std::isnan(number) ? 0.1 : number;
}

Data randomData(Random& random) {
    Data data;
    for (auto length = below(random, 120); length > 0; --length)
        data.bytes.push_back(static_cast<std::uint8_t>(random()));
    return data;
}

/// From the beginning of the year 1 to the end of the year 9999.
Date randomDate(Random& random) {
    constexpr std::int64_t first = -62135596800;
    constexpr std::int64_t last = 253402300799;
    return Date{first + static_cast<std::int64_t>(below(random, last - first + 1))};
}

Value randomValue(Random& random, int depth) {
    switch (below(random, depth > 0 ? 8 : 6)) {
    case 0:
        return randomText(random);
    case 1:
        return below(random, 2) == 0;
    case 2:
        return randomInteger(random);
    case 3:
        return randomReal(random);
    case 4:
        return randomData(random);
    case 5:
        return randomDate(random);
    case 6: {
        Array array;
        for (auto size = below(random, 5); size > 0; --size)
            array.push_back(randomValue(random, depth - 1));
        return array;
    }
    default: {
        Dictionary dictionary;
        for (auto size = below(random, 5); size > 0; --size)
            dictionary.insert_or_assign(randomText(random), randomValue(random, depth - 1));
        return dictionary;
    }
    }
}

} // namespace

QByteArray xmlFile(std::string_view body) {
    return QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                      "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                      "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                      "<plist version=\"1.0\">") +
           QByteArray(body.data(), static_cast<qsizetype>(body.size())) + "</plist>\n";
}

std::string bigEndian(std::uint64_t number, unsigned size) {
    std::string bytes(size, '\0');
    for (unsigned i = size; i-- > 0; number >>= 8)
        bytes[i] = static_cast<char>(number & 0xff);
    return bytes;
}

QByteArray BinaryFile::bytes() const {
    std::string file = "bplist00";
    std::string table;
    for (const auto& object : objects) {
        table += bigEndian(file.size(), offsetSize);
        file += object;
    }
    const auto tableStart = file.size();
    file += table + std::string(6, '\0') + static_cast<char>(offsetSize) +
            static_cast<char>(referenceSize) + bigEndian(objects.size(), 8) + bigEndian(0, 8) +
            bigEndian(tableStart, 8);
    return QByteArray::fromStdString(file);
}

Dictionary randomDictionary(Random& random) {
    Dictionary dictionary;
    for (int i = 0; i < 12; ++i)
        dictionary.insert_or_assign(randomText(random), randomValue(random, 4));
    return dictionary;
}

} // namespace frimbolate::test
