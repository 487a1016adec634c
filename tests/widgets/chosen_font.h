// The desktop's font for tests.
#pragma once

#include <QApplication>
#include <QFont>

#include <cmath>

namespace frimbolate::test {

/// Sets the application's font to FRIMBOLATE_LOOK_FONT times the default size; 1 if that is not
/// set. Call it before style::install().
inline void setChosenFont() {
    constexpr double usualPixels = 12;
    const double factor = qEnvironmentVariable("FRIMBOLATE_LOOK_FONT", "1").toDouble();
    QFont font = QApplication::font();
    font.setPixelSize(static_cast<int>(std::lround(usualPixels * factor)));
    QApplication::setFont(font);
}

} // namespace frimbolate::test
