// The user's settings in one XML property list.
//
// Every change is written at once, so that a crash loses nothing. Several programs may share the
// file: each takes a lock beside it, reads it again, changes its own keys and leaves the others'.
// Reading needs no lock, since the file is only ever replaced in one piece.
#pragma once

#include "platform/services.h"
#include "posix/file_lock.h"
#include "posix/property_list_file.h"

#include <map>

namespace frimbolate {

class PlistDefaults : public Defaults {
  public:
    /// \param path of the property list; its folder is created when there is something to write
    /// \param log  hears, once per problem, when the file cannot be read, locked or written. The
    ///             values are then kept in memory, and written as soon as that works again.
    /// \param patience with another program that holds the lock. After one call that waited in vain
    ///             none waits until the lock could be had again.
    PlistDefaults(std::string path, Log& log, FileLock::Patience patience = {});
    /// A last try to write what could not be written yet.
    ~PlistDefaults() override;

    /// $XDG_CONFIG_HOME/com.qz.Frimbolate.plist, with ~/.config in place of a variable that is
    /// missing or not absolute.
    static std::string defaultPath();

    std::optional<Value> object(std::string_view key) override;
    /// A value that no property list can hold is logged and not taken.
    void set(std::string_view key, Value value) override;
    void remove(std::string_view key) override;
    /// Reads afresh, so that a reset removes what other programs wrote, too.
    std::vector<std::string> keys() override;
    /// A file that is missing although values are known was not emptied: a reset leaves an empty
    /// list. It has vanished, and is written anew from what is known.
    void synchronize() override;

  private:
    bool takeIn(PropertyListFile file);
    void change();
    bool setAside(const std::string& reason);
    bool write();
    void settle();
    void logOnce(const std::string& problem);
    Dictionary current() const;

    std::string path_;
    Log& log_;
    FileLock::Patience patience_;
    bool waits_ = true; ///< for the lock
    bool toldNoLock_ = false;
    Dictionary stored_; ///< as last seen on the disk
    /// What is not on the disk yet; nothing stands for a key to be removed.
    std::map<std::string, std::optional<Value>, std::less<>> pending_;
    std::string lastLoggedError_;
};

} // namespace frimbolate
