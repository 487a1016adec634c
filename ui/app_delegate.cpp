// Construction and start-up.
#include "ui/app_delegate.h"

namespace frimbolate {

AppDelegate::AppDelegate(Services services)
    : services_(services), preferences_(form_, services_), folderGrant_(services_),
      loadedAgentWarning_(services_), commandSheet_(form_, services_), agentSwitch_(services_),
      agentDeletion_(services_) {}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching() {
    constexpr Size drawerSize{400, 380}; // points
    form_.mainWindowToolbar.allowsUserCustomization = false;
    form_.mainWindow.visible = true;
    form_.popoverScriptObject.animates = true;
    form_.popoverScriptObject.behavior = PopOver::Behavior::Transient;
    form_.advancedDrawer.contentSize = drawerSize;
    form_.advancedDrawer.maxContentSize = drawerSize;
    form_.advancedDrawer.minContentSize = drawerSize;
    // The closing handler observes both. openAdvancedDrawer() sets the item's action afterwards. A
    // drawer opened by other means leaves the item at openAdvancedDrawer, so that the next click
    // only corrects the item.
    drawer_.addWillOpenObserver([this] { advancedDrawerDidClose(); });
    drawer_.addWillCloseObserver([this] { advancedDrawerDidClose(); });
    setUpDefaults();
    resetForm();
    showWelcomeWindow();
}

void AppDelegate::showWelcomeWindow() {
    if (holdsString(services_.defaults, PreferenceKey::showWelcomeWindow, welcomeSuppressed)) {
        startAccessingFolder();
        return;
    }
    services_.defaults.set(PreferenceKey::showWelcomeWindow, Value(welcomeShown));
    services_.sheets.begin(Sheet::welcomeWindow);
}

void AppDelegate::closeWelcomeWindow() {
    if (form_.showWelcomeCheckbox.state == CheckState::Off) {
        log("User does not want to show welcome window, writing value of false");
        services_.defaults.set(PreferenceKey::showWelcomeWindow, Value(welcomeSuppressed));
    } else {
        log("User really likes the welcome window and it will continue to be shown");
    }
    services_.sheets.end(Sheet::welcomeWindow);
    startAccessingFolder();
}

void AppDelegate::startAccessingFolder() {
    bookmark_ = std::make_unique<BookmarkClass>(services_);
    bookmark_->startAccessingBookmark();
}

bool AppDelegate::applicationShouldHandleReopen() {
    form_.mainWindow.visible = true;
    return true;
}

void AppDelegate::showAlertThatResets(const std::string& message, const std::string& text) {
    services_.alerts.show({message, text},
                          lifetime_.whileAlive([this](AlertOutcome) { resetForm("Reset"); }));
}

std::optional<Value> AppDelegate::preference(std::string_view key) {
    return services_.defaults.object(key);
}

} // namespace frimbolate
