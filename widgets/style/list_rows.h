// Rows of a list or table: a plate behind the whole row tells what is selected and where the
// keyboard is; texts keep their colours on it.
#pragma once

#include <QStyledItemDelegate>

class QStyleOptionHeader;

namespace frimbolate::style {

/// Paints an item's icon and its text in one line: the first column in the colour of text, the
/// others in that of hints. A name that is too long is elided in its middle.
class RowDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

/// The ground of a column's title, over a hairline.
void paintHeaderSection(QPainter& painter, const QStyleOption& option);
/// Which way a column is sorted.
void paintHeaderArrow(QPainter& painter, const QStyleOptionHeader& option);

} // namespace frimbolate::style
