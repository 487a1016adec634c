// What the program exposes to assistive tools beyond what the toolkit exposes by itself.
#pragma once

namespace frimbolate {

/// Installs the accessible interfaces. The toolkit does not list a pop-over's kind of window, so
/// the pop-over is listed as a child of its window. An alert, and a warning inside a sheet, have
/// the alert role, by which screen readers read them aloud whole. A WrappedText has the label role.
/// Further calls have no effect.
void installAccessibility();

} // namespace frimbolate
