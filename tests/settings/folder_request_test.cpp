#include "settings/bookmark.h"

#include "tests/support/expected_panels.h"
#include "tests/support/scripted_platform.h"

#include <gmock/gmock.h>

namespace frimbolate::test {

namespace {

using testing::ElementsAre;
using testing::StartsWith;

constexpr const char* requestedFolder = "/Users/maya/Library/LaunchAgents";
constexpr const char* libraryLine = "log: Path to Library: /Users/maya/Library/";
constexpr const char* panelStarts = "open panel: Frimbolate needs access";
constexpr const char* mustSelect =
    "alert: You must select your user LaunchAgents folder (~/Library/LaunchAgents).";
constexpr const char* notValidated = "alert: Frimbolate could not validate if you chose your user "
                                     "LaunchAgents folder (~/Library/LaunchAgents).";

class FolderRequestTest : public testing::Test {
  protected:
    /// Shows the panel and clears the journal.
    void ask() {
        bookmark.scopeABookmarkWithWindow();
        platform.journal.clear();
    }

    const Value* storedBookmark() { return find(platform.defaults.contents, "Bookmark"); }

    ScriptedPlatform platform;
    Services services = platform.services();
    BookmarkClass bookmark{services};
};

TEST_F(FolderRequestTest, AsksForAFolder) {
    bookmark.scopeABookmarkWithWindow();
    EXPECT_THAT(platform.journal.lines(), ElementsAre(libraryLine, StartsWith(panelStarts)));

    OpenPanel expected;
    expected.canChooseFiles = false;
    expected.canChooseDirectories = true;
    expected.canCreateDirectories = true;
    expected.prompt = "Choose";
    expected.directory = "/Users/maya/Library/";
    expected.suggestedName = "LaunchAgents";
    expected.message =
        "Frimbolate needs access to your LaunchAgents folder. Please select it and click "
        "\"Choose.\" \n"
        "\n"
        "Selecting a folder other than your LaunchAgents folder (~/Library/LaunchAgents)\n"
        " will prevent your launch agents from running as expected.\n"
        "\n"
        " If a LaunchAgents folder does not exist, you must create one with the exact name "
        "LaunchAgents (no space).";
    expectPanel(platform.shownOpenPanel(), expected);
    platform.abandonQuestions();
}

TEST_F(FolderRequestTest, CancellingShowsThatItIsRequired) {
    ask();
    platform.cancelPanel();
    EXPECT_THAT(platform.journal.lines(), ElementsAre(mustSelect));
    const auto alert = platform.shownAlert();
    EXPECT_EQ(alert.informativeText, "This is not optional and is a required step for Frimbolate "
                                     "to function. Please try again.");
    EXPECT_THAT(alert.buttons, ElementsAre("Try Again", "Quit"));
    EXPECT_FALSE(alert.showsSuppressionButton);
    platform.abandonQuestions();
}

TEST_F(FolderRequestTest, TryingAgainAfterCancellingAsksAgainEachTime) {
    ask();
    for (int round = 0; round < 3; ++round) {
        platform.journal.clear();
        platform.cancelPanel();
        platform.press("Try Again");
        EXPECT_THAT(platform.journal.lines(),
                    ElementsAre(mustSelect, "log: Must choose LaunchAgents folder response: 1000",
                                libraryLine, StartsWith(panelStarts)));
    }
    platform.choose(requestedFolder);
    ASSERT_NE(storedBookmark(), nullptr);
    EXPECT_EQ(*storedBookmark(), Value(bookmarkOf(requestedFolder)));
}

TEST_F(FolderRequestTest, CancellingAndQuittingEndsTheProgram) {
    ask();
    platform.cancelPanel();
    platform.journal.clear();
    platform.press("Quit");
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("log: Must choose LaunchAgents folder response: 1001",
                            "log: User wants to quit, QUITTING.", "application: terminate"));
    EXPECT_FALSE(platform.isAsking());
    EXPECT_EQ(storedBookmark(), nullptr);
}

TEST_F(FolderRequestTest, AMatchingFolderIsStoredWithoutAnAlert) {
    platform.user = "u";
    ask();
    platform.choose("/Users/u/Library/LaunchAgents");
    EXPECT_THAT(
        platform.journal.lines(),
        ElementsAre("log: Chosen LaunchAgents path matches expected path. Creating bookmark",
                    "log: Created bookmark: "
                    "<2f55736572732f752f4c6962726172792f4c61756e63684167656e7473>",
                    "synchronize: defaults",
                    "set: Bookmark = "
                    "<2f55736572732f752f4c6962726172792f4c61756e63684167656e7473>"));
    ASSERT_NE(storedBookmark(), nullptr);
    EXPECT_EQ(*storedBookmark(), Value(bookmarkOf("/Users/u/Library/LaunchAgents")));
    EXPECT_EQ(platform.folderAccess.begun, 0) << "storing a bookmark begins no access";
}

struct FolderCase {
    const char* name;
    const char* user;
    const char* chosen;
    bool matches;
    const char* url = ""; ///< in the log where it does not match
};

constexpr FolderCase folderCases[] = {
    {"OwnFolder", "maya", "/Users/maya/Library/LaunchAgents", true},
    {"Subfolder", "maya", "/Users/maya/Library/LaunchAgents/work", true},
    {"SubfolderWithABlank", "maya", "/Users/maya/Library/LaunchAgents/my agents", true},
    {"LongerName", "maya", "/Users/maya/Library/LaunchAgentsOld", true},
    {"InsideAnotherVolume", "maya", "/Volumes/Old disk/Users/maya/Library/LaunchAgents", true},
    {"ShortNameWithMarks", "m.o'neil-2_x", "/Users/m.o'neil-2_x/Library/LaunchAgents", true},
    {"Library", "maya", "/Users/maya/Library", false, "file:///Users/maya/Library"},
    {"SystemFolder", "maya", "/Library/LaunchAgents", false, "file:///Library/LaunchAgents"},
    {"AnotherUser", "maya", "/Users/ada/Library/LaunchAgents", false,
     "file:///Users/ada/Library/LaunchAgents"},
    {"LongerShortName", "maya", "/Users/maya2/Library/LaunchAgents", false,
     "file:///Users/maya2/Library/LaunchAgents"},
    {"OtherCase", "maya", "/Users/maya/Library/launchagents", false,
     "file:///Users/maya/Library/launchagents"},
    {"ABlankInTheName", "maya", "/Users/maya/Library/Launch Agents", false,
     "file:///Users/maya/Library/Launch%20Agents"},
    {"LinuxHome", "maya", "/home/maya/Library/LaunchAgents", false,
     "file:///home/maya/Library/LaunchAgents"},
    {"Root", "maya", "/", false, "file:///"},
    // The text of the URL is compared while percent-encoded, so these match no folder, not even
    // their own.
    {"ShortNameWithABlank", "maya b", "/Users/maya b/Library/LaunchAgents", false,
     "file:///Users/maya%20b/Library/LaunchAgents"},
    {"ShortNameWithAnUmlaut", "jürgen", "/Users/jürgen/Library/LaunchAgents", false,
     "file:///Users/j%C3%BCrgen/Library/LaunchAgents"},
    {"ShortNameWithAPercentSign", "m%41", "/Users/m%41/Library/LaunchAgents", false,
     "file:///Users/m%2541/Library/LaunchAgents"},
};

class ChosenFolderTest : public FolderRequestTest,
                         public testing::WithParamInterface<FolderCase> {};

TEST_P(ChosenFolderTest, IsComparedWithTheExpectedOne) {
    const auto& row = GetParam();
    platform.user = row.user;
    ask();
    platform.choose(row.chosen);
    if (row.matches) {
        EXPECT_THAT(platform.journal.lines(),
                    testing::Contains("log: Chosen LaunchAgents path matches expected path. "
                                      "Creating bookmark"));
        ASSERT_NE(storedBookmark(), nullptr);
        EXPECT_EQ(*storedBookmark(), Value(bookmarkOf(row.chosen)));
        EXPECT_FALSE(platform.isAsking());
        return;
    }
    const std::string expected = std::string("/Users/") + row.user + "/Library/LaunchAgents";
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre(std::string("log: Chosen LaunchAgents path does not match expected "
                                        "path:\n") +
                                row.url + "\n" + expected,
                            notValidated));
    EXPECT_EQ(storedBookmark(), nullptr);
    platform.press("Continue Anyways");
    ASSERT_NE(storedBookmark(), nullptr);
    EXPECT_EQ(*storedBookmark(), Value(bookmarkOf(row.chosen)));
}

