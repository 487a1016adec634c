// The texts of a form as the window renders them, from one validation of the form.
#pragma once

#include "core/form_summary.h"

namespace frimbolate::test {

inline Summary summaryOf(const AgentForm& form, const TextStyle& style = {}) {
    return summary(form, validate(form), style);
}

inline std::string sentenceOf(const AgentForm& form, std::string_view home = {},
                              ClockFormat clock = ClockFormat::TwentyFourHours) {
    return summaryOf(form, {home, clock}).sentence;
}

inline bool isCompletePlan(const AgentForm& form) { return summaryOf(form).isComplete; }

/// The rows whose markers validation would show.
inline RowFlags faultyRows(const AgentForm& form) {
    RowFlags flags{};
    for (const auto row : formRows)
        flags[static_cast<std::size_t>(row)] = faultOfRow(validate(form), row) != nullptr;
    return flags;
}

inline RowHints hintsOf(const AgentForm& form, const RowFlags& marked = {},
                        std::string_view home = {},
                        ClockFormat clock = ClockFormat::TwentyFourHours) {
    return rowHints(form, validate(form), marked, {home, clock});
}

} // namespace frimbolate::test
