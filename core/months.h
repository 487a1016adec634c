// The names of the months. The index is the number of the month less one.
#pragma once

#include <array>
#include <string_view>

namespace frimbolate {

inline constexpr std::array<std::string_view, 12> monthNames = {
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};

} // namespace frimbolate