INSTANTIATE_TEST_SUITE_P(FolderGrant, ChosenFolderTest, testing::ValuesIn(folderCases),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(FolderRequestTest, AMismatchCanBeChosenAnewOrKept) {
    ask();
    platform.choose("/Users/maya/Library");
    const auto alert = platform.shownAlert();
    EXPECT_EQ(alert.informativeText,
              "Choosing this folder is a required step for Frimbolate to function. If you choose "
              "a different folder, your LaunchAgents may not run as expected.");
    EXPECT_THAT(alert.buttons, ElementsAre("Choose Again", "Continue Anyways"));
    EXPECT_FALSE(alert.showsSuppressionButton);
    platform.journal.clear();

    platform.press("Choose Again");
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("log: Must choose LaunchAgents folder response: 1000", libraryLine,
                            StartsWith(panelStarts)));
    platform.choose("/a");
    platform.journal.clear();
    platform.press("Continue Anyways");
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("log: Must choose LaunchAgents folder response: 1001",
                            "log: Created bookmark: <2f61>", "synchronize: defaults",
                            "set: Bookmark = <2f61>"));
    EXPECT_EQ(*storedBookmark(), Value(bookmarkOf("/a")));
    EXPECT_EQ(platform.folderAccess.begun, 0);
}

TEST_F(FolderRequestTest, BothLoopsCanFollowEachOther) {
    ask();
    platform.choose("/elsewhere");
    platform.press("Choose Again");
    platform.cancelPanel();
    platform.press("Try Again");
    platform.choose("/elsewhere");
    platform.press("Choose Again");
    EXPECT_EQ(storedBookmark(), nullptr);
    platform.choose(requestedFolder);
    EXPECT_EQ(*storedBookmark(), Value(bookmarkOf(requestedFolder)));
    EXPECT_EQ(platform.journal.count("open panel"), 3U);
    EXPECT_EQ(platform.journal.count("alert"), 3U);
    EXPECT_EQ(platform.journal.count("set"), 1U);
}

