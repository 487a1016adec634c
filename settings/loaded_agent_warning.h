// The warning before an agent is edited or deleted, with the box that suppresses it for both.
#pragma once

#include "platform/lifetime.h"
#include "platform/services.h"

#include <functional>
#include <string>

namespace frimbolate {

class LoadedAgentWarning {
  public:
    explicit LoadedAgentWarning(Services& services) : services_(services) {}

    /// Runs goOn at once when the warning is suppressed, else after the person's "Continue". On
    /// "Cancel" it logs the line and goes no further.
    void show(const std::function<void()>& goOn, const std::string& cancelLine);

  private:
    bool isSuppressed();

    Services& services_;
    Lifetime lifetime_;
};

} // namespace frimbolate
