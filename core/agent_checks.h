// What launchd would refuse, ignore or do otherwise than meant with an agent.
//
// A finding is right or it is left out: a rule reports only what the manual or the published source
// of launchd states. Every rule is a row of checkRules(), described with an example in
// docs/checks.md.
#pragma once

#include "core/value.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace frimbolate {

enum class Severity {
    Refused,    ///< launchd does not load the agent
    Ignored,    ///< launchd takes no notice of the key
    Suspicious, ///< probably not what is meant
    Note        ///< worth knowing
};

/// "refused", "ignored", "suspicious", "note"
std::string_view severityName(Severity severity);

struct Finding {
    std::string rule; ///< the id of its row in checkRules()
    Severity severity = Severity::Note;
    /// Key path in the file, "StartCalendarInterval[1].Hour"; empty for the file as a whole.
    /// Exactly as in the file: of any length, and with any control character.
    std::string key;
    /// What is wrong, to be read behind the key: "is a string; launchd reads an array of strings".
    /// One or more clauses without a final full stop. What it quotes of the file is shortened and
    /// without control characters.
    std::string text;
    friend bool operator==(const Finding&, const Finding&) = default;
};

/// What stands at a path. Links are followed.
enum class PathState { Missing, File, Executable, Folder, Unknown };

/// What the checks ask about the file and the machine. Every member may be left empty: then the
/// rules that need it are silent.
struct CheckContext {
    std::string filePath = {};         ///< empty where the agent is not in a file
    std::optional<unsigned> mode = {}; ///< permission bits of the file
    /// launchd accepts files of the user and of root; false for those of any other owner.
    std::optional<bool> ownedByUser = {};
    std::string home = {}; ///< the user's home folder, without a final "/"
    /// Called for absolute paths alone, a few times per agent.
    std::function<PathState(const std::string&)> pathState = {};
};

/// The findings of an agent: those of the file first, then in the order of the keys in launchd's
/// manual, unknown keys last. Accepts any value, also one that is no dictionary. Never throws.
std::vector<Finding> checkAgent(const Value& agent, const CheckContext& context = {});

/// One row of the table of rules.
struct CheckRule {
    std::string_view id;     ///< "interval-not-positive"
    std::string_view key;    ///< the keys that it looks at
    std::string_view wanted; ///< what launchd wants there
    Severity severity;
    /// The texts of its findings, with %1, %2 … in place of what differs, by variant.
    std::span<const std::string_view> words;
};

/// Every rule, in the order of docs/checks.md.
std::span<const CheckRule> checkRules();

} // namespace frimbolate
