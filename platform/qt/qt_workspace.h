// Starts other programs, without a shell in between, and knows whose desktop this is.
#pragma once

#include "platform/services.h"

#include <QStringList>

namespace frimbolate {

/// The argument with which an instance starts that is meant to run beside another one.
inline constexpr const char* newInstanceArgument = "--new-instance";

class QtWorkspace : public Workspace {
  public:
    /// The commands that may open a terminal, the desktop's own choice first.
    static QStringList terminalCommands();

    void openTerminal() override;
    void launchNewInstance() override;
    std::string userName() override;
};

} // namespace frimbolate
