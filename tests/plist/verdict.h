// What a file is read as, in one line.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace frimbolate::test {

/// What reading a file gives: "ok", a tab and the value, or just "error".
/// \throws whatever is thrown beside a NamedError "Unreadable property list" with a reason
std::string verdictOn(std::string_view file);

/// Why reading a file fails; "read as …" where it does not.
std::string rejectionReasonFor(std::string_view file);

/// A made case, and what the platform makes of it.
struct VerdictRow {
    std::string name;
    std::string verdict; ///< in the notation of verdictOn()

    bool isReadable() const { return verdict.starts_with("ok\t"); }
    /// The bytes of the case.
    std::string file() const;
};

void PrintTo(const VerdictRow& row, std::ostream* out);

/// All cases, in the order of their names.
std::vector<VerdictRow> verdictRows();
/// Those that the platform reads.
std::vector<VerdictRow> readableRows();

} // namespace frimbolate::test
