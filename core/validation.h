// Finds every fault of a form before anything is written.
#pragma once

#include "core/agent_form.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace frimbolate {

/// The rows of the form, from top to bottom.
enum class FormRow { Name, Target, Action, Schedule };
inline constexpr std::array<FormRow, 4> formRows = {FormRow::Name, FormRow::Target, FormRow::Action,
                                                    FormRow::Schedule};

/// The faults, in the order of the rules.
enum class Fault {
    NameCharacters,
    NameBlank,
    ActionNotSelected,
    TargetNotSelected,
    DayNotNumeric,
    DayBlank,
    DayOutOfRange,
    IntervalNotNumeric,
    IntervalBlank,
    IntervalTooShort
};

/// At most one fault per row, in the order of the rules; empty when the form is valid.
using Faults = std::vector<Fault>;

/// Checks the form; never throws. Does not check that a target path or a script is not empty. The
/// minimum interval applies to seconds alone, not to minutes and hours.
Faults validate(const AgentForm& form);

/// The texts of a fault, for every place that reports it.
struct FaultText {
    Fault fault;
    FormRow row;
    std::string_view report;  ///< its line of errorReport(), without the bullet
    std::string_view hint;    ///< the line below the row
    std::string_view missing; ///< what the form lacks; empty where a value is wrong instead
};
const FaultText& faultText(Fault fault);

/// The texts of a row's fault, or nullptr where the row has none.
const FaultText* faultOfRow(const Faults& faults, FormRow row);

/// A line "• …\n" for each fault, as the log and the alert show them; empty when there is none.
std::string errorReport(const Faults& faults);

} // namespace frimbolate
