// The interface for questions and messages, shown as sheets on the main window.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace frimbolate {

/// The answers of an alert: 1000 for its first button, 1001 for its second.
namespace AlertAnswer {
enum : int { First = 1000, Second = 1001 };
}

/// An alert in the warning style, the only one that the program uses.
struct Alert {
    std::string messageText;
    std::string informativeText;
    std::vector<std::string> buttons = {"Ok"}; ///< one or two; the first is the default
    bool showsSuppressionButton = false;       ///< "Do not show this message again", off at first
};

struct AlertOutcome {
    int answer = AlertAnswer::First;
    int suppressionState = 0; ///< state of the suppression check box: 0 off, 1 on
};

class Alerts {
  public:
    using Completion = std::function<void(AlertOutcome)>;

    virtual ~Alerts() = default;
    /// Returns at once. The completion runs exactly once, later on the same thread, after the alert
    /// has left the screen. While another sheet is shown, the alert waits for it to close.
    virtual void show(const Alert& alert, Completion completion) = 0;
    /// The same where the answer does not matter.
    void show(const Alert& alert) {
        show(alert, [](AlertOutcome) {});
    }
};

} // namespace frimbolate
