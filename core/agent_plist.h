// The launch agent as launchd reads it: the keys and values that a form produces.
#pragma once

#include "core/agent_form.h"
#include "core/value.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace frimbolate {

/// One dictionary of launchd keys, stored as an XML property list.
using AgentPlist = Dictionary;

/// The agent file for a form that passed validation. Built from an empty dictionary: a key of an
/// agent that was read before survives only if the form writes it again.
AgentPlist buildAgentPlist(const AgentForm& form, std::string_view label);

/// Those of its keys that start the agent, and nothing else.
AgentPlist buildStartKeys(const AgentForm& form);

/// The interval of an interval schedule, in seconds: the leading number of the text times its
/// unit, truncated to 32 bits. launchd ignores an interval that is not positive.
std::int32_t startInterval(const AgentForm& form);

/// The day of a monthly schedule: the leading number of the text, truncated to 32 bits.
std::int32_t dayOfMonth(const AgentForm& form);

/// The file name that the program proposes for an agent: prefix, name as typed, ".plist".
std::string proposedFileName(std::string_view agentName);

/// The label of a file name: the name without its last ".plist", at whatever position.
std::string labelForFileName(std::string_view fileName);

/// The extension that decides the interpreter of a chosen file: everything after the last "." of
/// the whole path; the whole path where it contains none.
std::string_view targetExtension(std::string_view path);

} // namespace frimbolate
