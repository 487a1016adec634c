#include "tests/widgets/chosen_font.h"
#include "tests/widgets/offscreen_screens.h"
#include "widgets/style/install.h"

#include <QApplication>
#include <QTemporaryDir>

#include <gmock/gmock.h>

int main(int argc, char** argv) {
    // Set before the application exists, so that the tests need no display, do not touch the user's
    // preferences and do not depend on the current desktop.
    const QTemporaryDir settings; // the toolkit stores the state of its file dialogs
    qputenv("QT_QPA_PLATFORM",
            frimbolate::test::offscreenPlatform(settings.filePath("screens.json")));
    qputenv("QT_QPA_PLATFORMTHEME", "");
    qputenv("XDG_CURRENT_DESKTOP", "");
    qputenv("FRIMBOLATE_COLOR_SCHEME", "light");
    // Not QStandardPaths' test mode: its folder is one for all processes, and tests run in
    // parallel.
    for (const char* variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        qputenv(variable, settings.path().toLocal8Bit());
    testing::InitGoogleMock(&argc, argv);
    QApplication application(argc, argv);
    application.setApplicationName("frimbolate-widgets-test");
    application.setQuitOnLastWindowClosed(false);
    frimbolate::test::setChosenFont();
    frimbolate::style::install(application);
    return RUN_ALL_TESTS();
}
