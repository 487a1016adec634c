// The desktop's trash, in the layout that freedesktop.org defines.
#pragma once

#include "platform/services.h"

namespace frimbolate {

class QtTrash : public Trash {
  public:
    /// The trash of the home folder, or that of the file's own disk when it is on another one.
    std::optional<std::string> moveToTrash(const std::string& path) override;
};

} // namespace frimbolate
