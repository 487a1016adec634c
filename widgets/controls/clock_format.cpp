#include "widgets/controls/clock_format.h"

#include <QLocale>

namespace frimbolate {

ClockFormat localeClockFormat() {
    const QString format = QLocale().timeFormat(QLocale::ShortFormat);
    return format.contains("AP", Qt::CaseInsensitive) ? ClockFormat::TwelveHours
                                                      : ClockFormat::TwentyFourHours;
}

} // namespace frimbolate
