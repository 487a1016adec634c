// Prepares standard streams and signals before a process opens its first file.
#pragma once

namespace frimbolate {

/// Opens each closed descriptor of 0 to 2 on /dev/null. Otherwise the first socket or file that the
/// program opens gets that number and receives the output to standard error. Call it first in
/// main().
void openStandardStreams();

/// Makes a write to a pipe or socket without a reader fail with EPIPE, and a write beyond the limit
/// on file sizes with EFBIG, instead of ending the process. Child processes get the default
/// disposition.
void surviveFailedWrites();

} // namespace frimbolate
