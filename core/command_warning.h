// The warning about a shell command that may do more than it shows.
#pragma once

#include <string>
#include <string_view>

namespace frimbolate {

/// A warning for the user about a command that contains this path, unescaped, in single quotes.
/// Whole sentences; empty where the command is safe.
///
/// An apostrophe in the path ends the quotes, so the shell runs what follows. A terminal may act on
/// a pasted control character: C0 (line breaks included), DEL, C1, and the line and paragraph
/// separators U+2028 and U+2029.
/// \param path UTF-8
std::string commandWarning(std::string_view path);

} // namespace frimbolate
