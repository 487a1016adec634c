// The hints about advanced keys that launchd obeys as root alone. An agent runs as its user.
#pragma once

#include <cstdint>
#include <string_view>

namespace frimbolate {

/// Why a root folder has no use in an agent; empty without one.
std::string_view rootFolderHint(std::string_view path);

/// Why that nice level has no use in an agent; empty for 0 and more.
std::string_view niceLevelHint(std::int64_t level);

} // namespace frimbolate
