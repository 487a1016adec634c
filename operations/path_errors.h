// The errors of a chosen path that several operations share. The user sees the reason.
#pragma once

#include "core/named_error.h"

#include <string>

namespace frimbolate {

/// The error of a given name about a path that is not accessible.
inline NamedError pathFailure(std::string name, const std::string& path) {
    return {std::move(name), "The chosen path " + path + " is not accessible"};
}

inline NamedError pathNotWritable(const std::string& path) {
    return pathFailure("Path not writable", path);
}

inline NamedError pathNotDeletable(const std::string& path) {
    return pathFailure("Path not delete-able", path);
}

} // namespace frimbolate
