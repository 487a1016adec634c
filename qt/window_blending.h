// Checks whether the desktop supports translucent windows.
#pragma once

namespace frimbolate {

/// Whether a window may be translucent: on macOS, on Wayland, and on an X server with a compositing
/// manager, without which translucent pixels appear black. Needs a QGuiApplication.
bool blendsWindows();

} // namespace frimbolate
