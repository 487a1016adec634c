#include "app/process_preparation.h"
#include "app/program.h"
#include "posix/plist_defaults.h"
#include "qt/qt_messages.h"
#include "qt/qt_workspace.h"
#include "qt/single_instance.h"
#include "widgets/style/icons.h"
#include "widgets/style/install.h"

#include <QApplication>
#include <QCommandLineParser>

int main(int argc, char* argv[]) {
    using namespace frimbolate;
    const PreparedProcess process = prepareProcess(argc, argv);
    if (process.exitCode)
        return *process.exitCode;
    QApplication application(argc, argv);
    fatalMessagesAbort();
    QApplication::setOrganizationName("Frimbolate");
    QApplication::setApplicationName("Frimbolate");
    QApplication::setApplicationVersion(FRIMBOLATE_VERSION);
    // The name of the desktop entry, by which a desktop finds the program's icon.
    QApplication::setDesktopFileName("com.qz.frimbolate");
    // Closing the window does not quit: the icon brings it back.
    QApplication::setQuitOnLastWindowClosed(false);

    QCommandLineParser parser;
    parser.setApplicationDescription("Creates and manages launchd launch agents.");
    parser.addHelpOption();
    parser.addVersionOption();
    const QString newInstance = QString(newInstanceArgument).remove("--");
    parser.addOption({newInstance, "Run beside an instance that is running already."});
    parser.process(application);

    const std::string preferencePath = PlistDefaults::defaultPath();
#ifndef __APPLE__
    const SingleInstance::Limits usual;
    SingleInstance instance(
        preferencePath, {.answer = answerLimit(usual.answer), .start = answerLimit(usual.start)});
    if (!parser.isSet(newInstance)) {
        const RunningInstance running = instance.askRunningInstance();
        if (running == RunningInstance::told)
            return 0;
        if (running == RunningInstance::silent)
            qWarning("frimbolate: the running instance does not answer, opening another window");
    }
#endif

    style::install(application);
    QApplication::setWindowIcon(style::toolIcon("app"));
    Program program(preferencePath, process.environment);
#ifdef __APPLE__
    // macOS itself starts a program once, and makes it active when its icon is clicked. An instance
    // beside it is made on request only, to which a sandboxed program may hand no argument.
    QObject whileItLives; // ends before the program does
    QObject::connect(&application, &QGuiApplication::applicationStateChanged, &whileItLives,
                     [&program](Qt::ApplicationState state) {
                         if (state == Qt::ApplicationActive)
                             program.reopen();
                     });
#endif
    program.start();
#ifndef __APPLE__
    // Last: a second start waits only a second for an answer once this one listens.
    instance.listen([&program] { program.reopen(); });
#endif
    return QApplication::exec();
}
