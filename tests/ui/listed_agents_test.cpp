// The actions on a listed file continue as those of the menu do once their panel is answered.
#include "tests/support/editor_test.h"
#include "tests/support/rows.h"

#include <functional>

namespace frimbolate::test {

namespace {

using testing::ElementsAre;
using Lines = std::vector<std::string>;

constexpr const char* listedOwn = "/Users/maya/Library/LaunchAgents/com.frimbolate.x.plist";
constexpr const char* listedEarlier =
    "/Users/maya/Library/LaunchAgents/com.fr\u0131mbolate.x.plist";
constexpr const char* listedForeign = "/Users/maya/Library/LaunchAgents/org.example.x.plist";
constexpr const char* listedMissing = "/Users/maya/Library/LaunchAgents/com.frimbolate.none.plist";

struct ListedCase {
    const char* name;
    void (AppDelegate::*viaPanel)();
    std::function<void(AppDelegate&, const char*)> listed;
    const char* path;
    std::vector<const char*> answers; ///< the buttons pressed in the alerts that follow
};

void edit(AppDelegate& editor, const char* path) { editor.editAgent(path); }
void switchAgent(AppDelegate& editor, const char* path) { editor.switchAgent(path); }
void load(AppDelegate& editor, const char* path) { editor.showLoadCommand(path); }
void unload(AppDelegate& editor, const char* path) { editor.showUnloadCommand(path); }
void remove(AppDelegate& editor, const char* path) { editor.deleteAgent(path); }

constexpr auto editing = &AppDelegate::continueEditingAgent;
constexpr auto switching = &AppDelegate::onOffLaunchAgent;
constexpr auto deleting = &AppDelegate::deleteLaunchAgentContinue;

const ListedCase listedCases[] = {
    {"EditOwn", editing, edit, listedOwn, {}},
    {"EditEarlierCancelled", editing, edit, listedEarlier, {"Cancel"}},
    {"EditMissing", editing, edit, listedMissing, {"Ok"}},
    {"SwitchOff", switching, switchAgent, listedOwn, {"Continue"}},
    {"SwitchCancelled", switching, switchAgent, listedOwn, {"Cancel"}},
    {"SwitchForeign", switching, switchAgent, listedForeign, {"Continue"}},
    {"SwitchMissing", switching, switchAgent, listedMissing, {"Ok"}},
    {"Load", &AppDelegate::loadLaunchAgent, load, listedOwn, {}},
    {"Unload", &AppDelegate::unloadLaunchAgent, unload, listedForeign, {}},
    {"Delete", deleting, remove, listedForeign, {"Delete"}},
    {"DeleteCancelled", deleting, remove, listedOwn, {"Cancel"}},
    {"DeleteMissing", deleting, remove, listedMissing, {"Delete", "Ok"}},
};

class ListedAgentTest : public EditorTest, public testing::WithParamInterface<ListedCase> {
  protected:
    static void fill(ScriptedPlatform& desktop) {
        desktop.files.folders = {agents, "/Users/maya"};
        desktop.defaults.contents["Bookmark"] = bookmarkOf(agents);
        for (const char* path : {listedOwn, listedEarlier, listedForeign})
            desktop.files.contents[path] =
                Dictionary{{"Label", "com.frimbolate.x"},
                           {"ProgramArguments", Array{Value("/bin/sh"), Value("/a.sh")}},
                           {"StartInterval", 60}};
    }
    static void answer(ScriptedPlatform& desktop) {
        for (const char* button : GetParam().answers)
            desktop.press(button);
    }
};

TEST_P(ListedAgentTest, HasTheEffectsThatFollowThePanel) {
    fill(platform);
    ScriptedPlatform other;
    fill(other);
    AppDelegate viaPanel(other.services());
    (viaPanel.*GetParam().viaPanel)();
    other.choose(GetParam().path);
    answer(other);
    GetParam().listed(editor, GetParam().path);
    answer(platform);

    Lines expected = other.journal.lines();
    std::erase_if(expected, [](const auto& line) { return line.starts_with("open panel: "); });
    EXPECT_EQ(platform.journal.lines(), expected);
    EXPECT_EQ(platform.files.contents, other.files.contents);
    EXPECT_EQ(platform.folderAccess.begun, other.folderAccess.begun);
    EXPECT_EQ(snapshot(form), snapshot(viaPanel.form()));
}

INSTANTIATE_TEST_SUITE_P(Rows, ListedAgentTest, testing::ValuesIn(listedCases), NamedAfterRow());

class AgentFolderAccessTest : public EditorTest {};

TEST_F(AgentFolderAccessTest, EditTellsWhetherTheFormShowsTheAgent) {
    platform.files.contents[listedOwn] = Dictionary{{"Label", "com.frimbolate.x"}};
    form.agentNameTextField.stringValue = "unfinished";
    EXPECT_FALSE(editor.editAgent(listedForeign));
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre(std::string("begin: ") + agents,
                            "alert: This launch agent is not fully compatible with Frimbolate.",
                            std::string("end: ") + agents));
    EXPECT_EQ(form.agentNameTextField.stringValue, "unfinished");
    platform.press("Ok");
    EXPECT_TRUE(editor.editAgent(listedOwn));
    EXPECT_EQ(form.agentNameTextField.stringValue, "x");
    platform.abandonQuestions();
}

TEST_F(AgentFolderAccessTest, OpensAndClosesTheGrantedFolder) {
    const auto folder = editor.openAgentFolder();
    EXPECT_EQ(folder, agents);
    EXPECT_EQ(platform.folderAccess.begun, 1);
    editor.closeAgentFolder(folder);
    EXPECT_EQ(platform.folderAccess.begun, 0);
}

TEST_F(AgentFolderAccessTest, OpensNothingWithoutAGrant) {
    platform.folderAccess.resolutionFails = true;
    EXPECT_EQ(editor.openAgentFolder(), std::nullopt);
    platform.defaults.contents.erase("Bookmark");
    EXPECT_EQ(editor.openAgentFolder(), std::nullopt);
    EXPECT_EQ(platform.folderAccess.begun, 0);
}

TEST_F(AgentFolderAccessTest, AsksForTheGrantAndStoresIt) {
    platform.defaults.contents.erase("Bookmark");
    editor.requestAgentFolder();
    EXPECT_EQ(platform.shownOpenPanel().prompt, "Choose");
    platform.choose(agents);
    EXPECT_EQ(editor.openAgentFolder(), agents);
}

TEST_F(AgentFolderAccessTest, ShowsAFileInTheFileManager) {
    editor.showInFileManager(listedOwn);
    EXPECT_THAT(platform.journal.lines(), ElementsAre(std::string("workspace: show ") + listedOwn));
}

} // namespace

} // namespace frimbolate::test
