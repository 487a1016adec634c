// An agent file in one plain sentence, in the words of the status line.
#pragma once

#include "core/form_summary.h"
#include "core/value.h"

#include <string>

namespace frimbolate {

/// What launchd does with an agent, as its keys say: "Runs sync every day at 07:05, and on demand."
/// An agent that a complete form wrote gives the sentence of summary() for that form. Whether the
/// agent is on is left out. Keys of another type than launchd reads count as missing.
std::string agentSentence(const Dictionary& agent, const TextStyle& style);

/// What an agent runs: a script, or the path of a program; empty where it names none.
std::string agentProgram(const Dictionary& agent);

} // namespace frimbolate
