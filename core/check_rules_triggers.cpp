// Rules about the keys that start an agent, and how they agree.
#include "core/check_rules.h"
#include "core/launchd_keys.h"

#include <algorithm>
#include <vector>

namespace frimbolate {

namespace {

using KeyNames = std::vector<std::string_view>;

bool startsByInterval(const CheckedAgent& agent) {
    const auto* value = find(agent.keys, "StartInterval");
    const auto* interval = agent.integer("StartInterval");
    return (interval && *interval > 0) || (value && value->bigInteger());
}

bool startsByCalendar(const CheckedAgent& agent) {
    const auto* alternatives = agent.array("StartCalendarInterval");
    return agent.dictionary("StartCalendarInterval") || (alternatives && !alternatives->empty());
}

bool hasElements(const CheckedAgent& agent, std::string_view key) {
    const auto* elements = agent.array(key);
    return elements && !elements->empty();
}

bool isAlwaysRunning(const CheckedAgent& agent) { return agent.isSet("KeepAlive"); }

bool isKeptAlive(const CheckedAgent& agent) {
    const auto* conditions = agent.dictionary("KeepAlive");
    return isAlwaysRunning(agent) || (conditions && !conditions->empty());
}

bool waitsForDemand(const CheckedAgent& agent) {
    const auto* conditions = agent.dictionary("KeepAlive");
    const auto* waits = conditions ? find(*conditions, "AfterInitialDemand") : nullptr;
    return waits && *waits == Value(true);
}

/// The keys that start the agent, but not for the first time where it waits for a demand.
KeyNames triggersWithoutDemand(const CheckedAgent& agent) {
    KeyNames names;
    if (startsByInterval(agent))
        names.emplace_back("StartInterval");
    if (startsByCalendar(agent))
        names.emplace_back("StartCalendarInterval");
    if (agent.isSet("StartOnMount"))
        names.emplace_back("StartOnMount");
    if (agent.isSet("RunAtLoad"))
        names.emplace_back("RunAtLoad");
    return names;
}

bool hasDemand(const CheckedAgent& agent) {
    return hasElements(agent, "WatchPaths") || hasElements(agent, "QueueDirectories");
}

/// A key may start the agent in a way that these rules do not know.
bool mayStartOtherwise(const CheckedAgent& agent) {
    for (const auto* key : {"MachServices", "Sockets", "LaunchEvents", "inetdCompatibility",
                            "OnDemand", "BonjourFDs", "Policies"})
        if (find(agent.keys, key))
            return true;
    return std::any_of(agent.keys.begin(), agent.keys.end(),
                       [](const auto& entry) { return !launchdKey("", entry.first); });
}

std::string joinedNames(const KeyNames& names) {
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i)
        text.append(i == 0 ? "" : i + 1 == names.size() ? " or " : ", ").append(names[i]);
    return text;
}

void checkEmptyTriggers(const CheckedAgent& agent) {
    for (const auto* key : {"WatchPaths", "QueueDirectories", "StartCalendarInterval"})
        if (agent.array(key) && !hasElements(agent, key))
            agent.findings.add(Rule::EmptyTrigger, key);
}

void checkFirstDemand(const CheckedAgent& agent) {
    const auto others = triggersWithoutDemand(agent);
    const auto add = [&](std::size_t variant) {
        agent.findings.add(Rule::AfterInitialDemand, "KeepAlive.AfterInitialDemand", variant,
                           {joinedNames(others)});
    };
    const bool isDemandCertain = hasDemand(agent);
    if (!isDemandCertain && mayStartOtherwise(agent))
        return;
    if (!isDemandCertain)
        add(others.empty() ? 0 : 1);
    else if (!others.empty())
        add(2);
}

void checkNoTrigger(const CheckedAgent& agent) {
    // Whether KeepAlive without conditions starts the agent is not documented.
    const bool isStarted = isAlwaysRunning(agent) || agent.dictionary("KeepAlive") ||
                           hasDemand(agent) || !triggersWithoutDemand(agent).empty() ||
                           mayStartOtherwise(agent);
    // A value of the wrong type has a finding of its own.
    const auto isOfOtherType = [&agent](const char* key) {
        const auto* value = find(agent.keys, key);
        const auto* known = launchdKey("", key);
        return value && !isOfKinds(*value, known->type.kinds);
    };
    static constexpr const char* keys[] = {"KeepAlive",     "RunAtLoad",
                                           "WatchPaths",    "QueueDirectories",
                                           "StartInterval", "StartCalendarInterval",
                                           "StartOnMount"};
    if (!isStarted && std::none_of(std::begin(keys), std::end(keys), isOfOtherType))
        agent.findings.add(Rule::NoTrigger, "");
}

/// Whether the interval is short beside KeepAlive.
bool checkInterval(const CheckedAgent& agent) {
    constexpr std::int64_t standardThrottle = 10;
    const auto* given = agent.integer("ThrottleInterval");
    const auto throttle = given && *given > 0 ? *given : standardThrottle;
    const auto* interval = agent.integer("StartInterval");
    if (!interval || *interval <= 0 || *interval >= throttle)
        return false;
    agent.findings.add(Rule::KeepAliveInterval, "StartInterval", 0,
                       {std::to_string(*interval), std::to_string(throttle)});
    return true;
}

void checkShadowed(const CheckedAgent& agent, bool isIntervalReported) {
    const auto add = [&agent](const char* key) { agent.findings.add(Rule::ShadowedTrigger, key); };
    if (startsByInterval(agent) && !isIntervalReported)
        add("StartInterval");
    if (startsByCalendar(agent))
        add("StartCalendarInterval");
    for (const auto* key : {"WatchPaths", "QueueDirectories"})
        if (hasElements(agent, key))
            add(key);
    if (agent.isSet("StartOnMount"))
        add("StartOnMount");
}

void checkLaunchOnce(const CheckedAgent& agent) {
    if (startsByInterval(agent))
        agent.findings.add(Rule::LaunchOnce, "StartInterval");
    if (startsByCalendar(agent))
        agent.findings.add(Rule::LaunchOnce, "StartCalendarInterval");
    if (isKeptAlive(agent))
        agent.findings.add(Rule::LaunchOnce, "KeepAlive");
}

} // namespace

void checkTriggers(const CheckedAgent& agent) {
    checkEmptyTriggers(agent);
    checkNoTrigger(agent);
    if (waitsForDemand(agent))
        checkFirstDemand(agent);
    else if (isKeptAlive(agent)) {
        const bool isShort = checkInterval(agent);
        if (isAlwaysRunning(agent))
            checkShadowed(agent, isShort);
    }
    const auto* atLoad = find(agent.keys, "RunAtLoad");
    if (isAlwaysRunning(agent) && atLoad && *atLoad == Value(false))
        agent.findings.add(Rule::RunAtLoadOff, "RunAtLoad");
    if (agent.isSet("LaunchOnlyOnce"))
        checkLaunchOnce(agent);
}

} // namespace frimbolate
