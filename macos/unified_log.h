// Implements Log with the unified log and, for a start from a terminal, with standard error.
#pragma once

#include "platform/services.h"
#include "posix/line_writer.h"

#include <unistd.h>

namespace frimbolate {

/// Blocks on neither. The unified log shortens a line of more than about 1000 bytes; standard error
/// gets it whole.
class UnifiedLog : public Log {
  public:
    /// \param file descriptor of the terminal, owned by the caller
    explicit UnifiedLog(int file = STDERR_FILENO) : terminal_(file) {}

    void line(const std::string& text) override;

  private:
    LineWriter terminal_;
};

} // namespace frimbolate
