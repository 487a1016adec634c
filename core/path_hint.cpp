#include "core/path_hint.h"

namespace frimbolate {

std::string pathHint(std::string_view path, std::string_view home) {
    if (!path.starts_with('~'))
        return {};
    std::string hint = "launchd does not expand \u201C~\u201D: write ";
    path.remove_prefix(1);
    const bool isOwnHome = path.empty() || path.front() == '/';
    if (home.empty() || !isOwnHome)
        return hint + "the whole path";
    return hint.append(home).append(path);
}

} // namespace frimbolate
