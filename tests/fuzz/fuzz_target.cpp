#include "tests/fuzz/fuzz_target.h"

#include <algorithm>

namespace frimbolate::test {

std::span<const FuzzTarget> fuzzTargets() {
    static constexpr FuzzTarget targets[] = {
        {"agent_reader", fuzzAgentReader},
        {"any_form", fuzzAnyForm},
        {"binary", fuzzBinary},
        {"checks", fuzzChecks},
        {"command_line", fuzzCommandLine},
        {"old_style", fuzzOldStyle},
        {"preferences", fuzzPreferences},
        {"time_of_day", fuzzTimeOfDay},
        {"xml", fuzzXml},
    };
    return targets;
}

const FuzzTarget* fuzzTarget(std::string_view name) {
    const auto targets = fuzzTargets();
    const auto found = std::find_if(targets.begin(), targets.end(),
                                    [name](const FuzzTarget& one) { return one.name == name; });
    return found == targets.end() ? nullptr : &*found;
}

} // namespace frimbolate::test
