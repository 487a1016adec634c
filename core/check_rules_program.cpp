// Rules about the label and what the agent runs.
#include "core/check_rules.h"
#include "core/launchd_keys.h"

namespace frimbolate {

void checkRequiredKeys(const CheckedAgent& agent) {
    const auto* label = find(agent.keys, "Label");
    if (label && !label->string())
        agent.findings.add(Rule::LabelMissing, "Label", 1, {kindWithArticle(*label)});
    else if (!agent.hasInAnyCase("Label"))
        agent.findings.add(Rule::LabelMissing, "Label");
    for (const auto* key : {"ProgramArguments", "Program", "BundleProgram"})
        if (agent.hasInAnyCase(key))
            return;
    agent.findings.add(Rule::NoProgram, "ProgramArguments");
}

} // namespace frimbolate
