#include "tests/core/zone_rows.h"

#include <cstdio>
#include <fstream>
#include <sstream>
#include <vector>

namespace frimbolate::test {

using namespace std::chrono;

namespace {

struct Change {
    WorldMinute at;
    minutes ahead;
};

minutes sinceEpoch(const std::string& text) {
    const auto number = [&text](std::size_t at, std::size_t length) {
        return std::stoi(text.substr(at, length));
    };
    const sys_days date(year(number(0, 4)) / number(5, 2) / number(8, 2));
    return date.time_since_epoch() + hours(number(11, 2)) + minutes(number(14, 2));
}

} // namespace

WorldMinute worldMinute(const std::string& text) { return WorldMinute(sinceEpoch(text)); }

LocalMinute localMinute(const std::string& text) { return LocalMinute(sinceEpoch(text)); }

std::string localText(LocalMinute time) {
    const auto day = floor<days>(time);
    const year_month_day date(day);
    const hh_mm_ss ofDay(time - day);
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d", static_cast<int>(date.year()),
                  unsigned(date.month()), unsigned(date.day()),
                  static_cast<int>(ofDay.hours().count()),
                  static_cast<int>(ofDay.minutes().count()));
    return text;
}

std::map<std::string, WallClock::Offset> readZones() {
    std::map<std::string, WallClock::Offset> zones;
    std::ifstream file(FRIMBOLATE_ZONE_ROWS);
    for (std::string line; std::getline(file, line);) {
        std::istringstream columns(line);
        std::string name, at;
        int first = 0, ahead = 0;
        columns >> name >> first;
        std::vector<Change> changes;
        while (columns >> at >> ahead)
            changes.push_back({worldMinute(at), minutes(ahead)});
        zones[name] = [first, changes](WorldMinute moment) {
            minutes offset(first);
            for (const auto& change : changes)
                if (change.at <= moment)
                    offset = change.ahead;
            return offset;
        };
    }
    return zones;
}

} // namespace frimbolate::test
