#include "tests/widgets/chosen_font.h"
#include "widgets/style/install.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace {

/// A wide screen, on which windows open, and a narrow one to its right.
constexpr const char* screens = R"({"screens": [
    {"name": "wide", "x": 0, "y": 0, "width": 2800, "height": 2000},
    {"name": "narrow", "x": 2800, "y": 0, "width": 1024, "height": 600}]})";

/// The platform argument for the tests; writes the description of the screens to `path`.
QByteArray offscreenPlatform(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(screens) < 0)
        qFatal("The screens of the tests cannot be described in %s", qUtf8Printable(path));
    return "offscreen:configfile=" + QFile::encodeName(path);
}

} // namespace

int main(int argc, char** argv) {
    // Set before the application exists, so that the tests need no display, do not touch the user's
    // preferences and do not depend on the current desktop.
    const QTemporaryDir settings; // the toolkit stores the state of its file dialogs
    qputenv("QT_QPA_PLATFORM", offscreenPlatform(settings.filePath("screens.json")));
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
