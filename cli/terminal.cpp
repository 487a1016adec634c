#include "cli/terminal.h"

#include "posix/file_descriptor.h"
#include "posix/local_clock.h"
#include "posix/process_setup.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <iostream>
#include <pwd.h>
#include <sstream>
#include <string_view>
#include <unistd.h>

namespace frimbolate {

namespace {

std::string homeFolder() {
    const char* home = std::getenv("HOME");
    const passwd* user = home ? nullptr : ::getpwuid(::getuid());
    std::string folder = home ? home : user ? user->pw_dir : "";
    while (folder.size() > 1 && folder.ends_with('/'))
        folder.pop_back();
    return folder;
}

/// Colours are for a terminal alone, and for one whose user did not decline them.
bool showsColors(int file) {
    const char* declined = std::getenv("NO_COLOR");
    const char* terminal = std::getenv("TERM");
    return ::isatty(file) == 1 && !(declined && *declined) && terminal &&
           std::string_view(terminal) != "dumb";
}

/// A reader that went away, such as `head`, needs no message.
bool printed(const std::string& text) {
    if (writeWholly(STDOUT_FILENO, text))
        return true;
    if (errno != EPIPE)
        std::cerr << "standard output: " << errnoMessage() << std::endl;
    return false;
}

} // namespace

int runInTerminal(int argc, char* argv[]) {
    const bool hasOutput = ::fcntl(STDOUT_FILENO, F_GETFD) >= 0;
    openStandardStreams();
    surviveFailedWrites();
    std::ostringstream out;
    const CommandLineServices services{.in = std::cin,
                                       .out = out,
                                       .err = std::cerr,
                                       .now = localWallClock(),
                                       .home = homeFolder(),
                                       .colorsOut = showsColors(STDOUT_FILENO),
                                       .colorsErr = showsColors(STDERR_FILENO)};
    const int code = runCommandLine(std::vector<std::string>(argv + 1, argv + argc), services);
    const std::string text = out.str();
    if (!hasOutput && !text.empty())
        std::cerr << "standard output: it is closed" << std::endl;
    return text.empty() || (hasOutput && printed(text)) ? code : ExitCode::Failed;
}

} // namespace frimbolate
