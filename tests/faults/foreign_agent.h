// An agent that another program made, and what a user does with it.
#pragma once

#include "plist/xml_writer.h"
#include "tests/faults/scripted_desk.h"
#include "tests/faults/user_folders.h"

#include <functional>
#include <stdexcept>

namespace frimbolate::test {

inline Dictionary foreignAgent() {
    return {{"Label", "com.frimbolate.Backup"},
            {"ProgramArguments", Array{Value("/bin/sh"), Value("-c"), Value("true")}},
            {"RunAtLoad", true}};
}

inline void putForeignAgent(const std::string& path) {
    writeBytes(path, xmlPropertyList(foreignAgent()));
}

/// \param result of a call of the system
inline void succeed(int result) {
    if (result != 0)
        throw std::runtime_error("a file cannot be made");
}

/// \param meanwhile called while the alert asks
/// \returns whether no failure is told
inline bool switchesInWindow(
    const UserFolders& place, const std::function<void()>& meanwhile = [] {}) {
    ScriptedDesk desk(place / "elsewhere");
    desk.editor.switchAgent(place.agent());
    if (!desk.alert().starts_with("This launch agent is currently"))
        return false;
    meanwhile();
    desk.platform.press("Continue");
    return desk.alert().empty();
}

inline bool deletesInWindow(
    const UserFolders& place, const std::function<void()>& meanwhile = [] {}) {
    ScriptedDesk desk(place / "elsewhere");
    desk.editor.deleteAgent(place.agent());
    meanwhile();
    desk.platform.press("Delete");
    return desk.alert().empty();
}

} // namespace frimbolate::test
