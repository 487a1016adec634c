// The type of the program: a handful of roles, each a size and a weight.
//
// Sizes are pixels at 1x for the font size that a desktop comes with. Whoever reads with a larger
// font gets every size, and every length passed through scaled(), larger by the same factor.
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
    mono,          ///< 12, a face without code ligatures, so that "--" stays two characters
};

QFont font(FontRole role);
void setFont(QWidget* widget, FontRole role);

/// How much larger than the desktop's own default the person reads; 1 to 2.
double fontScale();
/// A length of the 1x layout, in pixels for this person's font.
int scaled(int pixels);

/// Remembers the desktop's font; the application's font is ours from then on.
void setDesktopFont(const QFont& desktopFont);

} // namespace frimbolate::style
