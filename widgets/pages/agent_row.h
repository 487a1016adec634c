// One agent as the list shows it: an overview with the texts made of it.
#pragma once

#include "core/agent_overview.h"
#include "core/time_of_day.h"

#include <QMetaType>
#include <QString>

#include <memory>
#include <vector>

namespace frimbolate {

/// Immutable once made, so that it may be made on one thread and shown on another.
struct AgentRow {
    AgentOverview overview;
    QString name;
    QString tag;        ///< what it is, unless it is the program's own
    QString sentence;   ///< limited to what is laid out, like every other text
    QString nextRun;    ///< empty where there is none
    QString toolTip;    ///< the sentence, and the findings below it
    QString accessible; ///< the whole row in words
    QString sortName;   ///< the name without regard to case
    QString filterText; ///< what the filter looks at, without regard to case
    int problems = 0;   ///< findings beyond a note; an unreadable file is one
};
using AgentRows = std::vector<std::shared_ptr<const AgentRow>>;

/// \param now as the clock on the wall shows it
std::shared_ptr<const AgentRow> makeAgentRow(AgentOverview overview, LocalMinute now,
                                             ClockFormat clock);

/// Whether two rows of the same file show the same.
bool showsTheSame(const AgentRow& a, const AgentRow& b);

} // namespace frimbolate

Q_DECLARE_METATYPE(frimbolate::AgentRows)
