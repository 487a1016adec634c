// What only a shell would expand in a path or an argument: "~" and variables.
#pragma once

#include <string>
#include <string_view>

namespace frimbolate {

/// The first variable in a path, "$HOME" or "${HOME}"; empty where there is none.
std::string_view anyVariable(std::string_view path);

/// The same for a text that may hold "$" for another reason: the variables that every login shell
/// sets alone, as $HOME, $USER and $PATH.
std::string_view wellKnownVariable(std::string_view text);

/// What to write for a path that begins with "~": the path in the home folder, or "the whole path"
/// where the home folder is not known or another user's is meant.
std::string expandedTilde(std::string_view path, std::string_view home);

/// Whether a program, by the name in its path, is a shell or another interpreter, so that its
/// arguments may be code.
bool isInterpreter(std::string_view program);

} // namespace frimbolate
