// The calendars of an agent file in plain English.
#pragma once

#include "core/calendar_runs.h"
#include "core/sentence_words.h"
#include "core/time_of_day.h"

#include <vector>

namespace frimbolate {

/// A word for each group of calendars, such as "every Monday and Friday at 07:05" and "at minute 15
/// of every hour". A single calendar that a form can write gives the words of scheduleText(). Of
/// many groups the last ones are counted only.
Words calendarWords(const std::vector<CalendarInterval>& intervals, ClockFormat clock);

} // namespace frimbolate
