// Rules about how launchd runs the program.
#include "core/check_rules.h"
#include "core/launchd_keys.h"

#include <algorithm>

namespace frimbolate {

namespace {

/// Agents of the login window run as root.
bool mayRunAsRoot(const CheckedAgent& agent) {
    const Value loginWindow("LoginWindow");
    const auto* session = find(agent.keys, "LimitLoadToSessionType");
    const auto* sessions = agent.array("LimitLoadToSessionType");
    return (session && *session == loginWindow) ||
           (sessions &&
            std::find(sessions->begin(), sessions->end(), loginWindow) != sessions->end());
}

void checkNice(const CheckedAgent& agent) {
    const auto* level = agent.integer("Nice");
    const auto* key = launchdKey("", "Nice");
    if (!level || !key)
        return;
    if (*level < key->least || *level > key->greatest)
        agent.findings.add(Rule::NiceRange, "Nice", 0, {std::to_string(*level)});
    else if (*level < 0 && !mayRunAsRoot(agent))
        agent.findings.add(Rule::NiceRoot, "Nice", 0, {std::to_string(*level)});
}

std::string octal(std::int64_t number) {
    std::string digits;
    for (; number > 0; number /= 8)
        digits.insert(digits.begin(), static_cast<char>('0' + number % 8));
    return "0" + digits;
}

/// A decimal number whose digits are those of a usual mask was meant to be octal.
void checkUmask(const CheckedAgent& agent) {
    struct Mask {
        std::int64_t digits, value;
    };
    static constexpr Mask usual[] = {{22, 022}, {27, 027}, {77, 077}};
    const auto* number = agent.integer("Umask");
    for (const auto& mask : usual)
        if (number && *number == mask.digits)
            agent.findings.add(Rule::UmaskDecimal, "Umask", 0,
                               {std::to_string(*number), octal(*number), octal(mask.value),
                                std::to_string(mask.value)});
}

void checkProcessType(const CheckedAgent& agent) {
    static constexpr std::string_view types[] = {"Background", "Standard", "Adaptive",
                                                 "Interactive"};
    const auto* type = agent.string("ProcessType");
    if (type && std::find(std::begin(types), std::end(types), *type) == std::end(types))
        agent.findings.add(Rule::ProcessType, "ProcessType", 0, {*type});
}

} // namespace

void checkExecution(const CheckedAgent& agent) {
    if (agent.isSet("EnablePressuredExit") && agent.isSet("KeepAlive"))
        agent.findings.add(Rule::PressuredExit, "EnablePressuredExit");
    if (agent.isSet("WaitForDebugger"))
        agent.findings.add(Rule::Debugger, "WaitForDebugger");
    if (agent.string("RootDirectory") && !mayRunAsRoot(agent))
        agent.findings.add(Rule::RootDirectory, "RootDirectory");
    if (const auto* seconds = agent.integer("ExitTimeOut"); seconds && *seconds == 0)
        agent.findings.add(Rule::ExitTimeOut, "ExitTimeOut");
    checkNice(agent);
    checkUmask(agent);
    checkProcessType(agent);
}

} // namespace frimbolate
