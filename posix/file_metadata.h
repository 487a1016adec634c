// Copies owner, rights and extended attributes to the replacement of a file.
#pragma once

#include <sys/stat.h>

namespace frimbolate {

/// Copies owner and group, extended attributes, mode and access control list, as far as the system
/// permits. Where one cannot be copied, no user gets more rights on the new file than on the
/// original (see file_rights.h).
/// \param original open for reading, or negative where that is not permitted
/// \param status   of the original
/// \param file     the new one, open for writing and readable by its owner alone
/// \param kept     the bits of the mode that may be kept; without the writing of the group, no
/// entry
///                 of an access control list may write either
/// \returns whether the rights are set; errno gives the reason otherwise
bool copyMetadata(int original, const struct stat& status, int file, mode_t kept);

} // namespace frimbolate
