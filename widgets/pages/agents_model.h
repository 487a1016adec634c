// The agents of the folder as a table, and the sorted and filtered view of it.
#pragma once

#ifndef Q_MOC_RUN // which cannot parse the calendar of the standard library
#include "widgets/pages/agent_row.h"
#endif

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>

namespace frimbolate {

/// Name comes first: its cell stands for the whole row, which the delegate paints.
enum class AgentColumn { Name, State, Sentence, Findings, NextRun };
constexpr int agentColumnCount = 5;

class AgentsModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Replaces the rows. A few differences are told row by row, so that the selection and what a
    /// screen reader is at stay; many reset the model.
    /// \param rows sorted by path, each path once
    void setRows(AgentRows rows);
    const AgentRows& rows() const { return rows_; }
    const AgentRow& row(int index) const { return *rows_[static_cast<std::size_t>(index)]; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

  private:
    QVariant text(const AgentRow& row, AgentColumn column) const;
    void apply(AgentRows rows);

    AgentRows rows_;
};

/// Shows the column of the names alone, sorted by any column of the model.
class AgentsFilter : public QSortFilterProxyModel {
    Q_OBJECT

  public:
    explicit AgentsFilter(AgentsModel& model);

    /// Every word must occur in name, sentence or kind.
    void setFilter(const QString& text);
    /// By name where the column does not decide. Agents without a next run come last either way.
    void sortBy(AgentColumn column, Qt::SortOrder order);
    AgentColumn column() const { return column_; }

    const AgentRow& row(const QModelIndex& index) const;
    /// The row of a path; not valid where the filter hides it or it is gone.
    QModelIndex indexOf(const std::string& path) const;

  protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
    bool filterAcceptsColumn(int column, const QModelIndex& parent) const override;
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

  private:
    AgentsModel& model_;
    QStringList words_;
    AgentColumn column_ = AgentColumn::Name;
};

} // namespace frimbolate
