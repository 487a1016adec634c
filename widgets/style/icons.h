// Icons of the program and of files, rendered from SVG at the exact pixel size requested.
//
// The sources use three literal colours: foreground, accent and tile. Painting replaces them by
// palette, mode and state, so one file serves light and dark, disabled, toggled and selected.
#pragma once

#include "core/form_model.h"

#include <QIcon>
#include <QStyle>

#include <string_view>

namespace frimbolate::style {

/// The background of a tile. On the drawer's colour the default tile colour would be invisible.
enum class Surface { card, drawer };

/// An icon from resources/icons, such as "save", "warning" or "app". QIcon::On is drawn in the
/// accent, Disabled in the colour of disabled text, Selected in that of text on the accent. "app"
/// is drawn without the margin that desktops expect around it.
QIcon toolIcon(std::string_view name);

/// The icons of the toolkit's file dialog and of its text fields, drawn in the same strokes; null
/// for any other pixmap.
QIcon standardIcon(QStyle::StandardPixmap pixmap);

/// The icon of an image well. A resource is one of the program's own tiles. A file gets the
/// program's tile for folders, for scripts recognised by their extension and for applications,
/// else the desktop's icon, else the tile of a plain file; on macOS whatever exists gets the
/// desktop's icon. It is never the program's own icon. Image::Kind::None gives a null icon.
QIcon imageIcon(const Image& image, Surface surface = Surface::card);

} // namespace frimbolate::style
