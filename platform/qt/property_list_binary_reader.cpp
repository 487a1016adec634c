#include "platform/qt/property_list_binary_reader.h"

#include "core/failure.h"
#include "platform/qt/property_list_limits.h"
#include "platform/qt/utc_date.h"

#include <QString>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

namespace frimbolate {

namespace {

constexpr std::string_view magic = "bplist00";
constexpr std::size_t trailerSize = 32;
/// Dates are counted from 2001-01-01T00:00:00Z.
constexpr double referenceDate = 978307200;

using Bytes = std::span<const std::uint8_t>;

[[noreturn]] void refuse(const std::string& reason) {
    throw Failure(unreadablePropertyList, reason);
}

/// An unsigned number of up to eight bytes, the most significant first.
std::uint64_t bigEndian(Bytes bytes) {
    std::uint64_t number = 0;
    for (const std::uint8_t byte : bytes)
        number = (number << 8) | byte;
    return number;
}

class Reader {
  public:
    explicit Reader(Bytes file);
    Value document() { return value(top_, 1); }

  private:
    Bytes part(std::uint64_t start, std::uint64_t size) const;
    std::uint64_t offsetOf(std::uint64_t object) const;
    Value value(std::uint64_t object, int depth);
    Value container(std::uint64_t object, int depth);
    Value singleton(unsigned marker) const;
    Value integer(std::uint64_t& position, unsigned exponent) const;
    Value real(std::uint64_t position, unsigned exponent) const;
    Value date(std::uint64_t position, unsigned exponent) const;
    Value data(std::uint64_t position, std::uint64_t size);
    std::string ascii(std::uint64_t position, std::uint64_t size);
    std::string utf16(std::uint64_t position, std::uint64_t units);
    Array array(std::uint64_t position, std::uint64_t count, int depth);
    Dictionary dictionary(std::uint64_t position, std::uint64_t count, int depth);
    std::uint64_t count(std::uint64_t& position, unsigned nibble) const;
    Bytes references(std::uint64_t position, std::uint64_t count) const;
    std::uint64_t reference(Bytes references, std::size_t index) const;
    void charge(std::size_t bytes);

