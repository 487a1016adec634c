// The failures of a path that several operations meet, in the words that the person is shown.
#pragma once

#include "core/named_error.h"

#include <string>

namespace frimbolate {

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
