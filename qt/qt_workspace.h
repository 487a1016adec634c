// Implements Workspace: starts other programs without a shell, and gives the user's name.
#pragma once

#include "platform/services.h"

#include <QProcessEnvironment>
#include <QStringList>

#include <utility>

namespace frimbolate {

/// The argument that starts an instance beside a running one.
inline constexpr const char* newInstanceArgument = "--new-instance";

class QtWorkspace : public Workspace {
  public:
    /// \param environment of the started programs; by default that of this process
    explicit QtWorkspace(
        const QProcessEnvironment& environment = QProcessEnvironment::InheritFromParent)
        : environment_(environment) {}

    /// The commands that can open a terminal, in the order of the attempts: the desktop's choice
    /// first.
    static QStringList terminalCommands();

    void openTerminal() override;
    /// Asks the file manager over the session bus to select the file; where none answers, opens the
    /// file's folder.
    void showFile(const std::string& path) override;
    void launchNewInstance() override;
    std::string userName() override;

  private:
    bool start(const QString& program, const QStringList& arguments, const QString& folder) const;

    QProcessEnvironment environment_;
};

} // namespace frimbolate
