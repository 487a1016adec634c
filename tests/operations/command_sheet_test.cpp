#include "operations/command_sheet.h"

#include "tests/support/expected_panels.h"
#include "tests/support/scripted_platform.h"
#include "tests/support/stored_forms.h"

#include <gmock/gmock.h>

namespace frimbolate::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* agents = "/Users/maya/Library/LaunchAgents";
constexpr const char* agent = "/Users/maya/Library/LaunchAgents/com.frimbolate.x.plist";

class CommandSheetTest : public testing::Test {
  protected:
    CommandSheetTest() {
        stored["Bookmark"] = bookmarkOf(agents);
        stored["AutoCopyScriptsKey"] = "False";
    }

    ScriptedPlatform platform;
    Dictionary& stored = platform.defaults.contents;
    FormModel form;
    Services services = platform.services();
    std::unique_ptr<CommandSheet> sheet = std::make_unique<CommandSheet>(form, services);
};

// The command's text

struct PathCase {
    const char* name;
    const char* path;
    const char* load;
    const char* unload;
};

constexpr PathCase pathCases[] = {
    {"Plain", "/a/com.frimbolate.x.plist", "launchctl load '/a/com.frimbolate.x.plist'",
     "launchctl unload '/a/com.frimbolate.x.plist'"},
    {"Blank", "/a b/c d.plist", "launchctl load '/a b/c d.plist'",
     "launchctl unload '/a b/c d.plist'"},
    {"SingleQuote", "/a/it's.plist", "launchctl load '/a/it's.plist'",
     "launchctl unload '/a/it's.plist'"},
    {"TwoSingleQuotes", "/a';touch b;'.plist", "launchctl load '/a';touch b;'.plist'",
     "launchctl unload '/a';touch b;'.plist'"},
    {"OtherMarks", "/a/\"$HOME\" \\n `x`.plist", "launchctl load '/a/\"$HOME\" \\n `x`.plist'",
     "launchctl unload '/a/\"$HOME\" \\n `x`.plist'"},
    {"NotAscii", "/a/über.plist", "launchctl load '/a/über.plist'",
     "launchctl unload '/a/über.plist'"},
    {"Percent", "/a/100%.plist", "launchctl load '/a/100%.plist'",
     "launchctl unload '/a/100%.plist'"},
    {"Empty", "", "launchctl load ''", "launchctl unload ''"},
};

class CommandTextTest : public CommandSheetTest, public testing::WithParamInterface<PathCase> {};

TEST_P(CommandTextTest, HoldsThePathAsItIs) {
    const auto& row = GetParam();
    EXPECT_EQ(loadCommand(row.path), row.load);
    EXPECT_EQ(unloadCommand(row.path), row.unload);

    sheet->loadLaunchAgent();
    platform.choose(row.path);
    EXPECT_EQ(form.actionScriptTextView.string, row.load);
    EXPECT_EQ(pathOfCommand(row.load), row.path);
    sheet->unloadLaunchAgent();
    platform.choose(row.path);
    EXPECT_EQ(form.actionScriptTextView.string, row.unload);
    EXPECT_EQ(pathOfCommand(row.unload), row.path);
}

INSTANTIATE_TEST_SUITE_P(CommandSheet, CommandTextTest, testing::ValuesIn(pathCases),
                         [](const auto& row) { return std::string(row.param.name); });

// Choosing the agent

struct VerbCase {
    const char* name;
    void (CommandSheet::*send)();
    const char* message;
    const char* command;
};

constexpr VerbCase verbs[] = {
    {"Load", &CommandSheet::loadLaunchAgent, "Please choose a launch agent to load:",
     "launchctl load '/Users/maya/Library/LaunchAgents/com.frimbolate.x.plist'"},
    {"Unload", &CommandSheet::unloadLaunchAgent, "Please choose a launch agent to unload:",
     "launchctl unload '/Users/maya/Library/LaunchAgents/com.frimbolate.x.plist'"},
};

class VerbTest : public CommandSheetTest, public testing::WithParamInterface<VerbCase> {
  protected:
    /// Shows the panel and clears the journal.
    void ask() {
        ((*sheet).*GetParam().send)();
        platform.journal.clear();
    }
};

TEST_P(VerbTest, OpensThePanelInTheGrantedFolder) {
    ((*sheet).*GetParam().send)();
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("begin: /Users/maya/Library/LaunchAgents",
                            std::string("open panel: ") + GetParam().message));
    expectPanel(platform.shownOpenPanel(), selectPanel(GetParam().message, {"plist"}, agents));
    EXPECT_TRUE(form.preferencesMenuItem.enabled) << "nothing is pending yet";
    platform.abandonQuestions();
}

TEST_P(VerbTest, WithoutAGrantThePanelStartsWhereItLikes) {
    stored.erase("Bookmark");
    ((*sheet).*GetParam().send)();
    EXPECT_EQ(platform.shownOpenPanel().directory, std::nullopt);
    platform.journal.clear();
    platform.choose(agent);
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("sheet: begin executeScriptWindow",
                            "first responder: executeScriptWindow.launchTerminalButton",
                            "end: (nothing)"));
}

