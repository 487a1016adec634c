// The result of reading a file, in one line.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace frimbolate::test {

/// The result of reading a file: "ok", a tab and the value, or just "error".
/// \throws every exception but a NamedError "Unreadable property list" with a reason
std::string verdictOn(std::string_view file);

/// The reason why reading a file fails; "read as …" where it succeeds.
std::string rejectionReasonFor(std::string_view file);

/// A case and the result of the platform.
struct VerdictRow {
    std::string name;
    std::string verdict; ///< in the notation of verdictOn()

    bool isReadable() const { return verdict.starts_with("ok\t"); }
    /// The bytes of the case.
    std::string file() const;
};

void PrintTo(const VerdictRow& row, std::ostream* out);

/// All cases, sorted by name.
std::vector<VerdictRow> verdictRows();
/// The cases that the platform reads.
std::vector<VerdictRow> readableRows();

} // namespace frimbolate::test
