#include "app/window_program.h"

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

int frimbolateWindowProgram(int argc, char* argv[]) {
    using namespace frimbolate;
    const PreparedProcess process = prepareProcess(argc, argv);
    if (process.exitCode)
        return *process.exitCode;
    QApplication application(argc, argv);
    fatalMessagesAbort();
    QApplication::setOrganizationName("Frimbolate");
    QApplication::setApplicationName("Frimbolate");
    QApplication::setApplicationVersion(FRIMBOLATE_VERSION);
    // The name of the desktop entry; the desktop finds the program's icon by it.
    QApplication::setDesktopFileName("com.qz.frimbolate");
    // Closing the window does not quit; a click on the icon shows it again.
    QApplication::setQuitOnLastWindowClosed(false);

    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Creates and manages launchd launch agents.\n\n"
        "In a terminal: frimbolate check|explain|new|on|off|list|command --help");
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
    // macOS starts a program once and activates it when its icon is clicked. It starts another
    // instance only on request, and a sandboxed program cannot pass an argument to it.
    QObject context; // destroyed before the program, which ends the connection
    QObject::connect(&application, &QGuiApplication::applicationStateChanged, &context,
                     [&program](Qt::ApplicationState state) {
                         if (state == Qt::ApplicationActive)
                             program.reopen();
                     });
#endif
    program.start();
#ifndef __APPLE__
    // Last, when the event loop is about to run: a second start waits one second for the answer of
    // a listening instance.
    instance.listen([&program] { program.reopen(); });
#endif
    return QApplication::exec();
}
