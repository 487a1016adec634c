// The user's settings in one XML property list.
//
// Every change is written at once, so that a crash loses nothing. Several processes may share the
// file: each takes a lock beside it, reads it again, changes its own keys and keeps the others.
// Reading needs no lock, since the file is only replaced atomically.
#pragma once

#include "platform/services.h"
#include "posix/file_lock.h"
#include "posix/property_list_file.h"

#include <map>

namespace frimbolate {

class PlistDefaults : public Defaults {
  public:
    /// \param path of the property list; its folder is created by the first write
    /// \param log  gets one line per problem when the file cannot be read, locked or written; must
    ///             outlive this. The values are then kept in memory and written once that works.
    /// \param patience how long to wait for the lock. After a call that waited in vain, no call
    ///             waits until the lock was free once.
    PlistDefaults(std::string path, Log& log, FileLock::Patience patience = {});
    /// Tries a last time to write pending changes.
    ~PlistDefaults() override;

    /// $XDG_CONFIG_HOME/com.qz.Frimbolate.plist; ~/.config replaces a variable that is missing or
    /// not absolute.
    static std::string defaultPath();

    std::optional<Value> object(std::string_view key) override;
    /// A value that no property list can represent is logged and not stored.
    void set(std::string_view key, Value value) override;
    void remove(std::string_view key) override;
    /// Reads the file again, so that a reset also removes what other processes wrote.
    std::vector<std::string> keys() override;
    /// A file that is missing although values are known was removed from outside, since a reset
    /// leaves an empty list. It is written again from the known values.
    void synchronize() override;

  private:
    PropertyListFile readFile();
    bool update(PropertyListFile file);
    bool hasChanges() const;
    void swapPending();
    void change();
    bool renameDamagedFile(const std::string& reason);
    bool write();
    void clearPending();
    void logOnce(const std::string& problem);
    Dictionary current() const;

    std::string path_;
    Log& log_;
    FileLock::Patience patience_;
    bool waits_ = true; ///< for the lock
    bool loggedNoLock_ = false;
    Dictionary stored_;     ///< as last read from or written to the disk
    std::string readBytes_; ///< of the file that stored_ was read from; else empty
    /// Changes that are not on the disk yet; nothing marks a key to be removed.
    std::map<std::string, std::optional<Value>, std::less<>> pending_;
    std::string lastLoggedError_;
};

} // namespace frimbolate
