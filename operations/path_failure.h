// The failures of a path that several operations meet, in the words that the person is shown.
#pragma once

#include "core/failure.h"

#include <string>

namespace frimbolate {

inline Failure pathFailure(std::string name, const std::string& path) {
    return {std::move(name), "The chosen path " + path + " is not accessible"};
}

inline Failure pathNotWritable(const std::string& path) {
    return pathFailure("Path not writable", path);
}

inline Failure pathNotDeletable(const std::string& path) {
    return pathFailure("Path not delete-able", path);
}

} // namespace frimbolate
