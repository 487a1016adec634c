#include "core/time_of_day.h"
#include "tests/support/rows.h"

#include <gmock/gmock.h>

namespace frimbolate {

void PrintTo(const TimeOfDay& time, std::ostream* out) {
    *out << time.hour << " h " << time.minute << " min";
}

namespace {

using test::NamedAfterRow;

constexpr std::optional<TimeOfDay> none;

constexpr std::optional<TimeOfDay> at(int hour, int minute) { return TimeOfDay{hour, minute}; }

struct TextRow {
    std::string_view name;
    std::string_view text;
    std::optional<TimeOfDay> expected;
};

void PrintTo(const TextRow& row, std::ostream* out) { *out << row.text; }

class TypedTime : public testing::TestWithParam<TextRow> {};

TEST_P(TypedTime, IsReadAsMeantOrNotAtAll) {
    EXPECT_EQ(parseTimeOfDay(GetParam().text), GetParam().expected);
}

const TextRow hours[] = {
    {"Hour", "7", at(7, 0)},       {"HourOfTwoDigits", "07", at(7, 0)},
    {"HourZero", "0", at(0, 0)},   {"HourOfTwoZeros", "00", at(0, 0)},
    {"Hour12", "12", at(12, 0)},   {"Hour13", "13", at(13, 0)},
    {"LastHour", "23", at(23, 0)}, {"Hour24", "24", none},
    {"Hour99", "99", none},
};

const TextRow digits[] = {
    {"FourDigits", "0730", at(7, 30)},
    {"ThreeDigits", "730", at(7, 30)},
    {"Evening", "1930", at(19, 30)},
    {"TwelveHundred", "1200", at(12, 0)},
    {"FirstMinute", "0000", at(0, 0)},
    {"ThreeZeros", "000", at(0, 0)},
    {"LastMinute", "2359", at(23, 59)},
    {"Hour24AndMinutes", "2400", none},
    {"Hour25AndMinutes", "2500", none},
    {"Minute59", "1259", at(12, 59)},
    {"Minute60", "1260", none},
    {"ThreeDigitsWithMinute59", "959", at(9, 59)},
    {"ThreeDigitsWithMinute60", "960", none},
    {"FiveDigits", "07300", none},
    {"SixDigits", "073000", none},
    {"ManyDigits", "99999999999999999999", none},
};

const TextRow separated[] = {
    {"Colon", "7:30", at(7, 30)},
    {"ColonAfterTwoDigits", "07:30", at(7, 30)},
    {"FullStop", "7.30", at(7, 30)},
    {"Blank", "07 30", at(7, 30)},
    {"Blanks", "7   30", at(7, 30)},
    {"Tabulator", "7\t30", at(7, 30)},
    {"BlanksAroundTheColon", "7 : 30", at(7, 30)},
    {"Midnight", "0:00", at(0, 0)},
    {"LastMinuteWithColon", "23:59", at(23, 59)},
    {"Hour24WithColon", "24:00", none},
    {"Hour25WithColon", "25:00", none},
    {"Minute60WithColon", "7:60", none},
    {"Minute59WithColon", "7:59", at(7, 59)},
    {"Minute99", "7:99", none},
    {"OneDigitOfMinutes", "7:3", none},
    {"OneDigitOfMinutesAfterABlank", "7 3", none},
    {"ThreeDigitsOfMinutes", "7:300", none},
    {"ThreeDigitsOfHours", "007:30", none},
    {"NoMinutes", "7:", none},
    {"NoHours", ":30", none},
    {"ColonAlone", ":", none},
    {"TwoColons", "7::30", none},
    {"ColonAndFullStop", "7:.30", none},
    {"Seconds", "7:30:00", none},
    {"FullStopAtTheEnd", "7.30.", none},
    {"Comma", "7,30", none},
    {"Hyphen", "7-30", none},
    {"LetterBetween", "7h30", none},
};

const TextRow halves[] = {
    {"HourAndPm", "7pm", at(19, 0)},
    {"HourAndAm", "7am", at(7, 0)},
    {"FourDigitsAndA", "0730a", at(7, 30)},
    {"FourDigitsAndP", "0730p", at(19, 30)},
    {"ThreeDigitsAndPm", "730pm", at(19, 30)},
    {"BlankAndAm", "7:30 am", at(7, 30)},
    {"BlankAndAmOfNine", "9:05 am", at(9, 5)},
    {"Capitals", "7:30 PM", at(19, 30)},
    {"CapitalAndSmall", "7:30 Pm", at(19, 30)},
    {"FullStopAndPm", "7.30pm", at(19, 30)},
    {"BlankBetweenAndPm", "7 30 pm", at(19, 30)},
    {"Dots", "7:30 a.m.", at(7, 30)},
    {"DotsInCapitals", "7:30 P.M.", at(19, 30)},
    {"DotsAndABlank", "7:30 p. m.", at(19, 30)},
    {"LetterAndDot", "7:30 p.", at(19, 30)},
    {"DotAtTheEnd", "7:30 pm.", at(19, 30)},
    {"DotBetween", "7:30 p.m", at(19, 30)},
    {"Twelve", "12am", at(0, 0)},
    {"TwelvePm", "12pm", at(12, 0)},
    {"HalfPastMidnight", "12:30 am", at(0, 30)},
    {"HalfPastNoon", "1230p", at(12, 30)},
    {"OneAm", "1am", at(1, 0)},
    {"ElevenPm", "11:59 pm", at(23, 59)},
    {"ZeroAm", "0am", none},
    {"ZeroPm", "0:30 pm", none},
    {"ThirteenPm", "13pm", none},
    {"ThirteenAm", "13:00 am", none},
    {"EveningPm", "1930pm", none},
    {"Minute60Pm", "7:60 pm", none},
    {"TwoHalves", "7 am pm", none},
    {"LetterTwice", "7aa", none},
    {"MAlone", "7m", none},
    {"DotBeforeTheHalf", "7.pm", none},
    {"HalfAlone", "pm", none},
    {"HalfFirst", "pm 7", none},
    {"AnotherLetter", "7x", none},
    {"WordAfterTheHalf", "7 amber", none},
};

const TextRow surroundedRows[] = {
    {"BlanksAround", "  7:30  ", at(7, 30)},
    {"LineBreak", "7:30\r\n", at(7, 30)},
    {"NoBreakSpace", "7:30\u00a0pm", at(19, 30)},
    {"NarrowNoBreakSpace", "7:30\u202fPM", at(19, 30)},
    {"ThinSpace", "7:30\u2009am", at(7, 30)},
    {"NoBreakSpaceInTheHalf", "7:30 a.\u00a0m.", at(7, 30)},
    {"NoBreakSpacesAround", "\u00a0\u202f7:30\u202f\u00a0", at(7, 30)},
    {"NoBreakSpaceBetween", "07\u00a030", at(7, 30)},
    {"Nothing", "", none},
    {"BlankAlone", " ", none},
    {"NoBreakSpaceAlone", "\u00a0", none},
    {"Letters", "abc", none},
    {"Word", "noon", none},
    {"Plus", "+7", none},
    {"Minus", "-7:30", none},
    {"FullWidthDigits", "\uff10\uff17", none},
    {"FullWidthColon", "7\uff1a30", none},
    {"HalfOfABlank", "7:30\xc2", none},
    {"TextBehind", "7:30 sharp", none},
    {"TextBefore", "at 7:30", none},
};

INSTANTIATE_TEST_SUITE_P(Hours, TypedTime, testing::ValuesIn(hours), NamedAfterRow());
INSTANTIATE_TEST_SUITE_P(Digits, TypedTime, testing::ValuesIn(digits), NamedAfterRow());
INSTANTIATE_TEST_SUITE_P(Separated, TypedTime, testing::ValuesIn(separated), NamedAfterRow());
INSTANTIATE_TEST_SUITE_P(Halves, TypedTime, testing::ValuesIn(halves), NamedAfterRow());
INSTANTIATE_TEST_SUITE_P(Around, TypedTime, testing::ValuesIn(surroundedRows), NamedAfterRow());

struct FormatRow {
    std::string_view name;
    TimeOfDay time;
    std::string_view in24Hours, in12Hours;
};

class ShownTime : public testing::TestWithParam<FormatRow> {};

TEST_P(ShownTime, FollowsTheClock) {
    const FormatRow& row = GetParam();
    EXPECT_EQ(formatTimeOfDay(row.time, ClockFormat::TwentyFourHours), row.in24Hours);
    EXPECT_EQ(formatTimeOfDay(row.time, ClockFormat::TwelveHours), row.in12Hours);
}

const FormatRow shownRows[] = {
    {"Midnight", {0, 0}, "00:00", "12:00 AM"},     {"AfterMidnight", {0, 59}, "00:59", "12:59 AM"},
    {"One", {1, 0}, "01:00", "01:00 AM"},          {"Morning", {7, 5}, "07:05", "07:05 AM"},
    {"BeforeNoon", {11, 59}, "11:59", "11:59 AM"}, {"Noon", {12, 0}, "12:00", "12:00 PM"},
    {"Afternoon", {13, 10}, "13:10", "01:10 PM"},  {"Evening", {19, 30}, "19:30", "07:30 PM"},
    {"LastMinute", {23, 59}, "23:59", "11:59 PM"},
};

INSTANTIATE_TEST_SUITE_P(Table, ShownTime, testing::ValuesIn(shownRows), NamedAfterRow());

TEST(ShownTimes, AreReadAsTheyAreMeant) {
    for (int minutes = 0; minutes < 24 * 60; ++minutes) {
        const TimeOfDay time{minutes / 60, minutes % 60};
        for (const auto clock : {ClockFormat::TwentyFourHours, ClockFormat::TwelveHours})
            EXPECT_EQ(parseTimeOfDay(formatTimeOfDay(time, clock)), time);
    }
}

TEST(TimeParts, LieWhereTheyAreShown) {
    const auto shownAt = [](TimePart part) {
        const auto [position, length] = spanOf(part);
        return formatTimeOfDay({19, 30}, ClockFormat::TwelveHours).substr(position, length);
    };
    EXPECT_EQ(shownAt(TimePart::Hours), "07");
    EXPECT_EQ(shownAt(TimePart::Minutes), "30");
    EXPECT_EQ(shownAt(TimePart::Meridiem), "PM");
}

TEST(TimeParts, AreFoundAtTheCursor) {
    using enum TimePart;
    const TimePart expected[] = {Hours,   Hours,    Hours,    Minutes, Minutes,
                                 Minutes, Meridiem, Meridiem, Meridiem};
    for (std::size_t position = 0; position < std::size(expected); ++position)
        EXPECT_EQ(timePartAt(position, ClockFormat::TwelveHours), expected[position]) << position;
    for (std::size_t position = 0; position <= 5; ++position)
        EXPECT_EQ(timePartAt(position, ClockFormat::TwentyFourHours), expected[position])
            << position;
    EXPECT_EQ(timePartAt(6, ClockFormat::TwentyFourHours), Minutes);
}

struct StepRow {
    std::string_view name;
    TimeOfDay from;
    TimePart part;
    int steps;
    TimeOfDay to;
};

class SteppedTime : public testing::TestWithParam<StepRow> {};

TEST_P(SteppedTime, GoesRound) {
    const StepRow& row = GetParam();
    EXPECT_EQ(stepTimeOfDay(row.from, row.part, row.steps), row.to);
}

const StepRow steps[] = {
    {"HourUp", {7, 30}, TimePart::Hours, 1, {8, 30}},
    {"HourDown", {7, 30}, TimePart::Hours, -1, {6, 30}},
    {"HourUpToNoon", {11, 30}, TimePart::Hours, 1, {12, 30}},
    {"HourUpAtTheEnd", {23, 59}, TimePart::Hours, 1, {0, 59}},
    {"HourDownAtTheStart", {0, 59}, TimePart::Hours, -1, {23, 59}},
    {"TenHours", {20, 0}, TimePart::Hours, 10, {6, 0}},
    {"MinuteUp", {7, 30}, TimePart::Minutes, 1, {7, 31}},
    {"MinuteDown", {7, 30}, TimePart::Minutes, -1, {7, 29}},
    {"MinuteUpAtTheEnd", {7, 59}, TimePart::Minutes, 1, {7, 0}},
    {"MinuteDownAtTheStart", {7, 0}, TimePart::Minutes, -1, {7, 59}},
    {"TenMinutes", {7, 55}, TimePart::Minutes, 10, {7, 5}},
    {"TenMinutesDown", {7, 5}, TimePart::Minutes, -10, {7, 55}},
    {"ToAfternoon", {7, 30}, TimePart::Meridiem, 1, {19, 30}},
    {"ToMorning", {19, 30}, TimePart::Meridiem, 1, {7, 30}},
    {"DownToMorning", {19, 30}, TimePart::Meridiem, -1, {7, 30}},
    {"DownToAfternoon", {7, 30}, TimePart::Meridiem, -1, {19, 30}},
    {"MidnightToNoon", {0, 0}, TimePart::Meridiem, 1, {12, 0}},
    {"NoonToMidnight", {12, 0}, TimePart::Meridiem, -1, {0, 0}},
    {"TwiceToTheOtherHalf", {7, 30}, TimePart::Meridiem, 2, {7, 30}},
    {"NoStep", {7, 30}, TimePart::Hours, 0, {7, 30}},
    {"ManySteps", {7, 30}, TimePart::Minutes, 2147483647, {7, 37}},
    {"ManyStepsDown", {7, 30}, TimePart::Hours, -2147483647, {0, 30}},
};

INSTANTIATE_TEST_SUITE_P(Table, SteppedTime, testing::ValuesIn(steps), NamedAfterRow());

} // namespace

} // namespace frimbolate
