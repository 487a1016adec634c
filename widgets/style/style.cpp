#include "widgets/style/style.h"

#include "widgets/style/icons.h"
#include "widgets/style/list_rows.h"
#include "widgets/style/painting.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QPainter>
#include <QSlider>

#include <algorithm>
#include <utility>

namespace frimbolate::style {
namespace {

constexpr int scrollBarWidth = 10;
constexpr int sliderHandle = 16;
constexpr int toolbarSeparatorHeight = 44;

/// A line edit without a frame of its own is part of a spin box, which paints the box.
bool hasFrame(const QStyleOption& option) {
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(&option);
    return !frame || frame->lineWidth > 0;
}

QRect spinBoxRect(const QStyleOptionSpinBox& option, QStyle::SubControl part) {
    const QRect& all = option.rect;
    const bool hasSteppers = option.buttonSymbols != QAbstractSpinBox::NoButtons;
    const int steppers = hasSteppers ? stepperWidth : 0;
    const QRect column(all.right() + 1 - steppers, all.top(), steppers, all.height());
    switch (part) {
    case QStyle::SC_SpinBoxUp:
        return column.adjusted(0, 0, 0, -column.height() / 2);
    case QStyle::SC_SpinBoxDown:
        return column.adjusted(0, column.height() / 2, 0, 0);
    case QStyle::SC_SpinBoxEditField: {
        // The line edit inside has a margin of two pixels.
        const int inset = textInset(all) - 2;
        return all.adjusted(inset, 2, hasSteppers ? -steppers - 2 : -inset, -2);
    }
    default:
        return all;
    }
}

QRect separatorRect(const QRect& all) {
    const int height = std::min(all.height(), toolbarSeparatorHeight);
    return {all.center().x(), all.center().y() + 1 - height / 2, 1, height};
}

QRect sliderHandleRect(const QStyleOptionSlider& option) {
    const int offset =
        QStyle::sliderPositionFromValue(option.minimum, option.maximum, option.sliderPosition,
                                        option.rect.width() - sliderHandle, option.upsideDown);
    return {option.rect.left() + offset,
            option.rect.top() + (option.rect.height() - sliderHandle) / 2, sliderHandle,
            sliderHandle};
}

} // namespace

Style::Style() : QProxyStyle("fusion") {}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
    const Tokens& t = tokens(option->palette);
    switch (element) {
    case PE_PanelLineEdit:
        if (hasFrame(*option))
            drawControlBox(*painter, *option, widget, t.field);
        return;
    case PE_Frame:
        // A pop-up's corners are those of its window; square without a compositor.
        if (widget && widget->windowType() == Qt::Popup)
            return drawRoundedBox(*painter, option->rect, 0, t.surface, t.controlBorder);
        return drawControlBox(*painter, *option, widget, t.field);
    case PE_IndicatorCheckBox:
        return paintCheckBox(*painter, *option);
    case PE_FrameFocusRect:
        return drawRoundedBox(*painter, option->rect, checkRadius, Qt::transparent, t.accent, 2);
    case PE_PanelMenu:
        return painter->fillRect(option->rect, t.surface);
    case PE_FrameMenu:
        painter->setPen(t.controlBorder);
        painter->setBrush(Qt::NoBrush);
        return painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    case PE_PanelMenuBar:
        return painter->fillRect(option->rect, t.raised);
    case PE_PanelTipLabel:
        return drawRoundedBox(*painter, option->rect, 0, t.surface, t.controlBorder);
    case PE_PanelItemViewRow: // RowDelegate paints the background of the whole row
        return;
    case PE_IndicatorHeaderArrow:
        return paintHeaderArrow(*painter, *qstyleoption_cast<const QStyleOptionHeader*>(option));
    case PE_IndicatorToolBarSeparator:
        return painter->fillRect(separatorRect(option->rect), t.hairline);
    default:
        return QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void Style::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                        const QWidget* widget) const {
    const Tokens& t = tokens(option->palette);
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    const auto* comboBox = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    const auto* menuItem = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    switch (element) {
    case CE_PushButtonBevel:
        return paintPushButton(*painter, *button, widget);
    case CE_PushButtonLabel:
        return paintPushButtonLabel(*painter, *button, *this);
    case CE_CheckBox: {
        // No dotted frame around the label: the box itself shows the focus.
        QStyleOptionButton part = *button;
        part.rect = subElementRect(SE_CheckBoxIndicator, button, widget);
        drawPrimitive(PE_IndicatorCheckBox, &part, painter, widget);
        part.rect = subElementRect(SE_CheckBoxContents, button, widget);
        return drawControl(CE_CheckBoxLabel, &part, painter, widget);
    }
    case CE_ComboBoxLabel:
        return paintComboBoxLabel(*painter, *comboBox, *this);
    case CE_HeaderSection:
    case CE_HeaderEmptyArea:
        return paintHeaderSection(*painter, *option);
    case CE_HeaderLabel: {
        QStyleOptionHeader label = *qstyleoption_cast<const QStyleOptionHeader*>(option);
        label.palette.setColor(QPalette::ButtonText, t.secondaryText);
        return QProxyStyle::drawControl(element, &label, painter, widget);
    }
    case CE_Splitter: // invisible: the views beside it have frames
        return;
    case CE_MenuItem:
        return paintMenuItem(*painter, *menuItem, *this);
    case CE_MenuBarItem:
        return paintMenuBarItem(*painter, *menuItem, *this);
    case CE_MenuEmptyArea:
        return painter->fillRect(option->rect, t.surface);
    case CE_MenuBarEmptyArea:
        return painter->fillRect(option->rect, t.raised);
    case CE_ToolBar:
        painter->fillRect(option->rect, t.raised);
        return painter->fillRect(option->rect.adjusted(0, option->rect.height() - 1, 0, 0),
                                 t.hairline);
    default:
        return QProxyStyle::drawControl(element, option, painter, widget);
    }
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                               QPainter* painter, const QWidget* widget) const {
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    switch (control) {
    case CC_ComboBox:
        return paintComboBox(*painter, *qstyleoption_cast<const QStyleOptionComboBox*>(option),
                             widget);
    case CC_SpinBox:
        return paintSpinBox(*painter, *qstyleoption_cast<const QStyleOptionSpinBox*>(option),
                            widget);
    case CC_ToolButton:
        return paintToolButton(*painter, *qstyleoption_cast<const QStyleOptionToolButton*>(option),
                               widget, *this);
    case CC_Slider:
        if (slider->orientation == Qt::Horizontal)
            return paintSlider(*painter, *slider, sliderHandleRect(*slider));
        break;
    case CC_ScrollBar:
        return paintScrollBar(*painter, *slider,
                              subControlRect(CC_ScrollBar, option, SC_ScrollBarSlider, widget));
    default:
        break;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect Style::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                            SubControl part, const QWidget* widget) const {
    if (control == CC_SpinBox)
        return visualRect(
            option->direction, option->rect,
            spinBoxRect(*qstyleoption_cast<const QStyleOptionSpinBox*>(option), part));
    if (control == CC_ComboBox && part == SC_ComboBoxEditField) {
        const int inset = textInset(option->rect) - 2;
        return visualRect(option->direction, option->rect,
                          option->rect.adjusted(inset, 2, -stepperWidth, -2));
    }
    if (control == CC_Slider && part == SC_SliderHandle) {
        const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
        if (slider->orientation == Qt::Horizontal)
            return sliderHandleRect(*slider);
    }
    if (control == CC_ScrollBar && (part == SC_ScrollBarAddLine || part == SC_ScrollBarSubLine))
        return {};
    if (control == CC_ScrollBar && part == SC_ScrollBarGroove)
        return option->rect;
    return QProxyStyle::subControlRect(control, option, part, widget);
}

QRect Style::subElementRect(SubElement element, const QStyleOption* option,
                            const QWidget* widget) const {
    if (element == SE_LineEditContents && hasFrame(*option)) {
        const int inset = textInset(option->rect) - 2;
        return option->rect.adjusted(inset, 2, -inset, -2);
    }
    return QProxyStyle::subElementRect(element, option, widget);
}

QSize Style::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                              const QWidget* widget) const {
    const int height = std::max(32, option->fontMetrics.height() + 14);
    switch (type) {
    case CT_PushButton:
        return {std::max(88, size.width() + 32), height};
    case CT_LineEdit:
        return {size.width() + 20, height};
    case CT_ComboBox:
    case CT_SpinBox:
        return {size.width() + 14 + stepperWidth, height};
    case CT_MenuItem:
        return menuItemSize(*qstyleoption_cast<const QStyleOptionMenuItem*>(option), size);
    case CT_MenuBarItem:
        return menuBarItemSize(*qstyleoption_cast<const QStyleOptionMenuItem*>(option));
    default:
        return QProxyStyle::sizeFromContents(type, option, size, widget);
    }
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option,
                       const QWidget* widget) const {
    switch (metric) {
    case PM_DefaultFrameWidth:
        // With less than three pixels the viewport covers the round corners of the frame.
        return qobject_cast<const QAbstractScrollArea*>(widget) ? 3 : 1;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
        return 16;
    case PM_CheckBoxLabelSpacing:
        return 7;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
    case PM_MenuBarPanelWidth:
    case PM_MenuBarItemSpacing:
    case PM_MenuHMargin:
    case PM_ToolBarFrameWidth:
    case PM_ToolBarItemMargin:
    case PM_ToolBarItemSpacing:
        return 0;
    case PM_MenuBarHMargin:
        return 15;
    case PM_MenuBarVMargin:
        return 0;
    case PM_MenuPanelWidth:
        return 1;
    case PM_MenuVMargin:
        return 5;
    case PM_ScrollBarExtent:
        return scrollBarWidth;
    case PM_ScrollBarSliderMin:
        return 24;
    case PM_SliderLength:
    case PM_SliderThickness:
    case PM_SliderControlThickness:
        return sliderHandle;
    case PM_ToolBarIconSize:
        return 20;
    case PM_SmallIconSize:
        return 16;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                     QStyleHintReturn* result) const {
    switch (hint) {
    case SH_ComboBox_Popup:
        return 1; // the list opens over the current item, as on a pop-up button
    case SH_EtchDisabledText:
    case SH_DitherDisabledText:
        return 0;
    case SH_DialogButtonLayout:
        return QDialogButtonBox::GnomeLayout; // the accepting button lies in the corner
    case SH_UnderlineShortcut:
        return underlinesMnemonics_ ? 1 : 0;
    case SH_Widget_Animate:
        return animationsEnabled_ && QProxyStyle::styleHint(hint, option, widget, result) ? 1 : 0;
    case SH_ScrollBar_ContextMenu:
        return 0; // the menu runs a nested event loop
    default:
        return QProxyStyle::styleHint(hint, option, widget, result);
    }
}

QIcon Style::standardIcon(StandardPixmap pixmap, const QStyleOption* option,
                          const QWidget* widget) const {
    const QIcon icon = style::standardIcon(pixmap);
    return icon.isNull() ? QProxyStyle::standardIcon(pixmap, option, widget) : icon;
}

void Style::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (qobject_cast<QAbstractButton*>(widget) || qobject_cast<QComboBox*>(widget) ||
        qobject_cast<QAbstractSpinBox*>(widget) || qobject_cast<QSlider*>(widget))
        widget->setAttribute(Qt::WA_Hover);
}

void Style::polish(QApplication* application) {
    QProxyStyle::polish(application);
    application->installEventFilter(this);
}

void Style::unpolish(QApplication* application) {
    application->removeEventFilter(this);
    QProxyStyle::unpolish(application);
}

bool Style::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        // Some scroll areas repaint only their viewport on a focus change.
        if (auto* area = qobject_cast<QAbstractScrollArea*>(watched))
            area->update();
        break;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Alt)
            setUnderlinesMnemonics(event->type() == QEvent::KeyPress);
        break;
    case QEvent::ApplicationStateChange: // Alt may be released in another program
        setUnderlinesMnemonics(false);
        break;
    default:
        break;
    }
    return QProxyStyle::eventFilter(watched, event);
}

void Style::setUnderlinesMnemonics(bool underlines) {
    if (std::exchange(underlinesMnemonics_, underlines) == underlines)
        return;
    for (QWidget* widget : QApplication::allWidgets())
        if (widget->isVisible())
            widget->update();
}

bool animationsEnabled(const QWidget& widget) {
    return qEnvironmentVariableIsEmpty("FRIMBOLATE_REDUCED_MOTION") &&
           widget.style()->styleHint(QStyle::SH_Widget_Animate, nullptr, &widget) != 0;
}

bool isFaulty(const QWidget& widget) { return widget.property("faulty").toBool(); }

void setFaulty(QWidget* widget, bool faulty) {
    if (isFaulty(*widget) == faulty)
        return;
    widget->setProperty("faulty", faulty);
    widget->update();
}

} // namespace frimbolate::style
