// The process of a trial, seen from outside: how it ended.
#include "tests/random_user/trial.h"

#include "tests/support/temporary_folder.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace frimbolate::test {

namespace {

Steps stepsIn(const std::string& record) {
    Steps result;
    std::istringstream lines(record);
    for (std::string line; std::getline(lines, line);)
        result.push_back(Step::ofLine(line));
    return result;
}

/// The line of a sanitizer that names kind and place; empty without one. Addresses differ from run
/// to run, and leaks only sum up.
std::string summaryIn(const std::string& errors) {
    const auto begin = errors.find("SUMMARY: ");
    if (begin == std::string::npos)
        return {};
    const std::string line = errors.substr(begin, errors.find('\n', begin) - begin);
    return line.find("leaked") == std::string::npos ? line : "SUMMARY: LeakSanitizer: leaks";
}

void printErrorsTo(const std::string& path) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    ::dup2(file, STDERR_FILENO);
}

int statusOf(pid_t child) {
    int status = -1;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return status;
}

} // namespace

Ending endingOf(const Trial& trial) {
    const TemporaryFolder folder;
    const std::string errors = folder / "errors";
    std::fflush(stdout); // or the child prints it again
    const pid_t child = ::fork();
    if (child == 0) {
        printErrorsTo(errors);
        // The temporary files of the run lie in the folder that is removed whatever happens to it.
        ::setenv("TMPDIR", folder.path().c_str(), 1);
        runTrial(trial, folder.path());
    }
    const int status = statusOf(child);
    Ending ending;
    ending.steps = stepsIn(bytesOf(folder / "steps"));
    std::istringstream lines(bytesOf(folder / "ending"));
    std::getline(lines, ending.fault);
    std::getline(lines, ending.detail, '\0');
    if (ending.fault.empty() && status != 0) {
        ending.detail = bytesOf(errors);
        ending.fault = summaryIn(ending.detail);
        if (ending.fault.empty())
            ending.fault = WIFSIGNALED(status) ? "signal " + std::to_string(WTERMSIG(status))
                                               : "exit " + std::to_string(WEXITSTATUS(status));
    }
    return ending;
}

} // namespace frimbolate::test
