#include "posix/plist_defaults.h"

#include "core/named_error.h"
#include "plist/xml_writer.h"
#include "posix/property_list_file.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace frimbolate {

namespace {

constexpr std::string_view fileName = "com.qz.Frimbolate.plist";

/// Creates the folder and its parents. A failure shows when the file is written.
void createFolderOf(const std::string& path) {
    for (auto slash = path.find('/', 1); slash != std::string::npos;
         slash = path.find('/', slash + 1))
        ::mkdir(path.substr(0, slash).c_str(), 0700);
}

bool areOneFile(const std::string& path, const std::string& other) {
    struct stat one {};
    struct stat two {};
    return ::lstat(path.c_str(), &one) == 0 && ::lstat(other.c_str(), &two) == 0 &&
           one.st_dev == two.st_dev && one.st_ino == two.st_ino;
}

/// Removes the first of the two names of a file, or else the second one.
/// \returns whether the first one is gone
bool removeFirstName(const std::string& path, const std::string& name) {
    if (::unlink(path.c_str()) == 0)
        return true;
    // An error does not say that nothing was done: the second name may be the last one.
    if (areOneFile(path, name))
        ::unlink(name.c_str());
    struct stat status {};
    return ::lstat(path.c_str(), &status) != 0 && errno == ENOENT;
}

/// Renames a damaged file within its folder. Never replaces another file.
/// \returns the new name, or nothing where it keeps its own
std::optional<std::string> renamedDamagedFile(const std::string& path) {
    constexpr std::string_view extension = ".plist";
    const std::string stem =
        path.ends_with(extension) ? path.substr(0, path.size() - extension.size()) : path;
    constexpr int maximumNames = 10000;
    for (int i = 1; i <= maximumNames; ++i) {
        const std::string name = stem + ".damaged-" + std::to_string(i) + std::string(extension);
        // The same file: a process that was killed in between had linked it already.
        if (::linkat(AT_FDCWD, path.c_str(), AT_FDCWD, name.c_str(), 0) == 0 ||
            (errno == EEXIST && areOneFile(path, name)))
            return removeFirstName(path, name) ? std::optional(name) : std::nullopt;
        if (errno != EEXIST)
            return std::nullopt;
    }
    return std::nullopt;
}

} // namespace

PlistDefaults::PlistDefaults(std::string path, Log& log, FileLock::Patience patience)
    : path_(std::move(path)), log_(log), patience_(std::move(patience)) {
    PlistDefaults::synchronize();
}

PlistDefaults::~PlistDefaults() {
    try {
        if (!pending_.empty())
            PlistDefaults::synchronize();
    } catch (const std::exception&) {
        // Out of memory: there is nothing left to try.
    }
}

std::string PlistDefaults::defaultPath() {
    // Not QStandardPaths, which test mode redirects and which differs between platforms.
    const char* configured = std::getenv("XDG_CONFIG_HOME");
    const char* home = std::getenv("HOME");
    const std::string folder = configured && *configured == '/'
                                   ? std::string(configured)
                                   : std::string(home ? home : "") + "/.config";
    return folder + "/" + std::string(fileName);
}

std::optional<Value> PlistDefaults::object(std::string_view key) {
    if (const auto changed = pending_.find(key); changed != pending_.end())
        return changed->second;
    const Value* value = find(stored_, key);
    return value ? std::optional(*value) : std::nullopt;
}

void PlistDefaults::set(std::string_view key, Value value) {
    const std::string name(key);
    try {
        static_cast<void>(xmlPropertyList({{name, value}}));
    } catch (const NamedError& error) {
        log_.line("Could not keep preference " + name + ": " + error.reason());
        return;
    }
    pending_.insert_or_assign(name, std::move(value));
    synchronize();
}

void PlistDefaults::remove(std::string_view key) {
    pending_.insert_or_assign(std::string(key), std::nullopt);
    synchronize();
}

std::vector<std::string> PlistDefaults::keys() {
    auto file = readPropertyListFile(path_);
    if (file.condition == FileCondition::read) {
        stored_ = std::move(file.dictionary);
        readBytes_.clear();
    }
    std::vector<std::string> result;
    for (const auto& [key, value] : current())
        result.push_back(key);
    return result;
}

