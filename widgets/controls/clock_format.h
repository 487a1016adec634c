// The clock of the user's locale: the one place where it is asked for, so that the time field and
// all sentences agree.
#pragma once

#include "core/time_of_day.h"

namespace frimbolate {

ClockFormat localeClockFormat();

} // namespace frimbolate
