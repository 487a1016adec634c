// What is wrong with a form, all at once, before anything is written.
#pragma once

#include "core/agent_form.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace frimbolate {

/// The rows of the form, in the order in which they stand from top to bottom.
enum class FormRow { Name, Target, Action, Schedule };
inline constexpr std::array<FormRow, 4> formRows = {FormRow::Name, FormRow::Target, FormRow::Action,
                                                    FormRow::Schedule};

/// What can be wrong, in the order in which the rules are checked.
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

/// At most one fault per row, in the order of the rules; empty when the form is sound.
using Faults = std::vector<Fault>;

/// Checks the form; never fails itself. Whether a target path or a script holds anything is not
/// checked, and the least interval binds the typed number of seconds alone.
Faults validate(const AgentForm& form);

/// How a fault is told. Every place that tells one reads it from the one table of these.
struct FaultText {
    Fault fault;
    FormRow row;
    std::string_view report;  ///< the line of the report, without its bullet
    std::string_view hint;    ///< below the row
    std::string_view missing; ///< what the form lacks; empty where something is wrong instead
};
const FaultText& faultText(Fault fault);

/// The fault of a row, or nullptr where the row is sound.
const FaultText* faultOfRow(const Faults& faults, FormRow row);

/// A line "• …\n" for each fault, as the log and the alert show them; empty when there is none.
std::string errorReport(const Faults& faults);

} // namespace frimbolate
