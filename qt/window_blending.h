// Whether the desktop blends windows with what lies behind them.
#pragma once

namespace frimbolate {

/// Whether a window may be translucent: everywhere but on an X server without a compositing
/// manager, where what is translucent comes out black. Ask once the application exists.
bool blendsWindows();

} // namespace frimbolate
