#include "widgets/pages/agents_model.h"

#include "widgets/style/agent_rows.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace frimbolate {

namespace {

/// The most differences that are told row by row.
constexpr int mostSingleChanges = 64;

const std::string& pathOf(const std::shared_ptr<const AgentRow>& row) { return row->overview.path; }

style::AgentMark markOf(const AgentRow& row) {
    const auto& isOn = row.overview.isOn;
    return !isOn ? style::AgentMark::Unknown : *isOn ? style::AgentMark::On : style::AgentMark::Off;
}

/// Rows that were added, removed or changed; both lists sorted by path.
int differences(const AgentRows& before, const AgentRows& after) {
    int count = 0;
    std::size_t a = 0, b = 0;
    while (a < before.size() || b < after.size()) {
        const bool onlyBefore =
            b == after.size() || (a < before.size() && pathOf(before[a]) < pathOf(after[b]));
        const bool onlyAfter =
            a == before.size() || (b < after.size() && pathOf(after[b]) < pathOf(before[a]));
        count += onlyBefore || onlyAfter || !showsTheSame(*before[a], *after[b]);
        a += !onlyAfter;
        b += !onlyBefore;
    }
    return count;
}

/// The next run as a number; rows without one come first. (Neither times nor optional values have
/// <=> in macOS's library.)
std::int64_t minutesOf(const AgentRow& row) {
    const auto& run = row.overview.nextRun;
    return run ? run->time_since_epoch().count() : std::numeric_limits<std::int64_t>::min();
}

/// Orders by a number, then by name, then by path.
std::strong_ordering compare(const AgentRow& a, const AgentRow& b, AgentColumn column) {
    const auto order = [&]() -> std::strong_ordering {
        switch (column) {
        case AgentColumn::State:
            return static_cast<int>(markOf(a)) <=> static_cast<int>(markOf(b));
        case AgentColumn::Sentence:
            return a.sentence.compare(b.sentence) <=> 0;
        case AgentColumn::Findings:
            return a.problems <=> b.problems;
        case AgentColumn::NextRun:
            return minutesOf(a) <=> minutesOf(b);
        default:
            return std::strong_ordering::equal;
        }
    }();
    if (order != 0)
        return order;
    if (const auto byName = a.sortName.compare(b.sortName) <=> 0; byName != 0)
        return byName;
    return a.overview.path <=> b.overview.path;
}

} // namespace

void AgentsModel::setRows(AgentRows rows) {
    const int changes = differences(rows_, rows);
    if (changes == 0)
        return;
    if (changes <= mostSingleChanges)
        return apply(std::move(rows));
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
}

void AgentsModel::apply(AgentRows rows) {
    int at = 0;
    const auto place = [&] { return rows_.begin() + at; };
    for (auto& row : rows) {
        while (at < rowCount() && pathOf(*place()) < pathOf(row)) {
            beginRemoveRows({}, at, at);
            rows_.erase(place());
            endRemoveRows();
        }
        if (at < rowCount() && pathOf(*place()) == pathOf(row)) {
            const bool changes = !showsTheSame(**place(), *row);
            *place() = std::move(row);
            if (changes)
                emit dataChanged(index(at, 0), index(at, agentColumnCount - 1));
        } else {
            beginInsertRows({}, at, at);
            rows_.insert(place(), std::move(row));
            endInsertRows();
        }
        ++at;
    }
    if (at < rowCount()) {
        beginRemoveRows({}, at, rowCount() - 1);
        rows_.erase(place(), rows_.end());
        endRemoveRows();
    }
}

int AgentsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int AgentsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : agentColumnCount;
}

QVariant AgentsModel::data(const QModelIndex& index, int role) const {
    const AgentRow& shown = row(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return text(shown, static_cast<AgentColumn>(index.column()));
    case Qt::ToolTipRole:
        return shown.toolTip;
    case Qt::AccessibleTextRole:
        return shown.accessible;
    case style::AgentState:
        return static_cast<int>(markOf(shown));
    case style::AgentTag:
        return shown.tag;
    case style::AgentSentence:
        return shown.sentence;
    case style::AgentProblems:
        return shown.problems;
    case style::AgentNextRun:
        return shown.nextRun;
    default:
        return {};
    }
}

QVariant AgentsModel::text(const AgentRow& row, AgentColumn column) const {
    switch (column) {
    case AgentColumn::State:
        return !row.overview.isOn ? tr("Unknown") : *row.overview.isOn ? tr("On") : tr("Off");
    case AgentColumn::Sentence:
        return row.sentence;
    case AgentColumn::Findings:
        return row.problems;
    case AgentColumn::NextRun:
        return row.nextRun;
    default:
        return row.name;
    }
}

QVariant AgentsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    const QString titles[agentColumnCount] = {tr("Name"), tr("State"), tr("What it does"),
                                              tr("Problems"), tr("Next run")};
    return section >= 0 && section < agentColumnCount ? titles[section] : QVariant();
}

AgentsFilter::AgentsFilter(AgentsModel& model) : model_(model) {
    setSourceModel(&model_);
    sort(0);
}

void AgentsFilter::setFilter(const QString& text) {
    words_ = text.toCaseFolded().split(' ', Qt::SkipEmptyParts);
    invalidateRowsFilter();
}

void AgentsFilter::sortBy(AgentColumn column, Qt::SortOrder order) {
    const bool isOther = column != column_;
    column_ = column;
    if (isOther && order == sortOrder())
        invalidate();
    sort(0, order);
}

const AgentRow& AgentsFilter::row(const QModelIndex& index) const {
    return model_.row(mapToSource(index).row());
}

QModelIndex AgentsFilter::indexOf(const std::string& path) const {
    const AgentRows& rows = model_.rows();
    const auto found = std::ranges::lower_bound(rows, path, {}, pathOf);
    if (found == rows.end() || pathOf(*found) != path)
        return {};
    return mapFromSource(model_.index(static_cast<int>(found - rows.begin()), 0));
}

bool AgentsFilter::filterAcceptsRow(int row, const QModelIndex&) const {
    const QString& text = model_.row(row).filterText;
    return std::ranges::all_of(words_, [&](const QString& word) { return text.contains(word); });
}

bool AgentsFilter::filterAcceptsColumn(int column, const QModelIndex&) const { return column == 0; }

bool AgentsFilter::lessThan(const QModelIndex& left, const QModelIndex& right) const {
    const AgentRow& a = model_.row(left.row());
    const AgentRow& b = model_.row(right.row());
    if (column_ == AgentColumn::NextRun &&
        a.overview.nextRun.has_value() != b.overview.nextRun.has_value())
        return a.overview.nextRun.has_value() == (sortOrder() == Qt::AscendingOrder);
    return compare(a, b, column_) < 0;
}

} // namespace frimbolate
