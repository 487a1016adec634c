#include "widgets/style/painting.h"

#include "widgets/style/fonts.h"

#include <QPainter>
#include <QPainterPath>
#include <QWidget>

#include <algorithm>

namespace frimbolate::style {
namespace {

void stroke(QPainter& painter, const QPainterPath& path, const QColor& colour, double width) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(path);
    painter.restore();
}

} // namespace

void drawRoundedBox(QPainter& painter, const QRectF& rect, double radius, const QColor& fill,
                    const QColor& border, double borderWidth) {
    const double inset = border.alpha() == 0 ? 0 : borderWidth / 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(fill);
    painter.setPen(inset > 0 ? QPen(border, borderWidth) : QPen(Qt::NoPen));
    painter.drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), radius - inset,
                            radius - inset);
    painter.restore();
}

void chevron(QPainter& painter, const QPointF& centre, bool up, const QColor& colour) {
    const double tip = up ? -1.75 : 1.75;
    QPainterPath path(centre + QPointF(-3.5, -tip));
    path.lineTo(centre + QPointF(0, tip));
    path.lineTo(centre + QPointF(3.5, -tip));
    stroke(painter, path, colour, 1.5);
}

void chevrons(QPainter& painter, const QPointF& centre, const QColor& up, const QColor& down) {
    chevron(painter, centre - QPointF(0, 4.75), true, up);
    chevron(painter, centre + QPointF(0, 4.75), false, down);
}

void checkMark(QPainter& painter, const QRectF& box, const QColor& colour) {
    const double unit = box.width() / 16;
    QPainterPath path(box.topLeft() + QPointF(4.25, 8.25) * unit);
    path.lineTo(box.topLeft() + QPointF(7, 11) * unit);
    path.lineTo(box.topLeft() + QPointF(11.75, 5.5) * unit);
    stroke(painter, path, colour, 1.75 * std::max(unit, 0.85));
}

void softShadow(QPainter& painter, int reach, float strength,
                const std::function<void(int step)>& drawLayer) {
    painter.setPen(Qt::NoPen);
    for (int step = reach; step > 0; --step) {
        const float nearness = 1 - static_cast<float>(step) / static_cast<float>(reach);
        painter.setBrush(QColor::fromRgbF(0, 0, 0, strength * nearness));
        drawLayer(step);
    }
}

void inBands(QPainter& painter, const QRect& area, const std::function<void()>& draw) {
    // At most three spans in a line, and less than 96 in all.
    constexpr double devicePixels = 24;
    const int height =
        std::max(1, static_cast<int>(devicePixels / painter.device()->devicePixelRatioF()));
    for (int top = area.top(); top <= area.bottom(); top += height) {
        painter.save();
        painter.setClipRect(area & QRect(area.left(), top, area.width(), height),
                            Qt::IntersectClip);
        draw();
        painter.restore();
    }
}

void drawControlBox(QPainter& painter, const QStyleOption& option, const QWidget* widget,
                    const QColor& fill) {
    const Tokens& t = tokens(option.palette);
    if (!has(option, QStyle::State_Enabled))
        return drawRoundedBox(painter, option.rect, controlRadius, t.window, t.hairline);
    const bool isFaulty = widget && widget->property("faulty").toBool();
    const bool isFocused = has(option, QStyle::State_HasFocus);
    const QColor border = isFaulty ? t.faultyBorder : isFocused ? t.accent : t.controlBorder;
    drawRoundedBox(painter, option.rect, controlRadius, fill, border, isFocused ? 2 : 1);
}

int textInset(const QRect& control) {
    if (control.width() < narrowFieldWidth)
        return 6;
    return control.height() < formControlHeight ? 8 : 12;
}

