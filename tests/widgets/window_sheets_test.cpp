// The program's own sheets and the script pop-over, on the real window.
#include "tests/widgets/window_test.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>

namespace frimbolate::test {
namespace {

class WindowSheetsTest : public WindowTest {
  protected:
    bool comes(const char* name) {
        QWidget* sheet = find(name);
        return QTest::qWaitFor([sheet] { return sheet->isVisible(); });
    }
    bool goes(const char* name) {
        QWidget* sheet = find(name);
        return QTest::qWaitFor([sheet] { return !sheet->isVisible(); });
    }
    void press(const char* button) { QTest::mouseClick(find<QPushButton>(button), Qt::LeftButton); }
    bool logged(const std::string& line) {
        const auto lines = platform.journal.texts("log");
        return std::ranges::find(lines, line) != lines.end();
    }
};

constexpr const char* keepsWelcome =
    "User really likes the welcome window and it will continue to be shown";
constexpr const char* leavesWelcome =
    "User does not want to show welcome window, writing value of false";

TEST_F(WindowSheetsTest, TheWelcomeSheetIsClosedByItsButton) {
    platform.defaults.contents.erase("ShowWelcomeWindow");
    delegate.showWelcomeWindow();
    ASSERT_TRUE(comes("welcomeWindow"));
    QTest::mouseClick(find("showWelcomeCheckbox"), Qt::LeftButton, {}, {8, 8});
    press("closeWelcomeWindow");
    EXPECT_TRUE(goes("welcomeWindow"));
    EXPECT_TRUE(logged(leavesWelcome));
}

TEST_F(WindowSheetsTest, EscapeClosesTheWelcomeSheetAsItsButtonDoes) {
    platform.defaults.contents.erase("ShowWelcomeWindow");
    delegate.showWelcomeWindow();
    ASSERT_TRUE(comes("welcomeWindow"));
    QTest::keyClick(find("welcomeWindow"), Qt::Key_Escape);
    EXPECT_TRUE(goes("welcomeWindow"));
    EXPECT_TRUE(logged(keepsWelcome));
}

TEST_F(WindowSheetsTest, ReturnPressesTheDefaultButton) {
    platform.defaults.contents.erase("ShowWelcomeWindow");
    delegate.showWelcomeWindow();
    ASSERT_TRUE(comes("welcomeWindow"));
    QTest::keyClick(find("welcomeWindow"), Qt::Key_Return);
    EXPECT_TRUE(goes("welcomeWindow"));
    EXPECT_TRUE(logged(keepsWelcome));
}

TEST_F(WindowSheetsTest, PreferencesAreSavedOrNot) {
    find<QAction>("preferencesMenuItem")->trigger();
    ASSERT_TRUE(comes("preferencesWindow"));
    find<QCheckBox>("autoCopyScriptCheckbox")->click();
    QTest::keyClick(find("preferencesWindow"), Qt::Key_Escape);
    ASSERT_TRUE(goes("preferencesWindow"));
    EXPECT_EQ(platform.defaults.contents["AutoCopyScriptsKey"], Value("False"));

    find<QAction>("preferencesMenuItem")->trigger();
    ASSERT_TRUE(comes("preferencesWindow"));
    EXPECT_TRUE(find<QCheckBox>("autoCopyScriptCheckbox")->isChecked());
    press("savePreferences");
    ASSERT_TRUE(goes("preferencesWindow"));
    EXPECT_EQ(platform.defaults.contents["AutoCopyScriptsKey"], Value("True"));
}

TEST_F(WindowSheetsTest, PreferencesAreReset) {
    find<QAction>("preferencesMenuItem")->trigger();
    ASSERT_TRUE(comes("preferencesWindow"));
    press("resetPreferences");
    EXPECT_TRUE(goes("preferencesWindow"));
    EXPECT_TRUE(platform.defaults.contents.empty());
    EXPECT_EQ(platform.journal.count("application"), 1u);
}

TEST_F(WindowSheetsTest, TheCommandSheetShowsTheWholeCommand) {
    const std::string path =
        "/Users/maya/Library/LaunchAgents/com.frimbolate." + std::string(120, 'x') + ".plist";
    find<QAction>("unloadLaunchAgent")->trigger();
    platform.choose(path);
    window.mirror();
    ASSERT_TRUE(comes("executeScriptWindow"));
    const auto* text = find<QPlainTextEdit>("actionScriptTextView");
    EXPECT_EQ(text->toPlainText().toStdString(), "launchctl unload '" + path + "'");
    EXPECT_TRUE(text->isReadOnly());
    EXPECT_EQ(find("executeScriptWindow")->accessibleName(), "Unload the agent");
    EXPECT_FALSE(find<QAction>("preferencesMenuItem")->isEnabled());
    EXPECT_EQ(find<QDialog>("executeScriptWindow")->focusWidget(), find("launchTerminalButton"));

    press("launchTerminalButton");
    EXPECT_EQ(platform.journal.texts("workspace"), (std::vector<std::string>{"terminal"}));
    press("closeExecuteScriptWindow");
    EXPECT_TRUE(goes("executeScriptWindow"));
    EXPECT_TRUE(find<QAction>("preferencesMenuItem")->isEnabled());
}

TEST_F(WindowSheetsTest, EscapeClosesTheCommandSheetAsItsButtonDoes) {
    find<QAction>("loadLaunchAgent")->trigger();
    platform.choose("/Users/maya/Library/LaunchAgents/a.plist");
    window.mirror();
    ASSERT_TRUE(comes("executeScriptWindow"));
    find<QCheckBox>("autoCopyScriptsCheckbox2")->click();
    QTest::keyClick(find("executeScriptWindow"), Qt::Key_Escape);
    EXPECT_TRUE(goes("executeScriptWindow"));
    EXPECT_EQ(platform.defaults.contents["AutoCopyScriptsKey"], Value("True"));
}

TEST_F(WindowSheetsTest, AboutShowsTheProgramsName) {
    find<QAction>("about")->trigger();
    ASSERT_TRUE(comes("aboutWindow"));
    EXPECT_TRUE(find("aboutWindow")->accessibleName().startsWith("Frimbolate"));
    QTest::keyClick(find("aboutWindow"), Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window.findChild<QDialog*>("aboutWindow"); }));
}

