#include "tests/faults/user_folders.h"

#include <array>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <sys/acl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <type_traits>

namespace frimbolate::test {

namespace {

std::map<std::string, std::string> attributesOf(const std::string& path) {
    std::array<char, 4096> names{};
    std::map<std::string, std::string> result;
    const ssize_t size = ::llistxattr(path.c_str(), names.data(), names.size());
    for (ssize_t start = 0; start < size;) {
        const char* name = names.data() + start;
        start += static_cast<ssize_t>(std::strlen(name)) + 1;
        std::array<char, 4096> value{};
        const ssize_t length = ::lgetxattr(path.c_str(), name, value.data(), value.size());
        result[name] = {value.data(), length < 0 ? 0 : static_cast<std::size_t>(length)};
    }
    return result;
}

Item itemOf(const std::filesystem::directory_entry& entry) {
    const std::string path = entry.path().string();
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0)
        throw std::runtime_error("no status of " + path);
    Item item{status.st_mode, status.st_uid, status.st_gid, {}, attributesOf(path)};
    if (S_ISREG(status.st_mode))
        item.content = bytesOf(path);
    else if (S_ISLNK(status.st_mode))
        item.content = std::filesystem::read_symlink(path).string();
    return item;
}

struct FreeAccessList {
    void operator()(acl_t list) const { ::acl_free(list); }
};

void setMode(const std::string& path, mode_t mode) {
    if (::chmod(path.c_str(), mode) != 0)
        throw std::runtime_error("no mode of " + path);
}

void setAttribute(const std::string& path, const char* name, const std::string& value) {
    static_cast<void>(::setxattr(path.c_str(), name, value.data(), value.size(), 0));
}

void leaveFolders(UserFolders&) {}
void leaveFile(const std::string&) {}

/// What killed saves left days ago, and files of others.
void fillFolder(UserFolders& place) {
    for (const char* name : {".frimbolate-0123456789abcdee", ".hidden", "org.example.other.plist",
                             "com.frimbolate.Other.plist", "notes.txt"})
        writeBytes(place.agents() + "/" + name, name);
    const std::array<timespec, 2> longAgo{};
    ::utimensat(AT_FDCWD, (place.agents() + "/.frimbolate-0123456789abcdee").c_str(),
                longAgo.data(), 0);
}

} // namespace

void setAccessList(const std::string& path, const char* text, acl_type_t type) {
    const std::unique_ptr<std::remove_pointer_t<acl_t>, FreeAccessList> list(::acl_from_text(text));
    if (!list)
        throw std::runtime_error("no access list");
    static_cast<void>(::acl_set_file(path.c_str(), type, list.get()));
}

FolderState stateOf(const std::string& folder) {
    FolderState state;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        state[entry.path().lexically_relative(folder).string()] = itemOf(entry);
    return state;
}

const Item* itemAt(const FolderState& state, const std::string& path) {
    const auto found = state.find(path);
    return found == state.end() ? nullptr : &found->second;
}

UserFolders::UserFolders() {
    for (const char* name : {"LaunchAgents", "elsewhere", "home", "home/data", "tmp"})
        std::filesystem::create_directory(root_ / name);
    std::filesystem::current_path(root_ / "home");
}

UserFolders::~UserFolders() { std::filesystem::current_path(workingDirectory_); }

const std::vector<Variation>& variations() {
    static const std::vector<Variation> all = {
        {"Ordinary", leaveFolders, leaveFile},
        {"FilledFolder", fillFolder, leaveFile},
        {"AccessList", leaveFolders,
         [](const std::string& file) {
             setAccessList(file, "u::rw-,u:12345:r--,g::r--,g:12346:r--,m::r--,o::r--",
                           ACL_TYPE_ACCESS);
         }},
        {"ExtendedAttributes", leaveFolders,
         [](const std::string& file) {
             setAttribute(file, "user.tag", "green");
             setAttribute(file, "user.empty", "");
             setAttribute(file, "user.long", std::string(700, 'x'));
         }},
        {"FolderOfOneGroup",
         [](UserFolders& place) {
             setMode(place.agents(), 02775);
             setMode(place / "elsewhere", 02775);
         },
         leaveFile},
        {"FolderWithDefaultList",
         [](UserFolders& place) {
             for (const char* name : {"LaunchAgents", "elsewhere"})
                 setAccessList(place / name, "u::rwx,u:12345:rwx,g::r-x,m::rwx,o::r-x",
                               ACL_TYPE_DEFAULT);
         },
         leaveFile},
        {"PrivateFile", leaveFolders, [](const std::string& file) { setMode(file, 0600); }},
        {"ReadOnlyForOthersFile", leaveFolders,
         [](const std::string& file) { setMode(file, 0640); }},
        {"LongestName",
         [](UserFolders& place) {
             place.agentName = "com.frimbolate." + std::string(234, 'n') + ".plist";
         },
         leaveFile},
        {"NameOfManyScripts",
         [](UserFolders& place) { place.agentName = "com.frimbolate.Größe 日本 😀 it's.plist"; },
         leaveFile},
        {"SharedStickyFolder",
         [](UserFolders& place) {
             setMode(place.agents(), 01777);
             setMode(place / "elsewhere", 01777);
         },
         leaveFile},
    };
    return all;
}

} // namespace frimbolate::test
