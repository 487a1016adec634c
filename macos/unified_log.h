// Implements Log with the unified log, which also writes to standard error in a terminal.
#pragma once

#include "platform/services.h"

namespace frimbolate {

class UnifiedLog : public Log {
  public:
    void line(const std::string& text) override;
};

} // namespace frimbolate
