// The page of the agents: what it shows, its keys and its commands.
#include "tests/widgets/agents_fixture.h"
#include "widgets/pages/page_stack.h"
#include "widgets/style/agent_rows.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QMenu>
#include <QPushButton>

#include <gmock/gmock.h>

namespace frimbolate::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST_F(AgentsPageTest, ListsTheAgentsByName) {
    EXPECT_EQ(folder.lists(), 0) << "nothing is read before the page is shown";
    showAgents();
    EXPECT_THAT(names(), ElementsAre("backup", "broken.plist", "org.example.tool", "sync"));
    EXPECT_EQ(shownText("agentCount"), "4 agents · 1 off · 1 problem");
    EXPECT_EQ(window.focusWidget(), view());
    EXPECT_EQ(selected(), "backup");
    EXPECT_EQ(window.size(), QSize(680, 472));
}

TEST_F(AgentsPageTest, ARowTellsWhatItShows) {
    AgentOverview faulty = timed(listed("a", "Runs a."), 25, 7);
    faulty.findings = {{"rule", Severity::Refused, "StartInterval", "is not positive"},
                       {"rule", Severity::Note, "Enabled", "is not read by launchd"}};
    folder.put(own("a"), faulty);
    showAgents();
    const QModelIndex first = view()->model()->index(0, 0);
    EXPECT_EQ(first.data(style::AgentState).toInt(), static_cast<int>(style::AgentMark::On));
    EXPECT_EQ(first.data(style::AgentProblems).toInt(), 1) << "a note is no problem";
    EXPECT_EQ(first.data(style::AgentNextRun).toString(), "Wed 07:00");
    EXPECT_EQ(first.data(style::AgentTag).toString(), "");
    EXPECT_EQ(first.data(Qt::ToolTipRole).toString(),
              "Runs a.\nStartInterval is not positive\nEnabled is not read by launchd");
    EXPECT_EQ(first.data(Qt::AccessibleTextRole).toString(),
              "a, on, made with Frimbolate, Runs a., Next: Wednesday 25 November, 07:00, "
              "StartInterval is not positive, Enabled is not read by launchd");
    const QModelIndex broken = view()->model()->index(2, 0);
    EXPECT_EQ(broken.data(style::AgentState).toInt(), static_cast<int>(style::AgentMark::Unknown));
    EXPECT_EQ(broken.data(style::AgentTag).toString(), "Unreadable");
    EXPECT_EQ(broken.data(style::AgentProblems).toInt(), 1);
    EXPECT_EQ(broken.data(Qt::AccessibleTextRole).toString(),
              "broken.plist, state unknown, Unreadable, Cannot be read: it ends early., no next "
              "run known");
    auto* table = QAccessible::queryAccessibleInterface(view())->tableInterface();
    EXPECT_EQ(table->columnCount(), 1);
    EXPECT_EQ(table->cellAt(0, 0)->text(QAccessible::Name),
              first.data(Qt::AccessibleTextRole).toString());
}

TEST_F(AgentsPageTest, KeysMoveThroughTheList) {
    showAgents();
    select(0);
    const std::pair<Qt::Key, const char*> keys[] = {
        {Qt::Key_End, "sync"},    {Qt::Key_Up, "org.example.tool"},
        {Qt::Key_Home, "backup"}, {Qt::Key_Down, "broken.plist"},
        {Qt::Key_S, "sync"},
    };
    for (const auto& [key, name] : keys) {
        QTest::keyClick(view(), key);
        EXPECT_EQ(selected(), name) << key;
    }
}

