#include "posix/local_files.h"

#include "plist/xml_writer.h"
#include "posix/property_list_file.h"
#include "posix/sandboxed_folder.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace frimbolate {

namespace {

/// The system cuts a path off at a NUL and would find another file.
bool isPath(const std::string& path) { return path.find('\0') == std::string::npos; }

} // namespace

bool LocalFiles::exists(const std::string& path) {
    struct stat status {};
    return isPath(path) && ::stat(path.c_str(), &status) == 0;
}

bool LocalFiles::isWritable(const std::string& path) {
    if (!isPath(path))
        return false;
    return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0 ||
           isRefusedBySandboxAlone(path.c_str(), errno);
}

bool LocalFiles::remove(const std::string& path) {
    struct stat status {};
    if (!isPath(path))
        return false;
    if (::lstat(path.c_str(), &status) != 0)
        return errno == ENOENT;
    if (S_ISDIR(status.st_mode))
        return false;
    // An error does not say that nothing was done.
    return ::unlink(path.c_str()) == 0 || (::lstat(path.c_str(), &status) != 0 && errno == ENOENT);
}

std::optional<Dictionary> LocalFiles::readDictionary(const std::string& path) {
    auto file = readPropertyListFile(path);
    if (file.condition == FileCondition::damaged)
        log_.line("Could not read property list " + path + ": " + file.reason);
    if (file.condition != FileCondition::read)
        return std::nullopt;
    return std::move(file.dictionary);
}

bool LocalFiles::writeDictionary(const std::string& path, const Dictionary& dictionary) {
    // launchd skips an agent that others than its owner may write.
    constexpr mode_t newFileMode = 0644, keptMode = 07755;
    const auto reason = writePropertyListFile(path, dictionary, newFileMode, keptMode);
    if (reason)
        log_.line("Could not write property list " + path + ": " + *reason);
    return !reason;
}

std::string LocalFiles::propertyListText(const Dictionary& dictionary) {
    return xmlPropertyList(dictionary);
}

} // namespace frimbolate
