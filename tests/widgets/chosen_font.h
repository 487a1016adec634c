// The desktop's font as a test chooses it.
#pragma once

#include <QApplication>
#include <QFont>

#include <cmath>

namespace frimbolate::test {

/// Makes the desktop's font FRIMBOLATE_LOOK_FONT times as large as usual, once where that is not
/// set; to be called before the look is installed.
inline void wearChosenFont() {
    constexpr double usualPixels = 12;
    const double factor = qEnvironmentVariable("FRIMBOLATE_LOOK_FONT", "1").toDouble();
    QFont font = QApplication::font();
    font.setPixelSize(static_cast<int>(std::lround(usualPixels * factor)));
    QApplication::setFont(font);
}

} // namespace frimbolate::test
