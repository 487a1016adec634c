// Ends this process in the middle of its writes. The functions stand in this program before those
// of the C library.
#pragma once

namespace frimbolate::test {

/// Which call of the next writes ends the process by SIGKILL: fsync() and renameat() count
/// together, the first being 1. 0 for none. \param isAfter whether the call is made before the
/// process ends
void killAtCall(int number, bool isAfter);

} // namespace frimbolate::test
