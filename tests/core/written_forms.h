// Forms that the rows of the writer change, and the file that each is written as.
#pragma once

#include "core/agent_plist.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace frimbolate::test {

inline constexpr auto label = "com.frimbolate.Backup";

using Change = std::function<void(AgentForm&)>;

/// A form without a launch condition: its action is an unknown index.
AgentForm idleForm();

/// A form that a row changes, and the file that it is written as.
struct Start {
    const char* name;
    AgentForm form;
    AgentPlist file;
    Dictionary additional = {}; ///< the keys of its additional conditions; these win over a row's
};

/// The idle form, one whose unwritten fields all hold a value, and one that also writes every
/// advanced key and every additional condition.
std::vector<Start> starts();

struct ConditionRow {
    std::string_view name;
    Change change;
    Dictionary keys; ///< the keys written besides those of the start form
};

/// Sets action and schedule. Fills every text that a schedule could read, so that the file shows a
/// text that it must not read.
Change launched(int action, int schedule, std::string number = "5", int unit = 0);

AgentPlist fileOf(AgentForm form, const Change& change);

/// The keys of both dictionaries; the second wins.
Dictionary joined(Dictionary one, const Dictionary& over);

} // namespace frimbolate::test
