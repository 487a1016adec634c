// What stands in a script beside its own characters.
#pragma once

#include <QList>
#include <QRectF>

class QPainter;
class QString;
class QWidget;

namespace frimbolate::style {

/// A hook in the margin behind each line that goes on below.
/// \param lines where the lines stand in the viewport
/// \param margin how wide the viewport's margin is, in pixels
void paintWrapMarks(QWidget& viewport, const QList<QRectF>& lines, double margin);

/// A plate in a line, in the font of the editor, that stands for a part of the text.
QSizeF foldedTextSize(const QWidget& editor, const QString& words);
void paintFoldedText(QPainter& painter, const QRectF& rect, const QWidget& editor,
                     const QString& words);

} // namespace frimbolate::style
