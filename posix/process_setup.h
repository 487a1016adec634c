// What has to be in order before a process opens its first file. Knows no Qt.
#pragma once

namespace frimbolate {

/// Opens each of the descriptors 0 to 2 that is closed on /dev/null. Otherwise the first socket or
/// file that the program opens gets that number, and whatever is meant for standard error is
/// written into it. Call it first in main().
void openStandardStreams();

/// Lets a write to a pipe or socket without a reader fail with EPIPE, and a write beyond
/// the limit on the size of files with EFBIG, instead of ending the process. Programs that this
/// one starts get the default disposition back.
void surviveFailedWrites();

} // namespace frimbolate
