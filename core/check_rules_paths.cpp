// Rules about paths and arguments: what launchd does not expand, create or get to read.
#include "core/check_rules.h"
#include "core/conversions.h"
#include "core/unexpanded.h"

#include <algorithm>

namespace frimbolate {

namespace {

void reportTilde(const CheckedAgent& agent, const std::string& path, std::string key) {
    agent.findings.add(Rule::Tilde, std::move(key), 0, {expandedTilde(path, agent.context.home)});
}

void checkPath(const CheckedAgent& agent, const std::string& path, std::string key) {
    if (path.starts_with('~'))
        reportTilde(agent, path, std::move(key));
    else if (const auto variable = anyVariable(path); !variable.empty())
        agent.findings.add(Rule::Variable, std::move(key), 0, {variable});
}

/// Options whose argument is code: -c, -lc, -e …
bool announcesCode(std::string_view argument) {
    return argument.size() > 1 && argument.front() == '-' &&
           (argument.back() == 'c' || argument.back() == 'e');
}

/// An argument may be a text for the program rather than a path: only what is surely a path, or a
/// variable of the login shell, is reported. Code for an interpreter and what follows it is not.
void checkArguments(const CheckedAgent& agent, const Array& arguments) {
    const bool mayExpand = agent.isSet("EnableGlobbing");
    const bool isNameAlone = agent.string("Program") != nullptr;
    bool mayTakeCode = agent.string("Program") && isInterpreter(*agent.string("Program"));
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const auto* argument = arguments[i].string();
        if (!argument || (i == 0 && isNameAlone))
            continue;
        if (mayTakeCode && announcesCode(*argument))
            return;
        mayTakeCode = mayTakeCode || isInterpreter(*argument);
        const auto key = elementPath("ProgramArguments", i);
        if (i == 0 && !mayExpand)
            checkPath(agent, *argument, key);
        else if (!mayExpand && (*argument == "~" || argument->starts_with("~/")))
            reportTilde(agent, *argument, key);
        else if (const auto variable = wellKnownVariable(*argument); !variable.empty())
            agent.findings.add(Rule::Variable, key, 0, {variable});
    }
}

void checkSearchPath(const CheckedAgent& agent) {
    const auto* variables = agent.dictionary("EnvironmentVariables");
    const auto* path = variables ? find(*variables, "PATH") : nullptr;
    if (!path || !path->string())
        return;
    if (const auto variable = wellKnownVariable(*path->string()); !variable.empty())
        agent.findings.add(Rule::Variable, "EnvironmentVariables.PATH", 0, {variable});
}

void checkLogFolder(const CheckedAgent& agent, const char* key) {
    const auto* path = agent.string(key);
    const auto end = path ? path->rfind('/') : std::string::npos;
    if (end == std::string::npos)
        return;
    // The path's own first folder decides whether this machine can tell.
    const bool isInFirstFolder = path->find('/', 1) == end;
    if (!isInFirstFolder && agent.pathState(path->substr(0, end)) == PathState::Missing)
        agent.findings.add(Rule::LogFolderMissing, key);
}

/// The folder that privacy settings protect, "Desktop"; empty where the path is in none.
std::string_view protectedFolder(std::string_view path, std::string_view home) {
    constexpr std::string_view users = "/Users/";
    std::string_view rest;
    if (!home.empty() && path.starts_with(home) && path.substr(home.size()).starts_with('/'))
        rest = path.substr(home.size() + 1);
    else if (const auto end = path.find('/', users.size());
             path.starts_with(users) && end != std::string_view::npos)
        rest = path.substr(end + 1);
    const auto folder = rest.substr(0, rest.find('/'));
    static constexpr std::string_view names[] = {"Desktop", "Documents", "Downloads"};
    const bool isOne = std::find(std::begin(names), std::end(names), folder) != std::end(names);
    return isOne ? folder : std::string_view();
}

void checkPrivacy(const CheckedAgent& agent, const std::string* path, const std::string& key) {
    if (!path)
        return;
    if (const auto folder = protectedFolder(*path, agent.context.home); !folder.empty())
        agent.findings.add(Rule::ProtectedFolder, key, 0, {folder});
}

void checkPrivacyOfProgram(const CheckedAgent& agent) {
    const auto* program = agent.string("Program");
    checkPrivacy(agent, program, "Program");
    const auto* arguments = agent.array("ProgramArguments");
    if (program || !arguments || arguments->empty())
        return;
    const auto* first = (*arguments)[0].string();
    checkPrivacy(agent, first, elementPath("ProgramArguments", 0));
    if (first && isInterpreter(*first) && arguments->size() > 1)
        checkPrivacy(agent, (*arguments)[1].string(), elementPath("ProgramArguments", 1));
}

} // namespace

void checkPaths(const CheckedAgent& agent) {
    for (const auto* key : {"RootDirectory", "WorkingDirectory", "StandardInPath",
                            "StandardOutPath", "StandardErrorPath"})
        if (const auto* path = agent.string(key))
            checkPath(agent, *path, key);
    for (const auto* key : {"WatchPaths", "QueueDirectories"})
        if (const auto* paths = agent.array(key))
            for (std::size_t i = 0; i < paths->size(); ++i)
                if (const auto* path = (*paths)[i].string())
                    checkPath(agent, *path, elementPath(key, i));
    if (const auto* arguments = agent.array("ProgramArguments"))
        checkArguments(agent, *arguments);
    if (const auto* program = agent.string("Program"); program && program->starts_with('/'))
        checkPath(agent, *program, "Program");
    checkSearchPath(agent);
    checkLogFolder(agent, "StandardOutPath");
    checkLogFolder(agent, "StandardErrorPath");
    checkPrivacyOfProgram(agent);
    checkPrivacy(agent, agent.string("WorkingDirectory"), "WorkingDirectory");
    checkPrivacy(agent, agent.string("StandardInPath"), "StandardInPath");
}

} // namespace frimbolate
