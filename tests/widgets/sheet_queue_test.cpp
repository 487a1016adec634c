#include "tests/widgets/sheet_fixture.h"

#include "widgets/sheets/sheet_dialog.h"

#include <QPointer>
#include <QVBoxLayout>

namespace frimbolate {
namespace {

using testing::ElementsAre;

class SheetQueueTest : public SheetFixture {
  protected:
    SheetDialog* make(const char* name) {
        auto* sheet = new SheetDialog(name, 520, &window);
        sheet->body()->addWidget(new QPushButton("Close"));
        return sheet;
    }
};

TEST_F(SheetQueueTest, ShowsTheFirstAtOnceAndTheNextWhenItIsGone) {
    SheetDialog* first = make("first");
    SheetDialog* second = make("second");
    queue.present(first);
    queue.present(second);
    EXPECT_TRUE(first->isVisible());
    EXPECT_FALSE(second->isVisible());
    first->accept();
    EXPECT_TRUE(QTest::qWaitFor([&] { return second->isVisible(); }));
    EXPECT_EQ(queue.current(), second);
}

TEST_F(SheetQueueTest, ShowsTheWindowBeforeItsFirstSheet) {
    window.hide();
    SheetDialog* first = make("first");
    SheetDialog* second = make("second");
    queue.present(first);
    queue.present(second);
    queue.complete([this] { journal.push_back("completed"); });
    ASSERT_TRUE(journalReaches(2));
    settle();
    EXPECT_FALSE(first->isVisible());
    EXPECT_FALSE(window.findChild<QWidget*>("sheetScrim")->isVisibleTo(&window));
    window.show();
    EXPECT_FALSE(first->isVisible()) << "the window has not reached the screen yet";
    ASSERT_TRUE(QTest::qWaitFor([&] { return first->isVisible(); }));
    EXPECT_FALSE(second->isVisible());
    EXPECT_EQ(QApplication::activeWindow(), first);
}

TEST_F(SheetQueueTest, ShowsASheetRequestedTwiceOnce) {
    SheetDialog* sheet = make("sheet");
    queue.present(sheet);
    queue.present(sheet);
    sheet->accept();
    settle();
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_EQ(queue.current(), nullptr);
}

TEST_F(SheetQueueTest, ShowsASheetAgainAfterItWasClosed) {
    SheetDialog* sheet = make("sheet");
    for (int round = 0; round < 3; ++round) {
        queue.present(sheet);
        ASSERT_TRUE(QTest::qWaitFor([&] { return sheet->isVisible(); }));
        sheet->reject();
        EXPECT_FALSE(sheet->isVisible());
    }
}

TEST_F(SheetQueueTest, DismissesTheCurrentAndTheWaiting) {
    SheetDialog* first = make("first");
    SheetDialog* second = make("second");
    SheetDialog* third = make("third");
    SheetDialog* stranger = make("stranger");
    for (SheetDialog* sheet : {first, second, third})
        queue.present(sheet);
    queue.dismiss(stranger);
    queue.dismiss(second);
    queue.dismiss(first);
    EXPECT_FALSE(first->isVisible());
    ASSERT_TRUE(QTest::qWaitFor([&] { return third->isVisible(); }));
    queue.dismiss(third);
    settle();
    EXPECT_EQ(queue.current(), nullptr);
    EXPECT_FALSE(second->isVisible());
}

TEST_F(SheetQueueTest, ShowsTheNextSheetWhenOneIsDestroyed) {
    SheetDialog* first = make("first");
    SheetDialog* waiting = make("waiting");
    SheetDialog* last = make("last");
    for (SheetDialog* sheet : {first, waiting, last})
        queue.present(sheet);
    delete waiting;
    delete first;
    EXPECT_TRUE(QTest::qWaitFor([&] { return last->isVisible(); }));
}

TEST_F(SheetQueueTest, RunsAfterCompletionAfterEachCompletion) {
    queue.complete([this] {
        journal.push_back("one");
        queue.complete([this] { journal.push_back("three"); });
    });
    queue.complete([this] { journal.push_back("two"); });
    EXPECT_THAT(journal, ElementsAre());
    ASSERT_TRUE(journalReaches(6));
    settle();
    EXPECT_THAT(journal,
                ElementsAre("one", "afterwards", "two", "afterwards", "three", "afterwards"));
}

TEST_F(SheetQueueTest, ShowsTheNextSheetAfterTheCompletionOfTheLast) {
    SheetDialog* first = make("first");
    SheetDialog* second = make("second");
    queue.present(first);
    queue.present(second);
    bool wasShown = true;
    QObject::connect(first, &QDialog::finished, &queue, [&] {
        queue.complete([&] {
            wasShown = second->isVisible();
            journal.push_back("completed");
        });
    });
    first->accept();
    ASSERT_TRUE(QTest::qWaitFor([&] { return second->isVisible(); }));
    EXPECT_FALSE(wasShown);
    EXPECT_THAT(journal, ElementsAre("completed", "afterwards"));
}

TEST_F(SheetQueueTest, DimsTheWindowBelowTheToolbarWhileASheetIsShown) {
    auto* scrim = window.findChild<QWidget*>("sheetScrim");
    EXPECT_FALSE(scrim->isVisible());
    SheetDialog* sheet = make("sheet");
    queue.present(sheet);
    EXPECT_TRUE(scrim->isVisible());
    EXPECT_EQ(scrim->geometry(), sheetArea(window));
    window.setFixedSize(1080, 472);
    EXPECT_TRUE(QTest::qWaitFor([&] { return scrim->width() == 1080; }));
    sheet->accept();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !scrim->isVisible(); }));
}

