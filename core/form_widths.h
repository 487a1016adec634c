// The widths that rules change, in points. The window decides all other geometry.
#pragma once

namespace frimbolate {

// The schedule pop-up is wide when nothing is shown beside it.
inline constexpr int normalScheduleWidth = 160;
inline constexpr int wideScheduleWidth = 311;
// The date picker is narrow beside the day of the month.
inline constexpr int normalDatePickerWidth = 146;
inline constexpr int narrowDatePickerWidth = 90;

} // namespace frimbolate
