#include "core/validation.h"

#include "core/conversions.h"

namespace frimbolate {

namespace {

constexpr std::string_view nameCharacters =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890_";
constexpr std::string_view digits = "1234567890";

constexpr int leastSeconds = 10;
constexpr int lastDayOfMonth = 31;

bool holdsOnly(std::string_view text, std::string_view allowed) {
    return text.find_first_not_of(allowed) == std::string_view::npos;
}

void addLine(ErrorReport& report, bool& marker, std::string_view line) {
    report.text.append("\u2022 ").append(line).append("\n");
    marker = true;
}

void checkName(ErrorReport& report, const AgentForm& form) {
    if (!holdsOnly(form.name, nameCharacters))
        addLine(report, report.name, "Name can only contain alphanumeric characters");
    else if (form.name.empty())
        addLine(report, report.name, "Name cannot be left blank");
}

void checkAction(ErrorReport& report, const AgentForm& form) {
    if (form.action == AgentAction::None)
        addLine(report, report.action, "Condition for launch not selected");
}

void checkTarget(ErrorReport& report, const AgentForm& form) {
    if (form.targetType == TargetType::None)
        addLine(report, report.target, "No app or script to launch selected");
}

void checkDayOfMonth(ErrorReport& report, const AgentForm& form) {
    const auto& text = form.dayOfMonthText;
    const auto day = truncatedTo32Bits(leadingInteger(text));
    if (!holdsOnly(text, digits))
        addLine(report, report.schedule, "Day of the month must be numeric");
    else if (text.empty())
        addLine(report, report.schedule, "Day of the month cannot be left blank");
    else if (day < 1 || day > lastDayOfMonth)
        addLine(report, report.schedule, "Valid days of the month are 1 through 31");
}

void checkInterval(ErrorReport& report, const AgentForm& form) {
    const auto& text = form.intervalText;
    const auto number = truncatedTo32Bits(leadingInteger(text));
    if (!holdsOnly(text, digits))
        addLine(report, report.schedule, "Launch on interval must be numeric");
    else if (text.empty())
        addLine(report, report.schedule, "Launch on interval cannot be left blank");
    else if (number < leastSeconds && form.intervalUnit <= IntervalUnit::Seconds)
        addLine(report, report.schedule, "Minimum launch on interval is 10 seconds");
}

} // namespace

ErrorReport validate(const AgentForm& form) {
    ErrorReport report;
    checkName(report, form);
    checkAction(report, form);
    checkTarget(report, form);
    if (form.scheduleType == ScheduleType::OnceAMonth)
        checkDayOfMonth(report, form);
    if (form.scheduleType == ScheduleType::OnInterval)
        checkInterval(report, form);
    return report;
}

} // namespace frimbolate
