// The arguments of the command line, and its standard input.
#include "cli/command_line.h"
#include "plist/xml_writer.h"
#include "tests/cli/terminal_run.h"
#include "tests/fuzz/fuzz_folder.h"
#include "tests/fuzz/fuzz_target.h"

#include <algorithm>
#include <sstream>

namespace frimbolate::test {

namespace {

/// The current folder while an argument may name a file.
class InFolder {
  public:
    explicit InFolder(const std::string& path) : before_(std::filesystem::current_path()) {
        std::filesystem::current_path(path);
    }
    InFolder(const InFolder&) = delete;
    InFolder& operator=(const InFolder&) = delete;
    ~InFolder() {
        std::error_code ignored;
        std::filesystem::current_path(before_, ignored);
    }

  private:
    std::filesystem::path before_;
};

struct Call {
    std::vector<std::string> arguments;
    std::string in;
};

/// A line of the input is an argument, and what follows an empty line the standard input. Without
/// slashes and ".." an argument names nothing outside of the current folder.
Call callOf(std::string_view input) {
    constexpr std::size_t mostArguments = 12;
    Call call;
    while (!input.empty() && !input.starts_with('\n') && call.arguments.size() < mostArguments) {
        std::string line(input.substr(0, input.find('\n')));
        input.remove_prefix(std::min(input.size(), line.size() + 1));
        std::ranges::replace(line, '/', '_');
        if (line.find("..") != std::string::npos)
            std::ranges::replace(line, '.', '_');
        call.arguments.push_back(line.substr(0, line.find('\0')));
    }
    call.in = input.substr(std::min<std::size_t>(1, input.size()));
    return call;
}

void makeFiles(const TemporaryFolder& folder) {
    emptyFolder(folder);
    writeBytes(folder / "a.plist", xmlPropertyList({{"Label", "a"}, {"Program", "/bin/true"}}));
    writeBytes(folder / "b.plist", "<plist><dict><key>Label</key><true/>");
    std::filesystem::create_directory(folder / "c");
    writeBytes(folder / "c_d.plist", "{ Label = \"\\U001b[31m\"; Nice = 99; }");
}

PathState anyState(const std::string& path) {
    return static_cast<PathState>(path.size() % (static_cast<int>(PathState::Unknown) + 1));
}

/// The text holds nothing that a terminal would act on, except the ends of lines.
bool isHarmless(std::string_view text) {
    return text.find("\xc2\x9b") == std::string_view::npos &&
           std::ranges::none_of(text, [](char c) {
               const auto byte = static_cast<unsigned char>(c);
               return (byte < 0x20 && c != '\n') || byte == 0x7f;
           });
}

} // namespace

void fuzzCommandLine(std::string_view input) {
    static const TemporaryFolder folder;
    const Call call = callOf(input);
    makeFiles(folder);
    const InFolder here(folder.path());
    const TerminalInput terminal{.in = call.in, .home = folder.path(), .pathState = anyState};
    const TerminalRun first = run(call.arguments, terminal);
    require(first.code >= ExitCode::Nothing && first.code <= ExitCode::Failed,
            "the exit code is one of three");
    require(first.code != ExitCode::Failed || !first.err.empty() || !first.out.empty(),
            "a failure is told");
    require(isHarmless(first.err), "a message holds no control character");
    makeFiles(folder);
    const TerminalRun second = run(call.arguments, terminal);
    require(first.code == second.code && first.out == second.out && first.err == second.err,
            "the same call gives the same result");
}

} // namespace frimbolate::test
