#include "plist/binary_reader.h"

#include "core/named_error.h"
#include "plist/binary_scalars.h"
#include "plist/limits.h"
#include "plist/value_builder.h"

#include <limits>
#include <vector>

namespace frimbolate {

namespace {

constexpr std::string_view magic = "bplist0";
constexpr std::size_t headerSize = 8;
constexpr std::size_t trailerSize = 32;

struct Trailer {
    explicit Trailer(std::string_view file);

    std::size_t offsetSize;
    std::size_t referenceSize;
    std::uint64_t objectCount;
    std::uint64_t top;
    std::uint64_t tableStart;
};

Trailer::Trailer(std::string_view file) {
    const std::string_view bytes = file.substr(file.size() - trailerSize);
    offsetSize = static_cast<unsigned char>(bytes[6]);
    referenceSize = static_cast<unsigned char>(bytes[7]);
    objectCount = bigEndianNumber(bytes.substr(8, 8));
    top = bigEndianNumber(bytes.substr(16, 8));
    tableStart = bigEndianNumber(bytes.substr(24, 8));
}

/// Whether unsigned numbers of a size in bytes can represent every number below a limit.
bool reaches(std::size_t size, std::uint64_t limit) {
    return size >= 8 || limit < std::uint64_t{1} << (8 * size);
}

class BinaryReader {
  public:
    explicit BinaryReader(std::string_view file)
        : file_(file), trailer_(file), objects_(file.substr(0, trailer_.tableStart)),
          isOpen_(objects_.size()), budget_(maximumPlistMemory(file.size())) {
        constexpr std::size_t ownMemory = 131072; // for the stacks of open containers
        account(isOpen_.size() / 8 + ownMemory);
        constexpr std::size_t usualDepth = 8;
        containers_.reserve(usualDepth);
    }

    Value document();

  private:
    struct Container {
        std::size_t offset;
        std::string_view keys;   ///< references, in the file; empty for an array
        std::string_view values; ///< references, in the file
        std::size_t next = 0;
    };

    std::size_t offsetOf(std::string_view reference) const;
    std::string_view reference(std::string_view references, std::size_t index) const;
    BinaryCursor at(std::size_t offset) const;
    void step();
    void object(std::size_t offset);
    void open(BinaryObject object, std::size_t offset, BinaryCursor in);
    std::string text(BinaryObject object, BinaryCursor in);
    Data data(BinaryObject object, BinaryCursor in);
    void account(std::size_t bytes);

