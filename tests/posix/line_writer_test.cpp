#include "posix/line_writer.h"
#include "posix/process_setup.h"
#include "tests/support/child_process.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/watchdog.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <termios.h>

namespace frimbolate::test {

namespace {

/// All bytes that can be read without waiting.
std::string drained(int file) {
    ::fcntl(file, F_SETFL, ::fcntl(file, F_GETFL) | O_NONBLOCK);
    std::string all, piece(65536, '\0');
    for (ssize_t size = 0; (size = ::read(file, piece.data(), piece.size())) > 0;)
        all.append(piece, 0, static_cast<std::size_t>(size));
    return all;
}

/// Writes until the buffer is full, and restores the flags of the descriptor.
void fill(int file) {
    const int flags = ::fcntl(file, F_GETFL);
    ::fcntl(file, F_SETFL, flags | O_NONBLOCK);
    const std::string piece(4096, '-');
    while (::write(file, piece.data(), piece.size()) > 0) {
    }
    while (::write(file, "-", 1) > 0) {
    }
    ::fcntl(file, F_SETFL, flags);
}

struct Ends {
    FileDescriptor reading, writing;
};

Ends makePipe() {
    int ends[2] = {-1, -1};
    EXPECT_EQ(::pipe(ends), 0);
    return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

Ends makeSocket() {
    int ends[2] = {-1, -1};
    EXPECT_EQ(::socketpair(AF_UNIX, SOCK_STREAM, 0, ends), 0);
    return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

struct OutputRow {
    const char* name;
    Ends (*make)();
    bool reopens = true; ///< whether the end can be opened a second time
};

void PrintTo(const OutputRow& row, std::ostream* out) { *out << row.name; }

class FullOutput : public testing::TestWithParam<OutputRow> {
  protected:
    std::unique_ptr<LineWriter> makeWriter() const {
        if (GetParam().reopens)
            return std::make_unique<LineWriter>(ends.writing.number());
        ::fchmod(ends.writing.number(), 0);
        const OrdinaryUser user;
        return std::make_unique<LineWriter>(ends.writing.number());
    }

    Watchdog watchdog;
    Ends ends = GetParam().make();
};

TEST_P(FullOutput, DropsLinesAndReportsHowMany) {
    const auto writer = makeWriter();
    writer->write("first");
    EXPECT_EQ(drained(ends.reading.number()), "first\n");
    fill(ends.writing.number());
    for (const char* text : {"a", "b", "c"})
        writer->write(text);
    EXPECT_EQ(writer->dropped(), 3U);
    EXPECT_EQ(drained(ends.reading.number()).find_first_not_of('-'), std::string::npos);

    writer->write("d");
    EXPECT_EQ(drained(ends.reading.number()), "3 lines of the log were dropped here\nd\n");
    EXPECT_EQ(writer->dropped(), 0U);
    writer->write("e");
    EXPECT_EQ(drained(ends.reading.number()), "e\n");
}

TEST_P(FullOutput, IsReportedAtTheEndAtTheLatest) {
    auto writer = makeWriter();
    fill(ends.writing.number());
    writer->write("a");
    drained(ends.reading.number());
    writer.reset();
    EXPECT_EQ(drained(ends.reading.number()), "1 line of the log was dropped here\n");
}

TEST_P(FullOutput, KeepsALongLineWhole) {
    const std::string line(3000000, 'x');
    const auto writer = makeWriter();
    writer->write(line);
    writer->write("next");
    ASSERT_EQ(writer->dropped(), 1U);
    std::string all, notice;
    while (writer->dropped() > 0) {
        notice = droppedLinesNotice(writer->dropped());
        all += drained(ends.reading.number());
        writer->write("next");
    }
    all += drained(ends.reading.number());
    EXPECT_TRUE(all == line + "\n" + notice + "\nnext\n") << all.substr(all.find('\n'));
}

TEST_P(FullOutput, LeavesTheSharedDescriptorBlocking) {
    const int before = ::fcntl(ends.writing.number(), F_GETFL);
    const auto writer = makeWriter();
    writer->write("a");
    EXPECT_EQ(::fcntl(ends.writing.number(), F_GETFL), before);
    EXPECT_EQ(before & O_NONBLOCK, 0);
}

INSTANTIATE_TEST_SUITE_P(LineWriter, FullOutput,
                         testing::Values(OutputRow{"Pipe", makePipe},
                                         OutputRow{"PipeOfAnotherUser", makePipe, false},
                                         OutputRow{"Socket", makeSocket}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(LineWriterTest, OutlivesTheReader) {
    const Watchdog watchdog;
    for (const auto make : {makePipe, makeSocket}) {
        const int status = statusOfChild([make] {
            surviveFailedWrites();
            Ends ends = make();
            LineWriter writer(ends.writing.number());
            ends.reading.close();
            writer.write("a");
            writer.write("b");
            return writer.dropped() == 2 ? 0 : 1;
        });
        EXPECT_TRUE(endedWell(status)) << status;
    }
}

TEST(LineWriterTest, DoesNotWaitForAStoppedTerminal) {
    const Watchdog watchdog;
    const FileDescriptor screen(::posix_openpt(O_RDWR | O_NOCTTY));
    ASSERT_TRUE(screen);
    ASSERT_EQ(::grantpt(screen.number()), 0);
    ASSERT_EQ(::unlockpt(screen.number()), 0);
    const FileDescriptor terminal(::open(::ptsname(screen.number()), O_RDWR | O_NOCTTY));
    ASSERT_TRUE(terminal);
    LineWriter writer(terminal.number());
    ASSERT_EQ(::tcflow(terminal.number(), TCOOFF), 0);
    writer.write("a");
    writer.write("b");
    EXPECT_EQ(writer.dropped(), 2U);
    ASSERT_EQ(::tcflow(terminal.number(), TCOON), 0);
    writer.write("c");
    EXPECT_EQ(drained(screen.number()), "2 lines of the log were dropped here\r\nc\r\n");
}

TEST(LineWriterTest, AddsToAFileWhereItEnds) {
    const TemporaryFolder folder;
    const std::string path = folder / "log";
    writeBytes(path, "before\n");
    const FileDescriptor file(::open(path.c_str(), O_WRONLY | O_APPEND));
    LineWriter one(file.number()), other(file.number());
    one.write("1");
    other.write("2");
    one.write("3");
    EXPECT_EQ(bytesOf(path), "before\n1\n2\n3\n");
}

TEST(LineWriterTest, TakesNoLineWithoutADescriptor) {
    LineWriter writer(-1);
    writer.write("a");
    EXPECT_EQ(writer.dropped(), 1U);
}

} // namespace

} // namespace frimbolate::test
