#include "posix/bus_messages.h"
#include "tests/posix/bus_replies.h"

#include <gtest/gtest.h>

namespace frimbolate::test {

namespace {

struct MessageRow {
    const char* name;
    std::string bytes;
    std::uint32_t answers;
    std::string text;
};

void PrintTo(const MessageRow& row, std::ostream* out) { *out << row.name; }

std::string broken(std::string bytes, std::size_t position, char byte) {
    bytes.at(position) = byte;
    return bytes;
}

class ParsedBusMessage : public testing::TestWithParam<MessageRow> {};

TEST_P(ParsedBusMessage, IsReadAndMeasured) {
    const MessageRow& row = GetParam();
    const BusMessage message = parsedBusMessage(row.bytes);
    EXPECT_EQ(message.answers, row.answers);
    EXPECT_EQ(message.text, row.text);
    EXPECT_EQ(busMessageSize(row.bytes + "the next message"), row.bytes.size());
}

const std::string busAddress = "unix:path=/run/user/1000/at-spi/bus_0,guid=0123";

INSTANTIATE_TEST_SUITE_P(
    BusMessages, ParsedBusMessage,
    testing::Values(
        MessageRow{"ReturnOfAText", busReturn(7, busAddress), 7, busAddress},
        MessageRow{"ReturnOfAnEmptyText", busReturn(1, ""), 1, ""},
        MessageRow{"ReturnOfNothing", busReturn(2, std::nullopt), 2, ""},
        MessageRow{"Error", busError(3, "There is no such name"), 3, ""},
        MessageRow{"Signal", busSignal("NameAcquired", ":1.1"), 0, ""},
        // The first field of the header has a type that no header has.
        MessageRow{"DamagedField", broken(busReturn(7, busAddress), 18, 'x'), 0, ""},
        MessageRow{"DamagedLaterField", broken(busReturn(7, busAddress), 27, 'x'), 7, ""},
        MessageRow{"SizeBeyondTheHeader", broken(busReturn(7, busAddress), 31, '\x7f'), 7, ""}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(BusMessages, AreMeasuredByTheirFirstBytes) {
    EXPECT_EQ(busMessageSize(""), 0U);
    EXPECT_EQ(busMessageSize(busReturn(1, "x").substr(0, 15)), 0U);
    EXPECT_EQ(busMessageSize("HTTP/1.1 200 OK\r\n"), std::nullopt);
}

TEST(BusMessages, EveryPrefixIsParsed) {
    const std::string whole = busReturn(7, busAddress);
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_LE(parsedBusMessage(whole.substr(0, size)).text.size(), busAddress.size());
}

TEST(BusMessages, ACallNamesWhatIsCalled) {
    const std::string call = busCall({5, "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "Get"});
    EXPECT_EQ(call.size(), busMessageSize(call));
    EXPECT_EQ(call.substr(1, 3), std::string("\1\2\1"));
    for (const char* part : {"\1\1o", "/org/a11y/bus", "\2\1s", "\3\1s", "Get", "\6\1s"})
        EXPECT_NE(call.find(part), std::string::npos) << part;
}

} // namespace

} // namespace frimbolate::test
