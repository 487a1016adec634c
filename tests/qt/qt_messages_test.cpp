#include "posix/file_descriptor.h"
#include "qt/qt_messages.h"
#include "tests/support/child_process.h"

#include <QtGlobal>

#include <gtest/gtest.h>

#include <csignal>
#include <fcntl.h>
#include <sys/resource.h>

namespace frimbolate::test {

namespace {

/// Runs the body in a child process whose Qt messages go to a pipe, and returns its status.
template <typename Body>
int statusWith(int errors, Body body) {
    return statusOfChild([&] {
        const rlimit none{0, 0};
        ::setrlimit(RLIMIT_CORE, &none);
        ::dup2(errors, STDERR_FILENO);
        routeQtMessages();
        body();
        return 0;
    });
}

class QtMessages : public testing::Test {
  protected:
    QtMessages() {
        int ends[2] = {-1, -1};
        EXPECT_EQ(::pipe(ends), 0);
        reading = FileDescriptor(ends[0]);
        writing = FileDescriptor(ends[1]);
    }
    std::string read() const {
        std::string text(65536, '\0');
        const ssize_t size = ::read(reading.number(), text.data(), text.size());
        text.resize(size < 0 ? 0 : static_cast<std::size_t>(size));
        return text;
    }

    FileDescriptor reading{-1}, writing{-1};
};

TEST_F(QtMessages, AreLinesOnStandardError) {
    EXPECT_TRUE(endedWell(statusWith(writing.number(), [] {
        qWarning("one %d", 1);
        qWarning("two");
    })));
    EXPECT_EQ(read(), "one 1\ntwo\n");
}

TEST_F(QtMessages, DoNotWaitForAReader) {
    ::fcntl(writing.number(), F_SETFL, O_NONBLOCK);
    while (::write(writing.number(), "-", 1) == 1) {
    }
    ::fcntl(writing.number(), F_SETFL, 0);
    EXPECT_TRUE(endedWell(statusWith(writing.number(), [] { qWarning("dropped"); })));
}

TEST_F(QtMessages, EndTheProcessWhereTheyAreFatal) {
    const int told = statusWith(writing.number(), [] {
        fatalMessagesExit(3);
        qFatal("no platform");
    });
    EXPECT_TRUE(WIFEXITED(told) && WEXITSTATUS(told) == 3) << told;
    EXPECT_EQ(read(), "no platform\n");
    const int aborted = statusWith(writing.number(), [] {
        fatalMessagesExit(3);
        fatalMessagesAbort();
        qFatal("a mistake of the program");
    });
    EXPECT_TRUE(WIFSIGNALED(aborted) && WTERMSIG(aborted) == SIGABRT) << aborted;
}

} // namespace

} // namespace frimbolate::test
