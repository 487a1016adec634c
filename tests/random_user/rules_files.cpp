// The disk holds whole files, and a step changes no more than the one that it is about.
#include "tests/random_user/rules.h"

#include "plist/xml_writer.h"
#include "posix/property_list_file.h"
#include "posix/temporary_files.h"
#include "settings/preferences.h"

#include <algorithm>

namespace frimbolate::test {

namespace {

constexpr std::string_view configFolder = "config/";

bool isOfProgram(const Seen& seen) { return seen.step.kind != "other"; }

bool sameFile(const StoredFile& a, const StoredFile& b) {
    return a.isFolder == b.isFolder && a.bytes == b.bytes;
}

std::string lastComponent(const std::string& path) { return path.substr(path.rfind('/') + 1); }

/// What the step has made, removed and changed outside of the settings.
struct Changes {
    std::vector<std::string> made, gone, changed;
};

Changes changesOf(const Seen& seen) {
    Changes result;
    for (const auto& [path, file] : seen.after) {
        if (path.starts_with(configFolder))
            continue;
        const auto before = seen.before.find(path);
        if (before == seen.before.end())
            result.made.push_back(path);
        else if (!sameFile(before->second, file))
            result.changed.push_back(path);
    }
    for (const auto& [path, file] : seen.before)
        if (!path.starts_with(configFolder) && !seen.after.contains(path))
            result.gone.push_back(path);
    return result;
}

/// Why a file is no whole property list as the program writes it; empty where it is one.
std::string flawOf(const Seen& seen, const std::string& path) {
    const auto file = readPropertyListFile(seen.session.home().root() + "/" + path);
    if (file.condition != FileCondition::read)
        return path + ": " + file.reason;
    return xmlPropertyList(file.dictionary) == seen.after.at(path).bytes
               ? ""
               : path + " is not written as the program writes";
}

/// Whether the user was asked, and the step may have been the answer. A save panel takes any name.
bool wasAskedToReplace(const Seen& seen, const std::string& path) {
    return seen.session.question.starts_with("\u201c" + lastComponent(path) +
                                             "\u201d already exists.");
}

bool isFolder(const StoredFiles& files, const std::string& path) { return files.at(path).isFolder; }

constexpr std::string_view knownSettings[] = {
    PreferenceKey::showWelcomeWindow,
    PreferenceKey::autoCopyScripts,
    PreferenceKey::warnForSuccessfulExit,
    PreferenceKey::defaultGlobbing,
    PreferenceKey::defaultPriority,
    PreferenceKey::warnForDelete,
    PreferenceKey::bookmark,
};

constexpr Rule ofFiles[] = {
    {"NoTemporaryFileStays",
     [](const Seen& seen) -> std::string {
         for (const auto& [path, file] : seen.after)
             if (isTemporaryName(lastComponent(path)))
                 return path;
         return std::string();
     }},
    {"WhatAStepWritesIsAWholeAgent",
     [](const Seen& seen) -> std::string {
         if (!isOfProgram(seen))
             return std::string();
         const Changes changes = changesOf(seen);
         for (const auto* paths : {&changes.made, &changes.changed})
             for (const auto& path : *paths) {
                 // Moved to the trash, and not written.
                 if (isFolder(seen.after, path) || path.find("/.Trash/") != std::string::npos)
                     continue;
                 if (std::string flaw = flawOf(seen, path); !flaw.empty())
                     return flaw;
             }
         return std::string();
     }},
    {"AStepChangesOneFile",
     [](const Seen& seen) -> std::string {
         if (!isOfProgram(seen))
             return std::string();
         const Changes changes = changesOf(seen);
         // An upgrade removes the old file once it has written the new one.
         if (changes.made.size() + changes.changed.size() > 1 || changes.gone.size() > 1)
             return std::string("several files were changed");
         for (const auto& path : changes.gone)
             if (isFolder(seen.before, path) || !path.ends_with(".plist"))
                 return path + " was removed";
         for (const auto& path : changes.changed)
             if (!path.ends_with(".plist") && !wasAskedToReplace(seen, path))
                 return path + " was changed";
         return std::string();
     }},
    {"TheSettingsHoldTheirOwnKeys",
     [](const Seen& seen) -> std::string {
         const std::string name = std::string(configFolder) + "com.qz.Frimbolate.plist";
         if (!isOfProgram(seen) || !seen.after.contains(name))
             return std::string();
         const auto known = seen.before.find(name);
         if (known != seen.before.end() && sameFile(known->second, seen.after.at(name)))
             return std::string();
         if (std::string flaw = flawOf(seen, name); !flaw.empty())
             return flaw;
         const auto file = readPropertyListFile(seen.session.home().preferences());
         for (const auto& [key, value] : file.dictionary)
             if (std::ranges::find(knownSettings, std::string_view(key)) == std::end(knownSettings))
                 return "unknown key " + key;
         return std::string();
     }},
};

} // namespace

std::span<const Rule> fileRules() { return ofFiles; }

} // namespace frimbolate::test
