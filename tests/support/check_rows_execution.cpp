#include "tests/support/check_rows.h"

namespace frimbolate::test {

std::vector<CheckRow> executionCheckRows() {
    const auto row = [](const char* name, const char* rule, const char* key, Value value,
                        std::vector<std::string> findings = {}) {
        return CheckRow{name, rule, edited(backup(), {{key, std::move(value)}}),
                        std::move(findings)};
    };
    const auto nice = [](const char* number) {
        return "nice-range Nice: is " + std::string(number) + ", not between -20 and 20";
    };
    const auto needsRoot = [](const char* number) {
        return "nice-root Nice: is " + std::string(number) +
               "; below 0 it needs root, and an agent runs as the user";
    };
    const std::string root = "root-directory RootDirectory: needs root, and an agent runs as the "
                             "user";
    const auto type = [](const std::string& name) {
        return "process-type ProcessType: is “" + name +
               "”; launchd's manual names Background, Standard, Adaptive and Interactive";
    };
    const auto ofLoginWindow = [](const char* key, Value value, Value session) {
        return edited(backup(),
                      {{key, std::move(value)}, {"LimitLoadToSessionType", std::move(session)}});
    };
    const auto pressured = [](Value keepAlive, bool isOn) {
        return edited(server(),
                      {{"KeepAlive", std::move(keepAlive)}, {"EnablePressuredExit", isOn}});
    };
    return {
        {"PressuredExit",
         "pressured-exit",
         pressured(true, true),
         {"pressured-exit EnablePressuredExit: is ignored beside KeepAlive true"}},
        {"NoPressuredExit", "pressured-exit", pressured(true, false), {}},
        {"PressuredExitOnCondition",
         "pressured-exit",
         pressured(Dictionary{{"Crashed", true}}, true),
         {}},
        row("WaitForDebugger", "debugger", "WaitForDebugger", true,
            {"debugger WaitForDebugger: starts the agent suspended: it never runs by itself"}),
        row("NoWaitForDebugger", "debugger", "WaitForDebugger", false),

        row("NiceTooLow", "nice-range", "Nice", -21, {nice("-21")}),
        row("NiceTooHigh", "nice-range", "Nice", 21, {nice("21")}),
        row("NiceHighest", "nice-range", "Nice", 20),
        row("NiceLowest", "nice-root", "Nice", -20, {needsRoot("-20")}),
        row("NiceBelowZero", "nice-root", "Nice", -1, {needsRoot("-1")}),
        row("NiceZero", "nice-root", "Nice", 0),
        {"NiceOfLoginWindow", "nice-root", ofLoginWindow("Nice", -5, "LoginWindow"), {}},
        {"NiceOfSession", "nice-root", ofLoginWindow("Nice", -5, "Aqua"), {needsRoot("-5")}},

        row("RootDirectory", "root-directory", "RootDirectory", "/srv", {root}),
        row("RootDirectoryOfWrongType", "root-directory", "RootDirectory", 1,
            {"wrong-type RootDirectory: is an integer; launchd reads a string"}),
        {"RootDirectoryOfLoginWindow",
         "root-directory",
         ofLoginWindow("RootDirectory", "/srv", texts({"Aqua", "LoginWindow"})),
         {}},
        {"RootDirectoryOfSession",
         "root-directory",
         ofLoginWindow("RootDirectory", "/srv", texts({"Aqua"})),
         {root}},

        row("UmaskOf22", "umask-decimal", "Umask", 22,
            {"umask-decimal Umask: is decimal 22, which is octal 026; for octal 022 write 18 or "
             "the string 022"}),
        row("UmaskOf27", "umask-decimal", "Umask", 27,
            {"umask-decimal Umask: is decimal 27, which is octal 033; for octal 027 write 23 or "
             "the string 027"}),
        row("UmaskOf77", "umask-decimal", "Umask", 77,
            {"umask-decimal Umask: is decimal 77, which is octal 0115; for octal 077 write 63 or "
             "the string 077"}),
        row("UmaskOf18", "umask-decimal", "Umask", 18),
        row("UmaskOf63", "umask-decimal", "Umask", 63),
        row("UmaskAsText", "umask-decimal", "Umask", "22"),

        row("ProcessTypeInOtherCase", "process-type", "ProcessType", "background",
            {type("background")}),
        row("ProcessTypeEmpty", "process-type", "ProcessType", "", {type("")}),
        row("Background", "process-type", "ProcessType", "Background"),
        row("Standard", "process-type", "ProcessType", "Standard"),
        row("Adaptive", "process-type", "ProcessType", "Adaptive"),
        row("Interactive", "process-type", "ProcessType", "Interactive"),

        row("NoExitTimeOut", "exit-timeout", "ExitTimeOut", 0,
            {"exit-timeout ExitTimeOut: is 0: launchd waits for ever, which may stall a shutdown"}),
        row("OneSecondToExit", "exit-timeout", "ExitTimeOut", 1),
    };
}

} // namespace frimbolate::test
