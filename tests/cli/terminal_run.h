// Runs words of the command line in the process of the test.
#pragma once

#include "cli/command_line.h"

#include <sstream>
#include <string>
#include <vector>

namespace frimbolate::test {

struct TerminalRun {
    int code;
    std::string out;
    std::string err;
};

struct TerminalInput {
    std::string in = {};
    std::string home = "/Users/ada";
    bool colors = false;
    std::function<PathState(const std::string&)> pathState = localPathState;
};

/// At 09:41 on Saturday, 21 November 2026, in a zone without changes of clocks.
inline TerminalRun run(const std::vector<std::string>& arguments, const TerminalInput& input = {}) {
    using namespace std::chrono;
    std::istringstream in(input.in);
    std::ostringstream out, err;
    const LocalMinute now(local_days(2026y / November / 21) + hours(9) + minutes(41));
    const int code = runCommandLine(arguments, {.in = in,
                                                .out = out,
                                                .err = err,
                                                .now = now,
                                                .home = input.home,
                                                .colorsOut = input.colors,
                                                .colorsErr = input.colors,
                                                .pathState = input.pathState});
    return {code, out.str(), err.str()};
}

} // namespace frimbolate::test
