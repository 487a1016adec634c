#include "core/time_of_day.h"

#include "core/ascii.h"
#include "core/conversions.h"

#include <array>
#include <charconv>

namespace frimbolate {

namespace {

constexpr int hoursPerHalf = 12;

/// ASCII only, independent of the locale.
char lowerCase(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

/// Locales put a no-break (U+00A0) or narrow no-break space (U+202F) before "am"; pasted texts
/// contain the other blanks.
std::string withPlainBlanks(std::string_view text) {
    constexpr std::array<std::string_view, 10> blanks = {
        "\t", "\n", "\v", "\f", "\r", "\u00a0", "\u2007", "\u2009", "\u202f", "\u3000"};
    std::string result(text);
    for (const auto blank : blanks)
        result = replacedAll(result, blank, " ");
    return result;
}

/// The unread rest of a text. Each take...() consumes from its front.
class Rest {
  public:
    explicit Rest(std::string_view text) : text_(text) {}

    bool isEmpty() const { return text_.empty(); }
    bool startsWithDigit() const { return !text_.empty() && isDigit(text_.front()); }

    /// \return whether there was a blank
    bool takeBlanks() {
        const auto size = text_.size();
        while (!text_.empty() && text_.front() == ' ')
            text_.remove_prefix(1);
        return text_.size() != size;
    }

    /// \param wanted a sign, or a letter in lower case
    /// \return whether it was next, in either case
    bool take(char wanted) {
        if (text_.empty() || lowerCase(text_.front()) != wanted)
            return false;
        text_.remove_prefix(1);
        return true;
    }

    std::string_view takeDigits() {
        std::size_t count = 0;
        while (count < text_.size() && isDigit(text_[count]))
            ++count;
        const auto digits = text_.substr(0, count);
        text_.remove_prefix(count);
        return digits;
    }

  private:
    std::string_view text_;
};

/// \param digits at most two
int number(std::string_view digits) {
    int value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return value;
}

/// Hours and minutes, without a check of their bounds.
std::optional<TimeOfDay> takeNumbers(Rest& rest) {
    const auto first = rest.takeDigits();
    const bool blank = rest.takeBlanks();
    const bool sign = rest.take(':') || rest.take('.');
    if (sign)
        rest.takeBlanks();
    if (sign || (blank && rest.startsWithDigit())) {
        const auto minutes = rest.takeDigits();
        if (first.empty() || first.size() > 2 || minutes.size() != 2)
            return std::nullopt;
        return TimeOfDay{number(first), number(minutes)};
    }
    if (first.empty() || first.size() > 4)
        return std::nullopt;
    if (first.size() <= 2)
        return TimeOfDay{number(first), 0};
    const auto hourDigits = first.size() - 2;
    return TimeOfDay{number(first.substr(0, hourDigits)), number(first.substr(hourDigits))};
}

enum class Half { None, Morning, Afternoon };

/// Accepts "a", "am", "a.m.", "a. m." and the same for "p".
Half takeHalf(Rest& rest) {
    rest.takeBlanks();
    const Half half = rest.take('a')   ? Half::Morning
                      : rest.take('p') ? Half::Afternoon
                                       : Half::None;
    if (half == Half::None)
        return half;
    rest.take('.');
    rest.takeBlanks();
    if (rest.take('m'))
        rest.take('.');
    return half;
}

std::string twoDigits(int value) {
    return std::string(value < 10 ? "0" : "").append(std::to_string(value));
}

int wrapped(int value, int size) { return (value % size + size) % size; }

} // namespace

std::optional<TimeOfDay> parseTimeOfDay(std::string_view text) {
    const auto plain = withPlainBlanks(text);
    Rest rest(plain);
    rest.takeBlanks();
    auto time = takeNumbers(rest);
    const Half half = takeHalf(rest);
    rest.takeBlanks();
    if (!time || !rest.isEmpty() || time->minute >= minutesPerHour)
        return std::nullopt;
    if (half == Half::None)
        return time->hour < hoursPerDay ? time : std::nullopt;
    if (time->hour < 1 || time->hour > hoursPerHalf)
        return std::nullopt;
    time->hour = time->hour % hoursPerHalf + (half == Half::Afternoon ? hoursPerHalf : 0);
    return time;
}

std::string formatTimeOfDay(TimeOfDay time, ClockFormat clock) {
    const bool isHalf = clock == ClockFormat::TwelveHours;
    const int hour = isHalf ? time.hour % hoursPerHalf : time.hour;
    std::string text = twoDigits(isHalf && hour == 0 ? hoursPerHalf : hour);
    text += ':';
    text += twoDigits(time.minute);
    if (isHalf)
        text += time.hour < hoursPerHalf ? " AM" : " PM";
    return text;
}

TimePart timePartAt(std::size_t position, ClockFormat clock) {
    const auto isIn = [position](TimePart part) {
        return position <= spanOf(part).position + spanOf(part).length;
    };
    if (isIn(TimePart::Hours))
        return TimePart::Hours;
    return isIn(TimePart::Minutes) || clock == ClockFormat::TwentyFourHours ? TimePart::Minutes
                                                                            : TimePart::Meridiem;
}

TextSpan spanOf(TimePart part) {
    switch (part) {
    case TimePart::Hours:
        return {0, 2};
    case TimePart::Minutes:
        return {3, 2};
    case TimePart::Meridiem:
        return {6, 2};
    }
    return {0, 0};
}

TimeOfDay stepTimeOfDay(TimeOfDay time, TimePart part, int steps) {
    switch (part) {
    case TimePart::Hours:
        return {wrapped(time.hour + steps % hoursPerDay, hoursPerDay), time.minute};
    case TimePart::Minutes:
        return {time.hour, wrapped(time.minute + steps % minutesPerHour, minutesPerHour)};
    case TimePart::Meridiem:
        return {wrapped(time.hour + steps % 2 * hoursPerHalf, hoursPerDay), time.minute};
    }
    return time;
}

} // namespace frimbolate
