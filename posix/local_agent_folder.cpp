#include "posix/local_agent_folder.h"

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace frimbolate {

namespace {

constexpr std::string_view fileSuffix = ".plist";

std::string withSlash(const std::string& folder) {
    return folder.ends_with('/') ? folder : folder + '/';
}

} // namespace

PathState localPathState(const std::string& path) {
    struct stat status {};
    if (path.find('\0') != std::string::npos)
        return PathState::Unknown;
    if (::stat(path.c_str(), &status) != 0)
        return errno == ENOENT || errno == ENOTDIR ? PathState::Missing : PathState::Unknown;
    if (S_ISDIR(status.st_mode))
        return PathState::Folder;
    return ::access(path.c_str(), X_OK) == 0 ? PathState::Executable : PathState::File;
}

std::optional<std::vector<std::string>> LocalAgentFolder::list(const std::string& folder) {
    const std::unique_ptr<DIR, int (*)(DIR*)> open(::opendir(folder.c_str()), ::closedir);
    if (!open)
        return std::nullopt;
    std::vector<std::string> paths;
    while (const dirent* entry = ::readdir(open.get())) {
        const std::string_view name(entry->d_name);
        if (name.ends_with(fileSuffix) && !name.starts_with('.'))
            paths.push_back(withSlash(folder).append(name));
    }
    std::ranges::sort(paths);
    return paths;
}

AgentOverview LocalAgentFolder::read(const std::string& path, const TextStyle& style) {
    PropertyListFile file = readPropertyListFile(path);
    if (file.condition != FileCondition::read)
        return unreadableOverview(path, file.reason);
    const CheckContext context = localCheckContext(path, file, style.home);
    return agentOverview(Value(std::move(file.dictionary)), path, context, style);
}

CheckContext localCheckContext(const std::string& path, const PropertyListFile& file,
                               std::string_view home) {
    CheckContext context;
    context.filePath = path;
    context.mode = file.mode;
    if (file.owner)
        context.ownedByUser = *file.owner == ::getuid() || *file.owner == 0;
    context.home = home;
    context.pathState = localPathState;
    return context;
}

} // namespace frimbolate
