#include "macos/unified_log.h"

#include <os/log.h>

namespace frimbolate {

void UnifiedLog::line(const std::string& text) {
    terminal_.write(text);
    // Without "public" the log would show "<private>".
    os_log_with_type(OS_LOG_DEFAULT, OS_LOG_TYPE_DEFAULT, "%{public}s", text.c_str());
}

} // namespace frimbolate
