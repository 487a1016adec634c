#include "tests/two_at_once/shared_folders.h"

#include "core/value.h"
#include "plist/xml_writer.h"
#include "posix/property_list_file.h"

#include <cstdio>
#include <filesystem>

namespace frimbolate::test {

namespace {

std::optional<Mark> parsed(const std::string& text) {
    Mark mark;
    int used = 0;
    const bool isRead =
        std::sscanf(text.c_str(), "%d.%d%n", &mark.program, &mark.round, &used) == 2;
    return isRead && static_cast<std::size_t>(used) == text.size() ? std::optional(mark)
                                                                   : std::nullopt;
}

std::string text(const Dictionary& dictionary, const char* key) {
    const Value* value = find(dictionary, key);
    return value && value->string() ? *value->string() : "";
}

/// The last argument of a typed script, which is the script.
std::string script(const Dictionary& agent) {
    const Value* arguments = find(agent, "ProgramArguments");
    const bool hasScript = arguments && arguments->array() && !arguments->array()->empty();
    const std::string* last = hasScript ? arguments->array()->back().string() : nullptr;
    return last ? *last : "";
}

} // namespace

SharedFolders::SharedFolders() {
    namespace fs = std::filesystem;
    fs::create_directories(agents());
    fs::create_directories(root_ / "config");
    const std::string bookmark = "path1:" + agents();
    writeBytes(settings(),
               xmlPropertyList({{"ShowWelcomeWindow", "False - 3.0"},
                                {"Bookmark", Data{{bookmark.begin(), bookmark.end()}}}}));
    writeBytes(switchedAgent(), xmlPropertyList({{"Enabled", true},
                                                 {"Label", "org.example.switched"},
                                                 {"ProgramArguments", Array{Value("/bin/ls")}}}));
}

std::string SharedFolders::ownAgent(int program) const {
    return agents() + "/com.frimbolate.own" + std::to_string(program) + ".plist";
}

std::optional<Mark> SharedFolders::markOf(const std::string& path) {
    const auto file = readPropertyListFile(path);
    if (file.condition != FileCondition::read)
        return std::nullopt;
    const auto mark = parsed(text(file.dictionary, "WorkingDirectory"));
    return mark && script(file.dictionary).starts_with(mark->text() + "\n") ? mark : std::nullopt;
}

std::string SharedFolders::flawOfAgent(const std::string& path) const {
    const auto file = readPropertyListFile(path);
    if (file.condition == FileCondition::missing)
        return {};
    if (file.condition != FileCondition::read)
        return path + ": " + file.reason;
    if (path == switchedAgent()) {
        const Value* enabled = find(file.dictionary, "Enabled");
        const bool isWhole = file.dictionary.size() == 3 && enabled && enabled->boolean();
        return isWhole ? "" : path + " has lost a key";
    }
    return markOf(path) ? "" : path + " mixes what two programs wrote";
}

std::string SharedFolders::flawOfSettings() const {
    const auto file = readPropertyListFile(settings());
    if (file.condition != FileCondition::read)
        return settings() + ": " + file.reason;
    return find(file.dictionary, "Bookmark") ? "" : "the settings have lost the grant";
}

} // namespace frimbolate::test
