// A process that reads all shared files all the time, while others write them.
#pragma once

#include "tests/two_at_once/shared_folders.h"

#include <string>
#include <sys/types.h>

namespace frimbolate::test {

class ReadingProcess {
  public:
    /// Starts it.
    /// \param programs the number of the programs that save
    ReadingProcess(const SharedFolders& folders, int programs);
    ReadingProcess(const ReadingProcess&) = delete;
    ReadingProcess& operator=(const ReadingProcess&) = delete;
    ~ReadingProcess();

    /// How often it has read all files.
    long readings() const;
    /// The first file that was not whole; empty without one.
    std::string flaw() const;

  private:
    struct Shared;
    [[noreturn]] void read(const SharedFolders& folders, int programs);

    Shared* shared_; ///< memory of both processes
    pid_t child_ = -1;
};

} // namespace frimbolate::test