void PlistDefaults::synchronize() {
    if (update(readFile()))
        change();
}

/// A file with the bytes that the known values were read from is not parsed again: that would take
/// most of the time of a change.
PropertyListFile PlistDefaults::readFile() {
    return readChangedPropertyListFile(path_, readBytes_);
}

Dictionary PlistDefaults::current() const {
    Dictionary result = stored_;
    for (const auto& [key, value] : pending_) {
        if (value)
            result.insert_or_assign(key, *value);
        else
            result.erase(key);
    }
    return result;
}

/// Whether a pending change is not in the known values.
bool PlistDefaults::hasChanges() const {
    return std::ranges::any_of(pending_, [this](const auto& change) {
        const Value* stored = find(stored_, change.first);
        return change.second ? !stored || *stored != *change.second : stored != nullptr;
    });
}

/// Exchanges the pending changes and the known values of their keys. A second call undoes it.
void PlistDefaults::swapPending() {
    for (auto& [key, value] : pending_) {
        std::optional<Value> before;
        if (auto node = stored_.extract(key))
            before = std::move(node.mapped());
        if (value)
            stored_.emplace(key, std::move(*value));
        value = std::move(before);
    }
}

/// Updates the known values from the file. Returns whether the file must be written.
bool PlistDefaults::update(PropertyListFile file) {
    switch (file.condition) {
    case FileCondition::read:
        stored_ = std::move(file.dictionary);
        [[fallthrough]];
    case FileCondition::unchanged: {
        const bool differs = hasChanges();
        if (!differs)
            clearPending();
        return differs;
    }
    case FileCondition::missing:
        if (!current().empty())
            return true;
        stored_.clear(); // every known value is to be removed, and is
        clearPending();
        return false;
    case FileCondition::damaged:
        return true;
    case FileCondition::inaccessible:
        logOnce("Could not read the preferences " + path_ + ": " + file.reason);
        return false;
    }
    return false;
}

/// Writes the file under the lock. Reads it again first: another process may have changed it.
void PlistDefaults::change() {
    createFolderOf(path_);
    const std::string lockPath = path_ + ".lock";
    const FileLock lock(lockPath, waits_ ? patience_ : FileLock::Patience{.tries = 1});
    waits_ = lock.state() != FileLock::State::busy;
    if (!waits_)
        return logOnce("Could not write the preferences " + path_ + ": another program holds " +
                       lockPath);
    auto file = readFile();
    const bool isMissing = file.condition == FileCondition::missing && !stored_.empty();
    if (file.condition == FileCondition::damaged) {
        if (!renameDamagedFile(file.reason))
            return;
        file = {};
    }
    if (!update(std::move(file)) || !write())
        return;
    if (isMissing)
        log_.line("The preferences " + path_ + " were missing and are written anew");
    if (lock.state() == FileLock::State::unavailable && !loggedNoLock_) {
        log_.line("The preferences " + path_ + " were written without a lock: " + lock.reason());
        loggedNoLock_ = true;
    }
}

/// The values known so far stay valid; the next file contains them.
bool PlistDefaults::renameDamagedFile(const std::string& reason) {
    const auto name = renamedDamagedFile(path_);
    if (!name) {
        logOnce("Could not read the preferences " + path_ + " nor set them aside: " + reason);
        return false;
    }
    log_.line("The preferences " + path_ + " cannot be read (" + reason + ") and are now " + *name);
    return true;
}

bool PlistDefaults::write() {
    std::optional<std::string> problem;
    swapPending();
    try {
        problem = writePropertyListFile(path_, stored_, 0600);
    } catch (const NamedError& error) {
        problem = error.reason();
    } catch (...) {
        swapPending();
        throw;
    }
    if (problem) {
        swapPending();
        logOnce("Could not write the preferences " + path_ + ": " + *problem);
        return false;
    }
    readBytes_.clear();
    clearPending();
    return true;
}

/// Called once all changes are on the disk. From then on, changes of other processes win.
void PlistDefaults::clearPending() {
    pending_.clear();
    lastLoggedError_.clear();
}

void PlistDefaults::logOnce(const std::string& problem) {
    if (problem != lastLoggedError_)
        log_.line(problem);
    lastLoggedError_ = problem;
}

} // namespace frimbolate