TEST_P(VerbTest, ShowsTheCommandThenEndsAccess) {
    ask();
    platform.choose(agent);
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("sheet: begin executeScriptWindow",
                            "first responder: executeScriptWindow.launchTerminalButton",
                            "end: /Users/maya/Library/LaunchAgents"));
    EXPECT_EQ(platform.folderAccess.begun, 0);
    EXPECT_EQ(form.actionScriptTextView.string, GetParam().command);
    EXPECT_FALSE(form.actionScriptTextView.editable);
    EXPECT_FALSE(form.preferencesMenuItem.enabled);
    EXPECT_EQ(form.autoCopyScriptsCheckbox2.state, CheckState::Off);
    EXPECT_EQ(platform.pasteboard, "earlier content");
}

TEST_P(VerbTest, CopiesBeforeItShowsWhenAutoCopyIsOn) {
    stored["AutoCopyScriptsKey"] = "True";
    ask();
    platform.choose(agent);
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("pasteboard: cleared", std::string("pasteboard: ") + GetParam().command,
                            "sheet: begin executeScriptWindow",
                            "first responder: executeScriptWindow.launchTerminalButton",
                            "end: /Users/maya/Library/LaunchAgents"));
    EXPECT_EQ(platform.pasteboard, GetParam().command);
    EXPECT_EQ(form.autoCopyScriptsCheckbox2.state, CheckState::On);
}

TEST_P(VerbTest, CancellingDoesNothingAndLeavesAccessBegun) {
    ask();
    platform.cancelPanel();
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
    EXPECT_EQ(platform.folderAccess.begun, 1);
    EXPECT_TRUE(form.preferencesMenuItem.enabled);
    EXPECT_EQ(form.actionScriptTextView.string, "");
}

TEST_P(VerbTest, TheChosenFileIsNeitherReadNorChecked) {
    ask();
    platform.choose("/nowhere/at all");
    EXPECT_EQ(platform.journal.count("read"), 0U);
    EXPECT_THAT(form.actionScriptTextView.string, testing::EndsWith(" '/nowhere/at all'"));
}

TEST_P(VerbTest, AnAnswerAfterTheEndDoesNothing) {
    ask();
    sheet.reset();
    platform.choose(agent);
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(CommandSheet, VerbTest, testing::ValuesIn(verbs),
                         [](const auto& row) { return std::string(row.param.name); });

// Copying

struct CopyCase {
    std::string name;
    std::optional<Value> stored;
    bool copies;
};

std::vector<CopyCase> copyCases() {
    std::vector<CopyCase> rows = {
        {"Missing", std::nullopt, false}, {"True", "True", true}, {"False", "False", false},
        {"LowerCase", "true", false},     {"Empty", "", false},   {"Blank", "True ", false},
    };
    for (const auto& other : formsOtherThanText())
        rows.push_back({"Wrong" + other.name, other.value, false});
    return rows;
}

class CopyTest : public CommandSheetTest, public testing::WithParamInterface<CopyCase> {};

TEST_P(CopyTest, OnlyForTheExactText) {
    const auto& row = GetParam();
    stored.clear();
    if (row.stored)
        stored["AutoCopyScriptsKey"] = *row.stored;
    const auto before = stored;
    form.autoCopyScriptsCheckbox2.state = row.copies ? CheckState::Off : CheckState::Mixed;

    sheet->evaluateAutoCopyScripts("the command");

    EXPECT_FALSE(form.preferencesMenuItem.enabled);
    EXPECT_EQ(form.autoCopyScriptsCheckbox2.state, row.copies ? CheckState::On : CheckState::Off);
    EXPECT_EQ(platform.pasteboard, row.copies ? "the command" : "earlier content");
    EXPECT_EQ(form.copyCommandButton.hasCopied, row.copies);
    EXPECT_EQ(platform.journal.count("pasteboard"), row.copies ? 2U : 0U);
    EXPECT_EQ(platform.journal.lines().size(), row.copies ? 2U : 0U);
    EXPECT_EQ(stored, before);
}

INSTANTIATE_TEST_SUITE_P(CommandSheet, CopyTest, testing::ValuesIn(copyCases()),
                         [](const auto& row) { return row.param.name; });

TEST_F(CommandSheetTest, CopiesOnRequestExactlyWhatItShows) {
    for (const auto* command :
         {"launchctl load '/a b\u00a0c\u2028d\u2029e\rf\r\ng\n'", "launchctl unload '/x'"}) {
        sheet->setCommand(command);
        EXPECT_FALSE(form.copyCommandButton.hasCopied) << "each command starts afresh";
        platform.journal.clear();
        sheet->copyCommand();
        EXPECT_THAT(platform.journal.lines(),
                    ElementsAre("pasteboard: cleared", std::string("pasteboard: ") + command));
        EXPECT_EQ(platform.pasteboard, command);
        EXPECT_TRUE(form.copyCommandButton.hasCopied);
        EXPECT_EQ(form.autoCopyScriptsCheckbox2.state, CheckState::Off);
    }
}

TEST(PathOfCommand, IsEmptyForAnyOtherText) {
    for (const auto* text : {"", "ls", "'", "it's"})
        EXPECT_EQ(pathOfCommand(text), "") << text;
}

// Showing and closing

TEST_F(CommandSheetTest, PuttingACommandShowsNothing) {
    form.actionScriptTextView.editable = true;
    sheet->setCommand("launchctl load '/a'");
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
    EXPECT_EQ(form.actionScriptTextView.string, "launchctl load '/a'");
    EXPECT_FALSE(form.actionScriptTextView.editable);
    EXPECT_FALSE(form.preferencesMenuItem.enabled);
}

TEST_F(CommandSheetTest, ShowingDoesNotReadTheStoreAgain) {
    sheet->setCommand("launchctl load '/a'");
    stored["AutoCopyScriptsKey"] = "True";
    platform.defaults.reads.clear();
    sheet->show();
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("sheet: begin executeScriptWindow",
                            "first responder: executeScriptWindow.launchTerminalButton"));
    EXPECT_THAT(platform.defaults.reads, IsEmpty());
    EXPECT_EQ(form.autoCopyScriptsCheckbox2.state, CheckState::Off);
    EXPECT_EQ(platform.pasteboard, "earlier content");
}

