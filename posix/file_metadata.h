// Copies owner, rights and extended attributes to the replacement of a file.
#pragma once

#include <sys/stat.h>

namespace frimbolate {

/// Whether an error is a fault of the disk or a lack of something, such as space: it can be gone
/// the next time. Others say that something is not permitted, not supported, or not there.
bool isFaultOfSystem(int error);

/// Copies owner and group, extended attributes, mode and access control list, as far as the system
/// permits. Where one may not be copied, no user gets more rights on the new file than on the
/// original (see file_rights.h). A fault of the system (isFaultOfSystem()) is a failure.
/// \param original open for reading, or negative where that is not permitted
/// \param status   of the original
/// \param file     the new one, open for writing and readable by its owner alone
/// \param kept     the bits of the mode that may be kept; without the writing of the group, no
/// entry
///                 of an access control list may write either
/// \returns whether all of that was done; errno gives the reason otherwise
bool copyMetadata(int original, const struct stat& status, int file, mode_t kept);

} // namespace frimbolate
