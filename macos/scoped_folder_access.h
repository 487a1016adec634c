// Folder access inside the sandbox, through security-scoped bookmarks.
#pragma once

#include "macos/core_foundation.h"
#include "platform/services.h"

#include <map>
#include <set>

namespace frimbolate {

class ScopedFolderAccess : public FolderAccess {
  public:
    /// \throws NamedError "Bookmark not created", with the platform's reason
    Data createBookmark(const std::string& folder) override;
    std::optional<std::string> resolve(const Data& bookmark) override;
    void begin(const std::optional<std::string>& folder) override;
    void end(const std::optional<std::string>& folder) override;
    std::optional<Data> renewedBookmark(const std::string& folder) override;

  private:
    CFURLRef urlOf(const std::optional<std::string>& folder) const;

    /// The resolved URLs by path. The scope belongs to the URL that a bookmark resolved to; a new
    /// URL of the same path would have none.
    std::map<std::string, Owned<CFURLRef>, std::less<>> urls_;
    std::set<std::string, std::less<>> stale_; ///< the folders whose bookmark was stale
};

} // namespace frimbolate
