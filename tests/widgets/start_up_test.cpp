// The start with the real window and real panels: what is shown, and in which order.
#include "tests/support/scripted_platform.h"
#include "ui/app_delegate.h"
#include "widgets/main_window.h"
#include "widgets/panels/qt_file_panels.h"
#include "widgets/qt_sheets.h"
#include "widgets/sheets/sheet_queue.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QTest>

#include <gmock/gmock.h>

namespace frimbolate {
namespace {

/// Records which windows are shown.
class Shown : public QObject {
  public:
    Shown() { qApp->installEventFilter(this); }

    std::vector<std::string> names;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* widget = qobject_cast<QWidget*>(watched);
        if (event->type() == QEvent::Show && widget && widget->isWindow())
            names.push_back(widget->objectName().toStdString());
        return false;
    }
};

class StartUp : public testing::Test {
  protected:
    StartUp() {
        qputenv("FRIMBOLATE_REDUCED_MOTION", "1");
        window.connectTo(delegate);
        queue.setAfterCompletion([this] { window.mirror(); });
    }
    void start() {
        delegate.applicationDidFinishLaunching();
        window.mirror();
    }
    bool comes(const char* name) {
        return QTest::qWaitFor([&] {
            const auto* sheet = window.findChild<QDialog*>(name);
            return sheet && sheet->isVisible();
        });
    }

    test::ScriptedPlatform platform;
    MainWindow window{false};
    SheetQueue queue{window};
    QtFilePanels panels{queue, window};
    QtSheets sheets{queue, window};
    AppDelegate delegate{platform.services({.sheets = &sheets, .filePanels = &panels})};
    Shown shown;
};

TEST_F(StartUp, ShowsTheWindowBeforeThePanelThatAsksForTheFolder) {
    platform.defaults.contents["ShowWelcomeWindow"] = Value("False - 3.0");
    start();
    ASSERT_TRUE(comes("openPanel"));
    EXPECT_THAT(shown.names, testing::ElementsAre("mainWindow", "openPanel"));
    EXPECT_EQ(QApplication::activeWindow(), window.findChild<QDialog*>("openPanel"));
}

TEST_F(StartUp, ShowsTheWindowBeforeTheWelcome) {
    start();
    ASSERT_TRUE(comes("welcomeWindow"));
    EXPECT_THAT(shown.names, testing::ElementsAre("mainWindow", "welcomeWindow"));
}

TEST_F(StartUp, ShowsOnlyTheWindowIfTheFolderIsGranted) {
    platform.defaults.contents["ShowWelcomeWindow"] = Value("False - 3.0");
    platform.defaults.contents["Bookmark"] = test::bookmarkOf("/Users/maya/Library/LaunchAgents");
    start();
    QCoreApplication::processEvents();
    EXPECT_THAT(shown.names, testing::ElementsAre("mainWindow"));
}

TEST_F(StartUp, BuildsASheetWhenItIsUsed) {
    platform.defaults.contents["ShowWelcomeWindow"] = Value("False - 3.0");
    platform.defaults.contents["AutoCopyScriptsKey"] = Value("True");
    platform.defaults.contents["Bookmark"] = test::bookmarkOf("/Users/maya/Library/LaunchAgents");
    start();
    QCoreApplication::processEvents();
    EXPECT_THAT(window.findChildren<QDialog*>(), testing::IsEmpty());

    delegate.openPreferencesWindow();
    ASSERT_TRUE(comes("preferencesWindow"));
    EXPECT_THAT(window.findChildren<QDialog*>(), testing::SizeIs(1));
    EXPECT_TRUE(window.findChild<QCheckBox*>("autoCopyScriptCheckbox")->isChecked())
        << "it shows the model that there was before it";
}

TEST_F(StartUp, MakesTheListOfAPopUpWhenItIsUsed) {
    platform.defaults.contents["ShowWelcomeWindow"] = Value("False - 3.0");
    platform.defaults.contents["Bookmark"] = test::bookmarkOf("/Users/maya/Library/LaunchAgents");
    start();
    QCoreApplication::processEvents();
    auto* schedule = window.findChild<QComboBox*>("agentActionButton");
    EXPECT_EQ(schedule->findChild<QAbstractItemView*>(), nullptr);
    schedule->setCurrentIndex(AgentAction::OnSchedule);
    emit schedule->activated(AgentAction::OnSchedule);
    schedule->showPopup();
    EXPECT_EQ(schedule->view()->currentIndex().row(), AgentAction::OnSchedule);
    QTest::keyClick(schedule->view(), Qt::Key_Escape);
}

} // namespace
} // namespace frimbolate
