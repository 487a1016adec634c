#include "cli/agent_commands.h"

#include "cli/agent_source.h"
#include "cli/report.h"
#include "core/agent_plist.h"
#include "core/command_warning.h"
#include "core/conversions.h"
#include "core/launchctl_command.h"
#include "core/named_error.h"
#include "operations/agent_switch.h"
#include "plist/xml_writer.h"
#include "posix/local_agent_folder.h"
#include "posix/local_files.h"

#include <filesystem>
#include <ostream>

namespace frimbolate {

namespace {

/// Prints the reasons that the files give.
class ErrorLog : public Log {
  public:
    explicit ErrorLog(std::ostream& out) : out_(out) {}
    void line(const std::string& text) override { out_ << printable(text) << "\n"; }

  private:
    std::ostream& out_;
};

using Sources = std::vector<AgentSource>;

Sources readAll(const Paths& paths, const CommandLineServices& services) {
    Sources sources;
    for (const auto& path : paths)
        sources.push_back(readAgent(path, services));
    return sources;
}

void printFindings(const Sources& sources, const CommandLineServices& services) {
    for (const auto& source : sources)
        services.err << findingLines(source, services.colorsErr);
}

/// The errors alone: of files that could not be read, for commands that do not check.
int printErrors(const Sources& sources, const CommandLineServices& services) {
    int code = ExitCode::Nothing;
    for (const auto& source : sources) {
        if (source.overview.kind != AgentKind::Unreadable && source.error.empty())
            continue;
        services.err << findingLines(source, services.colorsErr);
        code = ExitCode::Failed;
    }
    return code;
}

std::string absolutePath(const std::string& path) {
    std::error_code error;
    const auto absolute = std::filesystem::absolute(path, error);
    return error ? path : absolute.lexically_normal().string();
}

/// Sets the error of a file that was not changed.
void switchFile(AgentSource& source, bool enable, const CommandLineServices& services) {
    const auto& path = source.overview.path;
    const auto agent = withSwitch(source.agent, enable);
    if (path == standardInput) {
        source.result = xmlPropertyList(agent);
    } else if (isEnabled(source.agent) != enable) {
        ErrorLog log(services.err);
        LocalFiles files(log);
        const auto whole = absolutePath(path);
        if (!files.isWritable(whole) || !files.writeDictionary(whole, agent)) {
            source.error = "it cannot be written";
            return;
        }
    }
    auto changed = sourceOf(agent, path, services);
    changed.result = std::move(source.result);
    source = std::move(changed);
}

/// The label that a save under this name gives.
std::string labelOf(const AgentForm& form, const std::string& path) {
    const bool isFile = path != standardInput;
    return labelForFileName(isFile ? std::string(afterLast(path, "/"))
                                   : proposedFileName(form.name));
}

int reportFaults(const Faults& faults, const CommandLineServices& services) {
    for (const Fault fault : faults)
        services.err << "new: " << optionOf(fault) << ": " << faultText(fault).report << "\n";
    return faults.empty() ? ExitCode::Nothing : ExitCode::Findings;
}

int writeNewFile(const std::string& path, const AgentPlist& agent, bool replaces,
                 const CommandLineServices& services) {
    ErrorLog log(services.err);
    LocalFiles files(log);
    const auto whole = absolutePath(path);
    // A path that cannot be looked at may hold a file.
    if (!replaces && localPathState(whole) != PathState::Missing) {
        services.err << printable(path) << ": it exists already; --force replaces it\n";
        return ExitCode::Failed;
    }
    return files.writeDictionary(whole, agent) ? ExitCode::Nothing : ExitCode::Failed;
}

} // namespace

int checkCommand(const Paths& paths, bool json, const CommandLineServices& services) {
    const Sources sources = readAll(filesOf(paths), services);
    if (json)
        services.out << jsonReport("check", sources);
    else
        printFindings(sources, services);
    return exitCodeOf(sources);
}

int explainCommand(const Paths& paths, bool json, const CommandLineServices& services) {
    const Sources sources = readAll(paths, services);
    if (json)
        services.out << jsonReport("explain", sources);
    else
        for (const auto& source : sources)
            if (source.overview.kind != AgentKind::Unreadable)
                services.out << explanation(source, services.now.now(), services.colorsOut);
    return printErrors(sources, services);
}

int listCommand(const std::string& folder, bool json, const CommandLineServices& services) {
    const auto chosen = folder.empty() ? services.home + "/Library/LaunchAgents" : folder;
    const auto files = LocalAgentFolder().list(chosen);
    if (!files) {
        services.err << printable(chosen) << ": it is no folder that can be read\n";
        return ExitCode::Failed;
    }
    const Sources sources = readAll(*files, services);
    services.out << (json ? jsonReport("list", sources)
                          : agentTable(sources, services.now.now(), services.colorsOut));
    return ExitCode::Nothing;
}

int switchCommand(bool enable, const Paths& paths, bool json, const CommandLineServices& services) {
    Sources sources = readAll(paths, services);
    for (auto& source : sources) {
        if (source.overview.kind != AgentKind::Unreadable)
            try {
                switchFile(source, enable, services);
            } catch (const NamedError& error) {
                source.error = error.reason();
            }
        if (!json)
            services.out << source.result;
    }
    if (json)
        services.out << jsonReport(enable ? "on" : "off", sources);
    return printErrors(sources, services);
}

int launchctlCommand(LaunchctlCommand command, const std::string& path, bool json,
                     const CommandLineServices& services) {
    const auto whole = absolutePath(path);
    if (path == standardInput) {
        services.err << "-: a command needs the path of a file\n";
        return ExitCode::Failed;
    }
    AgentSource source = readAgent(whole, services);
    if (!source.error.empty())
        return printErrors({source}, services);
    const auto compose = command.isModern ? (command.unloads ? bootoutCommand : bootstrapCommand)
                                          : (command.unloads ? unloadCommand : loadCommand);
    source.result = compose(whole);
    services.out << (json ? jsonReport("command", {source}) : source.result + "\n");
    // The current form escapes a quote; the control characters remain.
    const auto warning =
        commandWarning(command.isModern ? removeAll(whole, "'") : std::string(whole));
    if (warning.empty())
        return ExitCode::Nothing;
    services.err << printable(whole) << ": " << warning << "\n";
    return ExitCode::Findings;
}

int newCommand(const NewAgentOptions& options, const NewAgentOutput& output, bool json,
               const CommandLineServices& services) {
    try {
        const AgentForm form = formOf(options);
        if (const Faults faults = validate(form); !faults.empty())
            return reportFaults(faults, services);
        const auto agent = buildAgentPlist(form, labelOf(form, output.path));
        AgentSource source = sourceOf(agent, output.path, services);
        source.result = xmlPropertyList(agent);
        if (output.path != standardInput) {
            const int code = writeNewFile(output.path, agent, output.replaces, services);
            if (code != ExitCode::Nothing)
                return code;
        }
        if (json)
            services.out << jsonReport("new", {source});
        else if (output.path == standardInput)
            services.out << source.result;
        return ExitCode::Nothing;
    } catch (const NamedError& error) {
        const bool isOption = error.name().starts_with("--");
        services.err << "new: " << (isOption ? error.name() + ": " : "")
                     << printable(error.reason()) << "\n";
        return ExitCode::Findings;
    }
}

} // namespace frimbolate
