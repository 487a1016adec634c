#include "posix/system_log.h"

#include "core/control_characters.h"

namespace frimbolate {

void SystemLog::line(const std::string& text) {
    // An entry quotes agent files, whose escape sequences a terminal would act on.
    const std::string harmless = maskedControls(text, "\n\t");
    syslog_.line(harmless);
    terminal_.write(harmless);
}

} // namespace frimbolate
