// Failures as tests look at them.
#pragma once

#include "core/named_error.h"

#include <string>

namespace frimbolate::test {

/// The reason for which a call raises a NamedError of the given name; what else happens as text.
template <typename Call>
std::string reasonOf(const std::string& name, Call call) {
    try {
        call();
    } catch (const NamedError& failure) {
        return failure.name() == name ? failure.reason() : "another failure: " + failure.name();
    }
    return "no failure";
}

} // namespace frimbolate::test
