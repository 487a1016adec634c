// A random user at the running program: its home, its desktop, and the program, which may end and
// be started again.
#pragma once

#include "tests/random_user/running_program.h"

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace frimbolate {
class AgentsPage;
class AlertDialog;
class PanelDialog;
} // namespace frimbolate

namespace frimbolate::test {

class Session {
  public:
    /// The home must outlive the session, and HOME must name it.
    explicit Session(UserHome& home);

    RunningProgram& program() { return *program_; }
    MainWindow& window() { return program_->window(); }
    const FormModel& form() { return program_->delegate().form(); }
    UserHome& home() { return home_; }
    QuietDesktop& desktop() { return desktop_; }

    /// A part of the window by its object name; null where there is none.
    template <typename Kind>
    Kind* find(const char* name) {
        return window().findChild<Kind*>(QString::fromLatin1(name));
    }
    /// The visible alert or file panel; null where there is none.
    AlertDialog* alert();
    PanelDialog* panel();
    AgentsPage* agentsPage();

    /// Whether the last step has chosen an item of a pop-up, which it may not have reached.
    bool hasChosenItem = false;
    /// The alert that was shown before the last step; empty for none.
    std::string question;

    /// Ends the program and starts it again.
    void restart();
    /// Called before the program is ended for a step, not by restart().
    std::function<void()> beforeEnd;
    /// Waits until the program is at rest after a step: the event loop, the list of agents, and a
    /// new start where the program has ended.
    /// \return what did not come to rest; nothing where all did
    std::optional<std::string> rest();
    /// Brings the program and its home into one state, which does not depend on the steps before:
    /// no sheet, an empty form, a full history, every page shown once.
    void putInOrder();

  private:
    bool listIsCurrent(const std::vector<AgentOverview>& expected);
    std::optional<std::vector<AgentOverview>> expectedRows();
    void closeSheets();
    void showEverything();
    void runSteps(std::span<const char* const> lines);
    void fillHistory();

    UserHome& home_;
    QuietDesktop desktop_;
    std::unique_ptr<RunningProgram> program_;
};

} // namespace frimbolate::test
