#include "macos/mac_workspace.h"

#include "macos/file_viewer.h"
#include "macos/values.h"

#include <CoreServices/CoreServices.h>
#include <pwd.h>
#include <unistd.h>

namespace frimbolate {

namespace {

/// The application that the system prefers among those with the identifier; null without any.
Owned<CFURLRef> applicationWith(std::string_view identifier) {
    const Owned<CFArrayRef> found(
        ::LSCopyApplicationURLsForBundleIdentifier(stringOf(identifier).get(), nullptr));
    if (!found || ::CFArrayGetCount(found.get()) == 0)
        return {};
    return retained(static_cast<CFURLRef>(::CFArrayGetValueAtIndex(found.get(), 0)));
}

void open(CFURLRef application, LSLaunchFlags flags) {
    if (!application)
        return;
    LSLaunchURLSpec request{};
    request.appURL = application;
    request.launchFlags = flags;
    static_cast<void>(::LSOpenFromURLSpec(&request, nullptr));
}

} // namespace

void MacWorkspace::openTerminal() {
    open(applicationWith("com.apple.Terminal").get(), kLSLaunchDefaults);
}

void MacWorkspace::showFile(const std::string& path) { showInFinder(path); }

void MacWorkspace::launchNewInstance() {
    open(applicationWith("com.qz.Frimbolate").get(), kLSLaunchDefaults | kLSLaunchNewInstance);
}

std::string MacWorkspace::userName() {
    const passwd* entry = ::getpwuid(::geteuid());
    return entry ? entry->pw_name : std::string();
}

} // namespace frimbolate
