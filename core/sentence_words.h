// The parts of a sentence about an agent, shared by the sentences about a form and about a file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace frimbolate {

using Words = std::vector<std::string>;

/// The words with a separator between them, and another one before the last.
std::string joined(const Words& words, std::string_view separator, std::string_view last);

std::string capitalized(std::string text);
std::string uncapitalized(std::string text);

/// With "~" for the home folder. A typed "~" is quoted, because launchd does not expand it.
std::string shownPath(std::string_view path, std::string_view home);

/// The name of a program: that of an application without ".app", the file name of any other file.
std::string programName(std::string_view path);

} // namespace frimbolate
