#include "widgets/panels/queued_file_panels.h"

#include "tests/widgets/sheet_fixture.h"
#include "widgets/sheets/qt_alerts.h"

#include <QPointer>

namespace frimbolate {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Shows panels at once, like a platform, and answers when the test says so.
class PlatformPanels : public FilePanels {
  public:
    explicit PlatformPanels(std::vector<std::string>& journal) : journal_(journal) {}

    void open(const OpenPanel& panel, OpenCompletion completion) override {
        journal_.push_back("open " + panel.message);
        answerOpen = std::move(completion);
    }
    void save(const SavePanel& panel, SaveCompletion completion) override {
        journal_.push_back("save " + panel.nameFieldStringValue);
        answerSave = std::move(completion);
    }

    OpenCompletion answerOpen;
    SaveCompletion answerSave;

  private:
    std::vector<std::string>& journal_;
};

class QueuedFilePanelsTest : public SheetFixture {
  protected:
    void open(const std::string& message) {
        OpenPanel panel;
        panel.message = message;
        panels.open(panel, [this](const std::optional<std::string>& path) {
            journal.push_back("chosen " + path.value_or("(nothing)"));
        });
    }

    PlatformPanels platform{journal};
    QtAlerts alerts{queue, window};
    QueuedFilePanels panels{queue, window, platform};
};

TEST_F(QueuedFilePanelsTest, ShowsAPanelAtOnceAndPassesItsAnswerLater) {
    open("a");
    EXPECT_THAT(journal, ElementsAre("open a"));
    platform.answerOpen("/x");
    EXPECT_THAT(journal, ElementsAre("open a"));
    ASSERT_TRUE(journalReaches(3));
    settle();
    EXPECT_THAT(journal, ElementsAre("open a", "chosen /x", "afterwards"));
    EXPECT_EQ(queue.current(), nullptr);
}

TEST_F(QueuedFilePanelsTest, PassesACancelledPanel) {
    open("a");
    platform.answerOpen(std::nullopt);
    ASSERT_TRUE(journalReaches(3));
    EXPECT_EQ(journal[1], "chosen (nothing)");
}

TEST_F(QueuedFilePanelsTest, PassesWhereToSave) {
    SavePanel panel;
    panel.nameFieldStringValue = "name.plist";
    panels.save(panel, [this](const std::optional<SaveLocation>& location) {
        journal.push_back(location ? location->path + " " + location->nameFieldStringValue : "");
    });
    EXPECT_THAT(journal, ElementsAre("save name.plist"));
    platform.answerSave(SaveLocation{"/a/b.plist", "b"});
    ASSERT_TRUE(journalReaches(3));
    EXPECT_EQ(journal[1], "/a/b.plist b");
}

TEST_F(QueuedFilePanelsTest, WaitsForTheSheetBeforeIt) {
    alerts.show({"first", ""}, [](AlertOutcome) {});
    open("a");
    settle();
    EXPECT_THAT(journal, IsEmpty());
    click(shown("sheetAlert"), "Ok");
    ASSERT_TRUE(journalReaches(2));
    EXPECT_THAT(journal, ElementsAre("afterwards", "open a"));
}

TEST_F(QueuedFilePanelsTest, TheNextSheetWaitsForThePanel) {
    open("a");
    open("b");
    alerts.show({"last", ""}, [](AlertOutcome) {});
    settle();
    EXPECT_THAT(journal, ElementsAre("open a"));
    EXPECT_EQ(shown("sheetAlert"), nullptr);
    platform.answerOpen("/x");
    ASSERT_TRUE(journalReaches(4));
    EXPECT_THAT(journal, ElementsAre("open a", "chosen /x", "afterwards", "open b"));
    EXPECT_EQ(shown("sheetAlert"), nullptr);
    platform.answerOpen("/y");
    EXPECT_TRUE(QTest::qWaitFor([this] { return shown("sheetAlert") != nullptr; }));
}

TEST_F(QueuedFilePanelsTest, ShowsNoWindowOfItsOwn) {
    open("a");
    ASSERT_NE(queue.current(), nullptr);
    const QPointer<QDialog> placeholder = queue.current();
    EXPECT_FALSE(placeholder->isVisible());
    EXPECT_TRUE(window.findChild<QWidget*>("sheetScrim")->isVisible());
    platform.answerOpen("/x");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !placeholder; }));
    EXPECT_FALSE(window.findChild<QWidget*>("sheetScrim")->isVisible());
}

} // namespace
} // namespace frimbolate
