// The reasons of named errors.
#pragma once

#include "core/named_error.h"

#include <string>

namespace frimbolate::test {

/// The reason of the NamedError of the given name that a call throws. "no failure" where it throws
/// nothing, "another failure: …" where the name differs.
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
