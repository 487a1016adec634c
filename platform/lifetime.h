// Answers to questions arrive later; a Lifetime makes sure that whoever asked still lives then.
#pragma once

#include <memory>
#include <utility>

namespace frimbolate {

class Lifetime {
  public:
    Lifetime() = default;
    Lifetime(const Lifetime&) = delete;
    Lifetime& operator=(const Lifetime&) = delete;

    /// The function, made to do nothing once this Lifetime is gone.
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
