// The warning before an agent is edited or deleted. Its check box suppresses it for both.
#pragma once

#include "platform/lifetime.h"
#include "platform/services.h"

#include <functional>
#include <string>

namespace frimbolate {

class LoadedAgentWarning {
  public:
    /// \param services must outlive this
    explicit LoadedAgentWarning(Services& services) : services_(services) {}

    /// Calls a function at once where the warning is suppressed, else after the user's "Continue".
    /// "Continue" also stores the state of the check box.
    /// \param onContinue not called once this is destroyed
    /// \param cancelLine is logged on "Cancel"
    void show(const std::function<void()>& onContinue, const std::string& cancelLine);

  private:
    bool isSuppressed();

    Services& services_;
    Lifetime lifetime_;
};

} // namespace frimbolate
