// Implements Defaults with the user defaults of the program.
#pragma once

#include "macos/core_foundation.h"
#include "platform/services.h"

namespace frimbolate {

class UserDefaults : public Defaults {
  public:
    /// \param log    gets a line when a value cannot be stored; must outlive this
    /// \param domain the identifier of an application; by default that of the running one
    explicit UserDefaults(Log& log, std::string_view domain = {});

    /// Also the values that the user set for all programs, and those that an administrator set.
    std::optional<Value> object(std::string_view key) override;
    /// A value that no property list can represent is logged and not stored.
    void set(std::string_view key, Value value) override;
    void remove(std::string_view key) override;
    /// The keys of the program's own domain, without the global ones.
    std::vector<std::string> keys() override;
    void synchronize() override;

  private:
    CFStringRef domain() const;

    Log& log_;
    Owned<CFStringRef> domain_; ///< null for that of the running application
};

} // namespace frimbolate
