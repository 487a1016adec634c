// Implements Defaults with the user defaults of the program.
#pragma once

#include "platform/services.h"

namespace frimbolate {

class UserDefaults : public Defaults {
  public:
    std::optional<Value> object(std::string_view key) override;
    void set(std::string_view key, Value value) override;
    void remove(std::string_view key) override;
    /// The keys of the program's own domain, without the global ones.
    std::vector<std::string> keys() override;
    void synchronize() override;
};

} // namespace frimbolate
