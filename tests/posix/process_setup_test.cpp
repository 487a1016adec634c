#include "posix/file_descriptor.h"
#include "posix/process_setup.h"
#include "tests/support/child_process.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace frimbolate::test {

namespace {

bool isNull(int file) {
    struct stat status {};
    return ::fstat(file, &status) == 0 && S_ISCHR(status.st_mode) &&
           status.st_rdev == ::makedev(1, 3);
}

/// A row is the set of closed standard streams, one bit per descriptor.
class StandardStreams : public testing::TestWithParam<unsigned> {};

TEST_P(StandardStreams, AreOpenAfterwards) {
    const unsigned closed = GetParam();
    const int status = statusOfChild([closed] {
        const TemporaryFolder folder;
        const FileDescriptor file(::open((folder / "x").c_str(), O_RDWR | O_CREAT, 0600));
        for (int stream = 0; stream < 3; ++stream)
            if (closed & (1U << stream))
                ::close(stream);
            else if (::dup2(file.number(), stream) != stream)
                return 10;
        openStandardStreams();
        for (int stream = 0; stream < 3; ++stream)
            if (isNull(stream) != ((closed & (1U << stream)) != 0))
                return stream + 1;
        // The replacements can be read and written.
        char byte = 0;
        if ((closed & 1U) && ::read(0, &byte, 1) != 0)
            return 11;
        if ((closed & 4U) && ::write(2, "x", 1) != 1)
            return 12;
        return 0;
    });
    EXPECT_TRUE(endedWell(status)) << status;
}

INSTANTIATE_TEST_SUITE_P(ProcessSetup, StandardStreams, testing::Range(0U, 8U),
                         [](const auto& row) { return "Closed" + std::to_string(row.param); });

TEST(FailedWrites, DoNotEndTheProcess) {
    const int status = statusOfChild([] {
        surviveFailedWrites();
        int ends[2] = {-1, -1};
        if (::pipe(ends) != 0)
            return 10;
        ::close(ends[0]);
        if (::write(ends[1], "x", 1) != -1 || errno != EPIPE)
            return 1;
        const TemporaryFolder folder;
        const FileDescriptor file(::open((folder / "x").c_str(), O_RDWR | O_CREAT, 0600));
        const rlimit narrow{1, 1};
        ::setrlimit(RLIMIT_FSIZE, &narrow);
        return ::write(file.number(), "x", 1) == 1 && ::write(file.number(), "x", 1) == -1 ? 0 : 2;
    });
    EXPECT_TRUE(endedWell(status)) << status;
}

TEST(FailedWrites, EndAProgramThatWasStarted) {
    for (const char* signal : {"PIPE", "XFSZ"}) {
        const int status = statusOfChild([signal] {
            surviveFailedWrites();
            const rlimit none{0, 0};
            ::setrlimit(RLIMIT_CORE, &none);
            const std::string script = std::string("kill -") + signal + " $$";
            ::execl("/bin/sh", "sh", "-c", script.c_str(), nullptr);
            return 10;
        });
        EXPECT_TRUE(WIFSIGNALED(status)) << signal << " " << status;
    }
}

} // namespace

} // namespace frimbolate::test
