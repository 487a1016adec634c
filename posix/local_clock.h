// The clock of this computer, in the user's time zone.
#pragma once

#include "platform/services.h"

namespace frimbolate {

class LocalClock : public Clock {
  public:
    LocalDateTime now() override;
};

} // namespace frimbolate
