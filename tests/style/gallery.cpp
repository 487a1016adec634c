// Saves a screenshot of every state of the window.
#include "tests/style/window_fixture.h"
#include "tests/widgets/chosen_font.h"
#include "widgets/style/install.h"

#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>

#include <iostream>

int main(int argc, char** argv) {
    using namespace frimbolate::test;
    const QTemporaryDir settings; // the toolkit stores the state of its file dialogs
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
    QApplication application(argc, argv);
    QApplication::setApplicationName("Frimbolate");
    QApplication::setApplicationVersion("1.0.0");
    QApplication::setQuitOnLastWindowClosed(false);
    setChosenFont();
    frimbolate::style::install(application);
    if (argc < 2 || !QDir().mkpath(argv[1])) {
        std::cerr << "Usage: style_gallery <folder> [<state> ...]\n";
        return 1;
    }
    QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight()); // hovers nowhere
    const QStringList wanted = QApplication::arguments().mid(2);
    for (const UiState& state : uiStates()) {
        if (!wanted.isEmpty() && !wanted.contains(state.name))
            continue;
        WindowFixture fixture;
        fixture.window.move(40, 40);
        if (!QTest::qWaitForWindowActive(&fixture.window))
            std::cerr << state.name << ": the window did not become active\n";
        state.setUp(fixture);
        fixture.window.mirror();
        // Lets animations and loading end; only the screenshots depend on this wait, no test does.
        QTest::qWait(400);
        const QPixmap picture = QGuiApplication::primaryScreen()->grabWindow(0);
        picture.save(QDir(argv[1]).filePath(QString(state.name) + ".png"));
    }
    return 0;
}
