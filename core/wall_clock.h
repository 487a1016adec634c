// The clock on the user's wall: what it shows now, and what it will show when a time comes that is
// wanted of it, the changes to and from summer time included.
#pragma once

#include <chrono>
#include <functional>

namespace frimbolate {

/// A wall-clock time of the user's zone, to the minute.
using LocalMinute = std::chrono::local_time<std::chrono::minutes>;
/// A moment of the world, to the minute.
using WorldMinute = std::chrono::sys_time<std::chrono::minutes>;

class WallClock {
  public:
    /// The minutes by which the zone's clocks are ahead of UTC at a moment. May be called from any
    /// thread.
    using Offset = std::function<std::chrono::minutes(WorldMinute)>;

    /// A clock that is never changed.
    WallClock(LocalMinute now); // NOLINT(google-explicit-constructor): a time is such a clock
    WallClock(WorldMinute moment, Offset offset);

    /// The moment of this clock.
    WorldMinute moment() const { return moment_; }
    /// What the clock shows now.
    LocalMinute now() const { return shownAt(moment_); }
    /// What the clock shows at a moment.
    LocalMinute shownAt(WorldMinute moment) const;
    /// The moment when a wall-clock time comes: the first of two where the clocks are put back; as
    /// much later as the clocks jump where they skip it.
    WorldMinute momentOf(LocalMinute time) const;
    /// A time from which a search meets every time that is still to come. Usually now; earlier
    /// right after the clocks were put forward, when the times that they skipped are due.
    LocalMinute searchStart() const;

  private:
    WorldMinute moment_;
    Offset offset_;
};

} // namespace frimbolate
