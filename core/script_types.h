// The types of script file that the program knows. Writer, form, file panel and icons share this
// table.
#pragma once

#include <array>
#include <string_view>

namespace frimbolate {

struct ScriptType {
    std::string_view extension;   ///< without the dot; compared exactly, case included
    std::string_view interpreter; ///< absolute path of the program that runs it
    std::string_view image;       ///< name of its image resource
    bool isFolder = false;        ///< a folder that desktops show as one file
};

/// The file panel offers the extensions in this order.
inline constexpr std::array<ScriptType, 6> scriptTypes = {
    {{"sh", "/bin/sh", "iconScriptBash.png"},
     {"py", "/usr/bin/python", "iconScriptPython.png"},
     {"rb", "/usr/bin/ruby", "iconScriptRuby.png"},
     {"pl", "/usr/bin/perl", "iconScriptPerl.png"},
     {"scpt", "/usr/bin/osascript", "iconScriptAppleScript.png"},
     {"workflow", "/usr/bin/automator", "iconScriptWorkflow.png", true}}};

/// macOS 12.3 removed it. Agents name it all the same, as the type of a Python script says.
inline constexpr std::string_view removedInterpreter = "/usr/bin/python";

/// The type of a script that is typed in the window.
inline constexpr const ScriptType& shellScript = scriptTypes.front();

/// The type with this extension, or nullptr.
constexpr const ScriptType* scriptTypeWithExtension(std::string_view extension) {
    for (const auto& type : scriptTypes)
        if (type.extension == extension)
            return &type;
    return nullptr;
}

} // namespace frimbolate
