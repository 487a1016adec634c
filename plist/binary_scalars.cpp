#include "plist/binary_scalars.h"

#include "core/named_error.h"
#include "plist/limits.h"
#include "plist/text_encoding.h"

#include <bit>
#include <cmath>

namespace frimbolate {

void failBinary(const std::string& reason) { throw NamedError(unreadablePlist, reason); }

namespace {

/// The origin of dates, 2001-01-01T00:00:00Z, in seconds since 1970.
constexpr double referenceDate = 978307200;

/// Whether all bytes before the last eight are zero.
bool fits64Bits(std::string_view bytes) {
    return bytes.size() <= 8 ||
           bytes.substr(0, bytes.size() - 8).find_first_not_of('\0') == std::string_view::npos;
}

Value singleton(unsigned nibble) {
    if (nibble != 8 && nibble != 9)
        failBinary("it holds a null, which is no value of an agent");
    return nibble == 9;
}

/// Integers of one, two and four bytes are unsigned, those of eight are signed. Sixteen bytes are
/// written for unsigned numbers of 64 bits; readers disagree on all other content, so it fails.
Value integer(unsigned exponent, BinaryCursor in) {
    if (exponent > 4)
        failBinary("an integer has an unknown size");
    const std::string_view bytes = in.take(std::uint64_t{1} << exponent);
    const std::uint64_t low = bigEndianNumber(bytes);
    if (exponent == 3)
        return std::bit_cast<std::int64_t>(low);
    if (!fits64Bits(bytes))
        failBinary("an integer needs more than 64 bits");
    return low;
}

double real(unsigned exponent, BinaryCursor in) {
    if (exponent == 3)
        return std::bit_cast<double>(bigEndianNumber(in.take(8)));
    if (exponent != 2)
        failBinary("a real has an unknown size");
    const auto bits = static_cast<std::uint32_t>(bigEndianNumber(in.take(4)));
    return static_cast<double>(std::bit_cast<float>(bits));
}

Date date(unsigned exponent, BinaryCursor in) {
    if (exponent != 3)
        failBinary("a date has an unknown size");
    const double seconds = std::floor(real(exponent, in) + referenceDate);
    constexpr double exact = 9007199254740992; // 2^53
    if (!(std::abs(seconds) <= exact))
        failBinary("a date is out of range");
    return Date{static_cast<std::int64_t>(seconds)};
}

Value uid(unsigned nibble, BinaryCursor in) {
    const std::string_view bytes = in.take(nibble + 1);
    const std::uint64_t number = bigEndianNumber(bytes);
    if (!fits64Bits(bytes) || number > 0xffffffff)
        failBinary("a UID is out of range");
    return Dictionary{{"CF$UID", number}};
}

} // namespace

void BinaryCursor::failBeyondEnd() { failBinary("an object reaches beyond its end"); }

std::uint64_t BinaryCursor::longCount() {
    const BinaryObject number = object();
    if (number.kind != BinaryKind::integer)
        failBinary("a count is no integer");
    const std::string_view bytes = take(std::uint64_t{1} << number.nibble);
    if (!fits64Bits(bytes))
        failBinary("a count is out of range");
    return bigEndianNumber(bytes);
}

Value readBinaryScalar(BinaryObject object, BinaryCursor in) {
    switch (object.kind) {
    case BinaryKind::singleton:
        return singleton(object.nibble);
    case BinaryKind::integer:
        return integer(object.nibble, in);
    case BinaryKind::real:
        return real(object.nibble, in);
    case BinaryKind::date:
        return date(object.nibble, in);
    case BinaryKind::uid:
        return uid(object.nibble, in);
    default:
        failBinary("it holds an object of an unknown kind");
    }
}

std::string decodeBinaryText(BinaryKind kind, std::string_view bytes) {
    if (kind == BinaryKind::utf16) {
        if (auto text = decodeUtf16(bytes, true))
            return *std::move(text);
        failBinary("a text holds half a character");
    }
    if (!isAscii(bytes))
        failBinary("an ASCII text holds other characters");
    return std::string(bytes);
}

} // namespace frimbolate
