// Runs the readers, the writer and the switch for interop_test.py:
//   property_list_tool rewrite FILE        writes what it read from FILE to standard output
//   property_list_tool random SEED FILE    writes random content of that seed to FILE
//   property_list_tool switch FILE         switches the agent in FILE on or off, through the panel
//   and
//                                          the alert
#include "operations/agent_switch.h"
#include "plist/xml_writer.h"
#include "posix/local_files.h"
#include "posix/property_list_file.h"
#include "tests/support/random_values.h"
#include "tests/support/scripted_platform.h"

#include <cstdio>
#include <cstdlib>
#include <span>
#include <string_view>

namespace {

using namespace frimbolate;

int rewrite(const std::string& path) {
    const auto file = readPropertyListFile(path);
    if (file.condition != FileCondition::read) {
        std::fprintf(stderr, "%s\n", file.reason.c_str());
        return 1;
    }
    const auto text = xmlPropertyList(file.dictionary);
    return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() ? 0 : 1;
}

int writeRandom(const char* seed, const std::string& path) {
    test::RandomValues random(static_cast<std::uint32_t>(std::strtoul(seed, nullptr, 10)));
    return writePropertyListFile(path, random.dictionary(4)) ? 1 : 0;
}

/// Switches an agent on the real disk; the answers of the user are scripted.
/// \returns the exit status: 1 if an alert reports a failure
int switchAgent(const std::string& path) {
    test::ScriptedPlatform user;
    LocalFiles files(user);
    Services services = user.services({.files = &files});
    AgentSwitch agentSwitch(services);
    agentSwitch.onOffLaunchAgent();
    user.choose(path);
    user.press("Continue");
    const bool failed = user.isAsking(); // an alert follows a failure alone
    user.abandonQuestions();
    return failed ? 1 : 0;
}

} // namespace

int main(int count, char** values) {
    const std::span arguments(values, static_cast<std::size_t>(count));
    if (count == 3 && std::string_view(arguments[1]) == "rewrite")
        return rewrite(arguments[2]);
    if (count == 4 && std::string_view(arguments[1]) == "random")
        return writeRandom(arguments[2], arguments[3]);
    if (count == 3 && std::string_view(arguments[1]) == "switch")
        return switchAgent(arguments[2]);
    std::fprintf(stderr,
                 "usage: property_list_tool rewrite FILE | random SEED FILE | switch FILE\n");
    return 2;
}
