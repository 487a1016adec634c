#include "plist/key_lines.h"

#include "plist/xml_writer.h"
#include "tests/plist/memory_meter.h"
#include "tests/support/rows.h"

#include <gtest/gtest.h>

namespace frimbolate::test {
namespace {

constexpr std::string_view agent = R"(<?xml version="1.0"?>
<!-- <key>Comment</key> -->
<plist version="1.0"><dict>
  <key>Label</key><string>a &lt;key&gt;</string>
  <key>Program
</key><string><![CDATA[<key>No</key>]]></string>
  <key>ProgramArguments</key>
  <array>
    <string/>
    <string>b</string> <string>c</string>
    <dict><key>In</key>
      <true/></dict>
  </array>
  <key
    id="x>StartCalendarInterval</key>
  <array><dict>
    <key>Hour</key><integer>7</integer>
  </dict>
  <dict>
    <key>Hour</key><integer>8</integer>
  </dict></array>
  <key>Empty</key>
  <dict/>
  <key>Label</key><string>again</string>
</dict></plist>
)";

struct Row {
    const char* name;
    const char* path;
    std::optional<std::size_t> line;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

class KeyLine : public testing::TestWithParam<Row> {};

TEST_P(KeyLine, IsWhereTheKeyStands) {
    EXPECT_EQ(lineOfKey(keyLines(agent), GetParam().path), GetParam().line);
}

const Row rows[] = {
    {"File", "", std::nullopt},
    {"Missing", "Nice", std::nullopt},
    {"Comment", "Comment", std::nullopt},
    {"InCdata", "No", std::nullopt},
    {"LastOfTwo", "Label", 24},
    {"Array", "ProgramArguments", 7},
    {"EmptyElement", "ProgramArguments[0]", 9},
    {"SecondOfALine", "ProgramArguments[2]", 10},
    {"KeyInAnElement", "ProgramArguments[3].In", 11},
    {"BeyondTheArray", "ProgramArguments[9]", 7},
    {"TagOverTwoLines", "StartCalendarInterval", 14},
    {"FirstDictionary", "StartCalendarInterval[0].Hour", 17},
    {"SecondDictionary", "StartCalendarInterval[1]", 19},
    {"InTheSecondDictionary", "StartCalendarInterval[1].Hour", 20},
    {"MissingInTheSecondDictionary", "StartCalendarInterval[1].Minute", 19},
    {"AfterAnEmptyDictionary", "Empty", 22},
};

INSTANTIATE_TEST_SUITE_P(Table, KeyLine, testing::ValuesIn(rows), NamedAfterRow());

TEST(KeyLines, AreThoseOfAWrittenFile) {
    const auto lines = keyLines(xmlPropertyList({{"A", 1}, {"B", Array{Value(2), Value(3)}}}));
    const KeyLines expected = {{"A", 5}, {"B", 7}, {"B[0]", 9}, {"B[1]", 10}};
    EXPECT_EQ(lines, expected);
}

TEST(KeyLines, EndAtAnyDamage) {
    for (std::size_t length = 0; length <= agent.size(); ++length)
        EXPECT_LE(keyLines(agent.substr(0, length)).size(), 20U);
    EXPECT_TRUE(keyLines("bplist00").empty());
    EXPECT_TRUE(keyLines("{ Label = a; }").empty());
    EXPECT_TRUE(keyLines("</dict></array><key>").empty());
}

TEST(KeyLines, LeaveOutDeepLevels) {
    std::string text;
    for (int level = 0; level < 5000; ++level)
        text += "<dict><key>a</key>\n";
    const auto lines = keyLines(text);
    EXPECT_EQ(lineOfKey(lines, "a.a"), 2U);
    EXPECT_EQ(lineOfKey(lines, "a.a.a.a"), 4U);
    EXPECT_EQ(lines.size(), 4U);
}

TEST(KeyLines, DoNotRepeatALongKeyBeforeEveryKeyBelowIt) {
    const std::string longKey(100000, 'k');
    std::string file = "<dict><key>a</key><true/><key>" + longKey + "</key><dict>";
    constexpr std::size_t inner = 1000;
    for (std::size_t i = 0; i < inner; ++i)
        file += "<key>" + std::to_string(i) + "</key><array><true/></array>";
    file += "</dict>\n<key>b</key><true/></dict>";
    const MemoryMeter meter;
    const KeyLines lines = keyLines(file);
    EXPECT_LT(meter.total(), 20 * file.size());
    EXPECT_EQ(lines, (KeyLines{{"a", 1}, {"b", 2}}));
}

TEST(KeyLines, OfVeryManyKeysAreThoseOfTheFirst) {
    std::string file = "<array>";
    constexpr std::size_t elements = 400000;
    for (std::size_t i = 0; i < elements; ++i)
        file += "<x/>";
    const MemoryMeter meter;
    const KeyLines lines = keyLines(file + "</array>");
    EXPECT_LT(meter.peak(), std::size_t{64} << 20);
    EXPECT_TRUE(lines.contains("[0]"));
    EXPECT_FALSE(lines.contains("[399999]"));
}

} // namespace
} // namespace frimbolate::test
