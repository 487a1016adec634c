// Keeps the whole process from changing a file outside of one folder: the program under test, the
// toolkit's own panels, and the test itself. The functions of the system that change files stand in
// this program in front of those of the C library, so no caller can forget to ask.
#pragma once

#include <string>
#include <vector>

namespace frimbolate::test {

/// From now on every such call for a path outside of the folder fails with EACCES. Reading is free,
/// and so are devices. \param folder an existing one; for as long as the process lives
void confineWritesTo(const std::string& folder);

/// The calls that were refused so far, each with its path.
std::vector<std::string> refusedWrites();

} // namespace frimbolate::test
