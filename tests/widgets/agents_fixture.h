// A window on the page of the agents, over a folder in memory.
#pragma once

#include "tests/widgets/fake_agent_folder.h"
#include "tests/widgets/window_test.h"
#include "widgets/pages/agent_list_reader.h"
#include "widgets/pages/agents_page.h"
#include "widgets/pages/agents_view.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>

namespace frimbolate::test {

class AgentsPageTest : public WindowTest {
  protected:
    static std::string pathOf(const std::string& file) {
        return std::string(agents) + "/" + file + ".plist";
    }
    static std::string own(const std::string& name) { return pathOf("com.frimbolate." + name); }
    static LocalMinute time(int day, int hour) {
        return LocalMinute(std::chrono::local_days(std::chrono::year(2026) / 11 / day)) +
               std::chrono::hours(hour);
    }
    static AgentOverview timed(AgentOverview overview, int day, int hour) {
        overview.nextRun = time(day, hour);
        return overview;
    }

    void SetUp() override {
        WindowTest::SetUp();
        folder.put(own("backup"),
                   timed(listed("backup", "Runs backup.sh every day at 19:30."), 21, 19));
        folder.put(own("sync"), timed(listed("sync", "Runs Notes every Wednesday."), 25, 7));
        folder.put(pathOf("org.example.tool"),
                   listed("org.example.tool", "Runs tool.", AgentKind::OtherProgram, false));
        AgentOverview broken = listed("broken.plist", "Cannot be read: it ends early.",
                                      AgentKind::Unreadable, std::nullopt);
        folder.put(pathOf("broken"), broken);
        window.setAgentListReader(reader);
        platform.folderAccess.begun = 0; // the start leaves one begun
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    void showAgents() {
        find<QAction>("showAgents")->trigger();
        ASSERT_TRUE(QTest::qWaitFor([this] { return !reader.isReading(); }));
    }
    /// Reads the folder again, as after a change of it.
    void readAgain() {
        reader.start();
        ASSERT_TRUE(QTest::qWaitFor([this] { return !reader.isReading(); }));
    }

    AgentsView* view() { return find<AgentsView>("agents"); }
    std::vector<std::string> names() {
        std::vector<std::string> result;
        for (int row = 0; row < view()->model()->rowCount(); ++row)
            result.push_back(view()->model()->index(row, 0).data().toString().toStdString());
        return result;
    }
    std::string selected() { return view()->currentIndex().data().toString().toStdString(); }
    void select(int row) { view()->setCurrentIndex(view()->model()->index(row, 0)); }
    QLineEdit* filter() { return find<QLineEdit>("agentFilter"); }
    std::string shownText(const char* name) {
        auto* label = find<QLabel>(name);
        return label->isVisible() ? label->text().toStdString() : "hidden";
    }
    bool isEnabled(const char* command) { return find<QAction>(command)->isEnabled(); }

    FakeAgentFolder folder;
    LocalMinute now = time(21, 9);
    AgentListReader reader{folder, delegate, [this] { return WallClock(now); }};
};

} // namespace frimbolate::test
