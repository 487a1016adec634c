// Every operation on the granted folder: where it begins and ends its access. Most operations
// end it in the steps after a choice, so a cancelled panel leaves it begun.
#include "tests/support/editor_test.h"

#include <functional>
#include <set>

namespace frimbolate::test {

namespace {

using testing::ElementsAreArray;
using Kinds = std::vector<std::string>;

constexpr const char* ownAgent = "/Users/maya/Library/LaunchAgents/com.frimbolate.x.plist";
constexpr const char* earlierAgent = "/Users/maya/Library/LaunchAgents/com.fr\u0131mbolate.x.plist";
constexpr const char* foreign = "/Users/maya/Library/LaunchAgents/org.example.x.plist";
constexpr const char* missing = "/Users/maya/Library/LaunchAgents/com.frimbolate.none.plist";

struct AccessCase {
    const char* name;
    std::function<void(AppDelegate&, ScriptedPlatform&)> work;
    Kinds effects; ///< the kinds of effects in order, without log and preferences
    int leftBegun;
};

void save(AppDelegate& editor, ScriptedPlatform& platform) {
    editor.saveLaunchAgent();
    platform.saveAs(ownAgent);
}

void choose(void (AppDelegate::*send)(), const char* path, AppDelegate& editor,
            ScriptedPlatform& platform) {
    (editor.*send)();
    platform.choose(path);
}

const std::vector<AccessCase>& savingCases() {
    static const std::vector<AccessCase> rows = {
        {"SaveCancelled",
         [](auto& editor, auto& platform) {
             editor.saveLaunchAgent();
             platform.cancelPanel();
         },
         {"begin", "save panel", "end"},
         0},
        {"SaveSkipped",
         [](auto& editor, auto& platform) {
             save(editor, platform);
             platform.press("Skip");
         },
         {"begin", "save panel", "end", "write", "alert"},
         0},
        {"SaveContinued",
         [](auto& editor, auto& platform) {
             save(editor, platform);
             platform.press("Continue");
         },
         {"begin", "save panel", "end", "write", "alert", "sheet", "first responder"},
         0},
        {"SaveRefused",
         [](auto& editor, auto& platform) {
             platform.files.readOnly = {"/Users/maya/Library/LaunchAgents"};
             save(editor, platform);
             platform.press("Ok");
         },
         {"begin", "save panel", "end", "alert"},
         0},
    };
    return rows;
}

const std::vector<AccessCase>& commandCases() {
    static const std::vector<AccessCase> rows = {
        {"LoadCancelled",
         [](auto& editor, auto& platform) {
             editor.loadLaunchAgent();
             platform.cancelPanel();
         },
         {"begin", "open panel"},
         1},
        {"LoadShown",
         [](auto& editor, auto& platform) {
             choose(&AppDelegate::loadLaunchAgent, foreign, editor, platform);
         },
         {"begin", "open panel", "sheet", "first responder", "end"},
         0},
        {"UnloadCancelled",
         [](auto& editor, auto& platform) {
             editor.unloadLaunchAgent();
             platform.cancelPanel();
         },
         {"begin", "open panel"},
         1},
        {"UnloadShown",
         [](auto& editor, auto& platform) {
             choose(&AppDelegate::unloadLaunchAgent, ownAgent, editor, platform);
         },
         {"begin", "open panel", "sheet", "first responder", "end"},
         0},
    };
    return rows;
}

const std::vector<AccessCase>& editingCases() {
    static const std::vector<AccessCase> rows = {
        {"EditCancelled",
         [](auto& editor, auto& platform) {
             editor.editLaunchAgent();
             platform.cancelPanel();
         },
         {"begin", "open panel"},
         1},
        {"EditForeign",
         [](auto& editor, auto& platform) {
             choose(&AppDelegate::editLaunchAgent, foreign, editor, platform);
             platform.press("Ok");
         },
         {"begin", "open panel", "alert", "end"},
         0},
        {"EditOwn",
         [](auto& editor, auto& platform) {
             choose(&AppDelegate::editLaunchAgent, ownAgent, editor, platform);
         },
         {"begin", "open panel", "read", "end"},
         0},
        {"EditUnreadable",
         [](auto& editor, auto& platform) {
             choose(&AppDelegate::editLaunchAgent, missing, editor, platform);
             platform.press("Ok");
         },
         {"begin", "open panel", "read", "alert", "end"},
         0},
        {"UpgradeDeclined",
         [](auto& editor, auto& platform) {
             choose(&AppDelegate::editLaunchAgent, earlierAgent, editor, platform);
             platform.press("Cancel");
         },
         {"begin", "open panel", "alert", "read", "end"},
         0},
        {"UpgradeCancelled",
         [](auto& editor, auto& platform) {
             choose(&AppDelegate::editLaunchAgent, earlierAgent, editor, platform);
             platform.press("Ok");
             platform.cancelPanel();
         },
         {"begin", "open panel", "alert", "read", "end", "read", "begin", "save panel"},
         1},
        {"UpgradeSaved",
         [](auto& editor, auto& platform) {
             choose(&AppDelegate::editLaunchAgent, earlierAgent, editor, platform);
             platform.press("Ok");
             platform.saveAs(ownAgent);
         },
         {"begin", "open panel", "alert", "read", "end", "read", "begin", "save panel", "write",
          "remove"},
         1},
        {"UpgradeRefused",
         [](auto& editor, auto& platform) {
             choose(&AppDelegate::editLaunchAgent, earlierAgent, editor, platform);
             platform.press("Ok");
             platform.files.diskIsFull = true;
             platform.saveAs(missing);
             platform.press("Ok");
         },
         {"begin", "open panel", "alert", "read", "end", "read", "begin", "save panel", "write",
          "alert"},
         1},
    };
    return rows;
}

const std::vector<AccessCase>& switchCases() {
    static const std::vector<AccessCase> rows = {
        {"SwitchCancelled",
         [](auto& editor, auto& platform) {
             editor.onOffLaunchAgent();
             platform.cancelPanel();
         },
         {"begin", "open panel"},
         1},
        {"SwitchUnreadable",
         [](auto& editor, auto& platform) {
             choose(&AppDelegate::onOffLaunchAgent, missing, editor, platform);
             platform.press("Ok");
         },
         {"begin", "open panel", "read", "alert"},
         1},
        {"SwitchDeclined",
         [](auto& editor, auto& platform) {
             choose(&AppDelegate::onOffLaunchAgent, ownAgent, editor, platform);
             platform.press("Cancel");
         },
         {"begin", "open panel", "read", "alert"},
         1},
        {"Switched",
         [](auto& editor, auto& platform) {
             choose(&AppDelegate::onOffLaunchAgent, ownAgent, editor, platform);
             platform.press("Continue");
         },
         {"begin", "open panel", "read", "alert", "write", "end"},
         0},
        {"SwitchRefused",
         [](auto& editor, auto& platform) {
             platform.files.readOnly = {ownAgent};
             choose(&AppDelegate::onOffLaunchAgent, ownAgent, editor, platform);
             platform.press("Continue");
             platform.press("Ok");
         },
         {"begin", "open panel", "read", "alert", "alert", "end"},
         0},
    };
    return rows;
}

const std::vector<AccessCase>& deletionCases() {
    static const std::vector<AccessCase> rows = {
        {"DeleteCancelled",
         [](auto& editor, auto& platform) {
             editor.deleteLaunchAgent();
             platform.cancelPanel();
         },
         {"begin", "open panel"},
         1},
        {"DeleteDeclined",
         [](auto& editor, auto& platform) {
             choose(&AppDelegate::deleteLaunchAgent, ownAgent, editor, platform);
             platform.press("Cancel");
         },
         {"begin", "open panel", "alert"},
         1},
        {"Deleted",
         [](auto& editor, auto& platform) {
             choose(&AppDelegate::deleteLaunchAgent, ownAgent, editor, platform);
             platform.press("Delete");
         },
         {"begin", "open panel", "alert", "remove", "end"},
         0},
        {"DeleteRefused",
         [](auto& editor, auto& platform) {
             platform.files.readOnly = {ownAgent};
             choose(&AppDelegate::deleteLaunchAgent, ownAgent, editor, platform);
             platform.press("Delete");
             platform.press("Ok");
         },
         {"begin", "open panel", "alert", "alert", "end"},
         0},
        {"DeleteFailed",
         [](auto& editor, auto& platform) {
             platform.files.removalFails = true;
             choose(&AppDelegate::deleteLaunchAgent, ownAgent, editor, platform);
             platform.press("Delete");
             platform.press("Ok");
         },
         {"begin", "open panel", "alert", "remove", "alert", "end"},
         0},
    };
    return rows;
}

class FolderAccessTest : public EditorTest, public testing::WithParamInterface<AccessCase> {
  protected:
    FolderAccessTest() {
        const Dictionary agent = {{"Label", "com.frimbolate.x"},
                                  {"ProgramArguments", Array{Value("/bin/true")}}};
        for (const auto* path : {ownAgent, earlierAgent, foreign})
            platform.files.contents[path] = agent;
        platform.defaults.contents["WarnForDelete"] = false;
    }