struct CloseCase {
    const char* name;
    int state;
    const char* line;
    const char* stored;
    int inPreferences;
};

constexpr CloseCase closeCases[] = {
    {"Off", 0, "log: User does not want to autocopy scripts, writing key", "False", 0},
    {"On", 1, "log: User wants to autocopy scripts, writing key", "True", 1},
    {"Mixed", -1, "log: User wants to autocopy scripts, writing key", "True", 1},
};

class CloseTest : public CommandSheetTest, public testing::WithParamInterface<CloseCase> {};

TEST_P(CloseTest, StoresTheBoxAndMirrorsItInThePreferences) {
    const auto& row = GetParam();
    sheet->setCommand("launchctl load '/a'");
    sheet->show();
    form.autoCopyScriptsCheckbox2.state = row.state;
    form.autoCopyScriptCheckbox.state = CheckState::Mixed;
    platform.journal.clear();

    sheet->closeExecuteScriptWindow();

    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("sheet: end executeScriptWindow", row.line,
                            std::string("set: AutoCopyScriptsKey = ") + row.stored));
    EXPECT_EQ(stored["AutoCopyScriptsKey"], Value(row.stored));
    EXPECT_EQ(form.autoCopyScriptCheckbox.state, row.inPreferences);
    EXPECT_EQ(form.autoCopyScriptsCheckbox2.state, row.state) << "the sheet's own box stays";
    EXPECT_TRUE(form.preferencesMenuItem.enabled);
    EXPECT_EQ(platform.pasteboard, "earlier content")
        << "the command that is showing stays uncopied";
}

INSTANTIATE_TEST_SUITE_P(CommandSheet, CloseTest, testing::ValuesIn(closeCases),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(CommandSheetTest, TickingTheBoxTakesEffectFromTheNextCommandOn) {
    sheet->setCommand("first");
    form.autoCopyScriptsCheckbox2.state = CheckState::On;
    sheet->closeExecuteScriptWindow();
    EXPECT_EQ(platform.pasteboard, "earlier content");
    sheet->setCommand("second");
    EXPECT_EQ(platform.pasteboard, "second");
    form.autoCopyScriptsCheckbox2.state = CheckState::Off;
    sheet->closeExecuteScriptWindow();
    sheet->setCommand("third");
    EXPECT_EQ(platform.pasteboard, "second");
}

TEST_F(CommandSheetTest, ACommandNeverShownStaysPendingUntilTheSheetIsNextClosed) {
    sheet->setCommand("never shown");
    EXPECT_FALSE(form.preferencesMenuItem.enabled);

    sheet->loadLaunchAgent();
    platform.cancelPanel();
    EXPECT_FALSE(form.preferencesMenuItem.enabled) << "a cancelled panel does not end it";

    sheet->unloadLaunchAgent();
    platform.choose(agent);
    EXPECT_FALSE(form.preferencesMenuItem.enabled);
    sheet->closeExecuteScriptWindow();
    EXPECT_TRUE(form.preferencesMenuItem.enabled);
}

TEST_F(CommandSheetTest, TheTerminalIsOpenedWithoutTheCommand) {
    sheet->setCommand("launchctl load '/a'");
    sheet->show();
    platform.journal.clear();
    sheet->launchTerminal();
    EXPECT_THAT(platform.journal.lines(), ElementsAre("workspace: terminal"));
    EXPECT_TRUE(platform.shownSheets.contains(Sheet::executeScriptWindow));
    EXPECT_FALSE(form.preferencesMenuItem.enabled);
}

} // namespace

} // namespace frimbolate::test
