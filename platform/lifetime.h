// A guard for completions, which run later: they do nothing once the object that asked is gone.
#pragma once

#include <memory>
#include <utility>

namespace frimbolate {

/// A member of the object that the completions refer to. Objects and completions share one thread.
class Lifetime {
  public:
    Lifetime() = default;
    Lifetime(const Lifetime&) = delete;
    Lifetime& operator=(const Lifetime&) = delete;

    /// Wraps a function so that it does nothing once this Lifetime is destroyed.
    template <typename Function>
    auto whileAlive(Function function) const {
        return [alive = std::weak_ptr<const char>(token_),
                function = std::move(function)](auto&&... arguments) mutable {
            if (!alive.expired())
                function(std::forward<decltype(arguments)>(arguments)...);
        };
    }

  private:
    std::shared_ptr<const char> token_ = std::make_shared<const char>();
};

} // namespace frimbolate
