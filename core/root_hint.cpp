#include "core/root_hint.h"

namespace frimbolate {

std::string_view rootFolderHint(std::string_view path) {
    return path.empty() ? "" : "Only root may change the root folder, and an agent runs as you";
}

std::string_view niceLevelHint(std::int64_t level) {
    return level < 0 ? "Only root may go below 0, and an agent runs as you" : "";
}

} // namespace frimbolate
