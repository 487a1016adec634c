// The form that the benchmarks measure.
#pragma once

#include "core/agent_form.h"

namespace frimbolate {

/// A valid form with most of its fields filled in.
inline AgentForm fullForm() {
    AgentForm form;
    form.name = "Backup";
    form.targetType = TargetType::File;
    form.targetPath = "/Users/ada/bin/backup.sh";
    form.action = AgentAction::KeepRunning;
    form.scheduleType = ScheduleType::OnceAMonth;
    form.dayOfMonthText = "31";
    form.scheduleTime.hour = 7;
    form.allowSuccessfulExit = true;
    form.niceLevel = 5;
    form.standardOutPath = "/Users/ada/Library/Logs/backup.log";
    form.standardErrorPath = form.standardOutPath;
    form.workingDirectory = "/Users/ada";
    form.queueDirectory = "/Users/ada/Queue";
    form.alsoRunOnPathChange = true;
    form.alsoRunPath = "/Users/ada/Pictures";
    return form;
}

} // namespace frimbolate