TEST_F(FolderRequestTest, AFolderOfWhichNoBookmarkCanBeMadeIsReportedAndNotStored) {
    platform.folderAccess.creationFails = true;
    ask();
    platform.choose("/Users/maya/Library/LaunchAgents/my agents");
    EXPECT_THAT(
        platform.journal.lines(),
        ElementsAre("log: Chosen LaunchAgents path matches expected path. Creating bookmark",
                    "log: Error creating bookmark for URL "
                    "(file:///Users/maya/Library/LaunchAgents/my%20agents): No bookmark "
                    "can be made of this folder",
                    "error: No bookmark can be made of this folder"));
    EXPECT_EQ(storedBookmark(), nullptr);
    EXPECT_FALSE(platform.isAsking()) << "there is no second try";
}

TEST_F(FolderRequestTest, AFailureKeepsWhatWasStoredBefore) {
    platform.defaults.contents["Bookmark"] = bookmarkOf("/a");
    platform.folderAccess.creationFails = true;
    bookmark.createBookmark("/b");
    EXPECT_EQ(*storedBookmark(), Value(bookmarkOf("/a")));
    EXPECT_EQ(platform.journal.count("error"), 1U);
    EXPECT_EQ(platform.journal.count("synchronize"), 0U);
}

} // namespace

} // namespace frimbolate::test
