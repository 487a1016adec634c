// The only exception type of the program. A step throws it and the guard around the step catches
// it.
#pragma once

#include <exception>
#include <string>

namespace frimbolate {

class NamedError : public std::exception {
  public:
    /// \param name   the kind of error, such as "Path not writable"
    /// \param reason one sentence that contains the path or value
    NamedError(std::string name, std::string reason)
        : name_(std::move(name)), reason_(std::move(reason)) {}

    const std::string& name() const { return name_; }
    const std::string& reason() const { return reason_; }
    /// The reason; the log shows an error by it.
    const char* what() const noexcept override { return reason_.c_str(); }

  private:
    std::string name_;
    std::string reason_;
};

} // namespace frimbolate
