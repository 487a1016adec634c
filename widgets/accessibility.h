// What assistive tools are told of the window and its parts beyond what the toolkit tells by
// itself.
#pragma once

namespace frimbolate {

/// The toolkit lists no window of the kind that a pop-over is, so whoever reads the screen would
/// never meet it: here it is listed as a part of the window that it belongs to. An alert has the
/// role of one, by which screen readers know to read it aloud whole, and so has a warning inside a
/// sheet; a text that wraps anywhere has that of a label. Calling it again does nothing more.
void installAccessibility();

} // namespace frimbolate
