// What the commands print about agents: lines for a user, or JSON for a program.
#pragma once

#include "cli/agent_source.h"

#include <string>
#include <string_view>
#include <vector>

namespace frimbolate {

/// A text from a file or an argument, harmless in a terminal: each control character is shown as
/// "?".
std::string printable(std::string_view text);

/// The same for a text of several lines, whose ends stay.
std::string printableLines(std::string_view text);

/// "file:line: key: what is wrong [severity]" for each finding, and "file: why" for an error.
std::string findingLines(const AgentSource& source, bool colors);

/// What `explain` says of an agent.
std::string explanation(const AgentSource& source, LocalMinute now, bool colors);

/// A line for each agent: its state, name, next run, and sentence, aligned.
std::string agentTable(const std::vector<AgentSource>& sources, LocalMinute now, bool colors);

/// The document that docs/command-line.md describes.
/// \param command the word that was called
std::string jsonReport(std::string_view command, const std::vector<AgentSource>& sources);

/// The exit code that the agents give together.
int exitCodeOf(const std::vector<AgentSource>& sources);

/// "Own", "Earlier version" …: the kind of an agent in one or two words.
std::string_view kindName(AgentKind kind);

} // namespace frimbolate
