// The real window and sheets with the scripted desktop services.
#pragma once

#include "tests/support/scripted_platform.h"
#include "ui/app_delegate.h"
#include "widgets/main_window.h"
#include "widgets/qt_sheets.h"
#include "widgets/sheets/sheet_queue.h"

#include <stdexcept>
#include <string>

namespace frimbolate::test {

class ScriptedWindow {
  public:
    static constexpr const char* agents = "/Users/maya/Library/LaunchAgents";

    explicit ScriptedWindow(bool blendsWindows = false) : window(blendsWindows) {
        // Without animations no test has to wait for the drawer.
        qputenv("FRIMBOLATE_REDUCED_MOTION", "1");
        platform.files.folders = {agents};
        platform.defaults.contents["Bookmark"] = bookmarkOf(agents);
        platform.defaults.contents["ShowWelcomeWindow"] = Value("False - 3.0");
        window.connectTo(delegate);
        queue.setAfterCompletion([this] { window.mirror(); });
        // They are built when they are used; tests look at their controls at any time.
        for (const Sheet which :
             {Sheet::welcomeWindow, Sheet::preferencesWindow, Sheet::executeScriptWindow})
            sheets.sheet(which);
    }

    void start() {
        delegate.applicationDidFinishLaunching();
        window.mirror();
        platform.journal.clear();
    }

    /// The widget or action with this object name. Throws, listing the existing names, if none.
    template <typename Kind = QWidget>
    Kind* find(const std::string& name) {
        if (auto* found = window.findChild<Kind*>(QString::fromStdString(name)))
            return found;
        std::string names;
        for (const auto* object : window.findChildren<QObject*>())
            if (!object->objectName().isEmpty() && !object->objectName().startsWith("qt_"))
                names += "\n  " + object->objectName().toStdString();
        throw std::runtime_error("No " + name + " of that kind. There are:" + names);
    }

    /// Changes the model and updates the window, as an action does.
    template <typename Change>
    void show(Change change) {
        change(delegate.form());
        window.mirror();
    }

    FormModel& form() { return delegate.form(); }

    ScriptedPlatform platform;
    MainWindow window;
    SheetQueue queue{window};
    QtSheets sheets{queue, window};
    AppDelegate delegate{platform.services({.sheets = &sheets})};
};

} // namespace frimbolate::test
