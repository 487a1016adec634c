// The reading of the folder: off the window's thread, balanced, stopped, and repeated on a change.
#include "tests/widgets/agents_fixture.h"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace frimbolate::test {
namespace {

using testing::ElementsAre;

class AgentListReaderTest : public AgentsPageTest {
  protected:
    /// The readings begun and ended so far.
    std::pair<std::size_t, std::size_t> accesses() {
        return {platform.journal.count("begin"), platform.journal.count("end")};
    }
};

TEST_F(AgentListReaderTest, OpensTheFolderForEachReadingAndClosesIt) {
    showAgents();
    EXPECT_EQ(accesses(), std::pair(std::size_t{1}, std::size_t{1}));
    readAgain();
    EXPECT_EQ(accesses(), std::pair(std::size_t{2}, std::size_t{2}));
    EXPECT_EQ(platform.folderAccess.begun, 0);
}

TEST_F(AgentListReaderTest, AnotherPageStopsTheReadingAndClosesTheFolder) {
    folder.hold();
    find<QAction>("showAgents")->trigger();
    ASSERT_TRUE(QTest::qWaitFor([this] { return folder.reads() == 1; }));
    EXPECT_EQ(platform.folderAccess.begun, 1);
    find<QAction>("showForm")->trigger();
    folder.release();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !reader.isReading(); }));
    EXPECT_EQ(folder.reads(), 1) << "the rest is not read";
    EXPECT_EQ(platform.folderAccess.begun, 0);
    EXPECT_THAT(names(), testing::IsEmpty());
    showAgents();
    EXPECT_EQ(names().size(), 4u);
}

TEST_F(AgentListReaderTest, APageShownAgainDuringAReadingReadsAgain) {
    folder.hold();
    find<QAction>("showAgents")->trigger();
    ASSERT_TRUE(QTest::qWaitFor([this] { return folder.reads() == 1; }));
    find<QAction>("showForm")->trigger();
    find<QAction>("showAgents")->trigger();
    folder.release();
    ASSERT_TRUE(QTest::qWaitFor([this] { return names().size() == 4; }));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !reader.isReading(); }));
    EXPECT_EQ(platform.folderAccess.begun, 0);
}

TEST_F(AgentListReaderTest, TheEndOfTheReaderWaitsForTheReadingAndClosesTheFolder) {
    folder.hold();
    auto ended =
        std::make_unique<AgentListReader>(folder, delegate, [this] { return WallClock(now); });
    ended->start();
    ASSERT_TRUE(QTest::qWaitFor([this] { return folder.reads() == 1; }));
    EXPECT_EQ(platform.folderAccess.begun, 1);
    folder.release();
    ended.reset();
    EXPECT_EQ(platform.folderAccess.begun, 0);
    QCoreApplication::processEvents();
}

TEST_F(AgentListReaderTest, ShowsManyAgentsInTheOrderOfTheirNames) {
    for (int i = 0; i < 700; ++i) {
        const std::string name = "n" + std::to_string(1000 + i);
        folder.put(own(name), listed(name, "Runs " + name + "."));
    }
    showAgents();
    const auto all = names();
    EXPECT_EQ(all.size(), 704u);
    EXPECT_TRUE(std::ranges::is_sorted(all));
}

TEST_F(AgentListReaderTest, AChangeKeepsTheSelectionByPath) {
    showAgents();
    select(3);
    folder.put(own("aaa"), listed("aaa", "Runs aaa."));
    folder.remove(own("backup"));
    folder.put(own("sync"), listed("sync", "Runs Notes never.", AgentKind::Own, false));
    readAgain();
    EXPECT_THAT(names(), ElementsAre("aaa", "broken.plist", "org.example.tool", "sync"));
    EXPECT_EQ(selected(), "sync");
    folder.remove(own("sync"));
    readAgain();
    EXPECT_EQ(selected(), "org.example.tool") << "the neighbour of a row that is gone";
}

