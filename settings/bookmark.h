// The grant of the LaunchAgents folder: asked for once, kept as a bookmark, opened for each work.
#pragma once

#include "platform/lifetime.h"
#include "platform/services.h"

#include <optional>
#include <string>

namespace frimbolate {

/// The pattern of every folder operation: open, show the panel in the folder, work, close. Where a
/// path deliberately leaves access begun, the operation simply does not close it.
class FolderGrant {
  public:
    explicit FolderGrant(Services& services) : services_(services) {}

    /// Resolves the stored bookmark and begins access; nothing when there is none to resolve.
    std::optional<std::string> open();
    void close(const std::optional<std::string>& folder);

  private:
    Services& services_;
};

/// Obtains the bookmark at the end of the welcome flow. It holds no state between calls.
class BookmarkClass {
  public:
    explicit BookmarkClass(Services& services) : services_(services) {}

    /// Begins access at start; without a bookmark it asks for the folder.
    void startAccessingBookmark();
    /// Asks for the folder until one is chosen or the person quits.
    void scopeABookmarkWithWindow();
    /// Makes the bookmark of a folder and stores it; a error is logged and shown.
    void createBookmark(const std::string& folder);
    /// Ends access. No operation calls it: each closes its own.
    void stopAccessingBookmark();

  private:
    void folderChosen(const std::optional<std::string>& folder);
    void askAgainAfterCancel();
    void askAgainAfterMismatch(const std::string& folder);

    Services& services_;
    Lifetime lifetime_;
};

} // namespace frimbolate
