#include "platform/qt/system_log.h"

#include "platform/qt/file_descriptor.h"

#include <syslog.h>

namespace frimbolate {

SystemLog::SystemLog(int file) : file_(file) { ::openlog("Frimbolate", 0, LOG_USER); }

void SystemLog::line(const std::string& text) {
    ::syslog(LOG_NOTICE, "%s", text.c_str());
    // In one piece, so that the lines of two instances do not mix.
    static_cast<void>(writeWholly(file_, text + "\n"));
}

} // namespace frimbolate
