// Implements Trash in the layout of freedesktop.org.
#pragma once

#include "platform/services.h"

namespace frimbolate {

class QtTrash : public Trash {
  public:
    /// Uses the trash of the home folder, or that of the file's disk where it is another one.
    std::optional<std::string> moveToTrash(const std::string& path) override;
};

} // namespace frimbolate
