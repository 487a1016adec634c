// The shapes that controls consist of, and the painting of each control; called by Style.
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
/// A field of at least this height (pixels) has the form's wider text inset.
constexpr int formControlHeight = 28;
/// A field narrower than this (pixels) gets a smaller inset to leave space for its digits.
constexpr int narrowFieldWidth = 60;
/// Width, in pixels, of the part of a field that holds its steppers.
constexpr int stepperWidth = 25;

inline bool has(const QStyleOption& option, QStyle::StateFlag flag) {
    return option.state.testFlag(flag);
}

/// A rounded rectangle. The border lies inside it, so a wider border does not move the content.
void drawRoundedBox(QPainter& painter, const QRectF& rect, double radius, const QColor& fill,
                    const QColor& border = Qt::transparent, double borderWidth = 1);
/// An open angle of 8 × 4 pixels that points up or down, centred.
void chevron(QPainter& painter, const QPointF& centre, bool up, const QColor& colour);
/// The pair of chevrons of a pop-up: up above down.
void chevrons(QPainter& painter, const QPointF& centre, const QColor& up, const QColor& down);
/// A shadow that fades out over `reach` pixels, composed of faint layers that overlap.
/// drawLayer(step) draws the layer that extends `step` pixels.
void softShadow(QPainter& painter, int reach, float strength,
                const std::function<void(int step)>& drawLayer);
/// Calls draw() for each of the bands, clipped to it, into which an area is cut. They are so low
/// that the toolkit fills them by itself: it divides a larger antialiased shape between threads,
/// which it starts for that, and waking them takes many times as long as the filling.
void inBands(QPainter& painter, const QRect& area, const std::function<void()>& draw);
void checkMark(QPainter& painter, const QRectF& box, const QColor& colour);

/// The box of a field or pop-up by its state: plain, focused, faulty or disabled.
void drawControlBox(QPainter& painter, const QStyleOption& option, const QWidget* widget,
                    const QColor& fill);
/// The distance of a field's text from its left edge; pixels.
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
