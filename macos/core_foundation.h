// Ownership of CoreFoundation objects.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <utility>

namespace frimbolate {

/// Owns one reference to an object, or none. It is released with this.
template <typename Reference>
class Owned {
  public:
    Owned() = default;
    /// Takes over the reference that a function named Create or Copy returns; null is allowed.
    explicit Owned(Reference reference) : reference_(reference) {}
    Owned(Owned&& other) noexcept : reference_(std::exchange(other.reference_, nullptr)) {}
    Owned& operator=(Owned&& other) noexcept {
        std::swap(reference_, other.reference_);
        return *this;
    }
    ~Owned() {
        if (reference_)
            ::CFRelease(reference_);
    }

    Reference get() const { return reference_; }
    explicit operator bool() const { return reference_ != nullptr; }
    /// For a function that returns an object through a pointer. Only while nothing is owned.
    Reference* out() { return &reference_; }

  private:
    Reference reference_ = nullptr;
};

/// A further reference to an object that another owner keeps, such as an element of a list.
template <typename Reference>
Owned<Reference> retained(Reference reference) {
    if (reference)
        ::CFRetain(reference);
    return Owned<Reference>(reference);
}

} // namespace frimbolate
