#include "posix/line_writer.h"
#include "posix/syslog_socket.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/watchdog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <regex>
#include <sys/socket.h>
#include <sys/un.h>

namespace frimbolate::test {

namespace {

/// The socket of a log daemon.
class Daemon {
  public:
    explicit Daemon(const std::string& path)
        : socket_(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
        ::unlink(path.c_str());
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        EXPECT_EQ(
            ::bind(socket_.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address),
            0);
    }

    /// The message of the next record, without its header.
    std::optional<std::string> next() {
        std::string record(300000, '\0');
        const ssize_t size = ::recv(socket_.number(), record.data(), record.size(), MSG_DONTWAIT);
        if (size < 0)
            return std::nullopt;
        record.resize(static_cast<std::size_t>(size));
        const std::size_t end = record.find(": ");
        static const std::regex head(
            "<13>[A-Z][a-z]{2} [ 1-3][0-9] [0-2][0-9]:[0-5][0-9]:[0-6][0-9] Frimbolate");
        EXPECT_TRUE(std::regex_match(record.substr(0, end), head)) << record.substr(0, end);
        return record.substr(end + 2);
    }
    std::vector<std::string> rest() {
        std::vector<std::string> texts;
        while (const auto text = next())
            texts.push_back(*text);
        return texts;
    }

  private:
    FileDescriptor socket_;
};

class SyslogSocketTest : public testing::Test {
  protected:
    Watchdog watchdog;
    TemporaryFolder folder;
    std::string path = folder / "log";
    SyslogSocket log{path};
};

TEST_F(SyslogSocketTest, SendsEachLineAsARecord) {
    Daemon daemon(path);
    using namespace std::string_literals;
    for (const std::string& text :
         {"Agent passed initial validation, moving on..."s, ""s, "100 %s %n"s, "{\n    a = 1;\n}"s,
          "é: 😀"s, std::string(20000, 'x')}) {
        log.line(text);
        EXPECT_EQ(daemon.next(), text);
    }
    log.line("cut\0off"s);
    EXPECT_EQ(daemon.next(), "cut");
}

TEST_F(SyslogSocketTest, DoesNotWaitForADaemonThatDoesNotRead) {
    Daemon daemon(path);
    constexpr std::size_t lines = 5000; // more than any system queues for a socket
    for (std::size_t i = 0; i < lines; ++i)
        log.line("a");
    const std::size_t taken = daemon.rest().size();
    ASSERT_LT(taken, lines);
    log.line("b");
    EXPECT_THAT(daemon.rest(),
                testing::ElementsAre(droppedLinesNotice(lines - taken), std::string("b")));
    log.line("c");
    EXPECT_THAT(daemon.rest(), testing::ElementsAre("c"));
}

TEST_F(SyslogSocketTest, FindsADaemonThatWasStartedAnew) {
    std::optional<Daemon> daemon(path);
    log.line("a");
    EXPECT_EQ(daemon->next(), "a");
    daemon.emplace(path);
    log.line("b");
    EXPECT_EQ(daemon->next(), "b");
}

TEST_F(SyslogSocketTest, LeavesADaemonThatHangsForItsSuccessor) {
    Daemon hanging(path);
    for (int i = 0; i < 5000; ++i)
        log.line("a");
    Daemon successor(path);
    log.line("b");
    const auto texts = successor.rest();
    ASSERT_EQ(texts.size(), 2U);
    EXPECT_EQ(texts.back(), "b");
}

TEST_F(SyslogSocketTest, CountsWhatCameBeforeTheDaemon) {
    log.line("a");
    log.line("b");
    Daemon daemon(path);
    log.line("c");
    EXPECT_THAT(daemon.rest(), testing::ElementsAre(droppedLinesNotice(2), "c"));
}

TEST_F(SyslogSocketTest, ContinuesWithAPathThatNoSocketCanHave) {
    SyslogSocket lost(folder / std::string(200, 'x'));
    EXPECT_NO_THROW(lost.line("a"));
}

struct RecordRow {
    const char* name;
    std::tm time;
    std::string record;
};

void PrintTo(const RecordRow& row, std::ostream* out) { *out << row.name; }

std::tm at(int month, int day, int hour, int minute, int second) {
    std::tm time{};
    time.tm_mon = month;
    time.tm_mday = day;
    time.tm_hour = hour;
    time.tm_min = minute;
    time.tm_sec = second;
    return time;
}

class SyslogRecord : public testing::TestWithParam<RecordRow> {};

TEST_P(SyslogRecord, IsInTheClassicForm) {
    EXPECT_EQ(syslogRecord(GetParam().time, "text"), GetParam().record);
}

INSTANTIATE_TEST_SUITE_P(SyslogSocket, SyslogRecord,
                         testing::Values(RecordRow{"PadsTheDay", at(0, 1, 2, 3, 4),
                                                   "<13>Jan  1 02:03:04 Frimbolate: text"},
                                         RecordRow{"TwoDigits", at(11, 31, 23, 59, 60),
                                                   "<13>Dec 31 23:59:60 Frimbolate: text"},
                                         RecordRow{"May", at(4, 10, 0, 0, 0),
                                                   "<13>May 10 00:00:00 Frimbolate: text"}),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

} // namespace frimbolate::test
