// The fresh folders of one point, and the comparison of what they hold.
#pragma once

#include "core/value.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/variable.h"

#include <map>
#include <string>
#include <string_view>
#include <sys/acl.h>
#include <sys/types.h>
#include <vector>

namespace frimbolate::test {

/// One entry of a folder. Equal entries are the same in every byte that a user could miss.
struct Item {
    mode_t mode = 0; ///< with the type
    uid_t owner = 0;
    gid_t group = 0;
    std::string content;                           ///< of a file; of a link its text
    std::map<std::string, std::string> attributes; ///< with the access control lists

    bool operator==(const Item&) const = default;
};

/// The entries below a folder by their paths from there.
using FolderState = std::map<std::string, Item>;

FolderState stateOf(const std::string& folder);

/// The item at a path, or nullptr.
const Item* itemAt(const FolderState& state, const std::string& path);

/// The folders of a user: LaunchAgents, elsewhere (the target of links), config, home, tmp.
/// The home and the working directory of this process while it exists.
class UserFolders {
  public:
    UserFolders();
    UserFolders(const UserFolders&) = delete;
    UserFolders& operator=(const UserFolders&) = delete;
    ~UserFolders();

    const std::string& path() const { return root_.path(); }
    std::string operator/(std::string_view name) const { return root_ / name; }
    FolderState state() const { return stateOf(root_.path()); }

    std::string agentName = "com.frimbolate.Backup.plist";
    std::string agents() const { return root_ / "LaunchAgents"; }
    std::string agent() const { return agents() + "/" + agentName; }
    /// The agent's path as FolderState has it.
    std::string agentKey() const { return "LaunchAgents/" + agentName; }

  private:
    std::filesystem::path workingDirectory_ = std::filesystem::current_path();
    TemporaryFolder root_;
    Variable home_{"HOME", root_ / "home"};
    Variable data_{"XDG_DATA_HOME", root_ / "home/data"};
    Variable temporary_{"TMPDIR", root_ / "tmp"};
};

/// \param text as acl_from_text() reads it. Without effect where the file system keeps no lists.
void setAccessList(const std::string& path, const char* text, acl_type_t type);

/// A circumstance under which the operations run.
struct Variation {
    const char* name;
    /// Before any file is there.
    void (*ofFolders)(UserFolders& place);
    /// Once an existing agent (a path) is there.
    void (*ofFile)(const std::string& path);
};

/// The first is the ordinary one.
const std::vector<Variation>& variations();

} // namespace frimbolate::test
