// The clock of this computer, in the user's time zone.
#pragma once

#include "core/wall_clock.h"
#include "platform/services.h"

namespace frimbolate {

class LocalClock : public Clock {
  public:
    LocalDateTime now() override;
};

/// The same clock with the changes of its zone, by which the next run of an agent is computed.
/// Thread-safe.
WallClock localWallClock();

} // namespace frimbolate
