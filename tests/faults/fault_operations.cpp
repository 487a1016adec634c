#include "tests/faults/fault_operations.h"

#include "posix/temporary_files.h"

#include <algorithm>
#include <filesystem>

namespace frimbolate::test {

const std::vector<Operation>& operations() {
    static const std::vector<Operation> all = [] {
        std::vector<Operation> made;
        addAgentOperations(made);
        addUpgradeOperations(made);
        addPreferenceOperations(made);
        return made;
    }();
    return all;
}

namespace {

bool isSame(const FolderState& one, const FolderState& other, const std::string& path) {
    const Item* first = itemAt(one, path);
    const Item* second = itemAt(other, path);
    return first && second ? *first == *second : first == second;
}

std::string nameOf(const std::string& path) { return path.substr(path.rfind('/') + 1); }

bool isOutside(const std::string& path) {
    return path == "home" || path.starts_with("home/") || path == "tmp" || path.starts_with("tmp/");
}

} // namespace

bool isOld(const Seen& seen, const std::string& path) {
    return isSame(seen.now, seen.before, path);
}

bool isNew(const Seen& seen, const std::string& path) { return isSame(seen.now, seen.after, path); }

std::string changedBesides(const Seen& seen, const std::vector<std::string>& paths) {
    const auto isExpected = [&](const std::string& path) {
        // What earlier kills left may be removed by any save.
        return isOutside(path) || std::ranges::find(paths, path) != paths.end() ||
               (isTemporaryName(nameOf(path)) &&
                (seen.killed || seen.twice || !seen.now.contains(path) ||
                 seen.before.contains(path)));
    };
    for (const auto& [path, item] : seen.now)
        if (!isExpected(path) && !isOld(seen, path))
            return "changed: " + path;
    for (const auto& [path, item] : seen.before)
        if (!isExpected(path) && !seen.now.contains(path))
            return "gone: " + path;
    return {};
}

std::string untrueAbout(const Seen& seen, const std::string& path) {
    if (seen.killed || (seen.unknowable && !seen.told.success))
        return isOld(seen, path) || isNew(seen, path) ? "" : "neither old nor new: " + path;
    if (seen.told.success)
        return isNew(seen, path) ? "" : "success told, but not new: " + path;
    return isOld(seen, path) ? "" : "failure told, but not old: " + path;
}

std::vector<std::string> leftOvers(const FolderState& state) {
    std::vector<std::string> result;
    for (const auto& [path, item] : state)
        if (isTemporaryName(nameOf(path)) && !isOutside(path))
            result.push_back(path);
    return result;
}

} // namespace frimbolate::test
