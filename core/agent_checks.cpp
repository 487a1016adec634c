#include "core/agent_checks.h"

#include "core/check_rules.h"
#include "core/launchd_keys.h"

#include <algorithm>

namespace frimbolate {

namespace {

char withCaseChanged(char c) {
    const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    return isLetter ? static_cast<char>(c ^ 0x20) : c;
}

/// Whether a key begins with the prefix and differs from the name in the case of letters only,
/// where the prefix is that of the name in any case. Follows the sorted keys letter by letter, as
/// an agent may have a million of them. Leaves the prefix as it was.
bool hasCaseVariant(const Dictionary& keys, std::string_view name, std::string& prefix) {
    const auto found = keys.lower_bound(prefix);
    if (found == keys.end() || !found->first.starts_with(prefix))
        return false;
    if (prefix.size() == name.size())
        return found->first == prefix && prefix != name;
    const char c = name[prefix.size()];
    for (const char next : {c, withCaseChanged(c)}) {
        prefix.push_back(next);
        const bool isFound = hasCaseVariant(keys, name, prefix);
        prefix.pop_back();
        if (isFound)
            return true;
    }
    return false;
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

bool CheckedAgent::isSet(std::string_view key) const {
    const auto* value = find(keys, key);
    return value && value->boolean() && *value->boolean();
}

bool CheckedAgent::hasInAnotherCase(std::string_view key) const {
    std::string prefix;
    return hasCaseVariant(keys, key, prefix);
}

PathState CheckedAgent::pathState(std::string_view path) const {
    if (!context.pathState || !path.starts_with('/'))
        return PathState::Unknown;
    const auto end = path.find('/', 1);
    if (end != std::string_view::npos &&
        context.pathState(std::string(path.substr(0, end))) != PathState::Folder)
        return PathState::Unknown;
    return context.pathState(std::string(path));
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
        checkFile(checked);
        checkKeys(checked);
        checkProgram(checked);
        checkPaths(checked);
        checkSchedule(checked);
        checkTriggers(checked);
        checkExecution(checked);
    } else {
        findings.add(Rule::NoDictionary, "", 0, {kindWithArticle(agent)});
    }
    return findings.takeSorted();
}

} // namespace frimbolate
