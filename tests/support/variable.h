// Sets an environment variable during its lifetime, and restores the old state at the end.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace frimbolate::test {

class Variable {
  public:
    Variable(const char* name, const std::string& value) : name_(name) {
        const char* before = std::getenv(name);
        before_ = before ? std::optional<std::string>(before) : std::nullopt;
        ::setenv(name, value.c_str(), 1);
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;
    ~Variable() { before_ ? ::setenv(name_, before_->c_str(), 1) : ::unsetenv(name_); }

  private:
    const char* name_;
    std::optional<std::string> before_;
};

} // namespace frimbolate::test
