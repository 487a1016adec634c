// Folder access where the desktop knows no scoped grants: the bookmark holds the folder's path.
#pragma once

#include "platform/services.h"

namespace frimbolate {

class PathFolderAccess : public FolderAccess {
  public:
    /// \throws NamedError "Bookmark not created" when the path is not that of an existing folder.
    Data createBookmark(const std::string& folder) override;
    /// Nothing for a bookmark of another kind, and when the folder is gone.
    std::optional<std::string> resolve(const Data& bookmark) override;
    // Whoever may read the folder may read it all the time.
    void begin(const std::optional<std::string>&) override {}
    void end(const std::optional<std::string>&) override {}
};

} // namespace frimbolate
