// The temporary home of a random user: scripts and applications to choose, agents of the user and
// of others, and the folder of the settings.
#pragma once

#include "tests/support/random_values.h"
#include "tests/support/temporary_folder.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace frimbolate::test {

/// What stood at a path: the content of a file, and what tells whether it was written since.
struct StoredFile {
    std::uint64_t inode = 0;
    std::int64_t changed = 0; ///< nanoseconds; time of the last change of content or rights
    bool isFolder = false;
    std::string bytes; ///< empty for a folder
};

/// By path from the root of the home.
using StoredFiles = std::map<std::string, StoredFile>;

class UserHome {
  public:
    static constexpr const char* user = "maya";

    UserHome();

    /// Removes everything that was made since, and puts the first files back. The settings grant
    /// the folder and show no welcome sheet.
    void putBack();

    std::string root() const { return root_.path(); }
    std::string home() const { return root_ / "Users/maya"; }
    std::string agents() const { return home() + "/Library/LaunchAgents"; }
    std::string config() const { return root_ / "config"; }
    std::string preferences() const { return config() + "/com.qz.Frimbolate.plist"; }
    /// "~" and "~/…" stand for the home.
    std::string expanded(std::string_view path) const;

    /// A change of the files by another program.
    struct Change {
        const char* name;
        void (*make)(UserHome& home);
    };
    static const std::vector<Change>& changes();
    /// Makes the change of that name; nothing for any other name.
    void change(std::string_view name);

    /// Every file and folder below the root. What was not written since `before` is not read again.
    StoredFiles files(const StoredFiles& before = {}) const;
    /// The property lists of the agents' folder that the list of agents shows, sorted.
    std::vector<std::string> agentFiles() const;

    void put(std::string_view path, std::string_view bytes) const;
    void remove(std::string_view path) const;

  private:
    void make(std::string_view path, std::string_view bytes, unsigned mode = 0644) const;
    void putAgents() const;

    TemporaryFolder root_;
};

} // namespace frimbolate::test
