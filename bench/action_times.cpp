// Measures the actions of the window, each from the click to the painted window. Prints a line
// "action <tab> nanoseconds" for each click.
//
//     action_times ROUNDS
//
// The window is the real one, with the sheets; files and panels are answered from memory. Nothing
// moves, since a motion lasts as long as it should.
#include "bench/toolkit.h"
#include "tests/widgets/scripted_window.h"
#include "widgets/style/install.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>

namespace frimbolate {

namespace {

using Clock = std::chrono::steady_clock;

class Clicks {
  public:
    Clicks() { window_.start(), window_.window.show(), settle(); }

    void round() {
        for (const char* page : {"showPropertyList", "showAgents", "showForm"})
            trigger(page);
        for (const char* button : {"showHideTips", "showHideTips", "advancedToolbarItem",
                                   "advancedToolbarItem", "createNewAgent"})
            click(button);
        for (const char* name : {"agentScheduleTypeButton", "agentActionButton"})
            choose(name, 1);
        type("agentNameTextField", "x");
        withAnswer("validateAgentConfig");
        for (const char* asks : {"editLaunchAgent", "loadLaunchAgent", "unloadLaunchAgent",
                                 "onOffLaunchAgent", "deleteLaunchAgent"})
            withAnswer(asks);
        trigger("preferencesMenuItem");
        press("closeWithoutSavingPrefs");
        click("createNewAgent");
        trigger("undo");
    }

  private:
    /// The window is painted from events that are posted, some by the handling of others.
    static void settle() {
        for (int i = 0; i < 4; ++i)
            QCoreApplication::processEvents();
    }

    static void measure(const char* name, const std::function<void()>& act) {
        const auto start = Clock::now();
        act();
        settle();
        const auto time = std::chrono::nanoseconds(Clock::now() - start).count();
        std::printf("%s\t%lld\n", name, static_cast<long long>(time));
    }

    void trigger(const char* action) {
        measure(action, [&] { window_.find<QAction>(action)->trigger(); });
    }
    void click(const char* button) {
        auto* found = window_.find<QToolButton>(button);
        measure(button, [&] { QTest::mouseClick(found, Qt::LeftButton); });
    }
    void press(const char* button) {
        auto* found = window_.find<QPushButton>(button);
        measure(button, [&] { QTest::mouseClick(found, Qt::LeftButton); });
    }
    void choose(const char* popUp, int item) {
        auto* found = window_.find<QComboBox>(popUp);
        measure(popUp, [&] {
            found->setCurrentIndex(item);
            emit found->activated(item);
        });
        unask();
    }
    void type(const char* field, const char* text) {
        auto* found = window_.find<QLineEdit>(field);
        measure(field, [&] { QTest::keyClicks(found, text); });
    }
    /// An action that asks; the question is given up unmeasured.
    void withAnswer(const char* button) {
        click(button);
        unask();
    }
    void unask() {
        window_.platform.abandonQuestions();
        window_.window.mirror();
        settle();
    }

    test::ScriptedWindow window_;
};

} // namespace

} // namespace frimbolate

int main(int argc, char* argv[]) {
    using namespace frimbolate;
    startToolkit();
    style::install(*qApp);
    Clicks clicks;
    for (int i = argc > 1 ? std::atoi(argv[1]) : 10; i > 0; --i)
        clicks.round();
    return 0;
}
