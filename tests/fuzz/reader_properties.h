// What must hold of every reader of property lists.
#pragma once

#include "core/value.h"

#include <optional>
#include <string_view>

namespace frimbolate::test {

/// Whether two values have the same content. Of two reals that are no number that holds, too.
bool isSame(const Value& a, const Value& b);

/// The value that a reader returns, or nothing where it refuses the bytes. Requires that it does
/// the same again, that a rejection is named and has a reason of printable characters, that a line
/// in the reason is one of the bytes, that a value nests no deeper than the limit, and that its
/// texts are valid UTF-8.
std::optional<Value> readTwice(Value (*reader)(std::string_view), std::string_view bytes);

/// Requires that an array or dictionary that is written in binary reads as the same value.
void requireBinaryHolds(const Value& value);

/// Requires that XML holds a value or that its writer refuses it for a reason; and that what was
/// written reads as the same value, and is written again as the same bytes.
void requireXmlHolds(const Value& value);

} // namespace frimbolate::test
