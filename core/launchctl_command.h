// The launchctl command that loads or unloads an agent, as text.
#pragma once

#include <string>
#include <string_view>

namespace frimbolate {

/// Prefix, path and one closing single quote: a quote inside the path is not escaped.
std::string loadCommand(std::string_view path);
std::string unloadCommand(std::string_view path);

/// Whether a text is a command that unloads.
bool isUnloadCommand(std::string_view command);
/// The path that such a command holds; empty for any other text.
std::string_view pathOfCommand(std::string_view command);

} // namespace frimbolate
