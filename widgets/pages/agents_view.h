// The list of agents: one cell per row, moved through by keyboard as a list.
#pragma once

#include <QTableView>

namespace frimbolate {

class AgentsView : public QTableView {
    Q_OBJECT

  public:
    explicit AgentsView(QWidget* parent = nullptr);

  signals:
    /// The user has asked for the menu of the selected row.
    void menuRequested(const QPoint& globalPosition);
    /// Up was pressed on the first row.
    void leftUpwards();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
};

} // namespace frimbolate
