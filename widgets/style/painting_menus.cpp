#include "widgets/style/fonts.h"
#include "widgets/style/painting.h"

#include <QGuiApplication>
#include <QPainter>

#include <algorithm>

namespace frimbolate::style {
namespace {

constexpr int itemHeight = 26;
constexpr int separatorHeight = 9;
/// From an item's left edge to its text; includes the check mark.
constexpr int menuTextLeft = 25;
/// The margin right of the text, arrow or shortcut. A larger one clips a pop-up of 160 pixels.
constexpr int menuTextRight = 10;
constexpr int menuIconGap = 8;
constexpr int shortcutGap = 32;

/// The menu with the program's name is drawn in a heavier weight.
bool isApplicationMenu(const QStyleOptionMenuItem& option) {
    QString title = option.text;
    return title.remove('&') == QGuiApplication::applicationDisplayName();
}

QFont menuBarFont(const QStyleOptionMenuItem& option) {
    QFont result = font(FontRole::hint);
    if (isApplicationMenu(option))
        result.setWeight(QFont::DemiBold);
    return result;
}

bool isChecked(const QStyleOptionMenuItem& option) {
    return option.checkType != QStyleOptionMenuItem::NotCheckable && option.checked;
}

QSize iconSize(const QStyleOptionMenuItem& option) {
    return option.icon.isNull() ? QSize(0, 0) : QSize(16, 16);
}

void paintTexts(QPainter& painter, const QStyleOptionMenuItem& option, const QRect& rect,
                const QColor& foreground, const QColor& shortcutForeground, const QStyle& style) {
    const QStringList parts = option.text.split('\t');
    const int alignment =
        Qt::AlignVCenter | Qt::TextSingleLine |
        (style.styleHint(QStyle::SH_UnderlineShortcut, &option) ? Qt::TextShowMnemonic
                                                                : Qt::TextHideMnemonic);
    painter.setPen(foreground);
    painter.drawText(rect, alignment | Qt::AlignLeft, parts.first());
    if (parts.size() > 1) {
        painter.setPen(shortcutForeground);
        painter.drawText(rect, Qt::AlignVCenter | Qt::AlignRight, parts.last());
    }
}

} // namespace

void paintMenuItem(QPainter& painter, const QStyleOptionMenuItem& option, const QStyle& style) {
    const Tokens& t = tokens(option.palette);
    // Without it a pop-up's list shows the window's colour behind its items.
    painter.fillRect(option.rect, t.surface);
    const QRect rect = option.rect.adjusted(5, 0, -5, 0);
    if (option.menuItemType == QStyleOptionMenuItem::Separator) {
        painter.fillRect(rect.adjusted(7, rect.height() / 2, -7, -(rect.height() - 1) / 2),
                         t.hairline);
        return;
    }
    const bool isEnabled = has(option, QStyle::State_Enabled);
    const bool isSelected = isEnabled && has(option, QStyle::State_Selected);
    if (isSelected)
        drawRoundedBox(painter, rect, controlRadius - 2, t.accent);
    const QColor foreground = isSelected  ? t.onAccent
                              : isEnabled ? option.palette.color(QPalette::Text)
                                          : t.disabledText;
    painter.save();
    painter.setFont(option.font);
    if (isChecked(option))
        checkMark(painter, QRectF(rect.left() + 4.5, rect.center().y() - 7, 15, 15), foreground);
    QRect text = rect.adjusted(menuTextLeft, 0, -menuTextRight, 0);
    if (const QSize size = iconSize(option); !size.isEmpty()) {
        const QRect place(QPoint(text.left(), rect.center().y() - size.height() / 2 + 1), size);
        option.icon.paint(&painter, place, Qt::AlignCenter,
                          isSelected  ? QIcon::Selected
                          : isEnabled ? QIcon::Normal
                                      : QIcon::Disabled);
        text.setLeft(place.right() + 1 + menuIconGap);
    }
    paintTexts(painter, option, text, foreground,
               isSelected || !isEnabled ? foreground : t.secondaryText, style);
    if (option.menuItemType == QStyleOptionMenuItem::SubMenu) {
        painter.translate(QRectF(rect).right() - 10, QRectF(rect).center().y());
        painter.rotate(-90);
        chevron(painter, {0, 0}, false, foreground);
    }
    painter.restore();
}

QSize menuItemSize(const QStyleOptionMenuItem& option, const QSize& contents) {
    if (option.menuItemType == QStyleOptionMenuItem::Separator)
        return {contents.width(), separatorHeight};
    const QStringList parts = option.text.split('\t');
    const QFontMetrics metrics(option.font);
    int width = metrics.size(Qt::TextShowMnemonic, parts.first()).width();
    if (parts.size() > 1)
        width += shortcutGap + metrics.horizontalAdvance(parts.last());
    if (!option.icon.isNull())
        width += iconSize(option).width() + menuIconGap;
    return {width + 5 + menuTextLeft + menuTextRight + 5,
            std::max(itemHeight, metrics.height() + 8)};
}

void paintMenuBarItem(QPainter& painter, const QStyleOptionMenuItem& option, const QStyle& style) {
    const Tokens& t = tokens(option.palette);
    painter.fillRect(option.rect, t.raised);
    const bool isEnabled = has(option, QStyle::State_Enabled);
    if (isEnabled && has(option, QStyle::State_Selected))
        drawRoundedBox(painter, QRectF(option.rect).adjusted(0, 3, 0, -3), controlRadius,
                       has(option, QStyle::State_Sunken) ? t.pressed : t.hover);
    painter.save();
    painter.setFont(menuBarFont(option));
    painter.setPen(isEnabled ? t.text : t.disabledText);
    const int mnemonic = style.styleHint(QStyle::SH_UnderlineShortcut, &option)
                             ? Qt::TextShowMnemonic
                             : Qt::TextHideMnemonic;
    painter.drawText(option.rect, Qt::AlignCenter | Qt::TextSingleLine | mnemonic, option.text);
    painter.restore();
}

QSize menuBarItemSize(const QStyleOptionMenuItem& option) {
    const QFontMetrics metrics(menuBarFont(option));
    const int width = metrics.size(Qt::TextShowMnemonic, option.text).width();
    return {width + 18, std::max(28, metrics.height() + 10)};
}

} // namespace frimbolate::style
