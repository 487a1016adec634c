// A property list on the disk, and why it could not be read. Knows no Qt.
#pragma once

#include "core/value.h"

#include <optional>
#include <string>
#include <sys/types.h>

namespace frimbolate {

enum class FileCondition {
    read,         ///< the dictionary is there
    missing,      ///< there is no file
    inaccessible, ///< not a regular file, not permitted, or the disk failed
    damaged       ///< its content is not a dictionary that can be read, or is too large
};

struct PropertyListFile {
    FileCondition condition = FileCondition::missing;
    Dictionary dictionary; ///< empty unless read
    std::string reason;    ///< a clause such as "it is not a regular file"; empty when read. Of a
                           ///< damaged text it ends with the line, "… (line 12)"
};

/// Reads a property list of any form that plist/ knows. Never waits, not even for a pipe without a
/// writer.
PropertyListFile readPropertyListFile(const std::string& path);

/// Writes an XML property list atomically (see atomic_file.h).
/// \returns nothing, or why the file is as it was before
/// \throws NamedError "Unwritable content" when a text holds what no XML file can hold
std::optional<std::string> writePropertyListFile(const std::string& path,
                                                 const Dictionary& dictionary,
                                                 mode_t newFileMode = 0644);

} // namespace frimbolate
