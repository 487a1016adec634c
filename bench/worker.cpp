// Does work on request and says how long it took, so that a script can have the program's work and
// what it is compared with done in turns. Each line of the standard input is a request, its parts
// separated by tabs; the answer is a line with a number: nanoseconds, or 0 where nothing is timed.
//
//     part NAME TIMES          a pure part
//     store FOLDER             the agent as agent.xml and agent.binary
//     fill FOLDER COUNT        agents to be listed
//     bytes FOLDER             list the agents of a folder and read their bytes
//     describe FOLDER          list, read, check and describe them
//     save FILE                replace a file as the program saves an agent
//     bare FILE                the same with nothing but its system calls
//     spawn PROGRAM [ARG ...]  start a process, without output, and wait for its end
//
// With the argument --count it runs each pure part under valgrind's callgrind, which writes the
// instructions of each into a file of its own.
#include "bench/pure_parts.h"
#include "core/agent_plist.h"
#include "platform/services.h"
#include "plist/xml_writer.h"
#include "posix/file_descriptor.h"
#include "posix/local_agent_folder.h"
#include "posix/local_files.h"

#include <valgrind/callgrind.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <iostream>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>

extern char** environ;

namespace frimbolate {

namespace {

using Words = std::vector<std::string>;
using Clock = std::chrono::steady_clock;

[[noreturn]] void fail(const std::string& reason) {
    std::cerr << "frimbolate_bench_worker: " << reason << std::endl;
    std::exit(1);
}

long nanoseconds(const std::function<void()>& work) {
    const auto start = Clock::now();
    work();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now() - start).count();
}

long timePart(const std::string& name, int times) {
    static const std::vector<PurePart> parts = pureParts();
    const auto part = std::ranges::find(parts, name, &PurePart::name);
    if (part == parts.end())
        fail("no part " + name);
    return nanoseconds([&] {
        for (int i = 0; i < times; ++i)
            part->run();
    });
}

void writeBytes(const std::string& path, const std::string& bytes) {
    if (!(std::ofstream(path, std::ios::binary) << bytes))
        fail("cannot write " + path);
}

/// Agents of this program with every kind of schedule, and of others.
void fill(const std::string& folder, int count) {
    for (int i = 0; i < count; ++i) {
        AgentForm form;
        form.name = "agent " + std::to_string(i);
        form.targetType = TargetType::File;
        form.targetPath = "/bin/sh";
        form.action = AgentAction::OnSchedule;
        form.scheduleType = i % 2 ? ScheduleType::EveryDay : ScheduleType::OnceAMonth;
        form.scheduleTime = {.hour = i % 24, .minute = i % 60};
        form.dayOfMonthText = std::to_string(1 + i % 28);
        const std::string label = "com.frimbolate." + form.name;
        Dictionary agent = buildAgentPlist(form, label);
        if (i % 4 == 0) {
            agent = benchedAgent();
            agent["Label"] = label;
        }
        writeBytes(folder + "/" + label + ".plist", xmlPropertyList(agent));
    }
}

void readBytesOf(const std::string& folder) {
    LocalAgentFolder agents;
    const auto paths = agents.list(folder);
    if (!paths)
        fail("cannot list " + folder);
    static std::array<char, 65536> buffer;
    for (const auto& path : *paths) {
        const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
        while (::read(file.number(), buffer.data(), buffer.size()) > 0) {
        }
        keep(buffer);
    }
}

void describe(const std::string& folder) {
    LocalAgentFolder agents;
    const auto paths = agents.list(folder);
    if (!paths)
        fail("cannot list " + folder);
    const WallClock now(LocalMinute(std::chrono::local_days(std::chrono::year(2026) / 11 / 25)));
    const TextStyle style{.home = "/Users/ada", .now = now};
    for (const auto& path : *paths)
        keep(agents.read(path, style));
}

class SilentLog : public Log {
  public:
    void line(const std::string& text) override { fail(text); }
};

void save(const std::string& path) {
    SilentLog log;
    LocalFiles(log).writeDictionary(path, benchedAgent());
}

/// The calls without which a file is not replaced safely: the bytes exist already.
void saveBare(const std::string& path) {
    const auto folder = path.substr(0, path.rfind('/'));
    const std::string temporary = path + ".new", bytes = benchedXml();
    FileDescriptor file(::open(temporary.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0644));
    if (!file || !writeWholly(file.number(), bytes) || ::fsync(file.number()) != 0 ||
        !file.close() || ::rename(temporary.c_str(), path.c_str()) != 0)
        fail("cannot save " + path + ": " + errnoMessage());
    const FileDescriptor open(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    ::fsync(open.number());
}

void spawn(const Words& words) {
    std::vector<char*> arguments;
    for (std::size_t i = 1; i < words.size(); ++i)
        arguments.push_back(const_cast<char*>(words[i].c_str()));
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t streams;
    ::posix_spawn_file_actions_init(&streams);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        ::posix_spawn_file_actions_addopen(&streams, stream, "/dev/null", O_RDWR, 0);
    pid_t process = 0;
    int status = 0;
    if (::posix_spawn(&process, arguments[0], &streams, nullptr, arguments.data(), environ) != 0 ||
        ::waitpid(process, &status, 0) != process || !WIFEXITED(status) ||
        WEXITSTATUS(status) == 127)
        fail("cannot run " + words[1]);
    ::posix_spawn_file_actions_destroy(&streams);
}

long answer(const Words& words) {
    const std::string& request = words[0];
    const auto word = [&](std::size_t i) { return i < words.size() ? words[i] : std::string(); };
    if (request == "part")
        return timePart(word(1), std::atoi(word(2).c_str()));
    if (request == "bytes")
        return nanoseconds([&] { readBytesOf(word(1)); });
    if (request == "describe")
        return nanoseconds([&] { describe(word(1)); });
    if (request == "save")
        return nanoseconds([&] { save(word(1)); });
    if (request == "bare")
        return nanoseconds([&] { saveBare(word(1)); });
    if (request == "spawn" && words.size() > 1)
        return nanoseconds([&] { spawn(words); });
    if (request == "fill") {
        fill(word(1), std::atoi(word(2).c_str()));
    } else if (request == "store") {
        writeBytes(word(1) + "/agent.xml", benchedXml());
        writeBytes(word(1) + "/agent.binary", benchedBinary());
    } else {
        fail("what is " + request + "?");
    }
    return 0;
}

Words split(const std::string& line) {
    Words words(1);
    for (const char character : line)
        if (character == '\t')
            words.emplace_back();
        else
            words.back() += character;
    return words;
}

/// The instructions of ten runs of each part, after one that fills caches such as that of malloc.
void countParts() {
    for (const PurePart& part : pureParts()) {
        part.run();
        CALLGRIND_ZERO_STATS;
        for (int i = 0; i < 10; ++i)
            part.run();
        CALLGRIND_DUMP_STATS_AT(std::string(part.name).c_str());
    }
}

} // namespace

} // namespace frimbolate

int main(int argc, char* argv[]) {
    using namespace frimbolate;
    if (argc > 1 && std::string_view(argv[1]) == "--count") {
        countParts();
        return 0;
    }
    for (std::string line; std::getline(std::cin, line);)
        std::cout << answer(split(line)) << std::endl;
    return 0;
}
