// The owner and the permissions of files in tests.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <sys/stat.h>

namespace frimbolate::test {

/// No user of the machine; only root can give files to it.
constexpr uid_t anotherUser = 12345;

/// The permissions of a file, a link not followed. A failure of the test if there is none.
inline mode_t modeOfFile(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(::lstat(path.c_str(), &status), 0) << path;
    return status.st_mode & 07777U;
}

} // namespace frimbolate::test
