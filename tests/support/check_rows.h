// Made agents for the checks: believable ones, and small edits of them. A row breaks one rule or
// keeps it.
#pragma once

#include "core/agent_checks.h"

#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace frimbolate::test {

/// A finding as a terminal shows it: "tilde WorkingDirectory: begins with …".
std::string lineOf(const Finding& finding);

struct CheckRow {
    std::string name;
    std::string rule; ///< which the row breaks or keeps
    Value agent;
    std::vector<std::string> findings; ///< all of them, by lineOf()
    CheckContext context = {};

    bool breaksRule() const;
    friend void PrintTo(const CheckRow& row, std::ostream* out) { *out << description(row.agent); }
};

/// The keys to set; nothing removes the key.
using Edits = std::vector<std::pair<std::string, std::optional<Value>>>;
Dictionary edited(Dictionary agent, const Edits& edits);

// The believable agents. None of them has a finding.

/// Runs every night, by program arguments, and writes a log.
Dictionary backup();
/// Is kept running.
Dictionary server();
/// Runs every five minutes, code for a shell.
Dictionary poller();
/// Has a Program, and runs when a folder changes.
Dictionary watcher();

/// An array of texts.
Value texts(const std::vector<std::string>& elements);
/// backup() that runs these arguments instead.
Dictionary running(const std::vector<std::string>& arguments);
/// backup() with this value of the key.
Dictionary backupWith(const char* key, Value value);
/// backup() with this calendar.
Dictionary at(Value calendar);

/// The home folder /Users/maya.
CheckContext homeContext();
/// A machine with /opt and /usr, with:
///   /usr/bin/tool executable, /opt/notes.txt not, /opt/logs a folder; /locked/tool unknown.
CheckContext machine();

std::vector<CheckRow> fileCheckRows();
std::vector<CheckRow> keyCheckRows();
std::vector<CheckRow> stateCheckRows();
std::vector<CheckRow> programCheckRows();
std::vector<CheckRow> pathCheckRows();
std::vector<CheckRow> scheduleCheckRows();
std::vector<CheckRow> triggerCheckRows();
std::vector<CheckRow> executionCheckRows();
/// All of these.
std::vector<CheckRow> checkRows();

} // namespace frimbolate::test
