// Forms that the writer's rows change, and what each is written as.
#pragma once

#include "core/agent_plist.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace frimbolate::test {

inline constexpr auto label = "com.frimbolate.Backup";

using Change = std::function<void(AgentForm&)>;

/// A form that is faulty enough to write no launch condition at all.
AgentForm idleForm();

/// A form that a row changes, and what it is written as.
struct Start {
    const char* name;
    AgentForm form;
    AgentPlist file;
    Dictionary additional = {}; ///< the keys of its additional conditions, which stand to the last
};

/// The idle form, one in which every field that is not written holds something, and one that
/// writes every advanced key and every additional condition besides.
std::vector<Start> starts();

struct ConditionRow {
    std::string_view name;
    Change change;
    Dictionary keys; ///< what is written besides the keys of the form that is changed
};

/// An action with a schedule. Every text that a schedule could read is there, so that one it must
/// not read would show.
Change launched(int action, int schedule, std::string number = "5", int unit = 0);

AgentPlist fileOf(AgentForm form, const Change& change);

/// The keys of both; where both have one, the second's value.
Dictionary joined(Dictionary one, const Dictionary& over);

} // namespace frimbolate::test
