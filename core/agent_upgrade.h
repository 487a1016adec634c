// The current names of an agent of the earlier version.
#pragma once

#include <string>
#include <string_view>

namespace frimbolate {

struct UpgradedNames {
    std::string fileName; ///< proposed for the new file
    std::string label;    ///< built from the file name; the old label is ignored
};

/// The new names for the agent file at a path of the earlier version.
UpgradedNames upgradedNames(std::string_view oldPath);

} // namespace frimbolate
