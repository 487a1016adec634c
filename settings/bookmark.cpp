#include "settings/bookmark.h"

#include "core/conversions.h"
#include "core/named_error.h"
#include "settings/preferences.h"

namespace frimbolate {

namespace {

std::optional<Data> storedBookmark(Services& services) {
    const auto value = services.defaults.object(PreferenceKey::bookmark);
    return value && value->data() ? std::optional(*value->data()) : std::nullopt;
}

/// Begins access to the folder that a bookmark resolves to, and replaces a stale bookmark in the
/// settings, since it may not resolve the next time.
std::optional<std::string> beginAccess(Services& services, const Data& bookmark) {
    auto folder = services.folderAccess.resolve(bookmark);
    services.folderAccess.begin(folder);
    if (const auto renewed = folder ? services.folderAccess.renewedBookmark(*folder) : std::nullopt)
        services.defaults.set(PreferenceKey::bookmark, *renewed);
    return folder;
}

/// The granted folder, or nothing where there is no bookmark or it does not resolve.
std::optional<std::string> grantedFolder(Services& services) {
    const auto bookmark = storedBookmark(services);
    return bookmark ? services.folderAccess.resolve(*bookmark) : std::nullopt;
}

constexpr const char* launchAgents = "LaunchAgents";

std::string libraryOf(const std::string& userName) { return "/Users/" + userName + "/Library/"; }

OpenPanel grantPanel(const std::string& folder) {
    OpenPanel panel;
    panel.canChooseFiles = false;
    panel.canChooseDirectories = true;
    panel.canCreateDirectories = true;
    panel.prompt = "Choose";
    panel.message =
        "Frimbolate needs access to your LaunchAgents folder. Please select it and click "
        "\"Choose.\" \n"
        "\n"
        "Selecting a folder other than your LaunchAgents folder (~/Library/LaunchAgents)\n"
        " will prevent your launch agents from running as expected.\n"
        "\n"
        " If a LaunchAgents folder does not exist, you must create one with the exact name "
        "LaunchAgents (no space).";
    panel.directory = folder;
    panel.suggestedName = launchAgents;
    return panel;
}

std::string responseLine(int answer) {
    return "Must choose LaunchAgents folder response: " + std::to_string(answer);
}

} // namespace

std::optional<std::string> FolderGrant::open() {
    if (const auto bookmark = storedBookmark(services_))
        return beginAccess(services_, *bookmark);
    services_.folderAccess.begin(std::nullopt);
    return std::nullopt;
}

void FolderGrant::close(const std::optional<std::string>& folder) {
    services_.folderAccess.end(folder);
}

void BookmarkClass::startAccessingBookmark() {
    try {
        const auto bookmark = storedBookmark(services_);
        if (!bookmark)
            throw NamedError("Bookmark not found", "Key Not Found in Plist");
        // The resolved folder is not checked: without one the log line is written all the same.
        beginAccess(services_, *bookmark);
        services_.log.line("Found bookmark: " + description(*bookmark));
    } catch (const NamedError&) {
        services_.log.line("ERROR WITH ACCESSING BOOKMARK");
        scopeABookmarkWithWindow();
    }
}

void BookmarkClass::scopeABookmarkWithWindow() {
    const auto library = libraryOf(services_.workspace.userName());
    services_.log.line("Path to Library: " + library);
    services_.filePanels.open(grantPanel(library), lifetime_.whileAlive([this](const auto& folder) {
        folderChosen(folder);
    }));
}

void BookmarkClass::folderChosen(const std::optional<std::string>& folder) {
    if (!folder) {
        askAgainAfterCancel();
        return;
    }
    // Compares the encoded URL: a user name that needs percent-encoding never matches.
    const auto url = fileUrl(*folder);
    const auto expected = libraryOf(services_.workspace.userName()) + launchAgents;
    if (url.find(expected) == std::string::npos) {
        services_.log.line("Chosen LaunchAgents path does not match expected path:\n" + url + "\n" +
                           expected);
        askAgainAfterMismatch(*folder);
        return;
    }
    services_.log.line("Chosen LaunchAgents path matches expected path. Creating bookmark");
    createBookmark(*folder);
}

void BookmarkClass::askAgainAfterCancel() {
    services_.alerts.show(
        {"You must select your user LaunchAgents folder (~/Library/LaunchAgents).",
         "This is not optional and is a required step for Frimbolate to function. Please try "
         "again.",
         {"Try Again", "Quit"}},
        lifetime_.whileAlive([this](AlertOutcome outcome) {
            services_.log.line(responseLine(outcome.answer));
            if (outcome.answer == AlertAnswer::First) {
                scopeABookmarkWithWindow();
                return;
            }
            services_.log.line("User wants to quit, QUITTING.");
            services_.application.terminate();
        }));
}

void BookmarkClass::askAgainAfterMismatch(const std::string& folder) {
    services_.alerts.show(
        {"Frimbolate could not validate if you chose your user LaunchAgents folder "
         "(~/Library/LaunchAgents).",
         "Choosing this folder is a required step for Frimbolate to function. If you choose a "
         "different folder, your LaunchAgents may not run as expected.",
         {"Choose Again", "Continue Anyways"}},
        lifetime_.whileAlive([this, folder](AlertOutcome outcome) {
            services_.log.line(responseLine(outcome.answer));
            if (outcome.answer == AlertAnswer::First)
                scopeABookmarkWithWindow();
            else
                createBookmark(folder);
        }));
}

void BookmarkClass::createBookmark(const std::string& folder) {
    try {
        const auto bookmark = services_.folderAccess.createBookmark(folder);
        services_.log.line("Created bookmark: " + description(bookmark));
        services_.defaults.synchronize();
        services_.defaults.set(PreferenceKey::bookmark, bookmark);
    } catch (const NamedError& error) {
        services_.log.line("Error creating bookmark for URL (" + fileUrl(folder) +
                           "): " + error.reason());
        services_.application.presentError(error.reason());
    }
}

void BookmarkClass::stopAccessingBookmark() {
    services_.folderAccess.end(grantedFolder(services_));
}

} // namespace frimbolate
