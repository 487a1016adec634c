#include "cli/agent_source.h"

#include "core/agent_sentence.h"
#include "core/named_error.h"
#include "plist/key_lines.h"
#include "plist/limits.h"
#include "plist/property_list_reader.h"
#include "posix/local_agent_folder.h"
#include "posix/property_list_file.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <istream>

namespace frimbolate {

namespace {

TextStyle styleOf(const CommandLineServices& services) {
    TextStyle style;
    style.home = services.home;
    style.now = services.now;
    return style;
}

/// The number in "… (line 12)", and the reason without it.
std::optional<std::size_t> takeLine(std::string& reason) {
    constexpr std::string_view opening = " (line ";
    const auto begin = reason.rfind(opening);
    if (begin == std::string::npos || !reason.ends_with(')'))
        return std::nullopt;
    std::size_t line = 0;
    const char* first = reason.data() + begin + opening.size();
    const char* last = reason.data() + reason.size() - 1;
    if (std::from_chars(first, last, line).ptr != last)
        return std::nullopt;
    reason.resize(begin);
    return line;
}

/// The findings of a value that is no agent; nothing for a text that is no property list.
std::vector<Finding> findingsOf(std::string_view text) {
    try {
        return checkAgent(readPropertyList(text));
    } catch (const NamedError&) {
        return {};
    }
}

/// A file whose content is no agent, which launchd does not load either.
AgentSource damaged(const std::string& path, std::string reason, std::vector<Finding> findings) {
    AgentSource source;
    source.overview = unreadableOverview(path, reason);
    source.overview.findings = std::move(findings);
    source.lines = {takeLine(reason)};
    if (source.overview.findings.empty())
        source.overview.findings = {{"damaged-file", Severity::Refused, "", reason}};
    source.lines.resize(source.overview.findings.size());
    return source;
}

AgentSource inaccessible(const std::string& path, const std::string& reason) {
    AgentSource source;
    source.overview = unreadableOverview(path, reason);
    source.error = reason;
    return source;
}

AgentSource described(Dictionary agent, AgentOverview overview) {
    AgentSource source;
    source.overview = std::move(overview);
    source.lines.resize(source.overview.findings.size());
    source.program = agentProgram(agent);
    source.agent = std::move(agent);
    return source;
}

void findLines(AgentSource& source, std::string_view text) {
    const auto& findings = source.overview.findings;
    if (std::ranges::all_of(findings, [](const Finding& finding) { return finding.key.empty(); }))
        return;
    const KeyLines lines = keyLines(text);
    for (std::size_t i = 0; i < findings.size(); ++i)
        source.lines[i] = lineOfKey(lines, findings[i].key);
}

/// All of the standard input, at most one byte more than can be read.
std::string allOf(std::istream& in) {
    std::string text;
    std::array<char, 65536> buffer{};
    while (text.size() <= maximumPlistBytes &&
           (in.read(buffer.data(), buffer.size()) || in.gcount() > 0))
        text.append(buffer.data(), static_cast<std::size_t>(in.gcount()));
    return text;
}

/// The kind of an agent without a file is that of the file which its label proposes.
std::string fileNameByLabel(const Dictionary& agent) {
    const Value* label = find(agent, "Label");
    return (label && label->string() ? *label->string() : std::string()) + ".plist";
}

AgentSource readInput(const CommandLineServices& services) {
    const std::string path(standardInput);
    const std::string text = allOf(services.in);
    try {
        Value value = readPropertyList(text);
        if (!value.dictionary())
            return damaged(path, "it holds no dictionary, but: " + std::string(value.kind()),
                           checkAgent(value));
        CheckContext context;
        context.home = services.home;
        context.pathState = services.pathState;
        auto overview =
            agentOverview(value, fileNameByLabel(*value.dictionary()), context, styleOf(services));
        overview.path = path;
        if (overview.name == fileNameByLabel({}))
            overview.name = path;
        AgentSource source = described(std::move(*value.dictionary()), std::move(overview));
        findLines(source, text);
        return source;
    } catch (const NamedError& error) {
        return damaged(path, error.reason(), {});
    }
}

} // namespace

AgentSource readAgent(const std::string& path, const CommandLineServices& services) {
    if (path == standardInput)
        return readInput(services);
    std::string text;
    PropertyListFile file = readPropertyListFile(path, &text);
    if (file.condition == FileCondition::damaged)
        // What the reader refused would take it as long again.
        return damaged(path, file.reason,
                       file.isOtherValue ? findingsOf(text) : std::vector<Finding>());
    if (file.condition != FileCondition::read)
        return inaccessible(path, file.reason);
    auto context = localCheckContext(path, file, services.home);
    context.pathState = services.pathState;
    Value agent(std::move(file.dictionary));
    auto overview = agentOverview(agent, path, context, styleOf(services));
    AgentSource source = described(std::move(*agent.dictionary()), std::move(overview));
    findLines(source, text);
    return source;
}

std::vector<std::string> filesOf(const std::vector<std::string>& paths) {
    std::vector<std::string> files;
    for (const auto& path : paths) {
        const auto listed = path == standardInput ? std::nullopt : LocalAgentFolder().list(path);
        if (listed)
            files.insert(files.end(), listed->begin(), listed->end());
        else
            files.push_back(path);
    }
    return files;
}

AgentSource sourceOf(const Dictionary& agent, const std::string& path,
                     const CommandLineServices& services) {
    const bool isFile = path != standardInput;
    CheckContext context;
    context.home = services.home;
    context.pathState = services.pathState;
    if (isFile)
        context.filePath = path;
    auto overview =
        agentOverview(agent, isFile ? path : fileNameByLabel(agent), context, styleOf(services));
    overview.path = path;
    return described(agent, std::move(overview));
}

} // namespace frimbolate
