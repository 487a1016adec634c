// The reader of binary property lists. Few changes of a file leave its table of objects intact, so
// half of the inputs are objects, for which the table is made.
#include "core/named_error.h"
#include "plist/binary_reader.h"
#include "plist/limits.h"
#include "tests/fuzz/fuzz_bytes.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/fuzz/reader_properties.h"
#include "tests/plist/binary_file.h"

namespace frimbolate::test {

namespace {

Value readBinary(std::string_view bytes) {
    if (const auto fault = binaryPlistFault(bytes))
        throw NamedError(unreadablePlist, *fault);
    return readBinaryPlist(bytes);
}

std::string fileOfObjects(std::string_view input) {
    constexpr std::size_t mostObjects = 200;
    FuzzBytes in(input);
    BinaryFile file;
    file.referenceSize = 1 + static_cast<unsigned>(in.below(2));
    while (!in.atEnd() && file.objects.size() < mostObjects) {
        const std::string_view object = in.rest().substr(1, in.below(32));
        for (std::size_t i = 0; i < object.size(); ++i)
            in.byte();
        file.objects.emplace_back(object);
    }
    return file.bytes();
}

std::size_t countOf(const Value& value) {
    std::size_t count = 1;
    if (const auto* array = value.array())
        for (const Value& element : *array)
            count += countOf(element);
    if (const auto* dictionary = value.dictionary())
        for (const auto& [key, entry] : *dictionary)
            count += countOf(entry);
    return count;
}

} // namespace

void fuzzBinary(std::string_view input) {
    const bool isFile = hasBinaryPlistMagic(input);
    const std::string file = isFile ? std::string(input) : fileOfObjects(input);
    const auto value = readTwice(readBinary, file);
    if (!value)
        return;
    require((countOf(*value) - 1) * sizeof(Value) <= maximumPlistMemory(file.size()),
            "a value stays within the memory for its file");
    requireXmlHolds(*value);
    requireBinaryHolds(*value);
}

} // namespace frimbolate::test
