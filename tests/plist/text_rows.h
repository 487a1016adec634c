// Rows of the readers of text forms.
#pragma once

#include <ostream>
#include <string>

namespace frimbolate::test {

/// A file that is read.
struct GoodRow {
    const char* name;
    std::string file;
    std::string value; ///< in the notation of value_notation.h
};

/// A file that is refused.
struct BadRow {
    const char* name;
    std::string file;
    const char* reason; ///< a part of it
};

inline void PrintTo(const GoodRow& row, std::ostream* out) { *out << row.name; }
inline void PrintTo(const BadRow& row, std::ostream* out) { *out << row.name; }

} // namespace frimbolate::test
