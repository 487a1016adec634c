// Implements Application with Qt. Needs a QCoreApplication.
#pragma once

#include "platform/services.h"

#include <functional>
#include <utility>

namespace frimbolate {

class QtApplication : public Application {
  public:
    /// \param present shows an error in a window; what it refers to must outlive this
    explicit QtApplication(std::function<void(std::string)> present)
        : present_(std::move(present)) {}

    void terminate() override;
    void presentError(const std::string& text) override { present_(text); }

  private:
    std::function<void(std::string)> present_;
};

} // namespace frimbolate
