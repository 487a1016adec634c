#include "core/launchctl_command.h"

#include "core/conversions.h"

namespace frimbolate {

namespace {

constexpr std::string_view loadPrefix = "launchctl load '";
constexpr std::string_view unloadPrefix = "launchctl unload '";

std::string modernCommand(std::string_view verb, std::string_view path) {
    return std::string("launchctl ").append(verb).append(" gui/$(id -u) '") +
           replacedAll(path, "'", "'\\''") + "'";
}

} // namespace

std::string loadCommand(std::string_view path) {
    return std::string(loadPrefix).append(path).append("'");
}

std::string unloadCommand(std::string_view path) {
    return std::string(unloadPrefix).append(path).append("'");
}

std::string bootstrapCommand(std::string_view path) { return modernCommand("bootstrap", path); }

std::string bootoutCommand(std::string_view path) { return modernCommand("bootout", path); }

bool isUnloadCommand(std::string_view command) { return command.starts_with(unloadPrefix); }

std::string_view pathOfCommand(std::string_view command) {
    const auto opening = command.find('\'');
    const auto closing = command.rfind('\'');
    return opening == closing ? "" : command.substr(opening + 1, closing - opening - 1);
}

} // namespace frimbolate
