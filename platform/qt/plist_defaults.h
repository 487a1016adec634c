// The person's settings in one XML property list.
//
// Every change is written at once, so that a crash loses nothing. Two instances may run beside each
// other: each write takes in what the file holds by then and changes only its own keys.
#pragma once

#include "platform/services.h"

#include <map>

namespace frimbolate {

class PlistDefaults : public Defaults {
  public:
    /// \param path of the property list; its folder is created when there is something to write
    /// \param log  hears, once per trouble, when the file cannot be read or written. The values are
    ///             then kept in memory, and written as soon as that works again.
    PlistDefaults(std::string path, Log& log);

    /// $XDG_CONFIG_HOME/com.qz.Frimbolate.plist, with ~/.config in place of a variable that is
    /// missing or not absolute.
    static std::string defaultPath();

    std::optional<Value> object(std::string_view key) override;
    /// A value that no property list can hold is logged and not taken.
    void set(std::string_view key, Value value) override;
    void remove(std::string_view key) override;
    std::vector<std::string> keys() override;
    void synchronize() override;

  private:
    bool refresh();
    bool setAside(const std::string& reason);
    void write();
    void tell(const std::string& trouble);
    Dictionary current() const;

    std::string path_;
    Log& log_;
    Dictionary stored_; ///< as last seen on the disk
    /// What is not on the disk yet; nothing stands for a key to be removed.
    std::map<std::string, std::optional<Value>, std::less<>> pending_;
    std::string toldTrouble_;
};

} // namespace frimbolate
