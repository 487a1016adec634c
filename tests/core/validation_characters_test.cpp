// The characters that a name and a number may hold, tried with every byte and beyond ASCII.
#include "core/validation.h"

#include "tests/support/rows.h"

#include <gmock/gmock.h>

#include <array>

namespace frimbolate {

namespace {

using test::NamedAfterRow;

constexpr auto nameFault = "\u2022 Name can only contain alphanumeric characters\n";
constexpr auto dayFault = "\u2022 Day of the month must be numeric\n";
constexpr auto badInterval = "\u2022 Launch on interval must be numeric\n";

std::string reportOfName(const std::string& name) {
    AgentForm form;
    form.name = name;
    form.targetType = TargetType::File;
    form.action = AgentAction::OnSchedule;
    return errorReport(validate(form));
}

std::string reportOfDay(const std::string& day) {
    AgentForm form;
    form.name = "Backup";
    form.targetType = TargetType::File;
    form.action = AgentAction::OnSchedule;
    form.scheduleType = ScheduleType::OnceAMonth;
    form.dayOfMonthText = day;
    return errorReport(validate(form));
}

/// The report on an interval in minutes, for which any number passes.
std::string reportOfInterval(const std::string& interval) {
    AgentForm form;
    form.name = "Backup";
    form.targetType = TargetType::File;
    form.action = AgentAction::OnSchedule;
    form.scheduleType = ScheduleType::OnInterval;
    form.intervalText = interval;
    form.intervalUnit = IntervalUnit::Minutes;
    return errorReport(validate(form));
}

bool isDigit(int byte) { return byte >= 0x30 && byte <= 0x39; }

bool isOfName(int byte) {
    return isDigit(byte) || (byte >= 0x41 && byte <= 0x5a) || (byte >= 0x61 && byte <= 0x7a) ||
           byte == 0x5f;
}

/// The text by itself, and at the start, in the middle and at the end of a valid text.
std::array<std::string, 4> places(const std::string& text, const std::string& sound) {
    return {text, text + sound, sound + text, sound + text + sound};
}

TEST(AllowedCharacters, OfANameAreAsciiLettersDigitsAndTheUnderscore) {
    for (int byte = 0; byte < 256; ++byte) {
        SCOPED_TRACE(byte);
        for (const auto& name : places(std::string(1, static_cast<char>(byte)), "a"))
            EXPECT_EQ(reportOfName(name), isOfName(byte) ? "" : nameFault);
    }
}

TEST(AllowedCharacters, OfADayAreAsciiDigits) {
    for (int byte = 0; byte < 256; ++byte) {
        SCOPED_TRACE(byte);
        const std::string text(1, static_cast<char>(byte));
        for (const auto& day : places(text, "1"))
            EXPECT_EQ(reportOfDay(day) == dayFault, !isDigit(byte)) << reportOfDay(day);
        EXPECT_EQ(reportOfDay("1" + text), isDigit(byte) ? "" : dayFault) << "10 to 19 are days";
    }
}

TEST(AllowedCharacters, OfAnIntervalAreAsciiDigits) {
    for (int byte = 0; byte < 256; ++byte) {
        SCOPED_TRACE(byte);
        for (const auto& interval : places(std::string(1, static_cast<char>(byte)), "1"))
            EXPECT_EQ(reportOfInterval(interval), isDigit(byte) ? "" : badInterval);
    }
}

struct CharacterRow {
    std::string_view name;
    std::string text;
};

class ForeignCharacter : public testing::TestWithParam<CharacterRow> {};

TEST_P(ForeignCharacter, IsNeverAllowed) {
    for (const auto& name : places(GetParam().text, "a"))
        EXPECT_EQ(reportOfName(name), nameFault);
    for (const auto& number : places(GetParam().text, "1")) {
        EXPECT_EQ(reportOfDay(number), dayFault);
        EXPECT_EQ(reportOfInterval(number), badInterval);
    }
}

const CharacterRow characters[] = {
    {"LetterWithAccent", "\u00e9"},
    {"CombiningAccent", "\u0301"},
    {"SharpS", "\u00df"},
    {"DotlessI", "\u0131"},
    {"DottedCapitalI", "\u0130"},
    {"LongS", "\u017f"},
    {"KelvinSign", "\u212a"},
    {"Greek", "\u03b1"},
    {"CyrillicThatLooksLatin", "\u0430"},
    {"Han", "\u4e00"},
    {"ArabicDigit", "\u0663"},
    {"DevanagariDigit", "\u0969"},
    {"FullWidthDigit", "\uff11"},
    {"FullWidthLetter", "\uff41"},
    {"FullWidthUnderscore", "\uff3f"},
    {"Superscript", "\u00b2"},
    {"RomanNumeral", "\u2160"},
    {"MathematicalDigit", "\U0001d7cf"},
    {"NoBreakSpace", "\u00a0"},
    {"ZeroWidthJoiner", "\u200d"},
    {"ByteOrderMark", "\ufeff"},
    {"NoBreakHyphen", "\u2011"},
    {"Emoji", "\U0001f600"},
    {"LoneContinuation", "\x80"},
    {"LongFormOfA", "\xc1\x81"},
    {"LongFormOfOne", "\xc0\xb1"},
    {"CutOff", "\xe2\x82"},
};

INSTANTIATE_TEST_SUITE_P(Utf8, ForeignCharacter, testing::ValuesIn(characters), NamedAfterRow());

} // namespace

} // namespace frimbolate
