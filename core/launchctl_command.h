// The launchctl command that loads or unloads an agent, as text.
#pragma once

#include <string>
#include <string_view>

namespace frimbolate {

/// Prefix, path and one closing single quote. A quote inside the path is not escaped; see
/// commandWarning().
std::string loadCommand(std::string_view path);
std::string unloadCommand(std::string_view path);

/// The current forms, for the agents of the user who runs the command: `launchctl bootstrap` and
/// `launchctl bootout`. A quote inside the path is escaped.
std::string bootstrapCommand(std::string_view path);
std::string bootoutCommand(std::string_view path);

/// Whether a text starts like a command of unloadCommand().
bool isUnloadCommand(std::string_view command);
/// The path in a command of loadCommand() or unloadCommand(), as a view into it; empty for any
/// other text.
std::string_view pathOfCommand(std::string_view command);

} // namespace frimbolate
