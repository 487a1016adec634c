// The days of the week. The index is launchd's number of the day; Sunday is 0.
#pragma once

#include <array>
#include <string_view>

namespace frimbolate {

struct Weekday {
    std::string_view name;          ///< "Sunday"
    std::string_view scheduleTitle; ///< title of its item in the schedule pop-up
};

inline constexpr std::array<Weekday, 7> weekdays = {{{"Sunday", "Every Sunday"},
                                                     {"Monday", "Every Monday"},
                                                     {"Tuesday", "Every Tuesday"},
                                                     {"Wednesday", "Every Wednesday"},
                                                     {"Thursday", "Every Thursday"},
                                                     {"Friday", "Every Friday"},
                                                     {"Saturday", "Every Saturday"}}};

} // namespace frimbolate
