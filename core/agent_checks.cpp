#include "core/agent_checks.h"

#include "core/check_rules.h"
#include "core/launchd_keys.h"

#include <algorithm>

namespace frimbolate {

namespace {

bool areEqualWithoutCase(std::string_view a, std::string_view b) {
    const auto lower = [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [lower](char x, char y) { return lower(x) == lower(y); });
}

} // namespace

const std::string* CheckedAgent::string(std::string_view key) const {
    const auto* value = find(keys, key);
    return value ? value->string() : nullptr;
}

const std::int64_t* CheckedAgent::integer(std::string_view key) const {
    const auto* value = find(keys, key);
    return value ? value->integer() : nullptr;
}

const Array* CheckedAgent::array(std::string_view key) const {
    const auto* value = find(keys, key);
    return value ? value->array() : nullptr;
}

const Dictionary* CheckedAgent::dictionary(std::string_view key) const {
    const auto* value = find(keys, key);
    return value ? value->dictionary() : nullptr;
}

bool CheckedAgent::isTrue(std::string_view key) const {
    const auto* value = find(keys, key);
    return value && value->boolean() && *value->boolean();
}

bool CheckedAgent::hasInAnyCase(std::string_view key) const {
    return std::any_of(keys.begin(), keys.end(),
                       [key](const auto& entry) { return areEqualWithoutCase(entry.first, key); });
}

std::string elementPath(std::string_view key, std::size_t index) {
    return std::string(key).append("[").append(std::to_string(index)).append("]");
}

std::string entryPath(std::string_view parent, std::string_view name) {
    std::string path(parent);
    if (!path.empty())
        path += '.';
    return path.append(name);
}

std::vector<Finding> checkAgent(const Value& agent, const CheckContext& context) {
    FindingList findings;
    if (const auto* keys = agent.dictionary()) {
        const CheckedAgent checked{*keys, context, findings};
        checkKeys(checked);
        checkRequiredKeys(checked);
        checkSchedule(checked);
    } else {
        findings.add(Rule::NoDictionary, "", 0, {kindWithArticle(agent)});
    }
    return findings.takeSorted();
}

} // namespace frimbolate
