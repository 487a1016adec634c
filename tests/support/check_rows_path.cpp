#include "tests/support/check_rows.h"

namespace frimbolate::test {

namespace {

std::string tilde(const std::string& key, const std::string& path) {
    return "tilde " + key + ": begins with “~”, which launchd does not expand: write " + path;
}

std::string variable(const std::string& key, const std::string& name) {
    return "variable " + key + ": holds " + name +
           ", which launchd does not expand: write its "
           "value";
}

std::vector<CheckRow> tildeRows() {
    const auto home = homeContext();
    const auto globbing = edited(running({"~/bin/backup", "~/x"}), {{"EnableGlobbing", true}});
    return {
        {"TildeInFolder",
         "tilde",
         backupWith("WorkingDirectory", "~/src"),
         {tilde("WorkingDirectory", "/Users/maya/src")},
         home},
        {"TildeAlone",
         "tilde",
         backupWith("WorkingDirectory", "~"),
         {tilde("WorkingDirectory", "/Users/maya")},
         home},
        {"TildeOfAnother",
         "tilde",
         backupWith("WorkingDirectory", "~root/src"),
         {tilde("WorkingDirectory", "the whole path")},
         home},
        {"TildeWithoutHome",
         "tilde",
         backupWith("WorkingDirectory", "~/src"),
         {tilde("WorkingDirectory", "the whole path")}},
        {"TildeInInput",
         "tilde",
         backupWith("StandardInPath", "~/in"),
         {tilde("StandardInPath", "/Users/maya/in")},
         home},
        {"TildeInOutput",
         "tilde",
         backupWith("StandardOutPath", "~/out.log"),
         {tilde("StandardOutPath", "/Users/maya/out.log")},
         home},
        {"TildeInErrors",
         "tilde",
         backupWith("StandardErrorPath", "~/err.log"),
         {tilde("StandardErrorPath", "/Users/maya/err.log")},
         home},
        {"TildeInWatchedPath",
         "tilde",
         edited(watcher(), {{"WatchPaths", texts({"/srv", "~/Pictures"})}}),
         {tilde("WatchPaths[1]", "/Users/maya/Pictures")},
         home},
        {"TildeInQueue",
         "tilde",
         backupWith("QueueDirectories", texts({"~/queue"})),
         {tilde("QueueDirectories[0]", "/Users/maya/queue")},
         home},
        {"TildeInProgramArgument",
         "tilde",
         running({"~/bin/backup"}),
         {tilde("ProgramArguments[0]", "/Users/maya/bin/backup")},
         home},
        {"TildeInArgument",
         "tilde",
         running({"/bin/ls", "-l", "~/x"}),
         {tilde("ProgramArguments[2]", "/Users/maya/x")},
         home},
        {"TildeAsArgument",
         "tilde",
         running({"/bin/ls", "~"}),
         {tilde("ProgramArguments[1]", "/Users/maya")},
         home},
        {"TildeForAScript",
         "tilde",
         running({"/bin/sh", "~/x.sh"}),
         {tilde("ProgramArguments[1]", "/Users/maya/x.sh")},
         home},
        {"TildeBehindProgram",
         "tilde",
         edited(watcher(), {{"ProgramArguments", texts({"~/x", "~/y"})}}),
         {tilde("ProgramArguments[1]", "/Users/maya/y")},
         home},

        {"TildeWithin", "tilde", backupWith("WorkingDirectory", "/srv/~x"), {}, home},
        {"ArgumentOfTilde", "tilde", running({"/bin/ls", "~x"}), {}, home},
        {"TildeBehindOption", "tilde", running({"/bin/ls", "--in=~/x"}), {}, home},
        {"TildeInCode", "tilde", running({"/bin/sh", "-c", "~/bin/backup"}), {}, home},
        {"TildeBehindCode", "tilde", running({"/bin/bash", "-lc", "exec $0", "~/bin/x"}), {}, home},
        {"TildeForALoginShell",
         "tilde",
         running({"/bin/bash", "-l", "~/x.sh"}),
         {tilde("ProgramArguments[2]", "/Users/maya/x.sh")},
         home},
        {"TildeInCodeOfSearchedShell",
         "tilde",
         running({"/usr/bin/env", "zsh", "-c", "~/bin/backup"}),
         {},
         home},
        {"TildeInCodeOfProgram",
         "tilde",
         edited(watcher(), {{"Program", "/usr/bin/python3.11"},
                            {"ProgramArguments", texts({"python", "-c", "~/x"})}}),
         {},
         home},
        {"TildeInConfiguration",
         "tilde",
         running({"/opt/server", "-c", "~/x.conf"}),
         {tilde("ProgramArguments[2]", "/Users/maya/x.conf")},
         home},
        {"TildeWithGlobbing", "tilde", globbing, {}, home},
    };
}

std::vector<CheckRow> variableRows() {
    return {
        {"VariableInFolder",
         "variable",
         backupWith("WorkingDirectory", "$HOME/src"),
         {variable("WorkingDirectory", "$HOME")}},
        {"VariableInBraces",
         "variable",
         backupWith("StandardOutPath", "/tmp/${USER}.log"),
         {variable("StandardOutPath", "${USER}")}},
        {"VariableOfAnyName",
         "variable",
         backupWith("StandardErrorPath", "/tmp/$my_2.log"),
         {variable("StandardErrorPath", "$my_2")}},
        {"VariableInWatchedPath",
         "variable",
         edited(watcher(), {{"WatchPaths", texts({"$TMPDIR"})}}),
         {variable("WatchPaths[0]", "$TMPDIR")}},
        {"VariableInProgram",
         "variable",
         edited(watcher(), {{"Program", "/Users/$USER/x"}}),
         {variable("Program", "$USER")}},
        {"VariableInProgramArgument",
         "variable",
         running({"$HOMEBREW/bin/x"}),
         {variable("ProgramArguments[0]", "$HOMEBREW")}},
        {"VariableInArgument",
         "variable",
         running({"/bin/ls", "--in=$HOME/x"}),
         {variable("ProgramArguments[1]", "$HOME")}},
        {"SecondVariableInArgument",
         "variable",
         running({"/bin/ls", "$X$PWD"}),
         {variable("ProgramArguments[1]", "$PWD")}},
        {"VariableInArgumentWithGlobbing",
         "variable",
         edited(running({"/bin/ls", "$HOME/*"}), {{"EnableGlobbing", true}}),
         {variable("ProgramArguments[1]", "$HOME")}},
        {"VariableInSearchPath",
         "variable",
         backupWith("EnvironmentVariables", Dictionary{{"PATH", "/opt/bin:$PATH"}}),
         {variable("EnvironmentVariables.PATH", "$PATH")}},

        {"DollarInPath", "variable", backupWith("WorkingDirectory", "/srv/5$ a$"), {}},
        {"DollarBeforeDigit", "variable", backupWith("WorkingDirectory", "/srv/$1"), {}},
        {"BraceNotClosed", "variable", backupWith("WorkingDirectory", "/srv/${x"), {}},
        {"BracesEmpty", "variable", backupWith("WorkingDirectory", "/srv/${}"), {}},
        {"FieldOfAwk", "variable", running({"/usr/bin/awk", "{print $NF}"}), {}},
        {"LongerName", "variable", running({"/bin/ls", "$HOMES"}), {}},
        {"VariableInCode", "variable", running({"/bin/sh", "-c", "ls $HOME"}), {}},
        {"VariableInCodeOfPerl", "variable", running({"/usr/bin/perl", "-we", "$HOME"}), {}},
        {"OtherVariableOfEnvironment",
         "variable",
         backupWith("EnvironmentVariables", Dictionary{{"PS1", "$USER"}}),
         {}},
        {"VariableInOtherKey", "variable", backupWith("ProcessType", "Background"), {}},
    };
}

std::vector<CheckRow> folderRows() {
    const auto log = [](const char* name, const char* path, std::vector<std::string> findings) {
        return CheckRow{name, "log-folder-missing",
                        edited(server(), {{"StandardOutPath", path},
                                          {"ProgramArguments", texts({"/usr/bin/tool"})}}),
                        std::move(findings), machine()};
    };
    const std::string missing = ": is in a folder that does not exist on this machine, and launchd "
                                "does not create it";
    const auto isProtected = [](const std::string& key, const std::string& folder) {
        return "protected-folder " + key + ": is in " + folder +
               ", which privacy settings protect: the agent may be unable to read it";
    };
    auto errors = log("LogFolderOfErrorsMissing", "/opt/logs/x",
                      {"log-folder-missing StandardErrorPath" + missing});
    errors.agent = edited(*errors.agent.dictionary(), {{"StandardErrorPath", "/opt/none/x"}});
    const auto home = homeContext();
    return {
        log("LogFolderMissing", "/opt/none/x.log",
            {"log-folder-missing StandardOutPath" + missing}),
        std::move(errors),
        log("LogFolderFound", "/opt/logs/x.log", {}),
        log("LogFolderOfAnotherMachine", "/Users/maya/x.log", {}),
        log("LogAtRoot", "/x.log", {}),
        log("LogInMissingFirstFolder", "/none/x.log", {}),
        log("RelativeLog", "none/x.log", {}),
        log("LogWithoutFolder", "x.log", {}),
        log("LogFolderUnknown", "/locked/none/x.log", {}),

        {"ProgramOnDesktop",
         "protected-folder",
         edited(watcher(), {{"Program", "/Users/maya/Desktop/x"}}),
         {isProtected("Program", "Desktop")},
         home},
        {"ArgumentInDocuments",
         "protected-folder",
         running({"/Users/maya/Documents/x"}),
         {isProtected("ProgramArguments[0]", "Documents")},
         home},
        {"ScriptInDownloads",
         "protected-folder",
         running({"/bin/sh", "/Users/maya/Downloads/x.sh"}),
         {isProtected("ProgramArguments[1]", "Downloads")},
         home},
        {"FolderInDocuments",
         "protected-folder",
         backupWith("WorkingDirectory", "/Users/maya/Documents/a/b"),
         {isProtected("WorkingDirectory", "Documents")},
         home},
        {"FolderIsDocuments",
         "protected-folder",
         backupWith("WorkingDirectory", "/Users/maya/Documents"),
         {isProtected("WorkingDirectory", "Documents")},
         home},
        {"InputOnDesktop",
         "protected-folder",
         backupWith("StandardInPath", "/Users/maya/Desktop/x"),
         {isProtected("StandardInPath", "Desktop")},
         home},
        {"DesktopOfAnyUser",
         "protected-folder",
         backupWith("StandardInPath", "/Users/x/Desktop/y"),
         {isProtected("StandardInPath", "Desktop")}},
        {"DesktopOfOtherHome",
         "protected-folder",
         backupWith("StandardInPath", "/home/x/Desktop/y"),
         {},
         home},
        {"DesktopElsewhere",
         "protected-folder",
         backupWith("StandardInPath", "/srv/Desktop/y"),
         {},
         home},
        {"DesktopWithin",
         "protected-folder",
         backupWith("StandardInPath", "/Users/maya/x/Desktop/y"),
         {},
         home},
        {"LongerNameOfFolder",
         "protected-folder",
         backupWith("StandardInPath", "/Users/maya/Desktops/y"),
         {},
         home},
        {"LogOnDesktop",
         "protected-folder",
         backupWith("StandardOutPath", "/Users/maya/Desktop/y"),
         {},
         home},
        {"ArgumentOfTool",
         "protected-folder",
         running({"/bin/ls", "/Users/maya/Desktop/y"}),
         {},
         home},
        {"NameBesideProtectedProgram",
         "protected-folder",
         edited(watcher(), {{"ProgramArguments", texts({"/Users/maya/Desktop/y"})}}),
         {},
         home},
    };
}

} // namespace

std::vector<CheckRow> pathCheckRows() {
    auto rows = tildeRows();
    for (auto& row : variableRows())
        rows.push_back(std::move(row));
    for (auto& row : folderRows())
        rows.push_back(std::move(row));
    CheckContext onLinux;
    onLinux.home = "/home/maya";
    rows.push_back({"DocumentsOfHomeOnLinux",
                    "protected-folder",
                    backupWith("WorkingDirectory", "/home/maya/Documents"),
                    {"protected-folder WorkingDirectory: is in Documents, which privacy settings "
                     "protect: the agent may be unable to read it"},
                    onLinux});
    rows.push_back({"HomeOfLongerName",
                    "protected-folder",
                    backupWith("WorkingDirectory", "/home/mayasDocuments/x"),
                    {},
                    onLinux});
    return rows;
}

} // namespace frimbolate::test
