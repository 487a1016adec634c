#include "core/launchctl_command.h"

namespace frimbolate {

namespace {

constexpr std::string_view loadPrefix = "launchctl load '";
constexpr std::string_view unloadPrefix = "launchctl unload '";

} // namespace

std::string loadCommand(std::string_view path) {
    return std::string(loadPrefix).append(path).append("'");
}

std::string unloadCommand(std::string_view path) {
    return std::string(unloadPrefix).append(path).append("'");
}

bool isUnloadCommand(std::string_view command) { return command.starts_with(unloadPrefix); }

std::string_view pathOfCommand(std::string_view command) {
    const auto opening = command.find('\'');
    const auto closing = command.rfind('\'');
    return opening == closing ? "" : command.substr(opening + 1, closing - opening - 1);
}

} // namespace frimbolate
