// The strokes that controls are made of, and the painting of each control; Style hands on to these.
#pragma once

#include "widgets/style/tokens.h"

#include <QStyle>
#include <QStyleOption>

#include <functional>

class QPainter;

namespace frimbolate::style {

constexpr double controlRadius = 6;
constexpr double itemRadius = 8;
constexpr double checkRadius = 4;
/// From this height on (pixels) a field is one of the form, with the wider text inset.
constexpr int formControlHeight = 28;
/// Below this width (pixels) a field needs its room for a few digits more than for the inset.
constexpr int narrowFieldWidth = 60;
/// Width, in pixels, of the part of a field that holds its steppers.
constexpr int stepperWidth = 25;

/// A rounded rectangle; the border lies wholly inside it, so nothing moves when it grows.
void drawRoundedBox(QPainter& painter, const QRectF& rect, double radius, const QColor& fill,
                    const QColor& border = Qt::transparent, double borderWidth = 1);
/// An open angle of 8 × 4 pixels that points up or down, centred.
void chevron(QPainter& painter, const QPointF& centre, bool up, const QColor& colour);
/// The pair that stands for "one of several": up above down.
void chevrons(QPainter& painter, const QPointF& centre, const QColor& up, const QColor& down);
/// A shadow that fades out over `reach` pixels: faint layers on top of each other look like a
/// blurred one. drawLayer(step) draws one that reaches out `step` pixels.
void softShadow(QPainter& painter, int reach, float strength,
                const std::function<void(int step)>& drawLayer);
void checkMark(QPainter& painter, const QRectF& box, const QColor& colour);

/// Plate of a field or pop-up by its state: plain, focused, faulty or disabled.
void drawControlBox(QPainter& painter, const QStyleOption& option, const QWidget* widget,
                    const QColor& fill);
/// Where the text of a field begins, from its left edge; pixels.
int textInset(const QRect& control);

void paintPushButton(QPainter& painter, const QStyleOptionButton& option, const QWidget* widget);
void paintPushButtonLabel(QPainter& painter, const QStyleOptionButton& option, const QStyle& style);
void paintCheckBox(QPainter& painter, const QStyleOption& option);
void paintToolButton(QPainter& painter, const QStyleOptionToolButton& option, const QWidget* widget,
                     const QStyle& style);
void paintComboBox(QPainter& painter, const QStyleOptionComboBox& option, const QWidget* widget);
void paintComboBoxLabel(QPainter& painter, const QStyleOptionComboBox& option, const QStyle& style);
void paintSpinBox(QPainter& painter, const QStyleOptionSpinBox& option, const QWidget* widget);
void paintSlider(QPainter& painter, const QStyleOptionSlider& option, const QRect& handle);
void paintScrollBar(QPainter& painter, const QStyleOptionSlider& option, const QRect& handle);

void paintMenuItem(QPainter& painter, const QStyleOptionMenuItem& option, const QStyle& style);
QSize menuItemSize(const QStyleOptionMenuItem& option, const QSize& contents);
void paintMenuBarItem(QPainter& painter, const QStyleOptionMenuItem& option, const QStyle& style);
QSize menuBarItemSize(const QStyleOptionMenuItem& option);

} // namespace frimbolate::style
