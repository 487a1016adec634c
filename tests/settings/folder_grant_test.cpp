#include "settings/bookmark.h"

#include "tests/support/scripted_platform.h"
#include "tests/support/stored_forms.h"

#include <gmock/gmock.h>

namespace frimbolate::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* agents = "/Users/maya/Library/LaunchAgents";

class FolderGrantTest : public testing::Test {
  protected:
    ScriptedPlatform platform;
    Services services = platform.services();
    FolderGrant grant{services};
    BookmarkClass bookmark{services};
    Dictionary& stored = platform.defaults.contents;
};

// Opening and closing the granted folder

TEST_F(FolderGrantTest, OpensAndClosesTheGrantedFolder) {
    stored["Bookmark"] = bookmarkOf(agents);
    const auto folder = grant.open();
    EXPECT_EQ(folder, agents);
    EXPECT_EQ(platform.folderAccess.begun, 1);
    grant.close(folder);
    EXPECT_THAT(platform.journal.lines(), ElementsAre("begin: /Users/maya/Library/LaunchAgents",
                                                      "end: /Users/maya/Library/LaunchAgents"));
    EXPECT_EQ(platform.folderAccess.begun, 0);
}

TEST_F(FolderGrantTest, ClosesTheFolderItOpenedEvenWhenAnotherWasGrantedMeanwhile) {
    stored["Bookmark"] = bookmarkOf("/a");
    const auto folder = grant.open();
    stored["Bookmark"] = bookmarkOf("/b");
    grant.close(folder);
    EXPECT_THAT(platform.journal.lines(), ElementsAre("begin: /a", "end: /a"));
}

TEST_F(FolderGrantTest, StopAccessingEndsWhatTheBookmarkLeadsTo) {
    stored["Bookmark"] = bookmarkOf("/a");
    bookmark.startAccessingBookmark();
    bookmark.stopAccessingBookmark();
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("begin: /a", "log: Found bookmark: <2f61>", "end: /a"));
    EXPECT_EQ(platform.folderAccess.begun, 0);
}

TEST_F(FolderGrantTest, StopAccessingWithoutABookmarkRaisesNothing) {
    EXPECT_NO_THROW(bookmark.stopAccessingBookmark());
    EXPECT_THAT(platform.journal.lines(), ElementsAre("end: (nothing)"));
}

TEST_F(FolderGrantTest, ABookmarkThatLeadsNowhereIsNotDetected) {
    stored["Bookmark"] = bookmarkOf("/a");
    platform.folderAccess.resolutionFails = true;
    bookmark.startAccessingBookmark();
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("begin: (nothing)", "log: Found bookmark: <2f61>"));
    platform.journal.clear();

    const auto folder = grant.open();
    EXPECT_EQ(folder, std::nullopt);
    grant.close(folder);
    bookmark.stopAccessingBookmark();
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("begin: (nothing)", "end: (nothing)", "end: (nothing)"));
}

// A stale bookmark

TEST_F(FolderGrantTest, OpeningReplacesAStaleBookmark) {
    stored["Bookmark"] = bookmarkOf("/a");
    platform.folderAccess.renewed = Data{{1, 2}};
    EXPECT_EQ(grant.open(), "/a");
    EXPECT_EQ(stored["Bookmark"], Value(Data{{1, 2}}));
}

TEST_F(FolderGrantTest, TheStartReplacesAStaleBookmark) {
    stored["Bookmark"] = bookmarkOf("/a");
    platform.folderAccess.renewed = Data{{1, 2}};
    bookmark.startAccessingBookmark();
    EXPECT_EQ(stored["Bookmark"], Value(Data{{1, 2}}));
}

TEST_F(FolderGrantTest, ABookmarkThatLeadsNowhereIsNotReplaced) {
    stored["Bookmark"] = bookmarkOf("/a");
    platform.folderAccess.resolutionFails = true;
    platform.folderAccess.renewed = Data{{1, 2}};
    grant.open();
    bookmark.startAccessingBookmark();
    EXPECT_EQ(stored["Bookmark"], Value(bookmarkOf("/a")));
}

// The stored bookmark

struct NoBookmark {
    std::string name;
    std::optional<Value> stored;
};

std::vector<NoBookmark> noBookmarks() {
    std::vector<NoBookmark> rows = {{"Missing", std::nullopt}, {"Text", agents}};
    for (const auto& other : formsOtherThanText())
        if (!other.value.data())
            rows.push_back({other.name, other.value});
    return rows;
}

class NoBookmarkTest : public FolderGrantTest, public testing::WithParamInterface<NoBookmark> {
  protected:
    NoBookmarkTest() {
        if (GetParam().stored)
            stored["Bookmark"] = *GetParam().stored;
    }
};

TEST_P(NoBookmarkTest, LeadsIntoTheRequestAtStart) {
    const auto before = stored;
    bookmark.startAccessingBookmark();
    EXPECT_THAT(platform.journal.lines(),
                ElementsAre("log: ERROR WITH ACCESSING BOOKMARK",
                            "log: Path to Library: /Users/maya/Library/",
                            testing::StartsWith("open panel: Frimbolate needs access")));
    EXPECT_EQ(platform.folderAccess.begun, 0);
    EXPECT_EQ(stored, before);
    platform.abandonQuestions();
}

TEST_P(NoBookmarkTest, OpensNothingForAnOperation) {
    EXPECT_EQ(grant.open(), std::nullopt);
    EXPECT_THAT(platform.journal.lines(), ElementsAre("begin: (nothing)"));
}

INSTANTIATE_TEST_SUITE_P(FolderGrant, NoBookmarkTest, testing::ValuesIn(noBookmarks()),
                         [](const auto& row) { return row.param.name; });

// An answer that comes too late

TEST(FolderGrantLifetimeTest, AnswersAfterTheEndDoNothing) {
    ScriptedPlatform platform;
    Services services = platform.services();
    const auto asked = [&](const auto& ask) {
        BookmarkClass bookmark(services);
        ask(bookmark);
        platform.journal.clear();
    };
    asked([&](BookmarkClass& bookmark) { bookmark.scopeABookmarkWithWindow(); });
    platform.choose(agents);
    EXPECT_THAT(platform.journal.lines(), IsEmpty());

    asked([&](BookmarkClass& bookmark) {
        bookmark.scopeABookmarkWithWindow();
        platform.cancelPanel();
    });
    platform.press("Quit");
    EXPECT_THAT(platform.journal.lines(), IsEmpty());

    asked([&](BookmarkClass& bookmark) {
        bookmark.scopeABookmarkWithWindow();
        platform.choose("/elsewhere");
    });
    platform.press("Continue Anyways");
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
    EXPECT_THAT(platform.defaults.contents, IsEmpty());
}

} // namespace

} // namespace frimbolate::test
