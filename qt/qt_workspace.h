// Starts other programs, without a shell in between, and knows whose desktop this is.
#pragma once

#include "platform/services.h"

#include <QProcessEnvironment>
#include <QStringList>

#include <utility>

namespace frimbolate {

/// The argument with which an instance starts that is meant to run beside another one.
inline constexpr const char* newInstanceArgument = "--new-instance";

class QtWorkspace : public Workspace {
  public:
    /// \param environment of the programs that are started; without one, that of this process
    explicit QtWorkspace(QProcessEnvironment environment = QProcessEnvironment::InheritFromParent)
        : environment_(std::move(environment)) {}

    /// The commands that may open a terminal, the desktop's own choice first.
    static QStringList terminalCommands();

    void openTerminal() override;
    void launchNewInstance() override;
    std::string userName() override;

  private:
    bool start(const QString& program, const QStringList& arguments, const QString& folder) const;

    QProcessEnvironment environment_;
};

} // namespace frimbolate
