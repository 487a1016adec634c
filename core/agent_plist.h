// The launch agent as launchd reads it: which keys the form turns into, and with what values.
#pragma once

#include "core/agent_form.h"
#include "core/value.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace frimbolate {

/// One dictionary of launchd keys, stored as an XML property list.
using AgentPlist = Dictionary;

/// The agent file for a form that passed validation. It starts from nothing, so a key of an agent
/// that was read before survives only when the form writes it again.
AgentPlist buildAgentPlist(const AgentForm& form, std::string_view label);

/// The seconds of an interval schedule, in the 32 bits that launchd gets: the number that the text
/// begins with times its unit, truncated. What is not positive launchd ignores.
std::int32_t startInterval(const AgentForm& form);

/// The day of a monthly schedule, truncated to 32 bits.
std::int32_t dayOfMonth(const AgentForm& form);

/// The file name that the program proposes for an agent: prefix, name as typed, ".plist".
std::string proposedFileName(std::string_view agentName);

/// The label of a file name: the name without its last ".plist", wherever that stands in it.
std::string labelForFileName(std::string_view fileName);

/// What decides the interpreter of a chosen file: all that follows the last "." of the whole path.
std::string_view targetExtension(std::string_view path);

} // namespace frimbolate
