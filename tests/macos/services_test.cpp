// The services that call CoreFoundation, on a CoreFoundation in memory.
#include "core/named_error.h"
#include "macos/mac_workspace.h"
#include "macos/scoped_folder_access.h"
#include "macos/unified_log.h"
#include "macos/user_defaults.h"
#include "macos/values.h"
#include "tests/macos/fake_core_foundation.h"
#include "tests/support/failures.h"
#include "tests/support/recording_log.h"
#include "tests/support/rows.h"

#include <CoreServices/CoreServices.h>
#include <gmock/gmock.h>

#include <limits>

namespace frimbolate::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

// Values

struct ValueRow {
    std::string name;
    Value value;
};

class MacValues : public testing::TestWithParam<ValueRow> {
  protected:
    FakeCoreFoundation system;
};

TEST_P(MacValues, ComesBackAsItWas) {
    EXPECT_EQ(valueOf(objectOf(GetParam().value).get()), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Of, MacValues,
    testing::ValuesIn(std::vector<ValueRow>{
        {"NoText", ""},
        {"Text", "é😀\n\r\t"},
        {"True", true},
        {"False", false},
        {"Zero", 0},
        {"MinusOne", -1},
        {"LowestNumber", std::numeric_limits<std::int64_t>::min()},
        {"HighestSignedNumber", std::numeric_limits<std::int64_t>::max()},
        {"LowestUnsignedNumber", std::uint64_t{1} << 63},
        {"HighestNumber", std::numeric_limits<std::uint64_t>::max()},
        {"Real", -1.5},
        {"NoData", Data{}},
        {"Data", Data{{0, 255}}},
        {"Date", Date{981173106}},
        {"List", Value(Array{"a", Value(Array{}), std::numeric_limits<std::uint64_t>::max()})},
        {"Dictionary", Dictionary{{"k", Dictionary{{"value", 1}}}}},
    }),
    NamedAfterRow());

TEST(MacValueConversion, NothingHasNoValue) {
    const FakeCoreFoundation system;
    EXPECT_EQ(valueOf(nullptr), std::nullopt);
}

TEST(MacValueConversion, AnObjectOfNoPropertyListHasNoValue) {
    const FakeCoreFoundation system;
    const Owned<CFTypeRef> url(makeUrlObject("/a"));
    EXPECT_EQ(valueOf(url.get()), std::nullopt);
}

TEST(MacValueConversion, RefusesWhatCannotBeWritten) {
    const FakeCoreFoundation system;
    EXPECT_THAT(reasonOf("Unwritable content", [] { objectOf("\x01"); }),
                testing::HasSubstr("character"));
}

// Preferences

class MacDefaults : public testing::Test {
  protected:
    FakeCoreFoundation system;
    RecordingLog log;
    UserDefaults defaults{log};
};

TEST_F(MacDefaults, SetsAndRemoves) {
    defaults.set("b", "2");
    defaults.set("a", true);
    defaults.set("c", std::numeric_limits<std::uint64_t>::max());
    EXPECT_EQ(defaults.object("a"), Value(true));
    EXPECT_EQ(defaults.object("c"), Value(std::numeric_limits<std::uint64_t>::max()));
    EXPECT_THAT(defaults.keys(), ElementsAre("a", "b", "c"));
    defaults.remove("b");
    EXPECT_EQ(defaults.object("b"), std::nullopt);
    EXPECT_THAT(defaults.keys(), ElementsAre("a", "c"));
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(MacDefaults, HasNoKeysAtFirst) { EXPECT_THAT(defaults.keys(), IsEmpty()); }

TEST_F(MacDefaults, KeepsToItsDomain) {
    UserDefaults other(log, "com.example.Other");
    other.set("key", "theirs");
    EXPECT_EQ(defaults.object("key"), std::nullopt);
    EXPECT_EQ(other.object("key"), Value("theirs"));
    EXPECT_THAT(system.preferences, ElementsAre(Pair("(current)", IsEmpty()),
                                                Pair("com.example.Other", testing::SizeIs(1))));
}

TEST_F(MacDefaults, AValueThatCannotBeKeptIsLogged) {
    defaults.set("key", "old");
    defaults.set("key", "\x01");
    EXPECT_EQ(defaults.object("key"), Value("old"));
    ASSERT_EQ(log.lines.size(), 1U);
    EXPECT_THAT(log.lines[0], testing::StartsWith("Could not keep preference key: "));
}

TEST_F(MacDefaults, AFailedWriteIsLogged) {
    defaults.synchronize();
    EXPECT_THAT(log.lines, IsEmpty());
    system.synchronizeFails = true;
    defaults.synchronize();
    EXPECT_THAT(log.lines, ElementsAre("Could not write the preferences"));
}

// Folder access

class MacFolderAccess : public testing::Test {
  protected:
    MacFolderAccess() { system.folders = {folder}; }

    static constexpr const char* folder = "/Users/maya/Library/LaunchAgents";
    FakeCoreFoundation system;
    ScopedFolderAccess access;
};

TEST_F(MacFolderAccess, BeginsAndEndsOnTheUrlOfTheBookmark) {
    const Data bookmark = access.createBookmark(folder);
    EXPECT_EQ(access.resolve(bookmark), folder);
    access.begin(folder);
    EXPECT_EQ(access.resolve(bookmark), folder);
    access.begin(folder);
    EXPECT_EQ(system.begun[folder], 2);
    access.end(folder);
    access.end(folder);
    EXPECT_EQ(system.begun[folder], 0);
}

TEST_F(MacFolderAccess, DoesNothingForAFolderThatNoBookmarkLedTo) {
    access.begin(std::nullopt);
    access.begin(folder);
    access.end(folder);
    access.end(std::nullopt);
    EXPECT_THAT(system.accesses, IsEmpty());
}

TEST_F(MacFolderAccess, SaysWhyThereIsNoBookmark) {
    const auto reason = [this](const std::string& path) {
        return reasonOf("Bookmark not created", [&] { access.createBookmark(path); });
    };
    EXPECT_EQ(reason("/gone"), "The folder does not exist.");
    EXPECT_EQ(reason(""), "There is no folder ");
    EXPECT_EQ(reason(std::string("/a\0b", 4)), "There is no folder " + std::string("/a\0b", 4));
}

TEST_F(MacFolderAccess, ABookmarkOfAFolderThatIsGoneLeadsNowhere) {
    const Data bookmark = access.createBookmark(folder);
    system.folders.clear();
    EXPECT_EQ(access.resolve(bookmark), std::nullopt);
    EXPECT_EQ(access.resolve(Data{{1, 2, 3}}), std::nullopt);
}

TEST_F(MacFolderAccess, RenewsAStaleBookmarkOnce) {
    const Data old = access.createBookmark(folder);
    EXPECT_EQ(access.resolve(old), folder);
    EXPECT_EQ(access.renewedBookmark(folder), std::nullopt);

    system.stale = {folder};
    EXPECT_EQ(access.resolve(old), folder);
    const auto renewed = access.renewedBookmark(folder);
    ASSERT_NE(renewed, std::nullopt);
    EXPECT_NE(*renewed, old);
    EXPECT_EQ(access.renewedBookmark(folder), std::nullopt);
    EXPECT_EQ(access.resolve(*renewed), folder);
    EXPECT_EQ(access.renewedBookmark(folder), std::nullopt);
}

TEST_F(MacFolderAccess, TriesAgainWhereABookmarkCannotBeRenewed) {
    const Data old = access.createBookmark(folder);
    system.stale = {folder};
    EXPECT_EQ(access.resolve(old), folder);
    system.folders.clear();
    EXPECT_EQ(access.renewedBookmark(folder), std::nullopt);
    system.folders = {folder};
    EXPECT_NE(access.renewedBookmark(folder), std::nullopt);
}

// Workspace and log

TEST(MacWorkspaceTest, OpensByIdentifier) {
    FakeCoreFoundation system;
    system.applications = {{"com.apple.Terminal", "/T.app"}, {"com.qz.Frimbolate", "/F.app"}};
    MacWorkspace workspace;
    workspace.openTerminal();
    workspace.launchNewInstance();
    EXPECT_THAT(system.launched,
                ElementsAre(Pair("/T.app", kLSLaunchDefaults),
                            Pair("/F.app", kLSLaunchDefaults | kLSLaunchNewInstance)));
}

TEST(MacWorkspaceTest, ShowsAFileInTheFinder) {
    FakeCoreFoundation system;
    MacWorkspace().showFile("/Users/maya/Library/LaunchAgents/a.plist");
    EXPECT_THAT(system.shownInFinder, ElementsAre("/Users/maya/Library/LaunchAgents/a.plist"));
}

TEST(MacWorkspaceTest, OpensNothingWhereTheSystemKnowsNoSuchApplication) {
    FakeCoreFoundation system;
    MacWorkspace().openTerminal();
    EXPECT_THAT(system.launched, IsEmpty());
}

TEST(UnifiedLogTest, LogsALineAsItIs) {
    FakeCoreFoundation system;
    UnifiedLog(-1).line("100 %s {public}");
    EXPECT_THAT(system.logged, ElementsAre("100 %s {public}"));
}

} // namespace

} // namespace frimbolate::test
