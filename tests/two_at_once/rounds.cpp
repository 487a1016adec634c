#include "tests/two_at_once/rounds.h"

#include "core/value.h"
#include "posix/atomic_file.h"
#include "posix/file_lock.h"
#include "posix/property_list_file.h"
#include "posix/temporary_files.h"
#include "tests/two_at_once/killed_write.h"
#include "tests/two_at_once/saving_program.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <set>
#include <stdexcept>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace frimbolate::test {

namespace {

namespace fs = std::filesystem;

constexpr char wellDone = '+', hadProblems = '-', endOfAnswer = '\0';

struct Pipe {
    int reading = -1, writing = -1;
    Pipe() {
        std::array<int, 2> ends{};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0)
            throw std::runtime_error("no pipe can be made");
        reading = ends[0];
        writing = ends[1];
    }
};

bool readWhole(int file, void* bytes, std::size_t count) {
    auto* next = static_cast<char*>(bytes);
    while (count > 0) {
        const ssize_t length = ::read(file, next, count);
        if (length < 0 && errno == EINTR)
            continue;
        if (length <= 0)
            return false;
        next += length;
        count -= static_cast<std::size_t>(length);
    }
    return true;
}

/// The names of a folder, those of temporary files set aside.
std::set<std::string> namesIn(const std::string& folder, int& temporary) {
    std::set<std::string> result;
    for (const auto& entry : fs::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        if (isTemporaryName(name))
            ++temporary;
        else
            result.insert(name);
    }
    return result;
}

} // namespace

Rounds::Rounds(int programs, std::uint32_t seed)
    : random_(seed), programs_(static_cast<std::size_t>(programs)), reader_(folders_, programs) {
    for (int number = 0; number < programs; ++number)
        start(number);
}

Rounds::~Rounds() {
    for (Program& program : programs_)
        end(program);
}

void Rounds::start(int number) {
    const Pipe commands, answers;
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(commands.writing);
        for (const Program& other : programs_)
            ::close(other.commands); // or it would not end with the driver
        serve(number, commands.reading, answers.writing);
    }
    ::close(commands.reading);
    ::close(answers.writing);
    Program& program = programs_[static_cast<std::size_t>(number)];
    program.process = child;
    program.commands = commands.writing;
    program.answers = answers.reading;
}

void Rounds::end(Program& program) {
    ::close(program.commands); // it ends when it finds no further command
    ::close(program.answers);
    while (::waitpid(program.process, nullptr, 0) < 0 && errno == EINTR) {
    }
}

void Rounds::serve(int number, int commands, int answers) const {
    {
        SavingProgram program(folders_, number);
        for (Command command; readWhole(commands, &command, sizeof command);) {
            killAtCall(command.lastCall, command.isAfter);
            program.runRound(command.round, command.seed);
            killAtCall(0, false);
            std::string answer(1, program.problems().empty() ? wellDone : hadProblems);
            for (const auto& line : program.problems())
                answer += line + "\n";
            answer += endOfAnswer;
            static_cast<void>(!::write(answers, answer.data(), answer.size()));
        }
    }
    ::_exit(0);
}

/// The problems of the program; "killed" where it has ended.
std::string Rounds::answerOf(Program& program) const {
    std::string answer;
    for (char next = 0; readWhole(program.answers, &next, 1);)
        if (next == endOfAnswer)
            return answer.substr(1);
        else
            answer += next;
    return "killed";
}

