// An agent of the earlier version under its current name.
#pragma once

#include <string>
#include <string_view>

namespace frimbolate {

struct UpgradedNames {
    std::string fileName; ///< proposed for the new file
    std::string label;    ///< built from the file name; the old label plays no part
};

/// The new names for an agent file at this path of the earlier version.
UpgradedNames upgradedNames(std::string_view oldPath);

} // namespace frimbolate
