// A file or folder that is dragged over a control.
#pragma once

#include <QString>

class QDropEvent;

namespace frimbolate {

/// The path of the one file or folder of this computer that is dragged, without a slash at its end;
/// empty where it is more, less or elsewhere, where a sheet is up, and where taking it would make
/// the source give it away.
QString draggedPath(const QDropEvent& event);

/// Answers a drag or drop: the source is told of a link or copy, never of a move.
void answer(QDropEvent& event, bool isTaken);

} // namespace frimbolate
