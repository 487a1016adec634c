#include "widgets/pages/agent_row.h"

#include "core/next_run.h"
#include "widgets/controls/long_text.h"
#include "widgets/controls/text.h"

#include <QCoreApplication>

#include <algorithm>

namespace frimbolate {

namespace {

QString words(const char* english) { return QCoreApplication::translate("agents", english); }

QString kindWords(AgentKind kind) {
    switch (kind) {
    case AgentKind::EarlierVersion:
        return words("Earlier version");
    case AgentKind::OtherProgram:
        return words("Other program");
    case AgentKind::Unreadable:
        return words("Unreadable");
    default:
        return {};
    }
}

QString stateWords(const std::optional<bool>& isOn) {
    return !isOn ? words("state unknown") : *isOn ? words("on") : words("off");
}

int problemsOf(const AgentOverview& overview) {
    const auto problems = std::ranges::count_if(overview.findings, [](const Finding& finding) {
        return finding.severity != Severity::Note;
    });
    const int least = overview.kind == AgentKind::Unreadable ? 1 : 0;
    return std::max(least, static_cast<int>(problems));
}

QStringList findingLines(const AgentOverview& overview) {
    QStringList lines;
    for (const Finding& finding : overview.findings)
        lines.append(
            labelText(text(finding.key.empty() ? finding.text : finding.key + " " + finding.text),
                      Qt::ElideRight));
    return lines;
}

} // namespace

std::shared_ptr<const AgentRow> makeAgentRow(AgentOverview overview, LocalMinute now,
                                             ClockFormat clock) {
    auto row = std::make_shared<AgentRow>();
    row->name = labelText(text(overview.name)).simplified();
    row->tag = kindWords(overview.kind);
    row->sentence = labelText(text(overview.sentence), Qt::ElideRight).simplified();
    QString run = words("no next run known");
    if (overview.nextRun) {
        row->nextRun = text(shortRunText(*overview.nextRun, now, clock));
        run = text(nextRunText(*overview.nextRun, now, clock));
    }
    const QStringList findings = findingLines(overview);
    row->toolTip = (QStringList(row->sentence) + findings).join('\n');
    row->problems = problemsOf(overview);
    QStringList all = {row->name, stateWords(overview.isOn),
                       row->tag.isEmpty() ? words("made with Frimbolate") : row->tag, row->sentence,
                       run};
    row->accessible = (all + findings).join(", ");
    row->sortName = row->name.toCaseFolded();
    row->filterText = QStringList{row->name, row->sentence, row->tag}.join('\n').toCaseFolded();
    row->overview = std::move(overview);
    return row;
}

bool showsTheSame(const AgentRow& a, const AgentRow& b) {
    return a.accessible == b.accessible && a.nextRun == b.nextRun && a.problems == b.problems &&
           a.overview.nextRun == b.overview.nextRun;
}

} // namespace frimbolate
