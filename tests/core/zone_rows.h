// Zones with changes of clocks, and times as the rows of the tests write them.
#pragma once

#include "core/wall_clock.h"

#include <map>
#include <string>

namespace frimbolate::test {

/// "2026-11-21T09:41", a moment in UTC
WorldMinute worldMinute(const std::string& text);
/// The same on the clocks of a zone.
LocalMinute localMinute(const std::string& text);
std::string localText(LocalMinute time);

/// The zones of zones.tsv.
std::map<std::string, WallClock::Offset> readZones();

} // namespace frimbolate::test
