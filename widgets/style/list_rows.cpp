#include "widgets/style/list_rows.h"

#include "widgets/style/fonts.h"
#include "widgets/style/painting.h"

#include <QAbstractItemView>
#include <QListView>
#include <QPainter>

namespace frimbolate::style {
namespace {

// Pixels of the 1x layout.
constexpr int rowHeight = 28, rowMargin = 4, textMargin = 8, rowIconSide = 16, rowIconGap = 8;

/// The box of the row that an item belongs to. In a list every item is a row of its own.
QRect rowRect(const QStyleOptionViewItem& option) {
    const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
    QRect row = option.rect;
    if (view && !qobject_cast<const QListView*>(view)) {
        row.setLeft(view->viewport()->rect().left());
        row.setRight(view->viewport()->rect().right());
    }
    return row.adjusted(rowMargin, 1, -rowMargin, -1);
}

bool hasKeyboard(const QStyleOptionViewItem& option, const QModelIndex& index) {
    const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
    return view && view->hasFocus() &&
           view->currentIndex().siblingAtColumn(0) == index.siblingAtColumn(0);
}

void paintRowBackground(QPainter& painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) {
    const Tokens& t = tokens(option.palette);
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const bool isHovered = option.state.testFlag(QStyle::State_MouseOver);
    const QColor fill = isSelected ? t.accentSoft : isHovered ? t.hover : Qt::transparent;
    const QColor border = hasKeyboard(option, index) ? t.accent : QColor(Qt::transparent);
    painter.save();
    painter.setClipRect(option.rect, Qt::IntersectClip);
    drawRoundedBox(painter, rowRect(option), controlRadius, fill, border, 2);
    painter.restore();
}

} // namespace

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& given,
                        const QModelIndex& index) const {
    QStyleOptionViewItem option = given;
    initStyleOption(&option, index);
    paintRowBackground(*painter, option, index);
    const Tokens& t = tokens(option.palette);
    const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
    const bool isFirst = index.column() == 0;
    QRect content = option.rect.adjusted(isFirst ? rowMargin + textMargin : textMargin, 0,
                                         -textMargin - rowMargin, 0);
    painter->save();
    if (!option.icon.isNull()) {
        const int side = scaled(rowIconSide);
        const QRect place(content.left(), content.center().y() + 1 - side / 2, side, side);
        option.icon.paint(painter, place, Qt::AlignCenter,
                          isEnabled ? QIcon::Normal : QIcon::Disabled);
        content.setLeft(place.right() + 1 + rowIconGap);
    }
    painter->setFont(option.font);
    painter->setPen(!isEnabled ? t.disabledText : isFirst ? t.text : t.secondaryText);
    painter->drawText(content, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                      option.fontMetrics.elidedText(option.text, Qt::ElideMiddle, content.width()));
    painter->restore();
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& given, const QModelIndex& index) const {
    QStyleOptionViewItem option = given;
    initStyleOption(&option, index);
    const int icon = option.icon.isNull() ? 0 : scaled(rowIconSide) + rowIconGap;
    const int text = option.fontMetrics.horizontalAdvance(option.text) + 1;
    return {2 * (rowMargin + textMargin) + icon + text, scaled(rowHeight)};
}

void paintHeaderSection(QPainter& painter, const QStyleOption& option) {
    const Tokens& t = tokens(option.palette);
    painter.fillRect(option.rect, t.field);
    painter.fillRect(option.rect.adjusted(0, option.rect.height() - 1, 0, 0), t.hairline);
}

void paintHeaderArrow(QPainter& painter, const QStyleOptionHeader& option) {
    const bool isUp = option.sortIndicator == QStyleOptionHeader::SortUp;
    chevron(painter, QRectF(option.rect).center(), isUp, tokens(option.palette).secondaryText);
}

} // namespace frimbolate::style
