// Rows of a list or table: a rounded box behind the whole row shows selection and focus; texts keep
// their colours on it.
#pragma once

#include <QStyledItemDelegate>

class QStyleOptionHeader;

namespace frimbolate::style {

/// Paints an item's icon and text in one line: the first column in the text colour, the others in
/// the hint colour. A name that is too long is elided in the middle.
class RowDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

/// The background of a column's title, above a hairline.
void paintHeaderSection(QPainter& painter, const QStyleOption& option);
/// The sort indicator of a column.
void paintHeaderArrow(QPainter& painter, const QStyleOptionHeader& option);

} // namespace frimbolate::style
