#include "tests/widgets/chosen_font.h"
#include "ui/widgets/look/style.h"

#include <QApplication>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gmock/gmock.h>

int main(int argc, char** argv) {
    // Before the application exists: no display is needed, no preference of the person is touched,
    // and the desktop that the tests happen to run on decides nothing.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QPA_PLATFORMTHEME", "");
    qputenv("XDG_CURRENT_DESKTOP", "");
    qputenv("FRIMBOLATE_COLOR_SCHEME", "light");
    const QTemporaryDir settings; // the toolkit stores the state of its file dialogs
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
    QStandardPaths::setTestModeEnabled(true);
    testing::InitGoogleMock(&argc, argv);
    QApplication application(argc, argv);
    application.setApplicationName("frimbolate-widgets-test");
    application.setQuitOnLastWindowClosed(false);
    frimbolate::test::wearChosenFont();
    frimbolate::look::install(application);
    return RUN_ALL_TESTS();
}
