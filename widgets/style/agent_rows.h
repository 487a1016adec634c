// The rows of the list of agents: state, name with its tag, sentence, findings and next run.
#pragma once

#include <QStyledItemDelegate>

namespace frimbolate::style {

/// What a row shows beside its name, which is the display role.
enum AgentRole {
    AgentState = Qt::UserRole, ///< an AgentMark
    AgentTag,                  ///< the kind of an agent that is not the program's own; may be empty
    AgentSentence,
    AgentProblems, ///< their number
    AgentNextRun,  ///< empty where there is none
};
enum class AgentMark { On, Off, Unknown };

/// The height of a row; pixels of the 1x layout.
constexpr int agentRowHeight = 44;
/// The distance of the view's left edge from that of the card, which the places in a row count
/// from; pixels of the 1x layout.
constexpr int agentRowsInset = 2;

class AgentRowDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace frimbolate::style
