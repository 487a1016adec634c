#include "tests/random_user/trial.h"

#include "tests/random_user/input.h"
#include "tests/random_user/memory_use.h"
#include "tests/random_user/rules.h"
#include "tests/random_user/session.h"
#include "tests/random_user/visits.h"
#include "tests/random_user/write_guard.h"
#include "tests/widgets/chosen_font.h"
#include "tests/widgets/offscreen_screens.h"
#include "widgets/drawer/drawer_panel.h"
#include "widgets/pages/agents_page.h"
#include "widgets/panels/panel_dialog.h"
#include "widgets/style/install.h"

#include <QApplication>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <list>
#include <unistd.h>

namespace frimbolate::test {

namespace {

constexpr int brokenExit = 3;

/// No single step takes so long; one that does has hung.
constexpr unsigned mostSecondsOfAStep = 120;

std::vector<std::string>& warnings() {
    static std::vector<std::string> lines;
    return lines;
}

/// What the offscreen platform says of what it lacks, which no desktop lacks.
bool isOfOffscreen(const QString& message) {
    return message.contains("This plugin does not support");
}

void keepMessage(QtMsgType, const QMessageLogContext&, const QString& message) {
    if (!isOfOffscreen(message))
        warnings().push_back(message.toStdString());
}

void setUpEnvironment(const UserHome& home) {
    const QString screens = QString::fromStdString(home.root() + "/config/screens.json");
    qputenv("QT_QPA_PLATFORM", offscreenPlatform(screens));
    qputenv("QT_QPA_PLATFORMTHEME", "");
    qputenv("XDG_CURRENT_DESKTOP", "");
    qputenv("FRIMBOLATE_COLOR_SCHEME", "light");
    qputenv("FRIMBOLATE_REDUCED_MOTION", "1"); // an animation is a time to wait for
    qputenv("HOME", QByteArray::fromStdString(home.home()));
    for (const char* variable :
         {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"})
        qputenv(variable, QByteArray::fromStdString(home.config()));
}

bool showsListBesideDrawer(Session& session) {
    return session.agentsPage()->isVisible() && session.form().advancedDrawer.open;
}

class Run {
  public:
    Run(const Trial& trial, const std::string& folder, UserHome& home)
        : trial_(trial), record_(folder + "/steps", std::ios::app), ending_(folder + "/ending"),
          session_(home), source_(trial.seed) {}

    bool run() {
        const int count =
            trial_.replayed ? static_cast<int>(trial_.replayed->size()) : trial_.count;
        files_ = session_.home().files();
        for (int i = 0; i < count; ++i) {
            if (!runStep(trial_.replayed ? (*trial_.replayed)[static_cast<std::size_t>(i)]
                                         : source_.next(session_)))
                return false;
            if (!trial_.replayed && i + 1 == count / 2)
                measureMemory();
            if (!trial_.replayed && i + 1 == count)
                compareMemory();
            if (!growth_.empty())
                return fail("MemoryIsFlat", "since the middle of the steps: " + growth_);
        }
        return trial_.replayed || checkVisits(count);
    }

    void printVisits() const { std::fputs(visits_.table().c_str(), stdout); }

  private:
    bool fail(const std::string& rule, const std::string& detail) {
        ending_ << rule << '\n' << detail << '\n' << std::flush;
        return false;
    }

    bool runStep(const Step& step) {
        record_ << step.line() << '\n' << std::flush;
        ::alarm(mostSecondsOfAStep);
        keepPanelAtHome();
        frimbolate::test::run(session_, step);
        plantFault();
        if (const auto restless = session_.rest())
            return fail("TheProgramComesToRest", *restless);
        visits_.add(session_, step);
        if (const auto refused = refusedWrites(); !refused.empty())
            return fail("NothingOutsideIsChanged", refused.front());
        StoredFiles now = session_.home().files(files_);
        if (const auto broken = brokenRule(session_, step, files_, now))
            return fail(broken->name, broken->detail);
        if (trial_.planted == Planted::Rule && showsListBesideDrawer(session_))
            return fail("ThePlantedRule", "the drawer is open beside the list");
        if (!warnings().empty())
            return fail("NothingWarns", warnings().front());
        files_ = std::move(now);
        ++stepsRun_;
        return true;
    }

    /// A user who strays out of the home in a panel goes back before the next step.
    void keepPanelAtHome() {
        auto* panel = session_.panel();
        const QString root = QString::fromStdString(session_.home().root());
        if (trial_.planted != Planted::Stray && panel &&
            !panel->directory().absolutePath().startsWith(root)) {
            panel->setDirectory(QString::fromStdString(session_.home().home()));
            settle();
        }
    }

    void plantFault() {
        if (trial_.planted == Planted::Crash && showsListBesideDrawer(session_))
            ::raise(SIGSEGV);
        if (stepsRun_ % 100 == 0 && trial_.planted == Planted::Object)
            keptObjects_.push_back(std::make_unique<QObject>());
        for (int i = 0; i < 50 && trial_.planted == Planted::Blocks; ++i)
            keptTexts_.emplace_back(100, 'x');
    }

    MemoryUse memoryInOrder() {
        ::alarm(mostSecondsOfAStep);
        session_.putInOrder();
        session_.putInOrder(); // the first time may fill a cache
        files_ = session_.home().files();
        return memoryInUse();
    }

    /// In the middle a new program is measured. Whatever it holds more of when it ends, in the same
    /// state, is a leak, also where the end of the program would free it.
    void measureMemory() {
        session_.restart();
        middle_ = memoryInOrder();
        session_.beforeEnd = [this] { compareMemory(); };
    }

    void compareMemory() {
        const MemoryUse now = memoryInOrder();
        std::printf("%zu bytes in %ld blocks in the middle, %zu in %ld after step %d\n",
                    middle_->bytes, middle_->blocks, now.bytes, now.blocks, stepsRun_);
        growth_ += growth(*middle_, now);
    }

    bool checkVisits(int count) {
        if (count < longRun && !trial_.needsShortVisits)
            return true;
        std::string missing;
        for (const auto& name : visits_.missing(count >= longRun))
            missing += "\n  " + name;
        return missing.empty() || fail("EveryStateIsVisited", "never visited:" + missing);
    }

    static constexpr int longRun = 10000;

    const Trial& trial_;
    std::ofstream record_, ending_;
    Session session_;
    StepSource source_;
    Visits visits_;
    StoredFiles files_;
    std::optional<MemoryUse> middle_;
    std::string growth_; ///< since the middle
    int stepsRun_ = 0;
    std::vector<std::unique_ptr<QObject>> keptObjects_;
    std::list<std::string> keptTexts_;
};

} // namespace

void runTrial(const Trial& trial, const std::string& folder) {
    bool isGood = false;
    confineWritesTo(folder);
    {
        UserHome home;
        setUpEnvironment(home);
        countObjects();
        qInstallMessageHandler(keepMessage);
        int count = 1;
        char name[] = "frimbolate-random-user";
        char* arguments[] = {name, nullptr};
        QApplication application(count, arguments);
        application.setApplicationName("frimbolate-random-user");
        application.setQuitOnLastWindowClosed(false);
        QApplication::setDoubleClickInterval(0);
        QApplication::setCursorFlashTime(0);
        setChosenFont();
        style::install(application);
        Run run(trial, folder, home);
        isGood = run.run();
        if (trial.printsVisits)
            run.printVisits();
    }
    for (const auto& refused : refusedWrites()) { // also those of the program's end
        isGood = false;
        std::fprintf(stderr, "outside of the temporary folder: %s\n", refused.c_str());
    }
    std::exit(isGood ? 0 : brokenExit); // then LeakSanitizer looks for what was never freed
}

} // namespace frimbolate::test