TEST_F(WindowSheetsTest, ClosingTheWindowHidesItUntilItIsReopened) {
    ASSERT_TRUE(window.isVisible());
    find<QAction>("closeWindow")->trigger();
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(form().mainWindow.visible);
    window.mirror();
    EXPECT_FALSE(window.isVisible());
    delegate.applicationShouldHandleReopen();
    window.mirror();
    EXPECT_TRUE(window.isVisible());
}

TEST_F(WindowSheetsTest, ThePopOverFollowsTheModel) {
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    window.move(-300, 40); // makes space on the small screen of the tests
    for (const bool shown : {true, false, true}) {
        show([shown](FormModel& model) {
            model.showPopOverScriptButton.hidden = false;
            model.popoverScriptObject.shown = shown;
        });
        EXPECT_TRUE(shown ? comes("popoverScriptObject") : goes("popoverScriptObject"));
        EXPECT_EQ(form().popoverScriptObject.shown, shown);
    }
    const QWidget* button = find("showPopOverScriptButton");
    EXPECT_GT(find("popoverScriptObject")->x(),
              button->mapToGlobal(QPoint(button->width() - 1, 0)).x());
}

TEST_F(WindowSheetsTest, ThePopOverStaysOnTheScreen) {
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    const QRect free = window.screen()->availableGeometry();
    window.move(free.right() - 640, free.bottom() - 250);
    show([](FormModel& model) { model.popoverScriptObject.shown = true; });
    ASSERT_TRUE(comes("popoverScriptObject"));
    EXPECT_TRUE(free.contains(find("popoverScriptObject")->geometry()));
}

TEST_F(WindowSheetsTest, EscapeDismissesThePopOverAndUpdatesTheModel) {
    show([](FormModel& model) { model.popoverScriptObject.shown = true; });
    ASSERT_TRUE(comes("popoverScriptObject"));
    QTest::keyClick(find("scriptPopOverScriptField"), Qt::Key_Escape);
    EXPECT_FALSE(find("popoverScriptObject")->isVisible());
    EXPECT_FALSE(form().popoverScriptObject.shown);
}

TEST_F(WindowSheetsTest, AClickOutsideThePopOverDismissesIt) {
    show([](FormModel& model) { model.popoverScriptObject.shown = true; });
    ASSERT_TRUE(comes("popoverScriptObject"));
    QTest::mouseClick(find("popoverScriptObject"), Qt::LeftButton, {}, {-100, -60});
    EXPECT_FALSE(find("popoverScriptObject")->isVisible());
    EXPECT_FALSE(form().popoverScriptObject.shown);
}

TEST(BlendedPopOver, IsDismissedByAClickInItsShadow) {
    ScriptedWindow blended(true);
    blended.start();
    blended.show([](FormModel& model) { model.popoverScriptObject.shown = true; });
    QWidget* popOver = blended.find("popoverScriptObject");
    ASSERT_TRUE(QTest::qWaitFor([popOver] { return popOver->isVisible(); }));
    QTest::mouseClick(popOver, Qt::LeftButton, {}, popOver->rect().center());
    EXPECT_TRUE(popOver->isVisible());
    QTest::mouseClick(popOver, Qt::LeftButton, {}, {2, 2});
    EXPECT_FALSE(popOver->isVisible());
    EXPECT_FALSE(blended.form().popoverScriptObject.shown);
}

TEST_F(WindowSheetsTest, ThePopOverWaitsWhileASheetIsShown) {
    find<QAction>("preferencesMenuItem")->trigger();
    ASSERT_TRUE(comes("preferencesWindow"));
    show([](FormModel& model) { model.popoverScriptObject.shown = true; });
    QCoreApplication::processEvents();
    EXPECT_FALSE(find("popoverScriptObject")->isVisible());
    EXPECT_TRUE(form().popoverScriptObject.shown);
    press("closeWithoutSavingPrefs");
    EXPECT_TRUE(comes("popoverScriptObject"));
}

} // namespace
} // namespace frimbolate::test
