// The system log, and beside it the standard error of whoever started the program from a terminal.
#pragma once

#include "platform/services.h"

#include <unistd.h>

namespace frimbolate {

class SystemLog : public Log {
  public:
    /// \param file descriptor that gets each entry as a line of its own
    explicit SystemLog(int file = STDERR_FILENO);
    void line(const std::string& text) override;

  private:
    int file_;
};

} // namespace frimbolate
