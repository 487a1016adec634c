// The user's Trash.
#pragma once

#include "platform/services.h"

namespace frimbolate {

class MacTrash : public Trash {
  public:
    std::optional<std::string> moveToTrash(const std::string& path) override;
};

} // namespace frimbolate
