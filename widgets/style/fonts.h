// The fonts of the program: a few roles, each a size and a weight.
//
// Sizes are pixels at 1x for the desktop's default font size. A larger desktop font enlarges every
// size, and every length passed through scaled(), by the same factor.
#pragma once

#include <QFont>

class QWidget;

namespace frimbolate::style {

enum class FontRole {
    control,       ///< 13, regular; the application's font
    rowLabel,      ///< 13, medium
    hint,          ///< 12, regular: hints, captions, the drawer, the menu bar
    toolbar,       ///< 11, medium
    sheetTitle,    ///< 15, semi-bold
    welcomeTitle,  ///< 22, semi-bold
    defaultButton, ///< 13, semi-bold
    mono,          ///< 12, a family without code ligatures, so that "--" stays two characters
};

QFont font(FontRole role);
void setFont(QWidget* widget, FontRole role);

/// The ratio of the user's font size to the desktop's default; 1 to 2.
double fontScale();
/// Converts a length of the 1x layout to pixels for the user's font size.
int scaled(int pixels);

/// Stores the desktop's font, from which fontScale() is computed; 1 before the first call.
void setDesktopFont(const QFont& desktopFont);

} // namespace frimbolate::style
