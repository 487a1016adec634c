// The look of the application as a whole.
#pragma once

class QApplication;

namespace frimbolate::style {

/// Gives the application its style, fonts, and the palette of the desktop's colour scheme, and
/// follows the scheme while the program runs. FRIMBOLATE_COLOR_SCHEME=light or dark overrides the
/// desktop. On macOS only the fonts are ours: controls are the system's own there.
void install(QApplication& application);

} // namespace frimbolate::style
