// Marks that the script editor paints beside the script's own characters.
#pragma once

#include <QList>
#include <QRectF>

class QPainter;
class QString;
class QWidget;

namespace frimbolate::style {

/// Paints a hook in the right margin of each line that wraps.
/// \param lines the rectangles of the lines, in viewport coordinates
/// \param margin the width of the viewport's margin, in pixels
void paintWrapMarks(QWidget& viewport, const QList<QRectF>& lines, double margin);

/// The box that represents a folded part of the text, in the font of the editor; pixels.
QSizeF foldedTextSize(const QWidget& editor, const QString& words);
void paintFoldedText(QPainter& painter, const QRectF& rect, const QWidget& editor,
                     const QString& words);

} // namespace frimbolate::style