void paintPushButton(QPainter& painter, const QStyleOptionButton& option, const QWidget* widget) {
    const Tokens& t = tokens(option.palette);
    const bool isDefault = option.features.testFlag(QStyleOptionButton::DefaultButton);
    const bool isPressed = has(option, QStyle::State_Sunken);
    const bool isHovered = has(option, QStyle::State_MouseOver);
    if (!isDefault || !has(option, QStyle::State_Enabled)) {
        const QColor fill = isPressed ? t.pressed : isHovered ? t.hover : t.button;
        return drawControlBox(painter, option, widget, fill);
    }
    const QColor fill = isPressed || isHovered ? t.accentHover : t.accent;
    drawRoundedBox(painter, option.rect, controlRadius, fill);
    // The focus border is invisible on the accent; an inner line in the text colour sets it off.
    if (has(option, QStyle::State_HasFocus))
        drawRoundedBox(painter, QRectF(option.rect).adjusted(2, 2, -2, -2), controlRadius - 2, fill,
                       t.onAccent);
}

void paintPushButtonLabel(QPainter& painter, const QStyleOptionButton& option,
                          const QStyle& style) {
    const Tokens& t = tokens(option.palette);
    const bool isEnabled = has(option, QStyle::State_Enabled);
    const bool isAccent = isEnabled && option.features.testFlag(QStyleOptionButton::DefaultButton);
    painter.save();
    if (isAccent)
        painter.setFont(font(FontRole::defaultButton));
    const QSize icon = option.icon.isNull() ? QSize(0, 0) : option.iconSize;
    const int gap = icon.isEmpty() || option.text.isEmpty() ? 0 : 8;
    const int width =
        icon.width() + gap + painter.fontMetrics().size(Qt::TextShowMnemonic, option.text).width();
    QRect content = option.rect;
    content.setLeft(option.rect.center().x() - width / 2 + 1);
    if (!icon.isEmpty()) {
        const QRect place(QPoint(content.left(), content.center().y() - icon.height() / 2 + 1),
                          icon);
        option.icon.paint(&painter, place, Qt::AlignCenter,
                          isAccent    ? QIcon::Selected
                          : isEnabled ? QIcon::Normal
                                      : QIcon::Disabled);
        content.setLeft(place.right() + 1 + gap);
    }
    painter.setPen(isAccent ? t.onAccent : isEnabled ? t.text : t.disabledText);
    style.drawItemText(&painter, content, Qt::AlignVCenter | Qt::TextShowMnemonic, option.palette,
                       isEnabled, option.text);
    painter.restore();
}

void paintCheckBox(QPainter& painter, const QStyleOption& option) {
    const Tokens& t = tokens(option.palette);
    const QRectF box = option.rect;
    const bool isEnabled = has(option, QStyle::State_Enabled);
    const bool isFocused = has(option, QStyle::State_HasFocus);
    const bool isMixed = has(option, QStyle::State_NoChange);
    if (!isMixed && !has(option, QStyle::State_On)) {
        const QColor border = !isEnabled ? t.hairline : isFocused ? t.accent : t.controlBorder;
        const QColor fill = !isEnabled                             ? t.window
                            : has(option, QStyle::State_Sunken)    ? t.pressed
                            : has(option, QStyle::State_MouseOver) ? t.hover
                                                                   : t.field;
        return drawRoundedBox(painter, box, checkRadius, fill, border, isFocused ? 2 : 1);
    }
    const QColor fill = !isEnabled                             ? t.hairline
                        : has(option, QStyle::State_MouseOver) ? t.accentHover
                                                               : t.accent;
    const QColor foreground = isEnabled ? t.onAccent : t.disabledText;
    drawRoundedBox(painter, box, checkRadius, fill);
    if (isFocused)
        drawRoundedBox(painter, box.adjusted(1.5, 1.5, -1.5, -1.5), checkRadius - 1.5, fill,
                       foreground);
    if (isMixed)
        painter.fillRect(QRectF(box.center() - QPointF(4, 1), QSizeF(8, 2)), foreground);
    else
        checkMark(painter, isFocused ? box.adjusted(1, 1, -1, -1) : box, foreground);
}

} // namespace frimbolate::style
