// Folder access inside the sandbox, through security-scoped bookmarks.
#pragma once

#include "platform/services.h"

#include <memory>

namespace frimbolate {

class ScopedFolderAccess : public FolderAccess {
  public:
    ScopedFolderAccess();
    ~ScopedFolderAccess() override;

    Data createBookmark(const std::string& folder) override;
    std::optional<std::string> resolve(const Data& bookmark) override;
    void begin(const std::optional<std::string>& folder) override;
    void end(const std::optional<std::string>& folder) override;

  private:
    /// The resolved URLs by path. The scope belongs to the URL that a bookmark resolved to; a new
    /// URL of the same path would have none.
    struct Urls;
    std::unique_ptr<Urls> urls_;
};

} // namespace frimbolate
