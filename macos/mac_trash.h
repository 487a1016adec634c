// Implements Trash with the Trash of macOS.
#pragma once

#include "platform/services.h"

namespace frimbolate {

class MacTrash : public Trash {
  public:
    std::optional<std::string> moveToTrash(const std::string& path) override;
};

} // namespace frimbolate