    std::string_view file_;
    Trailer trailer_;
    std::string_view objects_; ///< the file up to the table of offsets
    std::vector<Container> containers_;
    std::vector<bool> isOpen_; ///< by offset: a container being read; detects cycles
    /// account() counts what its arrays and texts take, before they are read.
    ValueBuilder builder_{DuplicateKeys::first, std::numeric_limits<std::size_t>::max()};
    std::size_t budget_;
};

Value BinaryReader::document() {
    const std::size_t start = trailer_.tableStart + trailer_.top * trailer_.offsetSize;
    object(bigEndianNumber(file_.substr(start, trailer_.offsetSize)));
    while (!containers_.empty())
        step();
    return builder_.take();
}

void BinaryReader::account(std::size_t bytes) {
    if (bytes > budget_)
        failBinary("its shared objects would take too much memory");
    budget_ -= bytes;
}

std::size_t BinaryReader::offsetOf(std::string_view reference) const {
    const std::uint64_t object = bigEndianNumber(reference);
    if (object >= trailer_.objectCount)
        failBinary("it refers to an object that is not there");
    const std::size_t start = trailer_.tableStart + object * trailer_.offsetSize;
    return bigEndianNumber(file_.substr(start, trailer_.offsetSize));
}

std::string_view BinaryReader::reference(std::string_view references, std::size_t index) const {
    return references.substr(index * trailer_.referenceSize, trailer_.referenceSize);
}

/// Reads one element or entry of the innermost container, or ends it.
void BinaryReader::step() {
    Container& container = containers_.back();
    if (container.next * trailer_.referenceSize == container.values.size()) {
        isOpen_[container.offset] = false;
        containers_.pop_back();
        return builder_.end();
    }
    const std::size_t index = container.next++;
    if (!container.keys.empty()) {
        account(sizeof(Dictionary::value_type) + plistNodeOverhead);
        BinaryCursor in = at(offsetOf(reference(container.keys, index)));
        const BinaryObject key = in.object();
        if (!key.isText())
            failBinary("a key is no text");
        builder_.key(text(key, in));
    }
    object(offsetOf(reference(container.values, index)));
}

void BinaryReader::object(std::size_t offset) {
    BinaryCursor in = at(offset);
    const BinaryObject object = in.object();
    if (object.isContainer())
        open(object, offset, in);
    else if (object.isText())
        builder_.value(text(object, in));
    else if (object.kind == BinaryKind::data)
        builder_.value(data(object, in));
    else
        builder_.value(readBinaryScalar(object, in));
}

BinaryCursor BinaryReader::at(std::size_t offset) const {
    if (offset < headerSize)
        failBinary("an object lies outside of it");
    return {objects_, offset};
}

std::string BinaryReader::text(BinaryObject object, BinaryCursor in) {
    const std::string_view bytes = in.content(object);
    // Two bytes of UTF-16 become up to three of UTF-8.
    account(bytes.size() * 3 / 2 + 1);
    return decodeBinaryText(object.kind, bytes);
}

Data BinaryReader::data(BinaryObject object, BinaryCursor in) {
    const std::string_view bytes = in.content(object);
    account(bytes.size());
    return Data{{bytes.begin(), bytes.end()}};
}

void BinaryReader::open(BinaryObject object, std::size_t offset, BinaryCursor in) {
    if (isOpen_[offset])
        failBinary("an object holds itself");
    if (containers_.size() >= maximumPlistDepth)
        failBinary("it is nested too deeply");
    const std::uint64_t count = in.count(object);
    const bool isDictionary = object.kind == BinaryKind::dictionary;
    Container container{offset, {}, {}};
    if (isDictionary)
        container.keys = in.take(count, trailer_.referenceSize);
    container.values = in.take(count, trailer_.referenceSize);
    if (isDictionary) {
        builder_.beginDictionary();
    } else {
        account(count * sizeof(Value) + (count > 0 ? plistNodeOverhead : 0));
        builder_.beginArray(count);
    }
    isOpen_[offset] = true;
    containers_.push_back(container);
}

} // namespace

bool hasBinaryPlistMagic(std::string_view bytes) { return bytes.starts_with(magic); }

std::optional<std::string> binaryPlistFault(std::string_view bytes) {
    if (!hasBinaryPlistMagic(bytes))
        return "it is no binary property list";
    if (bytes.size() <= headerSize + trailerSize)
        return "it is cut off";
    const Trailer trailer(bytes);
    const std::uint64_t tableEnd = bytes.size() - trailerSize;
    if (trailer.offsetSize == 0 || trailer.referenceSize == 0)
        return "its trailer is damaged";
    if (trailer.tableStart <= headerSize || trailer.tableStart >= tableEnd ||
        trailer.objectCount > tableEnd ||
        trailer.objectCount * trailer.offsetSize != tableEnd - trailer.tableStart)
        return "its table of objects does not fit in";
    if (trailer.top >= trailer.objectCount)
        return "its first object is not there";
    if (!reaches(trailer.offsetSize, trailer.tableStart) ||
        !reaches(trailer.referenceSize, trailer.objectCount))
        return "its references are too short";
    for (std::uint64_t start = trailer.tableStart; start < tableEnd; start += trailer.offsetSize)
        if (bigEndianNumber(bytes.substr(start, trailer.offsetSize)) >= trailer.tableStart)
            return "an object lies outside of it";
    return std::nullopt;
}

Value readBinaryPlist(std::string_view bytes) { return BinaryReader(bytes).document(); }

} // namespace frimbolate
