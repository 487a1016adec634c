// Implements Workspace: Terminal, another instance of the program, and the user's short name.
#pragma once

#include "platform/services.h"

namespace frimbolate {

class MacWorkspace : public Workspace {
  public:
    void openTerminal() override;
    void showFile(const std::string& path) override;
    /// Starts the application that has the program's bundle identifier. Returns once the system has
    /// taken the request, so that the caller may quit at once.
    void launchNewInstance() override;
    std::string userName() override;
};

} // namespace frimbolate
