// Makes binary property lists, byte by byte or from a value.
#pragma once

#include "core/value.h"

#include <cstdint>
#include <string>
#include <vector>

namespace frimbolate::test {

/// The lowest `size` bytes of a number, the most significant first.
std::string bigEndian(std::uint64_t number, unsigned size);

/// A file made of encoded objects. The first one is the root.
struct BinaryFile {
    std::vector<std::string> objects;
    unsigned offsetSize = 2;
    unsigned referenceSize = 1;
    std::string magic = "bplist00";

    std::string bytes() const;
};

/// A value as a binary property list.
std::string binaryPlist(const Value& value);

} // namespace frimbolate::test
