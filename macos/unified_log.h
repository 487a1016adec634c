// The log of macOS, which also goes to the standard error of a terminal.
#pragma once

#include "platform/services.h"

namespace frimbolate {

class UnifiedLog : public Log {
  public:
    void line(const std::string& text) override;
};

} // namespace frimbolate
