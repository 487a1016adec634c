// Installs the style of the application.
#pragma once

class QApplication;

namespace frimbolate::style {

/// Sets style, fonts and the palette of the desktop's colour scheme, and follows changes of the
/// scheme while the program runs. FRIMBOLATE_COLOR_SCHEME=light or dark overrides the desktop. On
/// macOS it only sets the fonts; controls are the system's own there.
void install(QApplication& application);

} // namespace frimbolate::style
