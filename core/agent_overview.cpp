#include "core/agent_overview.h"

#include "core/agent_reader.h"
#include "core/agent_sentence.h"
#include "core/conversions.h"
#include "core/next_run.h"

namespace frimbolate {

namespace {

AgentKind kindOf(std::string_view path) {
    switch (agentOrigin(path)) {
    case AgentOrigin::Own:
        return AgentKind::Own;
    case AgentOrigin::EarlierVersion:
        return AgentKind::EarlierVersion;
    default:
        return AgentKind::OtherProgram;
    }
}

std::string nameOf(const Dictionary& agent, AgentKind kind, const std::string& path) {
    const Value* label = find(agent, "Label");
    const std::string* text = label ? label->string() : nullptr;
    if (kind == AgentKind::OtherProgram)
        return text && !text->empty() ? *text : std::string(afterLast(path, "/"));
    return agentNameFromLabel(text ? std::string_view(*text) : afterLast(path, "/"));
}

} // namespace

AgentOverview agentOverview(const Value& agent, const std::string& path,
                            const CheckContext& context, const TextStyle& style) {
    const Dictionary* keys = agent.dictionary();
    if (!keys)
        return unreadableOverview(path,
                                  "it holds no dictionary, but: " + std::string(agent.kind()));
    AgentOverview overview;
    overview.path = path;
    overview.kind = kindOf(path);
    overview.name = nameOf(*keys, overview.kind, path);
    overview.isOn = isAgentOn(*keys);
    overview.sentence = agentSentence(*keys, style);
    overview.findings = checkAgent(agent, context);
    if (style.now)
        overview.nextRun = nextRun(*keys, *style.now);
    return overview;
}

AgentOverview unreadableOverview(const std::string& path, const std::string& reason) {
    AgentOverview overview;
    overview.path = path;
    overview.name = afterLast(path, "/");
    overview.sentence = "Cannot be read: " + reason + ".";
    return overview;
}

} // namespace frimbolate
