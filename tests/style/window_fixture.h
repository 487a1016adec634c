// The UI states of the window, each set up by the actions that lead to it.
#pragma once

#include "tests/widgets/fake_agent_folder.h"
#include "tests/widgets/scripted_window.h"
#include "widgets/pages/agent_list_reader.h"
#include "widgets/panels/qt_file_panels.h"
#include "widgets/sheets/qt_alerts.h"

#include <span>

namespace frimbolate::test {

/// A window whose scripted alerts and panels can be shown as real dialogs.
class WindowFixture : public ScriptedWindow {
  public:
    WindowFixture();
    /// Abandons unanswered questions: a state is only shown.
    ~WindowFixture();

    /// Shows the alert that the last action has requested.
    void showAlert();

    void name();
    void scriptTarget();
    void schedule(const char* title);
    void openDrawer();
    /// Fills the folder, shows the list, and waits until it is read.
    void listAgents();

    QtAlerts alerts{queue, window};
    QtFilePanels panels{queue, window};
    FakeAgentFolder agentFolder;
    AgentListReader agentReader{agentFolder, delegate, [] { return wallClock(); }};

  private:
    static WallClock wallClock();
};

/// A row of the table; `name` is the test's name and the screenshot's file name.
struct UiState {
    const char* name;
    void (*setUp)(WindowFixture& fixture);
};

std::span<const UiState> uiStates();
/// Those of them that show a page beside the form.
std::span<const UiState> pageStates();

/// Fills in the form.
void filled(WindowFixture& fixture);

} // namespace frimbolate::test
