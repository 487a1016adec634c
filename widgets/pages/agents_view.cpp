#include "widgets/pages/agents_view.h"

#include "widgets/style/agent_rows.h"
#include "widgets/style/fonts.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>

namespace frimbolate {

AgentsView::AgentsView(QWidget* parent) : QTableView(parent) {
    setObjectName("agents");
    setAccessibleName(tr("Agents"));
    setItemDelegate(new style::AgentRowDelegate(this));
    setSelectionMode(SingleSelection);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setFrameShape(NoFrame);
    setMouseTracking(true);
    viewport()->setAutoFillBackground(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    horizontalHeader()->hide();
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(style::scaled(style::agentRowHeight));
}

void AgentsView::keyPressEvent(QKeyEvent* event) {
    const int last = model()->rowCount() - 1;
    switch (event->key()) {
    case Qt::Key_Home:
    case Qt::Key_End:
        // The toolkit's table goes to the ends of a row.
        return setCurrentIndex(model()->index(event->key() == Qt::Key_Home ? 0 : last, 0));
    case Qt::Key_Up:
        if (currentIndex().row() <= 0)
            emit leftUpwards();
        break;
    default:
        break;
    }
    QTableView::keyPressEvent(event);
}

void AgentsView::contextMenuEvent(QContextMenuEvent* event) {
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    if (!isByKey && !indexAt(event->pos()).isValid())
        return;
    const QPoint place = isByKey ? visualRect(currentIndex()).center() : event->pos();
    emit menuRequested(viewport()->mapToGlobal(place));
}

void AgentsView::focusInEvent(QFocusEvent* event) {
    QTableView::focusInEvent(event);
    if (!currentIndex().isValid())
        setCurrentIndex(model()->index(0, 0));
}

} // namespace frimbolate
