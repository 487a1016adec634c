// Reads and writes property lists on the disk, with the reason of a failure.
#pragma once

#include "core/value.h"

#include <optional>
#include <string>
#include <sys/types.h>

namespace frimbolate {

enum class FileCondition {
    read,         ///< the dictionary was read
    missing,      ///< there is no file
    inaccessible, ///< not a regular file, no permission, or an error of the disk
    damaged,      ///< the content is no readable dictionary, or too large
    unchanged     ///< has the bytes of the file that was read before
};

struct PropertyListFile {
    FileCondition condition = FileCondition::missing;
    Dictionary dictionary; ///< empty unless read
    std::string reason;    ///< a clause such as "it is not a regular file"; empty when read. For a
                           ///< damaged text it ends with the line, "… (line 12)"
    std::optional<mode_t> mode = {}; ///< permission bits; nothing where no file was opened
    std::optional<uid_t> owner = {};
    bool isOtherValue = false; ///< damaged only in that it holds a value that is no dictionary
};

/// Reads a property list of any form that plist/ knows. Does not block on a pipe without a writer.
/// \param bytes receives the content of the file where it was read, whether damaged or not
PropertyListFile readPropertyListFile(const std::string& path, std::string* bytes = nullptr);

/// The same, but does not parse a file that has the known bytes: it is unchanged.
/// \param known not empty where a file was read before; receives the bytes of a file that is read,
///        and is empty where it was not
PropertyListFile readChangedPropertyListFile(const std::string& path, std::string& known);

/// Writes an XML property list atomically (see atomic_file.h, for the modes too).
/// \returns nothing, or why the file is unchanged
/// \throws NamedError "Unwritable content" for content that XML cannot represent
std::optional<std::string> writePropertyListFile(const std::string& path,
                                                 const Dictionary& dictionary,
                                                 mode_t newFileMode = 0644,
                                                 mode_t keptMode = 07777);

} // namespace frimbolate