TEST_F(AgentListReaderTest, ManyChangesKeepTheSelectionToo) {
    showAgents();
    select(3);
    for (int i = 0; i < 200; ++i)
        folder.put(own("a" + std::to_string(i)), listed("a" + std::to_string(i), "Runs."));
    readAgain();
    EXPECT_EQ(names().size(), 204u);
    EXPECT_EQ(selected(), "sync");
}

TEST_F(AgentListReaderTest, ReadsAgainWhenANextRunHasPassed) {
    showAgents();
    auto* minute = reader.findChild<QTimer*>("agentListMinute");
    EXPECT_TRUE(minute->isActive());
    const int lists = folder.lists();
    now = time(21, 18);
    ASSERT_TRUE(QMetaObject::invokeMethod(minute, "timeout"));
    EXPECT_FALSE(reader.isReading()) << "none has passed";
    now = time(21, 19);
    ASSERT_TRUE(QMetaObject::invokeMethod(minute, "timeout"));
    EXPECT_TRUE(reader.isReading());
    ASSERT_TRUE(QTest::qWaitFor([this] { return !reader.isReading(); }));
    EXPECT_GT(folder.lists(), lists);
    find<QAction>("showForm")->trigger();
    EXPECT_FALSE(minute->isActive());
}

TEST_F(AgentListReaderTest, FollowsTheFolderOnTheDiskWhileThePageIsShown) {
    const QTemporaryDir disk;
    const QString file = disk.filePath("a.plist");
    platform.defaults.contents["Bookmark"] = bookmarkOf(disk.path().toStdString());
    folder.put(file.toStdString(), listed("a", "Runs a."));
    showAgents();
    const auto becomes = [this](std::size_t count) {
        return QTest::qWaitFor([&] { return names().size() == count; });
    };
    folder.put(own("new"), listed("new", "Runs new."));
    QFile made(file);
    ASSERT_TRUE(made.open(QIODevice::WriteOnly));
    made.close();
    EXPECT_TRUE(becomes(6)) << "a new file";
    ASSERT_TRUE(QTest::qWaitFor([this] { return !reader.isReading(); }));

    find<QAction>("showForm")->trigger();
    const int lists = folder.lists();
    ASSERT_TRUE(made.remove());
    QCoreApplication::processEvents();
    EXPECT_EQ(folder.lists(), lists) << "a hidden page follows nothing";
}

TEST_F(AgentListReaderTest, FollowsAFileThatIsChangedInPlace) {
    const QTemporaryDir disk;
    const QString file = disk.filePath("a.plist");
    QFile made(file);
    ASSERT_TRUE(made.open(QIODevice::WriteOnly));
    platform.defaults.contents["Bookmark"] = bookmarkOf(disk.path().toStdString());
    folder.put(file.toStdString(), listed("a", "Runs a."));
    showAgents();
    QCoreApplication::processEvents(); // the watches are added behind the reading
    folder.put(file.toStdString(), listed("b", "Runs b."));
    ASSERT_TRUE(QTest::qWaitFor([&] {
        made.write("x");
        made.flush();
        return names().front() == "b";
    }));
}

TEST_F(AgentListReaderTest, FollowsAFileThatIsChangedBetweenItsReadingAndItsWatch) {
    const QTemporaryDir disk;
    const QString file = disk.filePath("a.plist");
    QFile made(file);
    ASSERT_TRUE(made.open(QIODevice::WriteOnly));
    platform.defaults.contents["Bookmark"] = bookmarkOf(disk.path().toStdString());
    folder.put(file.toStdString(), listed("a", "Runs a."));
    int readings = 0;
    // The watches are added behind this signal.
    QObject::connect(&reader, &AgentListReader::finished, &reader, [&] {
        if (++readings > 1)
            return;
        folder.put(file.toStdString(), listed("b", "Runs b."));
        made.write("x");
        made.flush();
    });
    showAgents();
    EXPECT_TRUE(QTest::qWaitFor([&] { return names().front() == "b"; }));
    EXPECT_EQ(readings, 2);
}

} // namespace
} // namespace frimbolate::test
