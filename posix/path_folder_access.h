// Folder access on desktops without scoped grants: the bookmark contains the folder's path.
#pragma once

#include "platform/services.h"

namespace frimbolate {

class PathFolderAccess : public FolderAccess {
  public:
    /// \throws NamedError "Bookmark not created" when the path is not that of an existing folder
    Data createBookmark(const std::string& folder) override;
    /// Nothing for a bookmark of another kind, or when the folder does not exist.
    std::optional<std::string> resolve(const Data& bookmark) override;
    // Without scoped grants, access needs no beginning and no end.
    void begin(const std::optional<std::string>&) override {}
    void end(const std::optional<std::string>&) override {}
    /// Nothing: a path does not become stale.
    std::optional<Data> renewedBookmark(const std::string&) override { return std::nullopt; }
};

} // namespace frimbolate
