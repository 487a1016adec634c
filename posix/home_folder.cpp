#include "posix/home_folder.h"

#include <pwd.h>
#include <unistd.h>

namespace frimbolate {

std::string homeFolderInUserDatabase() {
    const passwd* entry = ::getpwuid(::getuid());
    return entry && entry->pw_dir ? entry->pw_dir : std::string();
}

} // namespace frimbolate
