// Owner, rights and extended attributes, carried over to a file that takes another one's place.
#pragma once

#include <sys/stat.h>

namespace frimbolate {

/// As far as the system lets us: owner and group, extended attributes, mode and access control
/// list. Where one of these cannot be carried over, nobody may do more with the new file than
/// with the original (see file_rights.h).
/// \param original open for reading, or negative where that is not permitted
/// \param status   of the original
/// \param file     the new one, open for writing and readable by its owner alone
/// \returns whether the rights stand; errno says why not
bool copyMetadata(int original, const struct stat& status, int file);

} // namespace frimbolate
