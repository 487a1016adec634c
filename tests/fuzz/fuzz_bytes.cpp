#include "tests/fuzz/fuzz_bytes.h"

#include "core/launchd_keys.h"
#include "core/named_error.h"
#include "plist/property_list_reader.h"

#include <algorithm>
#include <bit>
#include <iterator>

namespace frimbolate::test {

namespace {

constexpr const char* usualTexts[] = {
    "",
    "/bin/sh",
    "-c",
    "com.frimbolate.Backup",
    "com.fr\u0131mbolate.Backup",
    "/Users/ada/backup.sh",
    "~/backup.sh",
    "$HOME/backup",
    "osascript",
    "true",
    "NO",
    "300",
    "-7",
    "Desktop/a",
    "/Users/ada/Desktop/a.log",
    "\x1b[31m\xc2\x9b",
};

} // namespace

std::uint8_t FuzzBytes::byte() {
    if (rest_.empty())
        return 0;
    const auto first = static_cast<std::uint8_t>(rest_.front());
    rest_.remove_prefix(1);
    return first;
}

std::uint64_t FuzzBytes::number(int bytes) {
    std::uint64_t result = 0;
    for (; bytes > 0; --bytes)
        result = result << 8 | byte();
    return result;
}

std::size_t FuzzBytes::below(std::size_t bound) { return number(bound > 256 ? 2 : 1) % bound; }

std::string FuzzBytes::text() {
    const std::size_t kind = byte();
    if (kind < std::size(usualTexts))
        return usualTexts[kind];
    const std::string_view taken = rest_.substr(0, kind - std::size(usualTexts));
    rest_.remove_prefix(taken.size());
    return std::string(taken);
}

Value FuzzBytes::value(int depth) {
    constexpr std::size_t flatKinds = 8, mostElements = 6;
    switch (below(depth > 0 ? flatKinds + 4 : flatKinds)) {
    case 0:
    case 1:
        return text();
    case 2:
        return byte() % 2 == 1;
    case 3: // as hours, days and levels are
        return static_cast<int>(byte()) - 100;
    case 4:
        return number(8);
    case 5:
        return std::bit_cast<double>(number(8));
    case 6:
        return Date{static_cast<std::int32_t>(number(4))};
    case 7: {
        const std::string bytes = text();
        return Data{{bytes.begin(), bytes.end()}};
    }
    case 8:
    case 9: {
        Array array;
        for (std::size_t left = below(mostElements); left > 0; --left)
            array.push_back(value(depth - 1));
        return array;
    }
    default:
        return dictionary(depth - 1);
    }
}

Dictionary FuzzBytes::dictionary(int depth) {
    constexpr std::size_t mostEntries = 10, otherKeys = 8;
    const auto keys = launchdKeys();
    Dictionary result;
    for (std::size_t left = below(mostEntries); left > 0 && !atEnd(); --left) {
        const std::size_t index = below(keys.size() + otherKeys);
        std::string key = index < keys.size() ? std::string(keys[index].name) : text();
        result.insert_or_assign(std::move(key), value(depth));
    }
    return result;
}

Value fuzzedAgent(std::string_view input) {
    try {
        return readPropertyList(input);
    } catch (const NamedError&) {
        constexpr int usualDepth = 3;
        return FuzzBytes(input).dictionary(usualDepth);
    }
}

} // namespace frimbolate::test
