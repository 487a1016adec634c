#include "cli/command_line.h"

#include "cli/agent_commands.h"
#include "cli/agent_source.h"
#include "cli/report.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <sstream>

namespace frimbolate {

namespace {

/// What the arguments say. One word is called; the others leave their part as it is.
struct Arguments {
    Paths paths;
    bool json = false;
    std::string folder, file, verb;
    bool isModern = false;
    NewAgentOptions agent;
    NewAgentOutput output{std::string(standardInput)};
};

CLI::App& addWord(CLI::App& app, Arguments& arguments, const std::string& word,
                  const std::string& description, const std::string& example) {
    CLI::App& sub = *app.add_subcommand(word, description);
    sub.add_flag("--json", arguments.json, "Print one JSON document");
    sub.footer("Example:\n  " + example);
    return sub;
}

void addPaths(CLI::App& sub, Arguments& arguments, const std::string& name) {
    sub.add_option(name, arguments.paths)->required();
    sub.footer(sub.get_footer() +
               "\n\n\"-\" is the standard input; names that begin with a dash follow \"--\".");
}

bool isKnown(std::string_view word) {
    constexpr std::array<std::string_view, 7> words = {"check", "explain", "new",    "on",
                                                       "off",   "list",    "command"};
    return std::ranges::find(words, word) != words.end();
}

/// Makes paths of the arguments that the parser would read otherwise: in brackets a list of paths,
/// and after "--" what begins with a dash, wherever it stands.
std::vector<std::string> withPlainPaths(const std::vector<std::string>& arguments) {
    std::vector<std::string> plain;
    const bool hasPaths = arguments.front() != "new";
    bool onlyPaths = false;
    for (const auto& argument : arguments) {
        const bool isDashed = onlyPaths && argument.starts_with('-') && argument != standardInput;
        if (hasPaths && !onlyPaths && argument == "--")
            onlyPaths = true;
        else
            plain.push_back((hasPaths && argument.starts_with('[')) || isDashed ? "./" + argument
                                                                                : argument);
    }
    return plain;
}

void addNewOptions(CLI::App& sub, NewAgentOptions& agent) {
    sub.add_option("--name", agent.name, "The agent's name");
    auto* run = sub.add_option("--run", agent.run, "The application or script file to launch");
    sub.add_option("--script", agent.script, "The text of a shell script to launch")->excludes(run);
    auto* at = sub.add_option("--at", agent.at, "A time of day, such as 07:05");
    auto* on =
        sub.add_option("--on", agent.on, "\"day\", a weekday, or a day of the month")->needs(at);
    auto* every = sub.add_option("--every", agent.every, "An interval, such as 30s, 15m or 2h");
    auto* atLoad = sub.add_flag("--at-load", agent.atLoad, "When the agent is loaded");
    auto* watch = sub.add_option("--watch", agent.watch, "When this path changes");
    auto* mount = sub.add_flag("--on-mount", agent.onMount, "When a volume is mounted");
    const std::vector<CLI::Option*> starts = {at, every, atLoad, watch, mount};
    for (auto* one : starts)
        for (auto* other : starts)
            if (one != other)
                one->excludes(other);
    for (auto* other : {every, atLoad, watch, mount})
        on->excludes(other);
    auto* keep = sub.add_flag("--keep-running", agent.keepRunning, "Start it again when it ends");
    keep->excludes(watch)->excludes(mount);
    sub.add_flag("--allow-successful-exit", agent.allowSuccessfulExit,
                 "With --keep-running: only until it succeeds");
    sub.add_option("--queue", agent.queue, "Also as long as this folder is not empty");
    sub.add_flag("--also-at-load", agent.alsoAtLoad, "Also when the agent is loaded");
    sub.add_flag("--also-on-mount", agent.alsoOnMount, "Also when a volume is mounted");
    sub.add_option("--also-watch", agent.alsoWatch, "Also when this path changes");
    sub.add_flag("--low-priority", agent.lowPriority, "Low priority of input and output");
    sub.add_option("--nice", agent.nice, "From -20, the highest priority, to 20");
    sub.add_option("--stdin", agent.standardIn, "The file of the standard input");
    sub.add_option("--stdout", agent.standardOut, "The file of the standard output");
    sub.add_option("--stderr", agent.standardError, "The file of the standard error");
    sub.add_option("--working-directory", agent.workingDirectory, "The folder to start in");
    sub.add_option("--root-directory", agent.rootDirectory, "The folder to change the root to");
    sub.add_flag("--globbing", agent.globbing, "Expand wildcards in the arguments");
}

/// Adds every word, with the options and the action of each.
void addWords(CLI::App& app, Arguments& arguments, const CommandLineServices& services, int& code) {
    auto& check = addWord(app, arguments, "check",
                          "Say what launchd would refuse, ignore or do otherwise than meant",
                          "frimbolate check ~/Library/LaunchAgents");
    addPaths(check, arguments, "FILE|FOLDER");
    check.final_callback([&] { code = checkCommand(arguments.paths, arguments.json, services); });

    auto& explain = addWord(app, arguments, "explain", "Say what an agent does, and when next",
                            "frimbolate explain com.example.sync.plist");
    addPaths(explain, arguments, "FILE");
    explain.final_callback(
        [&] { code = explainCommand(arguments.paths, arguments.json, services); });

    auto& make = addWord(app, arguments, "new", "Make an agent",
                         "frimbolate new --name Backup --run ~/backup.sh --at 07:05 --on wed");
    addNewOptions(make, arguments.agent);
    make.add_option("--output", arguments.output.path,
                    "The file to write; the standard output without it or for \"-\"");
    make.add_flag("--force", arguments.output.replaces, "Replace an existing file");
    make.final_callback(
        [&] { code = newCommand(arguments.agent, arguments.output, arguments.json, services); });

    for (const bool enable : {true, false}) {
        const std::string word = enable ? "on" : "off";
        auto& change = addWord(app, arguments, word, "Switch agents " + word,
                               "frimbolate " + word + " com.example.sync.plist");
        addPaths(change, arguments, "FILE");
        change.final_callback([&, enable] {
            code = switchCommand(enable, arguments.paths, arguments.json, services);
        });
    }

    auto& list = addWord(app, arguments, "list", "List the agents of a folder",
                         "frimbolate list ~/Library/LaunchAgents");
    list.add_option("FOLDER", arguments.folder, "~/Library/LaunchAgents without it");
    list.final_callback([&] { code = listCommand(arguments.folder, arguments.json, services); });

    auto& command = addWord(app, arguments, "command", "Print the launchctl command for an agent",
                            "frimbolate command load com.example.sync.plist");
    command.add_option("load|unload", arguments.verb)
        ->required()
        ->check(CLI::IsMember({"load", "unload"}));
    command.add_option("FILE", arguments.file)->required();
    command.add_flag("--modern", arguments.isModern, "The bootstrap and bootout form");
    command.final_callback([&] {
        code = launchctlCommand({arguments.verb == "unload", arguments.isModern}, arguments.file,
                                arguments.json, services);
    });
}

} // namespace

bool isCommandWord(std::string_view argument) {
    return !argument.empty() && !argument.starts_with('-');
}

int runCommandLine(const std::vector<std::string>& arguments, const CommandLineServices& services) {
    CLI::App app("The rules of Frimbolate in a terminal", "frimbolate");
    app.require_subcommand(1);
    Arguments parsed;
    int code = ExitCode::Nothing;
    addWords(app, parsed, services, code);
    if (arguments.empty() || !isKnown(arguments.front())) {
        services.err << "frimbolate: there is no command \u201c"
                     << (arguments.empty() ? "" : printable(arguments.front()))
                     << "\u201d; there are check, explain, new, on, off, list and command\n";
        return ExitCode::Failed;
    }
    try {
        auto words = withPlainPaths(arguments);
        std::ranges::reverse(words); // the parser takes its arguments from the end
        app.parse(std::move(words));
    } catch (const CLI::ParseError& error) {
        std::ostringstream message;
        const int failure = app.exit(error, services.out, message);
        services.err << printableLines(message.str());
        if (failure != 0)
            return ExitCode::Failed;
    }
    return code;
}

} // namespace frimbolate