    Kinds effects() const {
        static const std::set<std::string> others = {"log", "set", "synchronize"};
        Kinds result;
        for (const auto& line : platform.journal.lines())
            if (const auto kind = line.substr(0, line.find(':')); !others.contains(kind))
                result.push_back(kind);
        return result;
    }
};

TEST_P(FolderAccessTest, BeginsAndEndsWhereItShould) {
    GetParam().work(editor, platform);
    EXPECT_THAT(effects(), ElementsAreArray(GetParam().effects));
    EXPECT_EQ(platform.folderAccess.begun, GetParam().leftBegun);
    for (const auto* kind : {"begin", "end"})
        for (const auto& folder : platform.journal.texts(kind))
            EXPECT_EQ(folder, agents);
}

std::string caseName(const testing::TestParamInfo<AccessCase>& row) { return row.param.name; }

INSTANTIATE_TEST_SUITE_P(Saving, FolderAccessTest, testing::ValuesIn(savingCases()), caseName);
INSTANTIATE_TEST_SUITE_P(Command, FolderAccessTest, testing::ValuesIn(commandCases()), caseName);
INSTANTIATE_TEST_SUITE_P(Editing, FolderAccessTest, testing::ValuesIn(editingCases()), caseName);
INSTANTIATE_TEST_SUITE_P(Switch, FolderAccessTest, testing::ValuesIn(switchCases()), caseName);
INSTANTIATE_TEST_SUITE_P(Deletion, FolderAccessTest, testing::ValuesIn(deletionCases()), caseName);

} // namespace

} // namespace frimbolate::test
