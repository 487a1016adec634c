// What the tests of the property lists share: the frame of an XML file, a maker of binary files
// byte by byte, and random values.
#pragma once

#include "core/failure.h"
#include "core/value.h"

#include <QByteArray>

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace frimbolate::test {

/// A whole XML file around one value.
QByteArray xmlFile(std::string_view body);

/// A binary property list of objects that the test writes down as they stand in the file. The
/// first one is the top; offsets and references have one byte each unless that is too little.
struct BinaryFile {
    std::vector<std::string> objects;
    unsigned offsetSize = 2;
    unsigned referenceSize = 1;

    QByteArray bytes() const;
};

/// A number as that many bytes, the most significant first.
std::string bigEndian(std::uint64_t number, unsigned size);

/// A dictionary with every kind of value in it, several levels deep, the same for the same seed.
Dictionary randomDictionary(std::mt19937_64& random);

/// The reason for which a call raises a Failure of the given name; what else happens as text.
template <typename Call>
std::string reasonOf(const std::string& name, Call call) {
    try {
        call();
    } catch (const Failure& failure) {
        return failure.name() == name ? failure.reason() : "another failure: " + failure.name();
    }
    return "no failure";
}

} // namespace frimbolate::test
