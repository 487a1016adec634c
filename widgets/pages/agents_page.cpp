#include "widgets/pages/agents_page.h"

#include "widgets/controls/elided_label.h"
#include "widgets/controls/form_binder.h"
#include "widgets/pages/agent_list_reader.h"
#include "widgets/pages/agents_view.h"
#include "widgets/pages/empty_list.h"
#include "widgets/pages/flat_button.h"
#include "widgets/style/agent_rows.h"
#include "widgets/style/fonts.h"
#include "widgets/style/page_surfaces.h"

#include <QAction>
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace frimbolate {

using style::scaled;

namespace {

// Pixels of the 1x layout.
constexpr int cardWidth = 632, cardHeight = 288, listHeight = 5 * style::agentRowHeight;
constexpr int listRight = 630;

} // namespace

AgentsPage::AgentsPage(FormBinder& binder, QWidget* parent)
    : QWidget(parent), binder_(binder), filterField_(new QLineEdit(this)),
      count_(new ElidedLabel(Qt::ElideRight, this)), nextRun_(new FlatButton(this)),
      view_(new AgentsView(this)), empty_(new EmptyList(this)), menu_(new QMenu(this)),
      sortMenu_(new QMenu(tr("&Sort Agents By"), this)) {
    setObjectName("agentsPage");
    setFixedSize(scaled(cardWidth), scaled(cardHeight));
    const int top = scaled(style::pageHeaderHeight), height = scaled(listHeight);
    view_->setGeometry(scaled(style::agentRowsInset), top,
                       scaled(listRight - style::agentRowsInset), height);
    empty_->setGeometry(0, top, width(), height);
    view_->installEventFilter(this);
    addHeader();
    addCommands();
    addSortMenu();
    view_->setModel(&filter_);
    connect(view_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &AgentsPage::selectionChanged);
    connect(view_, &QAbstractItemView::doubleClicked, commands_.first().action, &QAction::trigger);
    connect(view_, &AgentsView::menuRequested, this, &AgentsPage::showMenu);
    connect(view_, &AgentsView::leftUpwards, this, [this] { filterField_->setFocus(); });
    connect(empty_, &EmptyList::pressed, this, &AgentsPage::pressEmptyListButton);
    binder_.addUpdater([this](const FormModel&) {
        // The answer to a question may have granted the folder.
        if (isVisible() && isRefused_ && reader_)
            reader_->start();
    });
    updateWords();
}

QWidget* AgentsPage::firstControl() const { return view_; }

void AgentsPage::setReader(AgentListReader& reader) {
    reader_ = &reader;
    connect(reader_, &AgentListReader::rowsRead, this, &AgentsPage::rowsRead);
    connect(reader_, &AgentListReader::finished, this, &AgentsPage::readingFinished);
    connect(reader_, &AgentListReader::refused, this, &AgentsPage::accessRefused);
    if (isVisible())
        reader_->start();
}

void AgentsPage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    window()->installEventFilter(this);
    if (reader_)
        reader_->start();
}

void AgentsPage::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (reader_)
        reader_->stop();
    pending_.clear();
}

bool AgentsPage::eventFilter(QObject* watched, QEvent* event) {
    if ((watched == filterField_ || watched == view_) &&
        (event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride)) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (event->type() == QEvent::ShortcutOverride) {
            // Escape clears the filter before it closes a drawer.
            if (key == Qt::Key_Escape && !filterField_->text().isEmpty())
                event->accept();
        } else if (watched == filterField_ ? filterKeyPressed(key) : viewKeyPressed(key)) {
            return true;
        }
    }
    // Without a change of its files the list grows old: the next runs pass.
    if (watched == window() && event->type() == QEvent::WindowActivate && isVisible() && reader_)
        reader_->start();
    return QWidget::eventFilter(watched, event);
}

bool AgentsPage::filterKeyPressed(int key) {
    if (key == Qt::Key_Down && filter_.rowCount() > 0) {
        view_->setFocus();
        if (!view_->currentIndex().isValid())
            view_->setCurrentIndex(filter_.index(0, 0));
        return true;
    }
    return viewKeyPressed(key);
}

bool AgentsPage::viewKeyPressed(int key) {
    if (key != Qt::Key_Escape || filterField_->text().isEmpty())
        return false;
    filterField_->clear();
    return true;
}

void AgentsPage::rowsRead(const AgentRows& rows) {
    pending_.insert(pending_.end(), rows.begin(), rows.end());
    // The first reading is shown while it runs. Doubled each time, since showing rows anew costs
    // time by their number.
    if (!hasRead_ && pending_.size() >= 2 * model_.rows().size())
        showRows(pending_);
}

void AgentsPage::readingFinished() {
    hasRead_ = true;
    isRefused_ = false;
    showRows(std::exchange(pending_, {}));
}

void AgentsPage::accessRefused() {
    isRefused_ = true;
    hasRead_ = false;
    pending_.clear();
    showRows({});
}

void AgentsPage::showRows(AgentRows rows) {
    const int scrolled = view_->verticalScrollBar()->value();
    isReplacing_ = true;
    model_.setRows(std::move(rows));
    isReplacing_ = false;
    view_->verticalScrollBar()->setValue(scrolled);
    restoreSelection();
    updateWords();
}

void AgentsPage::restoreSelection() {
    QModelIndex index = filter_.indexOf(selectedPath_);
    const bool isGone = std::ranges::none_of(
        model_.rows(), [this](const auto& row) { return row->overview.path == selectedPath_; });
    // After a deletion the row that took its place is selected, so that the keyboard goes on there.
    const bool isFirst = selectedRow_ < 0 && hasRead_ && view_->hasFocus();
    if (isGone && (selectedRow_ >= 0 || isFirst) && filter_.rowCount() > 0)
        index = filter_.index(std::clamp(selectedRow_, 0, filter_.rowCount() - 1), 0);
    if (isGone && index.isValid())
        selectedPath_ = filter_.row(index).overview.path;
    isReplacing_ = true;
    if (index != view_->currentIndex() || !index.isValid()) {
        // Not setCurrentIndex() alone: it scrolls, and a list that changes must not jump.
        const int scrolled = view_->verticalScrollBar()->value();
        view_->setCurrentIndex(index);
        view_->verticalScrollBar()->setValue(scrolled);
    }
    isReplacing_ = false;
    selectionChanged();
}

void AgentsPage::selectionChanged() {
    const QModelIndex index = view_->currentIndex();
    if (isReplacing_)
        return;
    if (index.isValid()) {
        selectedPath_ = filter_.row(index).overview.path;
        selectedRow_ = index.row();
    }
    const bool isReadable =
        index.isValid() && filter_.row(index).overview.kind != AgentKind::Unreadable;
    for (const Command& command : commands_)
        command.action->setEnabled(command.needsReadableFile ? isReadable : index.isValid());
}

void AgentsPage::paintEvent(QPaintEvent*) { style::paintAgentsPage(*this); }

} // namespace frimbolate
