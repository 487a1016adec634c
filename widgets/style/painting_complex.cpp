#include "widgets/style/fonts.h"
#include "widgets/style/painting.h"

#include <QPainter>
#include <QWidget>

#include <algorithm>

namespace frimbolate::style {
namespace {

QIcon::Mode iconMode(const QStyleOption& option) {
    return has(option, QStyle::State_Enabled) ? QIcon::Normal : QIcon::Disabled;
}

QIcon::State iconState(const QStyleOption& option) {
    return has(option, QStyle::State_On) ? QIcon::On : QIcon::Off;
}

/// The distance from the right edge of a field to the centre of its chevrons; pixels.
double chevronDistance(const QRect& control) {
    return control.height() < formControlHeight ? 12 : 13.5;
}

QPointF chevronCentre(const QRect& control) {
    const QRectF rect(control);
    return {rect.right() - chevronDistance(control), rect.center().y()};
}

/// An item of the toolbar: the icon above its title.
void paintToolbarLabel(QPainter& painter, const QStyleOptionToolButton& option,
                       const QStyle& style) {
    const Tokens& t = tokens(option.palette);
    const QSize icon = option.iconSize;
    const int textHeight = painter.fontMetrics().height();
    const int top = option.rect.center().y() - (icon.height() + 3 + textHeight) / 2;
    const QRect iconRect(QPoint(option.rect.center().x() + 1 - icon.width() / 2, top), icon);
    option.icon.paint(&painter, iconRect, Qt::AlignCenter, iconMode(option), iconState(option));
    QRect text = option.rect;
    text.setTop(iconRect.bottom() + 1 + 3);
    text.setHeight(textHeight);
    painter.setPen(!has(option, QStyle::State_Enabled) ? t.disabledText
                   : has(option, QStyle::State_On)     ? t.accent
                                                       : t.secondaryText);
    style.drawItemText(&painter, text, Qt::AlignCenter | Qt::TextShowMnemonic, option.palette, true,
                       option.text);
}

} // namespace

void paintToolButton(QPainter& painter, const QStyleOptionToolButton& option, const QWidget* widget,
                     const QStyle& style) {
    const Tokens& t = tokens(option.palette);
    const bool isToolbarItem = option.toolButtonStyle == Qt::ToolButtonTextUnderIcon;
    const bool isRound = widget && widget->property("round").toBool();
    const bool isEnabled = has(option, QStyle::State_Enabled);
    const QRectF area =
        isToolbarItem ? QRectF(option.rect).adjusted(2, 0, -2, 0) : QRectF(option.rect);
    const double radius = isToolbarItem ? itemRadius
                          : isRound     ? std::min(area.width(), area.height()) / 2
                                        : controlRadius;

    const bool isFlat = !isRound;
    const QColor fill = !isEnabled                                       ? QColor(Qt::transparent)
                        : has(option, QStyle::State_Sunken)              ? t.pressed
                        : isToolbarItem && has(option, QStyle::State_On) ? t.accentSoft
                        : has(option, QStyle::State_MouseOver)           ? t.hover
                        : isFlat                                         ? QColor(Qt::transparent)
                                                                         : t.surface;
    const bool isFocused = has(option, QStyle::State_HasFocus);
    const QColor border = isFocused ? t.accent
                          : isRound ? t.controlBorder
                                    : QColor(Qt::transparent);
    drawRoundedBox(painter, area, radius, fill, border, isFocused ? 2 : 1);

    if (isToolbarItem)
        return paintToolbarLabel(painter, option, style);
    if (option.icon.isNull()) {
        painter.setPen(isEnabled ? t.text : t.disabledText);
        style.drawItemText(&painter, option.rect, Qt::AlignCenter | Qt::TextShowMnemonic,
                           option.palette, isEnabled, option.text);
        return;
    }
    QRect icon(QPoint(), option.iconSize);
    icon.moveCenter(option.rect.center());
    option.icon.paint(&painter, icon, Qt::AlignCenter, iconMode(option), iconState(option));
}

void paintComboBox(QPainter& painter, const QStyleOptionComboBox& option, const QWidget* widget) {
    const Tokens& t = tokens(option.palette);
    const QColor fill = option.editable                        ? t.field
                        : has(option, QStyle::State_Sunken)    ? t.pressed
                        : has(option, QStyle::State_MouseOver) ? t.hover
                                                               : t.button;
    drawControlBox(painter, option, widget, fill);
    const QColor foreground = has(option, QStyle::State_Enabled) ? t.secondaryText : t.disabledText;
    chevrons(painter, chevronCentre(option.rect), foreground, foreground);
}

void paintComboBoxLabel(QPainter& painter, const QStyleOptionComboBox& option,
                        const QStyle& style) {
    if (option.editable)
        return;
    const Tokens& t = tokens(option.palette);
    QRect text = option.rect.adjusted(textInset(option.rect), 0, -stepperWidth, 0);
    if (!option.currentIcon.isNull()) {
        QRect icon(QPoint(text.left(), 0), option.iconSize);
        icon.moveTop(option.rect.center().y() - icon.height() / 2 + 1);
        option.currentIcon.paint(&painter, icon, Qt::AlignCenter, iconMode(option));
        text.setLeft(icon.right() + 1 + 8);
    }
    const bool isEnabled = has(option, QStyle::State_Enabled);
    painter.save();
    // From the option's palette: an item that means "nothing chosen" has the placeholder colour.
    painter.setPen(isEnabled ? option.palette.color(QPalette::ButtonText) : t.disabledText);
    const QString shown =
        painter.fontMetrics().elidedText(option.currentText, Qt::ElideRight, text.width());
    style.drawItemText(&painter, text, Qt::AlignVCenter, option.palette, isEnabled, shown);
    painter.restore();
}

void paintSpinBox(QPainter& painter, const QStyleOptionSpinBox& option, const QWidget* widget) {
    const Tokens& t = tokens(option.palette);
    drawControlBox(painter, option, widget, t.field);
    if (option.buttonSymbols == QAbstractSpinBox::NoButtons)
        return;
    const bool isEnabled = has(option, QStyle::State_Enabled);
    const auto foreground = [&](QAbstractSpinBox::StepEnabledFlag step,
                                QStyle::SubControl control) {
        if (!isEnabled || !option.stepEnabled.testFlag(step))
            return t.disabledText;
        return option.activeSubControls == control ? t.text : t.secondaryText;
    };
    const QRect line(option.rect.right() - stepperWidth, option.rect.top() + 6, 1,
                     option.rect.height() - 12);
    painter.fillRect(line, t.hairline);
    chevrons(painter, chevronCentre(option.rect),
             foreground(QAbstractSpinBox::StepUpEnabled, QStyle::SC_SpinBoxUp),
             foreground(QAbstractSpinBox::StepDownEnabled, QStyle::SC_SpinBoxDown));
}

void paintSlider(QPainter& painter, const QStyleOptionSlider& option, const QRect& handle) {
    const Tokens& t = tokens(option.palette);
    const bool isEnabled = has(option, QStyle::State_Enabled);
    const double middle = QRectF(option.rect).center().y();
    const double reach = handle.width() / 2.0;
    const double start = option.rect.left() + reach;
    const double span = option.rect.width() - 2 * reach;
    // The fill begins at zero, or at the nearest end; a scale through zero marks it.
    const int zero = std::clamp(0, option.minimum, option.maximum);
    const double origin = start + QStyle::sliderPositionFromValue(option.minimum, option.maximum,
                                                                  zero, static_cast<int>(span));
    const double value = QRectF(handle).center().x();

    drawRoundedBox(painter, QRectF(option.rect.left(), middle - 2, option.rect.width(), 4), 2,
                   isEnabled ? t.controlBorder : t.hairline);
    if (option.minimum < 0 && option.maximum > 0)
        painter.fillRect(QRectF(origin - 0.5, middle - 6, 1, 12), t.controlBorder);
    if (isEnabled)
        painter.fillRect(
            QRectF(QPointF(origin, middle - 2), QPointF(value, middle + 2)).normalized(), t.accent);

    const bool isFocused = has(option, QStyle::State_HasFocus);
    const bool isHeld =
        option.activeSubControls == QStyle::SC_SliderHandle && has(option, QStyle::State_Sunken);
    const QColor knob = tokens(true).window == t.window ? t.text : t.surface;
    drawRoundedBox(painter, handle, reach, isHeld ? t.pressed : knob,
                   isFocused ? t.accent : t.controlBorder, isFocused ? 2 : 1);
}

void paintScrollBar(QPainter& painter, const QStyleOptionSlider& option, const QRect& handle) {
    if (option.maximum <= option.minimum)
        return;
    const Tokens& t = tokens(option.palette);
    const bool isActive = has(option, QStyle::State_MouseOver) || has(option, QStyle::State_Sunken);
    const double inset = 2;
    drawRoundedBox(painter, QRectF(handle).adjusted(inset, inset, -inset, -inset), 4,
                   isActive ? t.secondaryText : t.controlBorder);
}

} // namespace frimbolate::style
