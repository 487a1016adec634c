// Steps of the desktop: the window as a whole, time, other programs, the program's end and start.
#include "tests/random_user/input.h"
#include "tests/random_user/session.h"
#include "tests/random_user/step.h"

#include <QApplication>
#include <QTimer>

#include <algorithm>

namespace frimbolate::test {

namespace {

using DrawnArguments = std::optional<Arguments>;

DrawnArguments drawOther(Session&, RandomValues& random) {
    return Arguments{random.oneOf(UserHome::changes()).name};
}

void runOther(Session& session, const Arguments& arguments) {
    session.home().change(arguments.at(0));
}

struct WindowChange {
    const char* name;
    void (*make)(Session& session);
};
constexpr WindowChange windowChanges[] = {
    {"close", [](Session&) { press(Qt::Key_W, Qt::ControlModifier); }},
    {"reopen", [](Session& session) { session.program().reopen(); }},
    {"minimize", [](Session& session) { session.window().showMinimized(); }},
    {"leave",
     [](Session&) {
         // Another program's window, as far as this one can tell.
         QWidget other;
         other.show();
         other.activateWindow();
         settle();
     }},
    // The second screen of the tests, on which the drawer does not fit beside the form.
    {"narrow", [](Session& session) { session.window().move(2800, 0); }},
    {"wide", [](Session& session) { session.window().move(0, 0); }},
};

DrawnArguments drawWindow(Session&, RandomValues& random) {
    return Arguments{random.oneOf(windowChanges).name};
}

void runWindow(Session& session, const Arguments& arguments) {
    const auto row =
        std::ranges::find(windowChanges, std::string_view(arguments.at(0)), &WindowChange::name);
    if (row != std::end(windowChanges))
        row->make(session);
}

DrawnArguments drawReopen(Session& session, RandomValues&) {
    const bool isAway = !session.window().isVisible() || session.window().isMinimized();
    return isAway ? DrawnArguments(Arguments{"reopen"}) : std::nullopt;
}

DrawnArguments drawTime(Session&, RandomValues& random) {
    return Arguments{std::to_string(1 + random.below(3000))};
}

void runTime(Session& session, const Arguments& arguments) {
    session.desktop().time += std::chrono::minutes(std::stoi(arguments.at(0)));
    // The minute after which window and list look at the clock, without waiting for it.
    for (const QTimer* timer :
         {session.find<QTimer>("nextRunTimer"),
          session.program().listReader().findChild<QTimer*>("agentListMinute")})
        if (timer->isActive())
            QMetaObject::invokeMethod(const_cast<QTimer*>(timer), "timeout");
}

DrawnArguments drawRestart(Session&, RandomValues&) { return Arguments{}; }

void runRestart(Session& session, const Arguments&) {
    press(Qt::Key_Q, Qt::ControlModifier);
    session.desktop().quits = true;
}

constexpr StepKind desktopKinds[] = {
    {"other", 8, drawOther, runOther},       {"window", 3, drawWindow, runWindow},
    {"window", 60, drawReopen, runWindow},   {"time", 3, drawTime, runTime},
    {"restart", 1, drawRestart, runRestart},
};

} // namespace

std::span<const StepKind> desktopSteps() { return desktopKinds; }

} // namespace frimbolate::test
