#include "core/command_warning.h"

#include "tests/support/rows.h"

#include <gmock/gmock.h>

namespace frimbolate {

namespace {

using namespace std::string_literals;

constexpr std::string_view beginning = "Do not paste this command as it stands. Its path holds ";
constexpr std::string_view end = ", so it may do more than it shows. Change the path first.";

struct WarningRow {
    std::string_view name;
    std::string path;
    std::string_view culprit; ///< as the warning names it; empty where no warning is due
};

class CommandWarning : public testing::TestWithParam<WarningRow> {};

TEST_P(CommandWarning, NamesWhatTheQuotesDoNotHold) {
    const auto& row = GetParam();
    const auto expected =
        row.culprit.empty() ? "" : std::string(beginning).append(row.culprit).append(end);
    EXPECT_EQ(commandWarning(row.path), expected);
}

constexpr std::string_view apostrophe = "an apostrophe";
constexpr std::string_view control = "a control character";
constexpr std::string_view both = "an apostrophe and a control character";

const WarningRow warningRows[] = {
    {"Plain", "/Users/ada/Library/LaunchAgents/com.frimbolate.a.plist", ""},
    {"Empty", "", ""},
    {"Blanks", "/a b/  c.plist", ""},
    {"OtherMarks", "/a/\"$HOME\" `x` \\n;&|<>(){}*?!#~%.plist", ""},
    {"TypographicQuotes", "/a/it\u2019s \u2018so\u2018.plist", ""},
    {"Letters", "/a/\u00e4\u00df\u0142\u4e2d\U0001F600.plist", ""},
    {"NoBreakSpace", "/a/b\u00a0c.plist", ""},
    {"FirstAfterC1", "/\u00a1.plist", ""},
    {"LastBeforeTheSeparators", "/\u2027.plist", ""},
    {"FirstAfterTheSeparators", "/\u202a.plist", ""},
    {"LettersThatHoldC1Bytes", "/\u0480\u4085\u2a80.plist", ""},

    {"Foreign", "/a/com.frimbolate.a';touch pwned;'.plist", apostrophe},
    {"ApostropheInAFolder", "/Users/o'hara/a.plist", apostrophe},
    {"ApostropheAlone", "'", apostrophe},
    {"Nul", "/a\0b"s, control},
    {"FirstControl", "/a\x01.plist", control},
    {"Tab", "/a\tb.plist", control},
    {"LineBreak", "/a\nb.plist", control},
    {"CarriageReturn", "/a\rb.plist", control},
    {"Escape", "/a\x1b[2J.plist", control},
    {"LastControl", "/a\x1f.plist", control},
    {"Delete", "/a\x7f.plist", control},
    {"FirstC1", "/a\u0080.plist", control},
    {"NextLine", "/a\u0085.plist", control},
    {"LastC1", "/a\u009f.plist", control},
    {"LineSeparator", "/a\u2028.plist", control},
    {"ParagraphSeparator", "/a\u2029", control},
    {"CutOffAtTheEnd", "/a\xE2\x80", ""},
    {"Both", "/a'\n.plist", both},
    {"BothTheOtherWayRound", "/\u2028a'", both},
};

INSTANTIATE_TEST_SUITE_P(Table, CommandWarning, testing::ValuesIn(warningRows),
                         test::NamedAfterRow());

} // namespace

} // namespace frimbolate