    Bytes file_;
    std::uint64_t objectsEnd_ = 0; ///< where the objects end and the table of their offsets begins
    unsigned offsetSize_ = 0;
    unsigned referenceSize_ = 0;
    std::uint64_t objectCount_ = 0;
    std::uint64_t top_ = 0;
    std::vector<std::uint64_t> open_; ///< the containers being read, to meet circles
    std::size_t objectsRead_ = 0;
    std::size_t bytesProduced_ = 0;
};

Reader::Reader(Bytes file) : file_(file) {
    if (file.size() < magic.size() + trailerSize)
        refuse("it is cut off");
    const Bytes trailer = file.last(trailerSize);
    offsetSize_ = trailer[6];
    referenceSize_ = trailer[7];
    objectCount_ = bigEndian(trailer.subspan(8, 8));
    top_ = bigEndian(trailer.subspan(16, 8));
    objectsEnd_ = bigEndian(trailer.subspan(24, 8));
    const auto isSize = [](unsigned size) { return size >= 1 && size <= 8; };
    if (!isSize(offsetSize_) || !isSize(referenceSize_))
        refuse("its trailer is damaged");
    const std::uint64_t tableEnd = file.size() - trailerSize;
    if (objectsEnd_ < magic.size() || objectsEnd_ > tableEnd ||
        objectCount_ > (tableEnd - objectsEnd_) / offsetSize_)
        refuse("its table of objects does not fit in");
}

/// A part of the objects. Never beyond them, whatever the sizes are.
Bytes Reader::part(std::uint64_t start, std::uint64_t size) const {
    if (start > objectsEnd_ || size > objectsEnd_ - start)
        refuse("an object reaches beyond its end");
    return file_.subspan(start, size);
}

std::uint64_t Reader::offsetOf(std::uint64_t object) const {
    if (object >= objectCount_)
        refuse("it refers to an object that is not there");
    const auto offset = bigEndian(file_.subspan(objectsEnd_ + object * offsetSize_, offsetSize_));
    if (offset < magic.size() || offset >= objectsEnd_)
        refuse("an object lies outside of it");
    return offset;
}

void Reader::charge(std::size_t bytes) {
    bytesProduced_ += bytes;
    if (bytesProduced_ > maximumPropertyListBytes)
        refuse("it holds over 16 MiB");
}

Value Reader::value(std::uint64_t object, int depth) {
    if (++objectsRead_ > maximumPropertyListObjects)
        refuse("it holds too many objects");
    std::uint64_t position = offsetOf(object);
    const unsigned marker = part(position++, 1)[0];
    const unsigned nibble = marker & 0x0f;
    switch (marker >> 4) {
    case 0x0:
        return singleton(marker);
    case 0x1:
        return integer(position, nibble);
    case 0x2:
        return real(position, nibble);
    case 0x3:
        return date(position, nibble);
    case 0x4: {
        const auto size = count(position, nibble);
        return data(position, size);
    }
    case 0x5: {
        const auto size = count(position, nibble);
        return ascii(position, size);
    }
    case 0x6: {
        const auto units = count(position, nibble);
        return utf16(position, units);
    }
    case 0xa:
    case 0xd:
        return container(object, depth);
    default:
        refuse("it holds an object of an unknown kind");
    }
}

Value Reader::container(std::uint64_t object, int depth) {
    if (depth > maximumPropertyListDepth)
        refuse("it is nested too deeply");
    if (std::find(open_.begin(), open_.end(), object) != open_.end())
        refuse("an object holds itself");
    std::uint64_t position = offsetOf(object);
    const unsigned marker = part(position++, 1)[0];
    const auto size = count(position, marker & 0x0f);
    open_.push_back(object);
    Value result = (marker >> 4) == 0xa ? Value(array(position, size, depth))
                                        : Value(dictionary(position, size, depth));
    open_.pop_back();
    return result;
}

Value Reader::singleton(unsigned marker) const {
    if (marker != 0x08 && marker != 0x09)
        refuse("it holds a null, which no XML property list can hold");
    return marker == 0x09;
}

/// Goes on behind the number. One, two and four bytes hold no sign, eight and sixteen do.
Value Reader::integer(std::uint64_t& position, unsigned exponent) const {
    if (exponent > 4)
        refuse("an integer has an unknown size");
    const Bytes bytes = part(position, std::uint64_t{1} << exponent);
    position += bytes.size();
    const std::uint64_t low = bigEndian(bytes.last(std::min<std::size_t>(bytes.size(), 8)));
    const auto signedLow = std::bit_cast<std::int64_t>(low);
    if (bytes.size() < 16)
        return bytes.size() == 8 ? Value(signedLow) : Value(low);
    const std::uint64_t high = bigEndian(bytes.first(8));
    if (high == 0)
        return low;
    if (high != ~std::uint64_t{0} || signedLow >= 0)
        refuse("an integer needs more than 64 bits");
    return signedLow;
}

Value Reader::real(std::uint64_t position, unsigned exponent) const {
    if (exponent != 2 && exponent != 3)
        refuse("a real has an unknown size");
    const auto bits = bigEndian(part(position, std::uint64_t{1} << exponent));
    if (exponent == 3)
        return std::bit_cast<double>(bits);
    return static_cast<double>(std::bit_cast<float>(static_cast<std::uint32_t>(bits)));
}

Value Reader::date(std::uint64_t position, unsigned exponent) const {
    if (exponent != 3)
        refuse("a date has an unknown size");
    const auto seconds = std::floor(std::bit_cast<double>(bigEndian(part(position, 8))));
    // Far beyond the year 9999, yet small enough to become an integer; not a number fails too.
    if (!(std::abs(seconds) < 1e15))
        refuse("a date is out of range");
    const Date date{static_cast<std::int64_t>(seconds + referenceDate)};
    if (!textOfDate(date))
        refuse("a date is out of range");
    return date;
}

Value Reader::data(std::uint64_t position, std::uint64_t size) {
    const Bytes bytes = part(position, size);
    charge(bytes.size());
    return Data{{bytes.begin(), bytes.end()}};
}

std::string Reader::ascii(std::uint64_t position, std::uint64_t size) {
    const Bytes bytes = part(position, size);
    charge(bytes.size());
    if (std::any_of(bytes.begin(), bytes.end(), [](std::uint8_t byte) { return byte > 0x7f; }))
        refuse("an ASCII text holds other characters");
    return {bytes.begin(), bytes.end()};
}

std::string Reader::utf16(std::uint64_t position, std::uint64_t units) {
    if (units > file_.size())
        refuse("an object reaches beyond its end");
    const Bytes bytes = part(position, units * 2);
    charge(bytes.size());
    QString text(static_cast<qsizetype>(units), Qt::Uninitialized);
    for (std::size_t i = 0; i < units; ++i)
        text[static_cast<qsizetype>(i)] =
            QChar(static_cast<char16_t>(bigEndian(bytes.subspan(i * 2, 2))));
    if (!text.isValidUtf16())
        refuse("a text holds half a character");
    return text.toStdString();
}

Array Reader::array(std::uint64_t position, std::uint64_t count, int depth) {
    const Bytes bytes = references(position, count);
    Array elements;
    for (std::size_t i = 0; i < count; ++i)
        elements.push_back(value(reference(bytes, i), depth + 1));
    return elements;
}

Dictionary Reader::dictionary(std::uint64_t position, std::uint64_t count, int depth) {
    const Bytes keys = references(position, count);
    const Bytes values = references(position + keys.size(), count);
    Dictionary entries;
    for (std::size_t i = 0; i < count; ++i) {
        const Value key = value(reference(keys, i), depth + 1);
        if (!key.string())
            refuse("a key is no text");
        if (entries.contains(*key.string()))
            refuse("the key \"" + *key.string() + "\" stands there twice");
        entries.emplace(*key.string(), value(reference(values, i), depth + 1));
    }
    return entries;
}

/// Counts below fifteen stand in the marker, others as an integer behind it.
std::uint64_t Reader::count(std::uint64_t& position, unsigned nibble) const {
    if (nibble != 0x0f)
        return nibble;
    const unsigned marker = part(position++, 1)[0];
    if ((marker >> 4) != 0x1)
        refuse("a count is no integer");
    const Value number = integer(position, marker & 0x0f);
    if (!number.integer() || *number.integer() < 0)
        refuse("a count is out of range");
    return static_cast<std::uint64_t>(*number.integer());
}

/// The references as they stand in the file. Nothing is set aside for them, for containers that lie
/// over each other could otherwise ask for all memory.
Bytes Reader::references(std::uint64_t position, std::uint64_t count) const {
    if (count > file_.size())
        refuse("an object reaches beyond its end");
    return part(position, count * referenceSize_);
}

std::uint64_t Reader::reference(Bytes references, std::size_t index) const {
    return bigEndian(references.subspan(index * referenceSize_, referenceSize_));
}

} // namespace

bool isBinaryPropertyList(const QByteArray& bytes) {
    return bytes.startsWith(QByteArrayView(magic.data(), static_cast<qsizetype>(magic.size())));
}

Value readBinaryPropertyList(const QByteArray& bytes) {
    if (!isBinaryPropertyList(bytes))
        refuse("it is no binary property list");
    const auto size = static_cast<std::size_t>(bytes.size());
    if (size > maximumPropertyListBytes)
        refuse("it is over 16 MiB");
    return Reader({reinterpret_cast<const std::uint8_t*>(bytes.constData()), size}).document();
}

} // namespace frimbolate
