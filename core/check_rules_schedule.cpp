// Rules about the calendar and the interval.
#include "core/check_rules.h"

namespace frimbolate {

void checkSchedule(const CheckedAgent& agent) {
    if (const auto* interval = agent.integer("StartInterval"); interval && *interval <= 0)
        agent.findings.add(Rule::IntervalNotPositive, "StartInterval", 0,
                           {std::to_string(*interval)});
}

} // namespace frimbolate
