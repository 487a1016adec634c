#include "core/wall_clock.h"

#include <utility>

namespace frimbolate {

using namespace std::chrono;

namespace {

/// A day before or after a time lies on the other side of a change of clocks that concerns it.
constexpr minutes day = hours(24);

} // namespace

WallClock::WallClock(LocalMinute now)
    : moment_(now.time_since_epoch()), offset_([](WorldMinute) { return minutes(0); }) {}

WallClock::WallClock(WorldMinute moment, Offset offset)
    : moment_(moment), offset_(std::move(offset)) {}

LocalMinute WallClock::shownAt(WorldMinute moment) const {
    return LocalMinute(moment.time_since_epoch() + offset_(moment));
}

WorldMinute WallClock::momentOf(LocalMinute time) const {
    const WorldMinute asUtc(time.time_since_epoch());
    const minutes before = offset_(asUtc - day);
    const minutes after = offset_(asUtc + day);
    const WorldMinute early = asUtc - before;
    if (before == after || offset_(early) == before)
        return early;
    const WorldMinute late = asUtc - after;
    return offset_(late) == after ? late : early;
}

LocalMinute WallClock::searchStart() const {
    const minutes jump = offset_(moment_) - offset_(moment_ - day);
    const bool hasJustJumped = jump > minutes(0) && offset_(moment_ - jump) != offset_(moment_);
    return shownAt(hasJustJumped ? moment_ - jump : moment_);
}

} // namespace frimbolate
