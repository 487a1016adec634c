#include "widgets/style/editor_marks.h"

#include "widgets/style/fonts.h"
#include "widgets/style/painting.h"
#include "widgets/style/tokens.h"

#include <QPainter>
#include <QPainterPath>
#include <QWidget>

namespace frimbolate::style {

namespace {

// Pixels of the 1x layout.
constexpr double hookWidth = 4.5, hookHeight = 4, hookTip = 2;
constexpr int boxPadding = 5, boxGap = 3;

} // namespace

void paintWrapMarks(QWidget& viewport, const QList<QRectF>& lines, double margin) {
    if (lines.isEmpty())
        return;
    const double scale = fontScale();
    QPainter painter(&viewport);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(tokens(viewport.palette()).secondaryText, 1.25, Qt::SolidLine, Qt::RoundCap,
                        Qt::RoundJoin));
    const double right = viewport.width() - (margin - hookWidth * scale) / 2;
    const double left = right - hookWidth * scale, tip = hookTip * scale;
    for (const QRectF& line : lines) {
        const double bottom = line.center().y() + hookHeight * scale / 2;
        QPainterPath hook(QPointF(right, bottom - hookHeight * scale));
        hook.lineTo(right, bottom);
        hook.lineTo(left, bottom);
        hook.moveTo(left + tip, bottom - tip);
        hook.lineTo(left, bottom);
        hook.lineTo(left + tip, bottom + tip);
        painter.drawPath(hook);
    }
}

QSizeF foldedTextSize(const QWidget& editor, const QString& words) {
    const QFontMetricsF metrics(editor.font());
    return {metrics.horizontalAdvance(words) + 2 * scaled(boxPadding) + 2 * scaled(boxGap),
            metrics.ascent()};
}

void paintFoldedText(QPainter& painter, const QRectF& rect, const QWidget& editor,
                     const QString& words) {
    const Tokens& t = tokens(editor.palette());
    const double descent = QFontMetricsF(editor.font()).descent();
    const QRectF whole = rect.adjusted(scaled(boxGap), 0, -scaled(boxGap), descent);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    drawRoundedBox(painter, whole, checkRadius, t.hover, t.hairline);
    painter.setFont(editor.font());
    painter.setPen(t.secondaryText);
    painter.drawText(whole, Qt::AlignCenter, words);
    painter.restore();
}

} // namespace frimbolate::style
