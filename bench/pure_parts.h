// The parts of the program that touch neither disk nor window, each on the same prepared agent.
#pragma once

#include "core/value.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace frimbolate {

struct PurePart {
    std::string_view name;
    std::function<void()> run; ///< the work, once; the data it needs is made beforehand
};

/// Each part once. Their data lives as long as the process.
std::vector<PurePart> pureParts();

/// An agent of 25 keys, of every kind of value that agents hold.
const Dictionary& benchedAgent();
/// The same as the bytes of a file.
const std::string& benchedXml();
const std::string& benchedBinary();

/// Keeps the compiler from leaving out the computation of a value.
template <typename T>
void keep(const T& value) {
    asm volatile("" : : "g"(&value) : "memory");
}

} // namespace frimbolate
