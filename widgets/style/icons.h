// Icons of the program and of files, drawn from SVG at the very pixel size asked for.
//
// The sources use three literal colours: ink, accent and tile. They are exchanged at painting time
// by palette, mode and state, so one file serves light and dark, disabled, toggled and selected.
#pragma once

#include "core/form_model.h"

#include <QIcon>
#include <QStyle>

#include <string_view>

namespace frimbolate::style {

/// What lies behind a tile: the drawer's own colour would swallow the ordinary tile.
enum class Surface { card, drawer };

/// An icon from resources/icons, such as "save", "warning" or "app". Checked (QIcon::On) means the
/// accent, Disabled the colour of disabled text, Selected the colour of text on the accent. "app"
/// is drawn without the margin that desktops want around it.
QIcon toolIcon(std::string_view name);

/// What the toolkit's file dialog shows, in the same strokes; null for all else.
QIcon standardIcon(QStyle::StandardPixmap pixmap);

/// The picture of an image well. A resource is one of the program's own tiles; a file's icon is
/// our tile for folders, for scripts that are recognised by their extension and for applications
/// (macOS shows their own icons), the desktop's icon for all else, and a tile of a plain file where
/// the desktop has none. It is never the program's own icon. None gives a null icon.
QIcon imageIcon(const Image& image, Surface surface = Surface::card);

} // namespace frimbolate::style
