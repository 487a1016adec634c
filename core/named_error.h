// The one exception type of the program: a guarded step raises it, the end of that step catches it.
#pragma once

#include <exception>
#include <string>

namespace frimbolate {

class NamedError : public std::exception {
  public:
    /// \param name   what kind of failure it is, such as "Path not writable"
    /// \param reason one sentence with the path or value filled in
    NamedError(std::string name, std::string reason)
        : name_(std::move(name)), reason_(std::move(reason)) {}

    const std::string& name() const { return name_; }
    const std::string& reason() const { return reason_; }
    /// The reason, as the log shows a failure.
    const char* what() const noexcept override { return reason_.c_str(); }

  private:
    std::string name_;
    std::string reason_;
};

} // namespace frimbolate
