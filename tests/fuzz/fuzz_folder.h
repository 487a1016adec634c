// A folder for the targets that read and write files. Memory is the fastest place for it: the
// soak run sets TMPDIR to one.
#pragma once

#include "tests/support/temporary_folder.h"

#include <filesystem>

namespace frimbolate::test {

/// Removes everything in a folder.
inline void emptyFolder(const TemporaryFolder& folder) {
    for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
        std::filesystem::remove_all(entry.path());
}

} // namespace frimbolate::test
