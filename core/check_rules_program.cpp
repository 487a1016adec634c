// Rules about the label and what the agent runs.
#include "core/check_rules.h"
#include "core/conversions.h"
#include "core/launchd_keys.h"
#include "core/unexpanded.h"

#include <algorithm>

namespace frimbolate {

namespace {

void checkLabel(const CheckedAgent& agent) {
    const auto* label = find(agent.keys, "Label");
    if (!label) {
        if (!agent.hasInAnotherCase("Label"))
            agent.findings.add(Rule::LabelMissing, "Label");
    } else if (!label->string()) {
        agent.findings.add(Rule::LabelMissing, "Label", 1, {kindWithArticle(*label)});
    } else if (label->string()->empty()) {
        agent.findings.add(Rule::LabelEmpty, "Label");
    }
}

void reportNoProgram(const CheckedAgent& agent) {
    for (const auto* name : {"ProgramArguments", "Program", "BundleProgram"}) {
        const auto* value = find(agent.keys, name);
        if (value && value->string()) {
            agent.findings.add(Rule::ArgumentsString, name);
            return;
        }
        if (value) {
            agent.findings.add(Rule::NoProgram, name, 1, {kindWithArticle(*value)});
            return;
        }
    }
    agent.findings.add(Rule::NoProgram, "ProgramArguments");
}

void checkExecutable(const CheckedAgent& agent, const std::string& path, const std::string& key) {
    switch (agent.pathState(path)) {
    case PathState::Missing:
        agent.findings.add(Rule::ProgramNotFound, key);
        break;
    case PathState::File:
        agent.findings.add(Rule::ProgramNotExecutable, key);
        break;
    case PathState::Folder:
        agent.findings.add(Rule::ProgramNotExecutable, key, 1);
        break;
    case PathState::Executable:
    case PathState::Unknown:
        break;
    }
}

void checkProgramKey(const CheckedAgent& agent, const std::string& path) {
    if (path.starts_with('/'))
        return checkExecutable(agent, path, "Program");
    const auto variable = anyVariable(path);
    if (path.starts_with('~'))
        agent.findings.add(Rule::ProgramRelative, "Program", 1,
                           {expandedTilde(path, agent.context.home)});
    else if (!variable.empty() && path.starts_with(variable))
        agent.findings.add(Rule::ProgramRelative, "Program", 2, {variable});
    else
        agent.findings.add(Rule::ProgramRelative, "Program");
}

/// The first argument, where it is the program. checkPaths() reports what is not expanded in it.
void checkFirstArgument(const CheckedAgent& agent, const std::string& path) {
    const auto key = elementPath("ProgramArguments", 0);
    const bool isExpanded =
        agent.isSet("EnableGlobbing") && path.find_first_of("~*?[") != std::string::npos;
    if (path.empty())
        agent.findings.add(Rule::ArgumentsEmpty, key, 1);
    else if (isExpanded || path.starts_with('~') || !anyVariable(path).empty())
        return;
    else if (path.starts_with('/'))
        checkExecutable(agent, path, key);
    else if (path.find('/') != std::string::npos)
        agent.findings.add(Rule::ArgumentsRelative, key);
    else
        agent.findings.add(Rule::ArgumentsSearched, key);
}

/// A script that an interpreter runs, given right behind it.
void checkScript(const CheckedAgent& agent, const Array& arguments) {
    if (arguments.size() < 2 || agent.isSet("EnableGlobbing"))
        return;
    const auto* program = arguments[0].string();
    const auto* script = arguments[1].string();
    if (program && script && isInterpreter(*program) &&
        agent.pathState(*script) == PathState::Missing)
        agent.findings.add(Rule::ScriptNotFound, elementPath("ProgramArguments", 1));
}

} // namespace

void checkProgram(const CheckedAgent& agent) {
    checkLabel(agent);
    if (!namesProgram(agent))
        reportNoProgram(agent);
    const auto* program = agent.string("Program");
    const auto* arguments = agent.array("ProgramArguments");
    if (find(agent.keys, "BundleProgram"))
        agent.findings.add(Rule::BundleProgram, "BundleProgram");
    else if (program)
        checkProgramKey(agent, *program);
    else if (arguments && arguments->empty())
        agent.findings.add(Rule::ArgumentsEmpty, "ProgramArguments");
    else if (arguments && arguments->front().string())
        checkFirstArgument(agent, *arguments->front().string());
    if (arguments && !program)
        checkScript(agent, *arguments);
}

} // namespace frimbolate
