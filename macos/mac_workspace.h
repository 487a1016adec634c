// Implements Workspace: Terminal, another instance of the program, and the user's short name.
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
