// The path of a file or folder that is dragged over a control.
#pragma once

#include <QString>

class QDropEvent;

namespace frimbolate {

/// The path of the dragged local file or folder, without a trailing slash. Empty if the drag does
/// not hold exactly one local path, if a sheet is shown, or if the source offers neither link nor
/// copy: a move would delete the file at the source.
QString draggedPath(const QDropEvent& event);

/// Accepts or ignores a drag or drop. The reported action is a link or copy, never a move.
void answer(QDropEvent& event, bool isTaken);

} // namespace frimbolate