TEST_F(AgentsPageTest, TheFilterIsReachedByKeyAndNarrowsTheList) {
    showAgents();
    QTest::keyClick(view(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(window.focusWidget(), filter());
    QTest::keyClicks(filter(), "RUNS every");
    EXPECT_THAT(names(), ElementsAre("backup", "sync"));
    EXPECT_EQ(shownText("agentCount"), "2 of 4 agents");
    QTest::keyClick(filter(), Qt::Key_Down);
    EXPECT_EQ(window.focusWidget(), view());
    EXPECT_EQ(selected(), "backup");
    QTest::keyClick(view(), Qt::Key_Up);
    EXPECT_EQ(window.focusWidget(), filter());
    QTest::keyClick(filter(), Qt::Key_Escape);
    EXPECT_EQ(names().size(), 4u);
    QTest::keyClicks(filter(), "other program");
    EXPECT_THAT(names(), ElementsAre("org.example.tool"));
}

TEST_F(AgentsPageTest, EscapeInTheListClearsTheFilterBeforeItClosesADrawer) {
    showAgents();
    filter()->setText("sync");
    view()->setFocus();
    QTest::keyClick(view(), Qt::Key_Escape);
    EXPECT_EQ(filter()->text(), "");
    EXPECT_EQ(names().size(), 4u);
    EXPECT_EQ(window.focusWidget(), view());
}

TEST_F(AgentsPageTest, TheFilterKeepsTheSelectionOfARowThatItHides) {
    showAgents();
    select(3);
    filter()->setText("backup");
    EXPECT_EQ(selected(), "");
    EXPECT_FALSE(isEnabled("deleteListed"));
    filter()->clear();
    EXPECT_EQ(selected(), "sync");
}

TEST_F(AgentsPageTest, SortsByEveryColumnBothWays) {
    showAgents();
    const std::tuple<int, bool, std::vector<std::string>> rows[] = {
        {1, false, {"backup", "sync", "org.example.tool", "broken.plist"}},
        {2, false, {"broken.plist", "sync", "backup", "org.example.tool"}},
        {3, true, {"broken.plist", "sync", "org.example.tool", "backup"}},
        {4, false, {"backup", "sync", "broken.plist", "org.example.tool"}},
        {4, true, {"sync", "backup", "org.example.tool", "broken.plist"}},
        {0, true, {"sync", "org.example.tool", "broken.plist", "backup"}},
        {0, false, {"backup", "broken.plist", "org.example.tool", "sync"}},
    };
    auto* descending = find<QAction>("sortDescending");
    select(0);
    const std::string before = selected();
    for (const auto& [column, down, wanted] : rows) {
        find<QAction>("sortBy" + std::to_string(column))->trigger();
        if (descending->isChecked() != down)
            descending->trigger();
        EXPECT_EQ(names(), wanted) << column << down;
        EXPECT_EQ(selected(), before);
    }
}

TEST_F(AgentsPageTest, TheCaptionSortsByTheNextRun) {
    showAgents();
    QTest::mouseClick(find("sortByNextRun"), Qt::LeftButton);
    EXPECT_EQ(names().front(), "backup");
    QTest::mouseClick(find("sortByNextRun"), Qt::LeftButton);
    EXPECT_EQ(names().front(), "sync");
    EXPECT_TRUE(find<QAction>("sortDescending")->isChecked());
}

// The commands

TEST_F(AgentsPageTest, ReturnOpensTheAgentInTheForm) {
    platform.files.contents[own("sync")] = Dictionary{{"Label", "com.frimbolate.sync"},
                                                      {"ProgramArguments", Array{Value("/a")}},
                                                      {"StartOnMount", true}};
    showAgents();
    select(3);
    QTest::keyClick(view(), Qt::Key_Return);
    EXPECT_EQ(find<PageStack>("pages")->page(), Page::Form);
    EXPECT_EQ(form().agentNameTextField.stringValue, "sync");
    EXPECT_EQ(window.focusWidget(), find("agentNameTextField"));
    EXPECT_FALSE(platform.isAsking());
}

TEST_F(AgentsPageTest, ADoubleClickOpensTheAgentInTheForm) {
    platform.files.contents[own("backup")] = Dictionary{{"Label", "com.frimbolate.backup"}};
    showAgents();
    const QPoint place = view()->visualRect(view()->model()->index(0, 0)).center();
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(view()->viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(find<PageStack>("pages")->page(), Page::Form);
    platform.abandonQuestions();
}

TEST_F(AgentsPageTest, AnotherProgramsAgentIsRejectedAsAfterThePanel) {
    showAgents();
    select(2);
    QTest::keyClick(view(), Qt::Key_Return);
    EXPECT_EQ(platform.shownAlert().messageText,
              "This launch agent is not fully compatible with Frimbolate.");
    EXPECT_EQ(find<PageStack>("pages")->page(), Page::Agents);
    platform.press("Ok");
}

TEST_F(AgentsPageTest, SpaceSwitchesAndDeleteAsks) {
    for (const auto& path : {own("backup"), own("sync")})
        platform.files.contents[path] = Dictionary{{"Label", "x"}};
    showAgents();
    select(0);
    QTest::keyClick(view(), Qt::Key_Space);
    EXPECT_EQ(platform.shownAlert().messageText, "This launch agent is currently enabled.");
    platform.press("Continue");
    EXPECT_EQ(platform.files.contents[own("backup")],
              (Dictionary{{"Label", "x"}, {"Enabled", false}}));
    select(3);
    QTest::keyClick(view(), Qt::Key_Delete);
    EXPECT_EQ(platform.shownAlert().informativeText, own("sync"));
    platform.press("Delete");
    EXPECT_FALSE(platform.files.contents.contains(own("sync")));
}

TEST_F(AgentsPageTest, TheBarLoadsUnloadsAndShows) {
    showAgents();
    select(1);
    platform.journal.clear();
    find<QAction>("showListed")->trigger();
    EXPECT_THAT(platform.journal.lines(), ElementsAre("workspace: show " + pathOf("broken")));
    QTest::mouseClick(find("unloadListedButton"), Qt::LeftButton);
    EXPECT_EQ(form().actionScriptTextView.string, unloadCommand(pathOf("broken")));
    delegate.closeExecuteScriptWindow();
    QTest::qWait(0);
    find<QAction>("loadListed")->trigger();
    EXPECT_EQ(form().actionScriptTextView.string, loadCommand(pathOf("broken")));
    delegate.closeExecuteScriptWindow();
}

TEST_F(AgentsPageTest, WithoutASelectionNothingCanBeDoneAndAnUnreadableFileIsNotChanged) {
    const char* const all[] = {"editListed",   "switchListed", "loadListed",
                               "unloadListed", "deleteListed", "showListed"};
    for (const char* command : all)
        EXPECT_FALSE(isEnabled(command)) << command;
    showAgents();
    select(0);
    for (const char* command : all)
        EXPECT_TRUE(isEnabled(command)) << command;
    select(1);
    for (const char* command : all)
        EXPECT_EQ(isEnabled(command), std::string_view(command) != "editListed" &&
                                          std::string_view(command) != "switchListed")
            << command;
}

TEST_F(AgentsPageTest, TheMenuOfARowOffersEveryCommand) {
    showAgents();
    select(0);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(view(), &event);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->actions().first()->text(), "&Edit");
    EXPECT_EQ(menu->actions().size(), 8); // six commands, a separator, the sorting
    menu->close();
}

// The empty states

TEST_F(AgentsPageTest, AFilterThatMatchesNothingCanBeCleared) {
    showAgents();
    filter()->setText("rsync");
    EXPECT_FALSE(view()->isVisible());
    EXPECT_EQ(shownText("emptyListTitle"), "No agent matches “rsync”");
    EXPECT_EQ(shownText("agentCount"), "0 of 4 agents");
    EXPECT_FALSE(find("sortByNextRun")->isVisible());
    QTest::mouseClick(find("emptyListButton"), Qt::LeftButton);
    EXPECT_TRUE(view()->isVisible());
    EXPECT_EQ(filter()->text(), "");
}

TEST_F(AgentsPageTest, WithoutAGrantThePageAsksForIt) {
    const auto grant = platform.defaults.contents["Bookmark"];
    platform.defaults.contents.erase("Bookmark");
    showAgents();
    EXPECT_EQ(shownText("emptyListTitle"), "Frimbolate cannot see your agents yet");
    EXPECT_FALSE(filter()->isEnabled());
    EXPECT_EQ(folder.lists(), 0);
    QTest::mouseClick(find("emptyListButton"), Qt::LeftButton);
    EXPECT_EQ(platform.shownOpenPanel().prompt, "Choose");
    platform.choose("/Users/maya/Library/LaunchAgents");
    window.mirror();
    ASSERT_TRUE(QTest::qWaitFor([this] { return names().size() == 4; }));
    EXPECT_TRUE(filter()->isEnabled());
    EXPECT_EQ(platform.folderAccess.begun, 0);
}

TEST_F(AgentsPageTest, AFolderThatCannotBeReadCountsAsNotGranted) {
    folder.setReadable(false);
    showAgents();
    EXPECT_EQ(shownText("emptyListTitle"), "Frimbolate cannot see your agents yet");
    EXPECT_EQ(platform.folderAccess.begun, 0);
}

TEST_F(AgentsPageTest, AnEmptyFolderSaysSo) {
    for (const auto& path :
         {own("backup"), own("sync"), pathOf("org.example.tool"), pathOf("broken")})
        folder.remove(path);
    showAgents();
    EXPECT_EQ(shownText("emptyListTitle"), "No agents yet");
    EXPECT_FALSE(find("emptyListButton")->isVisible());
}

} // namespace
} // namespace frimbolate::test
