// Terminal, another instance of the program, and the person's short name.
#pragma once

#include "platform/services.h"

namespace frimbolate {

class MacWorkspace : public Workspace {
  public:
    void openTerminal() override;
    void launchNewInstance() override;
    std::string userName() override;
};

} // namespace frimbolate
