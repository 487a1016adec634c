#include "tests/support/check_rows.h"

namespace frimbolate::test {

namespace {

Dictionary withLabel(std::optional<Value> label) {
    return edited(backup(), {{"Label", std::move(label)}});
}

Dictionary withProgram(std::optional<Value> program) {
    return edited(watcher(), {{"Program", std::move(program)}});
}

Dictionary withArguments(std::optional<Value> arguments) {
    return edited(backup(), {{"ProgramArguments", std::move(arguments)}});
}

std::vector<CheckRow> requiredRows() {
    const std::string missing =
        "no-program ProgramArguments: is missing, and so is Program: there is nothing to run";
    const auto neither =
        edited(watcher(), {{"Program", std::nullopt}, {"ProgramArguments", std::nullopt}});
    const std::string empty = "arguments-empty ProgramArguments: is empty: it names no program";
    return {
        {"NoLabel",
         "label-missing",
         withLabel(std::nullopt),
         {"label-missing Label: is missing; launchd requires it"}},
        {"IntegerAsLabel",
         "label-missing",
         withLabel(7),
         {"label-missing Label: is an integer; launchd requires a string"}},
        {"ArrayAsLabel",
         "label-missing",
         withLabel(Array{}),
         {"label-missing Label: is an array; launchd requires a string"}},
        {"ShortLabel", "label-missing", withLabel("b"), {}},
        {"EmptyLabel",
         "label-empty",
         withLabel(""),
         {"label-empty Label: is empty; no other agent may have the same label"}},
        {"BlankAsLabel", "label-empty", withLabel(" "), {}},

        {"NoProgram", "no-program", neither, {missing}},
        {"ProgramOfWrongTypeAlone",
         "no-program",
         edited(neither, {{"Program", texts({"/bin/ls"})}}),
         {"no-program Program: is an array, and no other key names what to run"}},
        {"ArgumentsOfWrongType",
         "no-program",
         withArguments(Dictionary{}),
         {"no-program ProgramArguments: is a dictionary, and no other key names what to run"}},
        {"BundleProgramOfWrongType",
         "no-program",
         edited(neither, {{"BundleProgram", 1}}),
         {"no-program BundleProgram: is an integer, and no other key names what to run",
          "bundle-program BundleProgram: works only in an agent that its application installs "
          "through SMAppService"}},
        {"ProgramAlone", "no-program", edited(watcher(), {{"ProgramArguments", std::nullopt}}), {}},
        {"BundleProgramAlone",
         "no-program",
         edited(neither, {{"BundleProgram", "Contents/MacOS/x"}}),
         {"bundle-program BundleProgram: works only in an agent that its application installs "
          "through SMAppService"}},
        {"NoBundleProgram", "bundle-program", server(), {}},

        {"ArgumentsAsText",
         "arguments-string",
         withArguments("/bin/sh /srv/backup.sh"),
         {"arguments-string ProgramArguments: is one string; launchd requires an array with the "
          "program and each argument"}},
        {"ArgumentsInOneElement", "arguments-string", running({"/srv/my backup"}), {}},
        {"NoArguments", "arguments-empty", withArguments(Array{}), {empty}},
        {"EmptyFirstArgument",
         "arguments-empty",
         running({"", "x"}),
         {"arguments-empty ProgramArguments[0]: is an empty text: it names no program"}},
        {"NoArgumentsBesideProgram",
         "arguments-empty",
         edited(watcher(), {{"ProgramArguments", Array{}}}),
         {}},
        {"EmptySecondArgument", "arguments-empty", running({"/bin/echo", ""}), {}},
    };
}

std::vector<CheckRow> relativeRows() {
    const std::string relative =
        "program-relative Program: is not an absolute path, which launchd requires";
    const auto relativeArgument =
        "arguments-relative ProgramArguments[0]: is a relative path: write the whole path";
    const auto searched = "arguments-searched ProgramArguments[0]: is looked up on launchd's "
                          "standard path, not on that of the shell";
    const auto globbing = [](const char* program) {
        return edited(running({program}), {{"EnableGlobbing", true}});
    };
    return {
        {"ProgramByName", "program-relative", withProgram("convert"), {relative}},
        {"ProgramInFolder", "program-relative", withProgram("bin/convert"), {relative}},
        {"ProgramByDot", "program-relative", withProgram("./convert"), {relative}},
        {"EmptyProgram", "program-relative", withProgram(""), {relative}},
        {"ProgramBehindABlank", "program-relative", withProgram(" /bin/ls"), {relative}},
        {"ProgramInHome",
         "program-relative",
         withProgram("~/bin/convert"),
         {"program-relative Program: begins with “~”, which launchd does not expand: write "
          "/Users/maya/bin/convert"},
         homeContext()},
        {"ProgramInVariable",
         "program-relative",
         withProgram("$HOME/bin/convert"),
         {"program-relative Program: begins with $HOME, which launchd does not expand: write the "
          "whole path"}},
        {"ProgramBeforeVariable", "program-relative", withProgram("bin/$USER"), {relative}},
        {"ProgramAtRoot", "program-relative", withProgram("/convert"), {}},

        {"ArgumentInFolder", "arguments-relative", running({"bin/backup"}), {relativeArgument}},
        {"ArgumentByDot", "arguments-relative", running({"./backup"}), {relativeArgument}},
        {"ArgumentAboveFolder", "arguments-relative", running({"../backup"}), {relativeArgument}},
        {"AbsoluteArgument", "arguments-relative", running({"/srv/backup"}), {}},
        {"RelativeSecondArgument", "arguments-relative", running({"/bin/ls", "./backup"}), {}},
        {"NameBesideProgram",
         "arguments-relative",
         edited(watcher(), {{"ProgramArguments", texts({"./convert"})}}),
         {}},
        {"ArgumentByName", "arguments-searched", running({"restic", "backup"}), {searched}},
        {"NameOfProgram",
         "arguments-searched",
         edited(watcher(), {{"ProgramArguments", texts({"conv"})}}),
         {}},
        {"GlobbedArgument", "arguments-searched", globbing("bin*"), {}},
        {"GlobbedArgumentOfLetters", "arguments-searched", globbing("b[ai]n"), {}},
        {"NotGlobbed", "arguments-searched", running({"bin*"}), {searched}},
        {"GlobbingWithoutPattern", "arguments-searched", globbing("restic"), {searched}},
    };
}

std::vector<CheckRow> fileRows() {
    const std::string missing = ": does not exist on this machine";
    const std::string script =
        "script-not-found ProgramArguments[1]: does not exist on this machine";
    const auto found = [](const char* name, const char* program, std::vector<std::string> texts) {
        return CheckRow{name, "program-not-found", withProgram(program), std::move(texts),
                        machine()};
    };
    const auto ran = [](const char* name, const std::vector<std::string>& arguments,
                        std::vector<std::string> texts) {
        return CheckRow{name, "script-not-found", running(arguments), std::move(texts), machine()};
    };
    const std::string notExecutable = "program-not-executable Program: is not executable: run "
                                      "chmod +x";
    const std::string folder = "program-not-executable Program: is a folder, not a program";
    return {
        found("ProgramMissing", "/usr/bin/none", {"program-not-found Program" + missing}),
        found("ProgramMissingAtRoot", "/none", {"program-not-found Program" + missing}),
        found("ProgramOfAnotherMachine", "/Applications/X.app/Contents/MacOS/X", {}),
        found("ProgramBelowAFile", "/afile/x", {}),
        found("ProgramBelowTheUnknown", "/locked/tool", {}),
        found("ProgramUnknown", "/opt/unknown", {}),
        found("ProgramFound", "/usr/bin/tool", {}),
        {"FirstArgumentMissing",
         "program-not-found",
         running({"/opt/none", "x"}),
         {"program-not-found ProgramArguments[0]" + missing},
         machine()},
        {"MachineUnknown", "program-not-found", running({"/opt/none", "x"}), {}},
        {"ProgramIsNoProgram",
         "program-not-executable",
         withProgram("/opt/notes.txt"),
         {notExecutable},
         machine()},
        {"ProgramIsAFolder",
         "program-not-executable",
         withProgram("/opt/logs"),
         {folder},
         machine()},
        {"FirstArgumentIsAFolder",
         "program-not-executable",
         running({"/opt/logs"}),
         {"program-not-executable ProgramArguments[0]: is a folder, not a program"},
         machine()},
        {"ProgramIsExecutable",
         "program-not-executable",
         withProgram("/usr/bin/tool"),
         {},
         machine()},
        {"SecondArgumentIsNoProgram",
         "program-not-executable",
         running({"/usr/bin/tool", "/opt/notes.txt"}),
         {},
         machine()},

        ran("ScriptMissing", {"/bin/sh", "/opt/none.sh"}, {script}),
        ran("ScriptOfAnotherMachine", {"/bin/sh", "/Users/maya/none.sh"}, {}),
        ran("ScriptFound", {"/bin/sh", "/opt/run.sh"}, {}),
        ran("ScriptIsAFolder", {"/bin/sh", "/opt/logs"}, {}),
        ran("NoInterpreter", {"/usr/bin/tool", "/opt/none.sh"}, {}),
        ran("InterpreterAlone", {"/bin/sh"}, {}),
        ran("RelativeScript", {"/bin/sh", "none.sh"}, {}),
        {"ScriptBesideProgram",
         "script-not-found",
         edited(watcher(), {{"Program", "/usr/bin/tool"},
                            {"ProgramArguments", texts({"/bin/sh", "/opt/none.sh"})}}),
         {},
         machine()},
        {"GlobbedScript",
         "script-not-found",
         edited(running({"/bin/sh", "/opt/none.*"}), {{"EnableGlobbing", true}}),
         {},
         machine()},
    };
}

} // namespace

std::vector<CheckRow> programCheckRows() {
    auto rows = requiredRows();
    for (auto& row : relativeRows())
        rows.push_back(std::move(row));
    for (auto& row : fileRows())
        rows.push_back(std::move(row));
    rows.push_back({"BundleProgramBesideArguments",
                    "bundle-program",
                    edited(backup(), {{"BundleProgram", "Contents/MacOS/x"}}),
                    {"bundle-program BundleProgram: works only in an agent that its application "
                     "installs through SMAppService"}});
    return rows;
}

} // namespace frimbolate::test
