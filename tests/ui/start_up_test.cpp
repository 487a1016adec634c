#include "tests/support/editor_test.h"
#include "tests/support/stored_forms.h"

namespace frimbolate::test {

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::StartsWith;
using Lines = std::vector<std::string>;

const Lines firstStart = {
    // The pass of start-up itself
    "synchronize: defaults",
    "log: No key found for ShowWelcomeWindow, writing default of True - 3.0",
    "set: ShowWelcomeWindow = True - 3.0",
    "log: No key found for AutoCopyScriptsKey, writing default of False",
    "set: AutoCopyScriptsKey = False",
    "log: No key found for WarnForSuccessfulExit, writing default of True",
    "set: WarnForSuccessfulExit = True",
    "log: No key found or key is 1 for DefaultGlobbingKey, writing default of 1",
    "set: DefaultGlobbingKey = 1",
    "log: No key found or key is 0 for DefaultPriorityKey, writing default of 0",
    "set: DefaultPriorityKey = 0",
    // The pass of the form's reset
    "synchronize: defaults",
    "log: Improper key found for ShowWelcomeWindow, writing default of True - 3.0  -- Found: "
    "True - 3.0",
    "set: ShowWelcomeWindow = False",
    "log: Found key found for AutoCopyScriptsKey, value of False",
    "log: Found key found for WarnForSuccessfulExit, value of True",
    "log: No key found or key is 1 for DefaultGlobbingKey, writing default of 1",
    "set: DefaultGlobbingKey = 1",
    "log: No key found or key is 0 for DefaultPriorityKey, writing default of 0",
    "set: DefaultPriorityKey = 0",
    "set: ShowWelcomeWindow = True - 3.0",
    "sheet: begin welcomeWindow",
};

/// The lines of one pass over a store that holds every default but the one of the welcome sheet.
Lines pass(const std::string& welcomeLine, bool writesFalse) {
    Lines lines = {"synchronize: defaults", welcomeLine};
    if (writesFalse)
        lines.emplace_back("set: ShowWelcomeWindow = False");
    lines.insert(lines.end(),
                 {"log: Found key found for AutoCopyScriptsKey, value of False",
                  "log: Found key found for WarnForSuccessfulExit, value of True",
                  "log: No key found or key is 1 for DefaultGlobbingKey, writing default of 1",
                  "set: DefaultGlobbingKey = 1",
                  "log: No key found or key is 0 for DefaultPriorityKey, writing default of 0",
                  "set: DefaultPriorityKey = 0"});
    return lines;
}

Lines operator+(Lines left, const Lines& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

const std::string improperWelcome =
    "log: Improper key found for ShowWelcomeWindow, writing default of True - 3.0  -- Found: ";
const std::string suppressedWelcome =
    "log: Found key found for ShowWelcomeWindow, value of False - 3.0";

/// Starts the program once or several times over the same desktop.
class StartUpTest : public testing::Test {
  protected:
    static constexpr const char* agents = "/Users/maya/Library/LaunchAgents";

    AppDelegate& makeDelegate(Services services) {
        running = std::make_unique<AppDelegate>(services);
        platform.journal.clear();
        return *running;
    }

    AppDelegate& start() {
        auto& editor = makeDelegate(platform.services());
        editor.applicationDidFinishLaunching();
        return editor;
    }

    ScriptedPlatform platform;
    Dictionary& stored = platform.defaults.contents;
    std::unique_ptr<AppDelegate> running;
};

TEST_F(StartUpTest, TheFirstStartNormalisesTwiceAndWelcomes) {
    const auto& form = start().form();
    EXPECT_THAT(platform.journal.lines(), ElementsAreArray(firstStart));
    EXPECT_EQ(stored, (Dictionary{{"ShowWelcomeWindow", "True - 3.0"},
                                  {"AutoCopyScriptsKey", "False"},
                                  {"WarnForSuccessfulExit", "True"},
                                  {"DefaultGlobbingKey", "1"},
                                  {"DefaultPriorityKey", "0"}}));
    EXPECT_EQ(form.showWelcomeWindowCheckbox.state, CheckState::On);
    EXPECT_FALSE(platform.isAsking()) << "the grant waits until the sheet is closed";
    EXPECT_EQ(platform.folderAccess.begun, 0);
}

TEST_F(StartUpTest, AWelcomeThatIsKeptIsShownAtEveryLaterStart) {
    start();
    for (int day = 0; day < 4; ++day) {
        start();
        EXPECT_THAT(platform.journal.lines(),
                    ElementsAreArray(
                        pass(improperWelcome + "True - 3.0", true) +
                        pass(improperWelcome + "False", true) +
                        Lines{"set: ShowWelcomeWindow = True - 3.0", "sheet: begin welcomeWindow"}))
            << "day " << day;
        EXPECT_EQ(stored["ShowWelcomeWindow"], Value("True - 3.0"));
    }
}

TEST_F(StartUpTest, ASuppressedWelcomeGoesStraightToTheGrantedFolder) {
    start();
    stored["ShowWelcomeWindow"] = "False - 3.0";
    stored["Bookmark"] = bookmarkOf("/a");
    platform.shownSheets.clear();
    start();
    EXPECT_THAT(platform.journal.lines(),
                ElementsAreArray(pass(suppressedWelcome, false) + pass(suppressedWelcome, false) +
                                 Lines{"begin: /a", "log: Found bookmark: <2f61>"}));
    EXPECT_THAT(platform.shownSheets, IsEmpty());
    EXPECT_EQ(running->form().showWelcomeWindowCheckbox.state, CheckState::Off);
    EXPECT_EQ(platform.folderAccess.begun, 1);
}

TEST_F(StartUpTest, ASuppressedWelcomeWithoutAGrantAsksForTheFolder) {
    stored["ShowWelcomeWindow"] = "False - 3.0";
    start();
    const auto& lines = platform.journal.lines();
    ASSERT_GE(lines.size(), 3U);
    EXPECT_THAT(Lines(lines.end() - 3, lines.end()),
                ElementsAre("log: ERROR WITH ACCESSING BOOKMARK",
                            "log: Path to Library: /Users/maya/Library/",
                            StartsWith("open panel: Frimbolate needs access")));
    platform.choose(agents);
    EXPECT_EQ(stored["Bookmark"], Value(bookmarkOf(agents)));
}

/// Calls a function at each line, so that a test can check the form at that moment.
class WatchingLog : public Log {
  public:
    void line(const std::string&) override {
        if (watch)
            watch();
    }
    std::function<void()> watch;
};

TEST_F(StartUpTest, TheWindowIsReadyBeforeTheFirstPassAndTheFormResetBeforeTheSecond) {
    constexpr Size drawerSize{400, 380};
    WatchingLog log;
    auto given = platform.services();
    auto& editor =
        makeDelegate({given.alerts, given.sheets, given.filePanels, given.files, given.folderAccess,
                      given.defaults, given.pasteboard, given.workspace, given.clock, log,
                      given.application, given.trash});
    auto& form = editor.form();
    form.agentNameTextField.stringValue = "left over";
    int lines = 0;
    log.watch = [&] {
        EXPECT_FALSE(form.mainWindowToolbar.allowsUserCustomization);
        EXPECT_TRUE(form.mainWindow.visible);
        EXPECT_TRUE(form.popoverScriptObject.animates);
        EXPECT_EQ(form.popoverScriptObject.behavior, PopOver::Behavior::Transient);
        EXPECT_EQ(form.advancedDrawer.contentSize, drawerSize);
        EXPECT_EQ(form.advancedDrawer.minContentSize, drawerSize);
        EXPECT_EQ(form.advancedDrawer.maxContentSize, drawerSize);
        EXPECT_EQ(form.agentNameTextField.stringValue, lines < 5 ? "left over" : "");
        EXPECT_THAT(platform.shownSheets, IsEmpty());
        ++lines;
    };
    editor.applicationDidFinishLaunching();
    EXPECT_EQ(lines, 10);
    EXPECT_THAT(platform.shownSheets, ElementsAre(Sheet::welcomeWindow));
}

TEST_F(StartUpTest, TheDrawersOpeningNotifiesTheClosingHandlerWhichLeavesTheToolbarAlone) {
    auto& editor = start();
    editor.form().mainWindowToolbar.sizeMode = 0;
    editor.openAdvancedDrawer();
    EXPECT_TRUE(editor.form().advancedDrawer.open);
    EXPECT_EQ(editor.form().mainWindowToolbar.sizeMode, 0);
    EXPECT_EQ(editor.form().advancedToolbarItem.action, ToolbarItem::Action::closeAdvancedDrawer);
    editor.closeAdvancedDrawer();
    EXPECT_EQ(editor.form().mainWindowToolbar.sizeMode, 0);
}

TEST_F(StartUpTest, TheFormStartsAsANewAgentWithTheStoredDefaults) {
    stored = {{"DefaultGlobbingKey", "0"}, {"DefaultPriorityKey", "1"}};
    const auto& form = start().form();
    EXPECT_EQ(form.enableGlobbingCheckbox.state, CheckState::On);
    EXPECT_EQ(form.priorityLevelButton.selectedItem, PriorityLevel::Low);
    EXPECT_EQ(form.agentActionButton.selectedItem, AgentAction::None);
    EXPECT_EQ(form.agentTargetButton.selectedItem, TargetType::None);
    EXPECT_FALSE(form.advancedDrawer.open);
    EXPECT_EQ(form.advancedToolbarItem.action, ToolbarItem::Action::openAdvancedDrawer);
}

TEST_F(StartUpTest, AfterAResetTheNextStartIsAFirstOne) {
    start().closeWelcomeWindow();
    platform.choose(agents);
    stored["WarnForDelete"] = false;
    running->openPreferencesWindow();
    running->resetPreferences();
    EXPECT_THAT(stored, IsEmpty());

    start();
    EXPECT_THAT(platform.journal.lines(), ElementsAreArray(firstStart));
    platform.journal.clear();
    running->closeWelcomeWindow();
    EXPECT_THAT(platform.journal.texts("log"), IsSupersetOf({"ERROR WITH ACCESSING BOOKMARK"}));
    platform.abandonQuestions();
}

// Showing the welcome sheet

struct WelcomeCase {
    std::string name;
    std::optional<Value> stored;
    bool shows;
};

std::vector<WelcomeCase> welcomeCases() {
    std::vector<WelcomeCase> rows = {
        {"Missing", std::nullopt, true},         {"Shown", "True - 3.0", true},
        {"Suppressed", "False - 3.0", false},    {"LeftByThePass", "False", true},
        {"OtherCase", "false - 3.0", true},      {"Longer", "False - 3.0 ", true},
        {"EarlierVersion", "False - 2.0", true}, {"Empty", "", true},
    };
    for (const auto& other : formsOtherThanText())
        rows.push_back({"Wrong" + other.name, other.value, true});
    return rows;
}

class WelcomeTest : public EditorTest, public testing::WithParamInterface<WelcomeCase> {};

TEST_P(WelcomeTest, IsShownUnlessSuppressedToTheLetter) {
    const auto& row = GetParam();
    platform.defaults.contents = {{"Bookmark", bookmarkOf("/a")}};
    if (row.stored)
        platform.defaults.contents["ShowWelcomeWindow"] = *row.stored;
    editor.showWelcomeWindow();
    if (row.shows)
        EXPECT_THAT(platform.journal.lines(), ElementsAre("set: ShowWelcomeWindow = True - 3.0",
                                                          "sheet: begin welcomeWindow"));
    else
        EXPECT_THAT(platform.journal.lines(),
                    ElementsAre("begin: /a", "log: Found bookmark: <2f61>"));
}

INSTANTIATE_TEST_SUITE_P(StartUp, WelcomeTest, testing::ValuesIn(welcomeCases()),
                         [](const auto& row) { return row.param.name; });

// Closing the welcome sheet

struct CloseCase {
    const char* name;
    int state;
    Lines effects; ///< before the sheet ends
};

const std::vector<CloseCase>& closeCases() {
    static const std::vector<CloseCase> rows = {
        {"Off",
         0,
         {"log: User does not want to show welcome window, writing value of false",
          "set: ShowWelcomeWindow = False - 3.0"}},
        {"On", 1, {"log: User really likes the welcome window and it will continue to be shown"}},
        {"Mixed",
         -1,
         {"log: User really likes the welcome window and it will continue to be shown"}},
    };
    return rows;
}

class WelcomeCloseTest : public EditorTest, public testing::WithParamInterface<CloseCase> {};

TEST_P(WelcomeCloseTest, StoresTheBoxEndsTheSheetAndOpensTheFolder) {
    const auto& row = GetParam();
    platform.defaults.contents = {{"Bookmark", bookmarkOf("/a")},
                                  {"ShowWelcomeWindow", "True - 3.0"}};
    // The box of the preferences sheet holds the opposite state and must not count.
    form.showWelcomeWindowCheckbox.state = row.state == 0 ? 1 : 0;
    form.showWelcomeCheckbox.state = row.state;
    editor.closeWelcomeWindow();
    EXPECT_THAT(platform.journal.lines(),
                ElementsAreArray(row.effects + Lines{"sheet: end welcomeWindow", "begin: /a",
                                                     "log: Found bookmark: <2f61>"}));
    EXPECT_EQ(platform.defaults.contents["ShowWelcomeWindow"],
              Value(row.state == 0 ? "False - 3.0" : "True - 3.0"));
    EXPECT_EQ(form.showWelcomeWindowCheckbox.state, row.state == 0 ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(StartUp, WelcomeCloseTest, testing::ValuesIn(closeCases()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(StartUpTest, AFolderChosenAfterTheProgramIsGoneIsNotStored) {
    start().closeWelcomeWindow();
    running.reset();
    platform.journal.clear();
    platform.choose(agents);
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
}

// Reopening and termination

TEST_F(StartUpTest, ReopeningBringsTheWindowBack) {
    auto& editor = start();
    platform.journal.clear();
    for (const bool visible : {false, true}) {
        editor.form().mainWindow.visible = visible;
        EXPECT_TRUE(editor.applicationShouldHandleReopen());
        EXPECT_TRUE(editor.form().mainWindow.visible);
    }
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
}

TEST_F(StartUpTest, TerminationHasNoCleanUpOfItsOwn) {
    auto& editor = start();
    platform.journal.clear();
    const auto before = stored;
    editor.alertDidEnd();
    editor.applicationWillTerminate();
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
    EXPECT_EQ(stored, before);
}

} // namespace

} // namespace frimbolate::test
