// A notation of values in one line, for tables.
#pragma once

#include "core/value.h"

#include <string>

namespace frimbolate::test {

/// The value in the notation of verdicts.tsv:
///   {"key"=VALUE,…} dictionary, keys sorted    (VALUE,…) array    B0 B1 boolean    I12 integer
///   S"text", other characters than plain ASCII as \uXXXX of UTF-16    Dc0ffee data, hexadecimal
///   R0123456789abcdef real, the bits of the double; Rnan    T12 date, seconds since 1970
std::string valueText(const Value& value);

} // namespace frimbolate::test
