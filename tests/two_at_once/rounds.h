// Starts the programs, gives each its part of a round, and checks the files after it.
#pragma once

#include "tests/support/random_values.h"
#include "tests/two_at_once/reading_process.h"
#include "tests/two_at_once/shared_folders.h"

#include <string>
#include <sys/types.h>
#include <vector>

namespace frimbolate::test {

class Rounds {
  public:
    /// \param programs at least 2
    Rounds(int programs, std::uint32_t seed);
    ~Rounds();

    /// Runs one round of all programs at the same time. In every tenth one of them is killed in the
    /// middle of a write.
    /// \return what is lost, torn or left behind; empty where nothing is
    std::string run(int round);
    int kills() const { return kills_; }
    /// The temporary files that killed programs left, until the next save.
    int leftovers() const { return leftovers_; }
    long readings() const { return reader_.readings(); }

  private:
    struct Program {
        pid_t process = -1;
        int commands = -1, answers = -1;
        Mark saved; ///< of the last round that it has finished
    };
    /// What a program is told.
    struct Command {
        int round = 0;
        unsigned seed = 0;
        int lastCall = 0; ///< see killAtCall()
        bool isAfter = false;
    };

    void start(int number);
    void end(Program& program);
    [[noreturn]] void serve(int number, int commands, int answers) const;
    std::string answerOf(Program& program) const;
    std::string flawOf(int number, int round, bool wasKilled) const;
    std::string flawOfFolders(bool wasKilled) const;
    std::string flawOfNextSave();

    SharedFolders folders_;
    RandomValues random_;
    std::vector<Program> programs_;
    ReadingProcess reader_;
    int kills_ = 0, leftovers_ = 0;
};

} // namespace frimbolate::test
