// Whether a command that holds a path in single quotes does what it shows.
#pragma once

#include <string>
#include <string_view>

namespace frimbolate {

/// A warning for the user where it may do more, in whole sentences; empty where it does not.
///
/// The path stands in the command as it is. An apostrophe in it ends the quotes, so that the shell
/// runs what follows. A terminal may obey a control character that is pasted into it: C0 (a line
/// break among them), DEL, C1, and the line and paragraph separators U+2028 and U+2029.
/// \param path UTF-8
std::string commandWarning(std::string_view path);

} // namespace frimbolate
