// Every face that the window shows to a person, each brought about by the steps that lead to it.
#pragma once

#include "tests/widgets/scripted_window.h"
#include "widgets/panels/qt_file_panels.h"
#include "widgets/sheets/qt_alerts.h"

#include <span>

namespace frimbolate::test {

/// A window whose scripted alerts can be shown for real.
class WindowFixture : public ScriptedWindow {
  public:
    WindowFixture();
    /// What is still asked for stays unanswered: a face is only looked at.
    ~WindowFixture();

    /// The alert that the rules have asked for.
    void showAlert();

    void name();
    void scriptTarget();
    void schedule(const char* title);
    void openDrawer();

    QtAlerts alerts{queue, window};
    QtFilePanels panels{queue, window};
};

struct UiState {
    const char* name;
    void (*setUp)(WindowFixture& fixture);
};

std::span<const UiState> uiStates();

} // namespace frimbolate::test
