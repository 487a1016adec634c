#include "core/validation.h"

#include "core/conversions.h"

#include <algorithm>

namespace frimbolate {

namespace {

constexpr std::string_view nameCharacters =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890_";
constexpr std::string_view digits = "1234567890";

constexpr int leastSeconds = 10;
constexpr int lastDayOfMonth = 31;

constexpr std::array<FaultText, 10> texts = {{
    {Fault::NameCharacters, FormRow::Name, "Name can only contain alphanumeric characters",
     "The name may hold only a to z, A to Z, 0 to 9 and _", ""},
    {Fault::NameBlank, FormRow::Name, "Name cannot be left blank", "The agent needs a name",
     "a name"},
    {Fault::ActionNotSelected, FormRow::Action, "Condition for launch not selected",
     "Choose when the agent starts", "a choice of when to launch it"},
    {Fault::TargetNotSelected, FormRow::Target, "No app or script to launch selected",
     "Choose an application or a script", "something to launch"},
    {Fault::DayNotNumeric, FormRow::Schedule, "Day of the month must be numeric",
     "The day of the month must be a number", ""},
    {Fault::DayBlank, FormRow::Schedule, "Day of the month cannot be left blank",
     "The schedule needs a day of the month", "a day of the month"},
    {Fault::DayOutOfRange, FormRow::Schedule, "Valid days of the month are 1 through 31",
     "The day of the month must be 1 to 31", ""},
    {Fault::IntervalNotNumeric, FormRow::Schedule, "Launch on interval must be numeric",
     "The interval must be a whole number", ""},
    {Fault::IntervalBlank, FormRow::Schedule, "Launch on interval cannot be left blank",
     "The schedule needs an interval", "an interval"},
    {Fault::IntervalTooShort, FormRow::Schedule, "Minimum launch on interval is 10 seconds",
     "The interval must be at least 10 seconds", ""},
}};

constexpr bool isInOrderOfFaults() {
    for (std::size_t i = 0; i < texts.size(); ++i)
        if (texts[i].fault != static_cast<Fault>(i))
            return false;
    return true;
}
static_assert(isInOrderOfFaults());

bool holdsOnly(std::string_view text, std::string_view allowed) {
    return text.find_first_not_of(allowed) == std::string_view::npos;
}

void checkName(Faults& faults, const AgentForm& form) {
    if (!holdsOnly(form.name, nameCharacters))
        faults.push_back(Fault::NameCharacters);
    else if (form.name.empty())
        faults.push_back(Fault::NameBlank);
}

void checkDayOfMonth(Faults& faults, const AgentForm& form) {
    const auto& text = form.dayOfMonthText;
    const auto day = truncatedTo32Bits(leadingInteger(text));
    if (!holdsOnly(text, digits))
        faults.push_back(Fault::DayNotNumeric);
    else if (text.empty())
        faults.push_back(Fault::DayBlank);
    else if (day < 1 || day > lastDayOfMonth)
        faults.push_back(Fault::DayOutOfRange);
}

void checkInterval(Faults& faults, const AgentForm& form) {
    const auto& text = form.intervalText;
    const auto number = truncatedTo32Bits(leadingInteger(text));
    if (!holdsOnly(text, digits))
        faults.push_back(Fault::IntervalNotNumeric);
    else if (text.empty())
        faults.push_back(Fault::IntervalBlank);
    else if (number < leastSeconds && form.intervalUnit <= IntervalUnit::Seconds)
        faults.push_back(Fault::IntervalTooShort);
}

} // namespace

Faults validate(const AgentForm& form) {
    Faults faults;
    checkName(faults, form);
    if (form.action == AgentAction::None)
        faults.push_back(Fault::ActionNotSelected);
    if (form.targetType == TargetType::None)
        faults.push_back(Fault::TargetNotSelected);
    if (form.scheduleType == ScheduleType::OnceAMonth)
        checkDayOfMonth(faults, form);
    if (form.scheduleType == ScheduleType::OnInterval)
        checkInterval(faults, form);
    return faults;
}

const FaultText& faultText(Fault fault) { return texts[static_cast<std::size_t>(fault)]; }

const FaultText* faultOfRow(const Faults& faults, FormRow row) {
    const auto found =
        std::ranges::find(faults, row, [](Fault fault) { return faultText(fault).row; });
    return found == faults.end() ? nullptr : &faultText(*found);
}

std::string errorReport(const Faults& faults) {
    std::string report;
    for (const Fault fault : faults)
        report.append("\u2022 ").append(faultText(fault).report).append("\n");
    return report;
}

} // namespace frimbolate
