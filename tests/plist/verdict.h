// What a file is read as, in one line.
#pragma once

#include <string>
#include <string_view>

namespace frimbolate::test {

/// What reading a file gives: "ok", a tab and the value, or just "error".
/// \throws whatever is thrown beside a Failure "Unreadable property list" with a reason
std::string verdictOn(std::string_view file);

/// Why reading a file fails; "read as …" where it does not.
std::string refusalOf(std::string_view file);

} // namespace frimbolate::test
