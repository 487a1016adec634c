// The grant of the LaunchAgents folder: requested once, stored as a bookmark, opened per operation.
#pragma once

#include "platform/lifetime.h"
#include "platform/services.h"

#include <optional>
#include <string>

namespace frimbolate {

/// Every folder operation opens the grant, shows its panel in the folder, does its work and closes
/// the grant. A path that ends before the work does not close it: access then lasts until the
/// process ends, as the access from BookmarkClass::startAccessingBookmark() does.
class FolderGrant {
  public:
    /// \param services must outlive this
    explicit FolderGrant(Services& services) : services_(services) {}

    /// Resolves the stored bookmark and begins access; a stale bookmark is replaced by a new one.
    /// Returns nothing, having begun no access, where there is no bookmark or it does not resolve.
    std::optional<std::string> open();
    /// Ends access.
    /// \param folder the result of open()
    void close(const std::optional<std::string>& folder);

  private:
    Services& services_;
};

/// Obtains the bookmark at the end of the welcome flow. Has no state between calls. Its destruction
/// cancels pending questions.
class BookmarkClass {
  public:
    /// \param services must outlive this
    explicit BookmarkClass(Services& services) : services_(services) {}

    /// Begins access at start; without a bookmark it asks for the folder.
    void startAccessingBookmark();
    /// Asks for the folder until one is chosen or the user quits.
    void scopeABookmarkWithWindow();
    /// Creates the bookmark of a folder and stores it; an error is logged and shown.
    void createBookmark(const std::string& folder);
    /// Ends access. No operation calls it: each closes the grant that it opened.
    void stopAccessingBookmark();

  private:
    void folderChosen(const std::optional<std::string>& folder);
    void askAgainAfterCancel();
    void askAgainAfterMismatch(const std::string& folder);

    Services& services_;
    Lifetime lifetime_;
};

} // namespace frimbolate