TEST_F(SheetQueueTest, AnimatesASheetUnlessMotionIsReduced) {
    SheetDialog* sheet = make("sheet");
    qunsetenv("FRIMBOLATE_REDUCED_MOTION");
    queue.present(sheet);
    const QRect place = sheet->geometry();
    QPointer<QWidget> overlay = sheet->findChild<QWidget*>("sheetCurtain");
    ASSERT_NE(overlay, nullptr);
    EXPECT_EQ(overlay->geometry(), sheet->rect());
    EXPECT_TRUE(overlay->testAttribute(Qt::WA_TransparentForMouseEvents));
    EXPECT_TRUE(QTest::qWaitFor([&] { return overlay.isNull(); }));
    EXPECT_EQ(sheet->geometry(), place) << "only its picture slides";
    sheet->accept();
    settle();

    qputenv("FRIMBOLATE_REDUCED_MOTION", "1");
    queue.present(sheet);
    ASSERT_TRUE(QTest::qWaitFor([&] { return sheet->isVisible(); }));
    EXPECT_EQ(sheet->findChild<QWidget*>("sheetCurtain"), nullptr);
}

TEST_F(SheetQueueTest, RemovesTheOverlayOfASheetThatIsClosedAtOnce) {
    SheetDialog* sheet = make("sheet");
    qunsetenv("FRIMBOLATE_REDUCED_MOTION");
    queue.present(sheet);
    ASSERT_NE(sheet->findChild<QWidget*>("sheetCurtain"), nullptr);
    queue.dismiss(sheet);
    EXPECT_EQ(sheet->findChild<QWidget*>("sheetCurtain"), nullptr);
}

TEST_F(SheetQueueTest, FitsTheHeightOfASheetToItsContent) {
    SheetDialog* sheet = make("sheet");
    queue.present(sheet);
    const int before = sheet->panelRect().height();
    auto* more = new QWidget;
    more->setFixedHeight(50);
    sheet->body()->addWidget(more);
    EXPECT_TRUE(QTest::qWaitFor([&] { return sheet->panelRect().height() == before + 50; }));
}

TEST_F(SheetQueueTest, CentresASheetOverTheFormWhenTheDrawerIsOpen) {
    auto* form = new QWidget(&window);
    form->setObjectName("form");
    form->setGeometry(0, 92, 680, 380);
    window.setFixedSize(1080, 472);
    SheetDialog* sheet = make("sheet");
    queue.present(sheet);
    const QRect panel = sheet->panelRect().translated(window.mapFromGlobal(sheet->pos()));
    EXPECT_NEAR(panel.center().x(), form->geometry().center().x(), 1);
}

} // namespace
} // namespace frimbolate
