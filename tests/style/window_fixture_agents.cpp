// The states of the pages beside the form, and the agents that they show.
#include "tests/style/window_fixture.h"

#include <QAction>
#include <QLineEdit>
#include <QTest>

namespace frimbolate::test {

WallClock WindowFixture::wallClock() {
    using namespace std::chrono;
    return {LocalMinute(local_days(2026y / 11 / 21)) + hours(9)};
}

void WindowFixture::listAgents() {
    using namespace std::chrono;
    const auto add = [this](const char* file, AgentOverview overview, int day, int minutesOfDay) {
        if (day > 0)
            overview.nextRun = LocalMinute(local_days(2026y / 11 / day)) + minutes(minutesOfDay);
        agentFolder.put(std::string(ScriptedWindow::agents) + "/" + file + ".plist", overview);
    };
    add("com.frimbolate.backup_photos",
        listed("backup_photos",
               "Runs backup_photos.sh every day at 19:30, and when ~/Pictures changes."),
        21, 19 * 60 + 30);
    add("com.frimbolate.sync_notes",
        listed("sync_notes", "Runs Notes every 30 minutes, when the agent is loaded, such as at "
                             "login, and when ~/Documents/Notes changes."),
        21, 18 * 60 + 15);
    add("com.fr\u0131mbolate.tidy_downloads",
        listed("tidy_downloads", "Runs tidy_downloads.py every Wednesday at 07:05.",
               AgentKind::EarlierVersion),
        25, 7 * 60 + 5);
    AgentOverview other =
        listed("org.example.sync",
               "Runs sync-helper when the agent is loaded, such as at login, and keeps it running.",
               AgentKind::OtherProgram, false);
    other.findings = {{"rule", Severity::Suspicious, "Program", "is not an absolute path"}};
    add("org.example.sync", other, 0, 0);
    add("net.example.updater",
        listed("net.example.a_name_that_is_longer_than_the_row_has_space_for_and_elided.updater",
               "Cannot be read: the file ends in the middle of a dictionary.",
               AgentKind::Unreadable, std::nullopt),
        0, 0);
    for (int i = 1; i <= 7; ++i) {
        const std::string name = "weekly_" + std::to_string(i);
        add(("com.frimbolate." + name).c_str(), listed(name, "Runs " + name + ".sh every Monday."),
            23, i * 60);
    }
    find<QAction>("showAgents")->trigger();
    if (!QTest::qWaitFor([this] { return !agentReader.isReading(); }))
        throw std::runtime_error("The agents are not read");
}

namespace {

void propertyList(WindowFixture& fixture) {
    filled(fixture);
    fixture.find<QAction>("showPropertyList")->trigger();
}

void incompletePropertyList(WindowFixture& fixture) {
    propertyList(fixture);
    fixture.form().agentNameTextField.stringValue.clear();
}

void agents(WindowFixture& fixture) {
    filled(fixture);
    fixture.listAgents();
}

void agentsFiltered(WindowFixture& fixture) {
    agents(fixture);
    fixture.find<QLineEdit>("agentFilter")->setFocus();
    fixture.find<QLineEdit>("agentFilter")->setText("sync");
}

void agentsFilteredAway(WindowFixture& fixture) {
    agentsFiltered(fixture);
    fixture.find<QLineEdit>("agentFilter")->setText("rsync");
}

void agentsWithoutGrant(WindowFixture& fixture) {
    fixture.platform.defaults.contents.erase("Bookmark");
    fixture.find<QAction>("showAgents")->trigger();
}

void agentsBesideDrawer(WindowFixture& fixture) {
    agents(fixture);
    fixture.openDrawer();
}

constexpr UiState pageRows[] = {
    {"property_list", propertyList},
    {"property_list_incomplete", incompletePropertyList},
    {"agents", agents},
    {"agents_filtered", agentsFiltered},
    {"agents_filtered_away", agentsFilteredAway},
    {"agents_without_grant", agentsWithoutGrant},
    {"agents_beside_drawer", agentsBesideDrawer},
};

} // namespace

std::span<const UiState> pageStates() { return pageRows; }

} // namespace frimbolate::test
