#include "posix/system_log.h"

namespace frimbolate {

void SystemLog::line(const std::string& text) {
    syslog_.line(text);
    terminal_.write(text);
}

} // namespace frimbolate
