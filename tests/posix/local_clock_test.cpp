// The changes of the clocks as the system's library knows them.
#include "posix/local_clock.h"

#include "tests/support/variable.h"

#include <gtest/gtest.h>

#include <ctime>
#include <optional>

namespace frimbolate::test {
namespace {

using namespace std::chrono;

/// The zone of the test: summer time from the last Sunday of March to that of October.
class LocalWallClock : public testing::Test {
  protected:
    LocalWallClock() {
        zone_.emplace("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
        ::tzset();
    }
    ~LocalWallClock() override {
        zone_.reset();
        ::tzset();
    }

  private:
    std::optional<Variable> zone_;
};

constexpr sys_days spring = 2026y / March / 29;
constexpr sys_days autumn = 2026y / October / 25;

LocalMinute onClocks(sys_days day, minutes time) {
    return LocalMinute(day.time_since_epoch() + time);
}

TEST_F(LocalWallClock, KnowsBothSidesOfEachChange) {
    const WallClock clock = localWallClock();
    EXPECT_EQ(clock.shownAt(spring + hours(1) - minutes(1)),
              onClocks(spring, hours(2) - minutes(1)));
    EXPECT_EQ(clock.shownAt(spring + hours(1)), onClocks(spring, hours(3)));
    EXPECT_EQ(clock.shownAt(autumn + hours(1) - minutes(1)),
              onClocks(autumn, hours(3) - minutes(1)));
    EXPECT_EQ(clock.shownAt(autumn + hours(1)), onClocks(autumn, hours(2)));
}

TEST_F(LocalWallClock, FindsTheMomentOfASkippedTimeAndOfARepeatedOne) {
    const WallClock clock = localWallClock();
    EXPECT_EQ(clock.momentOf(onClocks(spring, hours(2) + minutes(30))),
              spring + hours(1) + minutes(30));
    EXPECT_EQ(clock.momentOf(onClocks(autumn, hours(2) + minutes(30))), autumn + minutes(30));
}

TEST_F(LocalWallClock, ShowsTheTimeOfTheOtherClock) {
    // Both are read again if a minute passes between them.
    LocalDateTime before, after;
    LocalMinute shown;
    do {
        before = LocalClock().now();
        shown = localWallClock().now();
        after = LocalClock().now();
    } while (before.minute != after.minute);
    const year_month_day date{year(before.year), month(static_cast<unsigned>(before.month)),
                              std::chrono::day(static_cast<unsigned>(before.day))};
    EXPECT_EQ(shown, local_days(date) + hours(before.hour) + minutes(before.minute));
}

} // namespace
} // namespace frimbolate::test
