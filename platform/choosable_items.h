// Which items an open panel lets the user choose, by their names; shared by the panels of the
// platforms.
#pragma once

#include "core/script_types.h"
#include "platform/file_panels.h"

#include <algorithm>
#include <string_view>

namespace frimbolate {

/// What follows the last dot of a name; empty without a dot.
inline std::string_view extensionOf(std::string_view name) {
    const auto dot = name.rfind('.');
    return dot == std::string_view::npos ? std::string_view() : name.substr(dot + 1);
}

/// Compares two extensions without regard to the case of ASCII letters.
inline bool isSameExtension(std::string_view left, std::string_view right) {
    const auto lower = [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    };
    return std::ranges::equal(left, right, {}, lower, lower);
}

inline bool isOfAllowedType(const OpenPanel& panel, std::string_view name) {
    return panel.allowedFileTypes.empty() ||
           std::ranges::any_of(panel.allowedFileTypes, [&](const std::string& extension) {
               return isSameExtension(extensionOf(name), extension);
           });
}

/// Whether a folder of this name is chosen like a file: an application or a workflow, where the
/// panel allows these types. No other extension makes a folder a bundle.
inline bool isBundleName(const OpenPanel& panel, std::string_view name) {
    const auto isFolderType = [&](const ScriptType& type) {
        return type.isFolder && isSameExtension(extensionOf(name), type.extension);
    };
    return panel.canChooseFiles && !panel.allowedFileTypes.empty() &&
           (isSameExtension(extensionOf(name), "app") ||
            std::ranges::any_of(scriptTypes, isFolderType)) &&
           isOfAllowedType(panel, name);
}

/// Whether the user may choose an item that exists.
inline bool isChoosable(const OpenPanel& panel, std::string_view name, bool isFolder) {
    if (isFolder && !isBundleName(panel, name))
        return panel.canChooseDirectories;
    return panel.canChooseFiles && isOfAllowedType(panel, name);
}

} // namespace frimbolate
