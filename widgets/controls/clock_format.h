// The clock format of the user's locale. It is read here only, so that the time field and all
// sentences agree.
#pragma once

#include "core/time_of_day.h"

namespace frimbolate {

ClockFormat localeClockFormat();

} // namespace frimbolate