std::string Rounds::run(int round) {
    const bool kills = round % 10 == 0;
    const std::size_t victim = kills ? random_.below(programs_.size()) : programs_.size();
    for (std::size_t number = 0; number < programs_.size(); ++number) {
        constexpr std::size_t callsOfARound = 15;
        Command command{round, static_cast<unsigned>(random_.below(1u << 30)), 0, false};
        if (number == victim)
            command.lastCall = 1 + static_cast<int>(random_.below(callsOfARound));
        command.isAfter = random_.coin();
        static_cast<void>(!::write(programs_[number].commands, &command, sizeof command));
    }
    std::string flaw;
    bool wasKilled = false;
    for (std::size_t number = 0; number < programs_.size(); ++number) {
        const std::string problems = answerOf(programs_[number]);
        const bool isDead = problems == "killed";
        if (isDead && number != victim)
            flaw += "program " + std::to_string(number) + " has ended\n";
        else if (!isDead && !problems.empty())
            flaw += "program " + std::to_string(number) + ": " + problems;
        wasKilled |= isDead;
    }
    for (std::size_t number = 0; number < programs_.size(); ++number)
        flaw += flawOf(static_cast<int>(number), round, wasKilled && number == victim);
    flaw += flawOfFolders(wasKilled);
    if (const std::string torn = reader_.flaw(); !torn.empty())
        flaw += "a reader saw: " + torn + "\n";
    if (wasKilled) {
        ++kills_;
        flaw += flawOfNextSave();
        end(programs_[victim]);
        start(static_cast<int>(victim));
    }
    return flaw;
}

/// What a program has lost.
/// \param wasKilled in this round; then what it wrote before may still stand
std::string Rounds::flawOf(int number, int round, bool wasKilled) const {
    const Mark mark{number, round};
    const auto isExpected = [&](const std::optional<Mark>& found) {
        return found == mark ||
               (wasKilled && (!found || (found->program == number && found->round < round)));
    };
    std::string flaw;
    const auto settings = readPropertyListFile(folders_.settings());
    const Value* own = find(settings.dictionary, SharedFolders::ownSetting(number));
    const std::string setting = own && own->string() ? *own->string() : "nothing";
    const bool isKept = setting == mark.text() ||
                        (wasKilled && (!own || setting.starts_with(std::to_string(number) + ".")));
    if (!isKept)
        flaw += "the setting of program " + std::to_string(number) + " is " + setting + "\n";
    if (!isExpected(SharedFolders::markOf(folders_.ownAgent(number))))
        flaw += "the agent of program " + std::to_string(number) + " is lost\n";
    return flaw;
}

std::string Rounds::flawOfFolders(bool wasKilled) const {
    std::string flaw = folders_.flawOfSettings() + folders_.flawOfAgent(folders_.sameAgent()) +
                       folders_.flawOfAgent(folders_.switchedAgent());
    int temporary = 0;
    std::set<std::string> expected = {"com.frimbolate.same.plist", "org.example.switched.plist"};
    for (std::size_t number = 0; number < programs_.size(); ++number)
        expected.insert("com.frimbolate.own" + std::to_string(number) + ".plist");
    const auto agents = namesIn(folders_.agents(), temporary);
    if (wasKilled ? !std::includes(expected.begin(), expected.end(), agents.begin(), agents.end())
                  : agents != expected)
        flaw += "the folder of the agents holds other files\n";
    const std::set<std::string> settings = {"com.qz.Frimbolate.plist",
                                            "com.qz.Frimbolate.plist.lock"};
    if (namesIn(fs::path(folders_.settings()).parent_path(), temporary) != settings)
        flaw += "the folder of the settings holds other files\n";
    if (temporary > (wasKilled ? 1 : 0))
        flaw += std::to_string(temporary) + " temporary files are left\n";
    FileLock lock;
    if (lock.take(folders_.settings() + ".lock") != FileLock::State::held)
        flaw += "the lock is held though nobody writes\n";
    return flaw;
}

/// The next save in a folder removes what a killed program left there.
/// \return what such a save leaves behind
std::string Rounds::flawOfNextSave() {
    std::string flaw;
    int left = 0, kept = 0;
    for (const std::string& path : {folders_.switchedAgent(), folders_.settings()}) {
        const std::string folder = fs::path(path).parent_path();
        namesIn(folder, left);
        if (const auto reason = writeFileAtomically(path, bytesOf(path)))
            flaw += path + ": " + *reason + "\n";
        namesIn(folder, kept);
    }
    leftovers_ += left;
    if (kept > 0)
        flaw += "a save removes no temporary file of a killed program\n";
    return flaw;
}

} // namespace frimbolate::test
