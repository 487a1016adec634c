#include "tests/support/random_values.h"

#include <limits>

namespace frimbolate::test {

namespace {

constexpr const char* letters[] = {
    "a",  "Z",  "7",       " ",      "\n",     "\t",     "\r",     "&",
    "<",  ">",  "\"",      "'",      "\\",     "/",      ".",      "]]>",
    "--", "%@", "\u00e4",  "\u0131", "\u2028", "\u20ac", "\ufffd", "\U0001f600",
    "$$", "$",  "e\u0301", "\u0085", "\u00a0", "\u007f", "&amp;",  "<!--"};
constexpr std::int64_t edges[] = {0,
                                  1,
                                  -1,
                                  20,
                                  -20,
                                  255,
                                  65536,
                                  std::numeric_limits<std::int32_t>::max(),
                                  std::numeric_limits<std::int32_t>::min(),
                                  std::numeric_limits<std::int64_t>::max(),
                                  std::numeric_limits<std::int64_t>::min()};
constexpr double reals[] = {0.0, 0.5, -1.25, 0.1, 1e300, -1e-300, 5e-324, 12345678.9};

} // namespace

std::string RandomValues::text() {
    std::string result;
    for (auto left = below(13); left > 0; --left)
        result += oneOf(letters);
    return result;
}

std::int64_t RandomValues::integer() {
    if (coin())
        return oneOf(edges);
    const auto high = static_cast<std::uint64_t>(random_()) << 32;
    return static_cast<std::int64_t>(high | random_());
}

double RandomValues::real() {
    return coin() ? oneOf(reals) : static_cast<double>(integer()) / 1024.0;
}

Data RandomValues::data() {
    Data result;
    for (auto left = below(40); left > 0; --left)
        result.bytes.push_back(static_cast<std::uint8_t>(below(256)));
    return result;
}

Value RandomValues::value(int depth) {
    constexpr std::size_t flatKinds = 7;
    switch (below(depth > 0 ? flatKinds + 2 : flatKinds)) {
    case 0:
        return text();
    case 1:
        return coin();
    case 2:
        return integer();
    case 3: // above the signed range
        return std::numeric_limits<std::uint64_t>::max() - below(1000);
    case 4:
        return real();
    case 5:
        return data();
    case 6: // seconds from 1901 to 2106
        return Date{static_cast<std::int64_t>(random_()) - (coin() ? 2147483648LL : 0)};
    case 7: {
        Array array;
        for (auto left = below(5); left > 0; --left)
            array.push_back(value(depth - 1));
        return array;
    }
    default:
        return dictionary(depth - 1);
    }
}

Dictionary RandomValues::dictionary(int depth) {
    Dictionary result;
    for (auto left = below(7); left > 0; --left)
        result.insert_or_assign(text(), value(depth));
    return result;
}

} // namespace frimbolate::test
