#include "tests/ui/generated_forms.h"

#include "core/conversions.h"

#include <initializer_list>
#include <utility>

namespace frimbolate::test {

namespace {

// Random forms

constexpr int targets[] = {TargetType::File,
                           TargetType::File,
                           TargetType::Script,
                           TargetType::Script,
                           -1,
                           TargetType::None,
                           1,
                           4};
constexpr int actions[] = {AgentAction::OnSchedule,
                           AgentAction::OnSchedule,
                           AgentAction::KeepRunning,
                           AgentAction::KeepRunning,
                           AgentAction::PathModified,
                           AgentAction::VolumeMounted,
                           AgentAction::None,
                           -1,
                           1,
                           6};
constexpr const char* names[] = {"Backup", "my_agent2", "X", "_", "plist", "", "not allowed"};
constexpr const char* paths[] = {"/Users/maya/run.sh",
                                 "/Users/maya/tool.py",
                                 "/a b/c.rb",
                                 "/x.pl",
                                 "/Flow.workflow",
                                 "/s.scpt",
                                 "/Applications/Example.app/Contents/MacOS/Example",
                                 "/Applications/Example.app",
                                 "/usr/bin/true",
                                 "/Users/maya/my.scripts/run",
                                 "/S.SH",
                                 "."};
constexpr const char* numbers[] = {"0",  "1",  "9",   "10",         "15",          "31", "32",
                                   "07", "60", "300", "4294967301", "99999999999", "",   "3a",
                                   "5",  "2",  "28",  "4294967297", "2147483648",  "-5"};

std::string path(RandomValues& random) {
    return random.coin() ? random.oneOf(paths) : random.text();
}

/// Empty in half of the cases.
std::string field(RandomValues& random) { return random.coin() ? "" : path(random); }

// Conditions on a form

bool isOnSchedule(const AgentForm& form) { return form.action <= AgentAction::KeepRunning; }

bool hasCalendar(const AgentForm& form) {
    return isOnSchedule(form) && (form.scheduleType <= ScheduleType::EverySaturday ||
                                  form.scheduleType == ScheduleType::OnceAMonth);
}

bool hasInterval(const AgentForm& form) {
    return isOnSchedule(form) && form.scheduleType == ScheduleType::OnInterval;
}

bool isUnscheduled(const AgentForm& form) { return !hasCalendar(form) && !hasInterval(form); }

bool runsAtLoad(const AgentForm& form) {
    return form.alsoRunAtLoad || (isOnSchedule(form) && form.scheduleType == ScheduleType::AtLoad);
}

bool isPathModified(const AgentForm& form) { return form.action == AgentAction::PathModified; }
bool isVolumeMounted(const AgentForm& form) { return form.action == AgentAction::VolumeMounted; }

void moveTriggersToDrawer(AgentForm& form) {
    if (isPathModified(form)) {
        form.alsoRunOnPathChange = true;
        form.alsoRunPath = std::exchange(form.watchPath, "");
    }
    form.alsoRunOnVolumeMount = form.alsoRunOnVolumeMount || isVolumeMounted(form);
}

void runAtLoad(AgentForm& form) {
    form.scheduleType = ScheduleType::AtLoad;
    form.alsoRunAtLoad = false;
    if (form.action != AgentAction::KeepRunning)
        form.action = AgentAction::OnSchedule;
}

constexpr RoundTripRule<AgentForm> formRuleTable[] = {
    {"any target but a file is a typed script",
     [](const AgentForm& f) {
         return f.targetType != TargetType::File && f.targetType != TargetType::Script;
     },
     [](AgentForm& f) { f.targetType = TargetType::Script; }},
    {"a script has no path",
     [](const AgentForm& f) { return f.targetType == TargetType::Script && !f.targetPath.empty(); },
     [](AgentForm& f) { f.targetPath.clear(); }},
    {"a file has no script",
     [](const AgentForm& f) { return f.targetType == TargetType::File && !f.scriptText.empty(); },
     [](AgentForm& f) { f.scriptText.clear(); }},
    {"the language is not written", [](const AgentForm& f) { return f.scriptLanguage != 0; },
     [](AgentForm& f) { f.scriptLanguage = 0; }},
    {"any priority but low is normal",
     [](const AgentForm& f) { return f.priorityLevel != 0 && f.priorityLevel != 1; },
     [](AgentForm& f) { f.priorityLevel = PriorityLevel::Normal; }},
    {"a successful exit belongs to keep-alive",
     [](const AgentForm& f) {
         return f.allowSuccessfulExit && f.action != AgentAction::KeepRunning;
     },
     [](AgentForm& f) { f.allowSuccessfulExit = false; }},
    {"the additional path replaces the main one",
     [](const AgentForm& f) { return isPathModified(f) && f.alsoRunOnPathChange; },
     [](AgentForm& f) {
         f.watchPath = f.alsoRunPath;
         f.alsoRunOnPathChange = false;
     }},
    {"a mount is told once",
     [](const AgentForm& f) { return isVolumeMounted(f) && f.alsoRunOnVolumeMount; },
     [](AgentForm& f) { f.alsoRunOnVolumeMount = false; }},
    {"a path that is not watched is not written",
     [](const AgentForm& f) {
         return (!isPathModified(f) && !f.watchPath.empty()) ||
                (!f.alsoRunOnPathChange && !f.alsoRunPath.empty());
     },
     [](AgentForm& f) {
         if (!isPathModified(f))
             f.watchPath.clear();
         if (!f.alsoRunOnPathChange)
             f.alsoRunPath.clear();
     }},
    {"a day is written as its number",
     [](const AgentForm& f) {
         return isOnSchedule(f) && f.scheduleType == ScheduleType::OnceAMonth;
     },
     [](AgentForm& f) {
         f.dayOfMonthText = std::to_string(truncatedTo32Bits(leadingInteger(f.dayOfMonthText)));
     }},
    {"a day belongs to the monthly schedule",
     [](const AgentForm& f) {
         return !f.dayOfMonthText.empty() &&
                !(isOnSchedule(f) && f.scheduleType == ScheduleType::OnceAMonth);
     },
     [](AgentForm& f) { f.dayOfMonthText.clear(); }},
    {"an interval is read in seconds", hasInterval,
     [](AgentForm& f) {
         constexpr std::int64_t seconds[] = {1, 60, 3600};
         const bool isUnit = f.intervalUnit >= 0 && f.intervalUnit <= IntervalUnit::Hours;
         const auto factor = seconds[isUnit ? f.intervalUnit : 0];
         f.intervalText =
             std::to_string(truncatedTo32Bits(leadingInteger(f.intervalText) * factor));
         f.intervalUnit = IntervalUnit::Seconds;
     }},
    {"an interval belongs to its schedule",
     [](const AgentForm& f) {
         return !hasInterval(f) && (!f.intervalText.empty() || f.intervalUnit != 0);
     },
     [](AgentForm& f) {
         f.intervalText.clear();
         f.intervalUnit = IntervalUnit::Seconds;
     }},
    {"only hour and minute are kept", hasCalendar,
     [](AgentForm& f) {
         f.scheduleTime = {2000, 1, 1, f.scheduleTime.hour, f.scheduleTime.minute, 0};
     }},
    {"an interval leaves the time of the reset", hasInterval,
     [](AgentForm& f) { f.scheduleTime = {2026, 11, 21, 9, 41, 7}; }},
    {"no schedule reads as midnight", isUnscheduled,
     [](AgentForm& f) { f.scheduleTime = {2000, 1, 1, 0, 0, 0}; }},
    {"indexes without a weekday are every day",
     [](const AgentForm& f) {
         return isOnSchedule(f) && f.scheduleType < ScheduleType::EverySunday;
     },
     [](AgentForm& f) { f.scheduleType = ScheduleType::EveryDay; }},
    {"run at load is the schedule of what has no other",
     [](const AgentForm& f) { return isUnscheduled(f) && runsAtLoad(f); },
     [](AgentForm& f) {
         moveTriggersToDrawer(f);
         runAtLoad(f);
     }},
    {"a watched path is the action of what has no schedule",
     [](const AgentForm& f) {
         return isUnscheduled(f) && !runsAtLoad(f) && (isPathModified(f) || f.alsoRunOnPathChange);
     },
     [](AgentForm& f) {
         moveTriggersToDrawer(f);
         f.watchPath = std::exchange(f.alsoRunPath, "");
         f.alsoRunOnPathChange = false;
         f.action = AgentAction::PathModified;
         f.scheduleType = ScheduleType::NoSelection;
     }},
    {"a mount is the action of what has nothing else",
     [](const AgentForm& f) {
         return isUnscheduled(f) && !runsAtLoad(f) && !isPathModified(f) &&
                (isVolumeMounted(f) || f.alsoRunOnVolumeMount);
     },
     [](AgentForm& f) {
         f.alsoRunOnVolumeMount = false;
         f.action = AgentAction::VolumeMounted;
         f.scheduleType = ScheduleType::NoSelection;
     }},
    {"an agent on demand is read as run at load",
     [](const AgentForm& f) {
         return isUnscheduled(f) && !runsAtLoad(f) && !isPathModified(f) && !isVolumeMounted(f);
     },
     runAtLoad},
    {"any other action is on schedule",
     [](const AgentForm& f) { return f.action < AgentAction::OnSchedule; },
     [](AgentForm& f) { f.action = AgentAction::OnSchedule; }}};

// Conditions on a file

bool hasNone(const AgentPlist& file, std::initializer_list<const char*> keys) {
    for (const char* key : keys)
        if (file.contains(key))
            return false;
    return true;
}

bool isUnscheduledFile(const AgentPlist& file) {
    return hasNone(file, {"StartCalendarInterval", "StartInterval"});
}

constexpr RoundTripRule<AgentPlist> fileRuleTable[] = {
    {"an agent on demand gets run at load",
     [](const AgentPlist& f) {
         return isUnscheduledFile(f) && hasNone(f, {"RunAtLoad", "WatchPaths", "StartOnMount"});
     },
     [](AgentPlist& f) { f["RunAtLoad"] = true; }},
    {"a trigger in the place of the schedule takes keep-alive away",
     [](const AgentPlist& f) {
         return isUnscheduledFile(f) && hasNone(f, {"RunAtLoad"}) && f.contains("KeepAlive");
     },
     [](AgentPlist& f) { f.erase("KeepAlive"); }},
    {"what is kept alive from its load on awaits no demand",
     [](const AgentPlist& f) {
         const Value* kept = find(f, "KeepAlive");
         return isUnscheduledFile(f) && kept && kept->dictionary() &&
                kept->dictionary()->contains("AfterInitialDemand");
     },
     [](AgentPlist& f) {
         auto conditions = f.at("KeepAlive").asDictionary();
         conditions.erase("AfterInitialDemand");
         f["KeepAlive"] = conditions.empty() ? Value(true) : Value(conditions);
     }}};

} // namespace

AgentForm generatedForm(RandomValues& random) {
    AgentForm form;
    form.name = random.oneOf(names);
    form.targetType = random.oneOf(targets);
    form.targetPath = path(random);
    form.scriptText = random.text();
    form.scriptLanguage = static_cast<int>(random.below(3));
    form.action = random.oneOf(actions);
    form.watchPath = path(random);
    form.scheduleType = static_cast<int>(random.below(18)) - 1;
    form.scheduleTime = {
        2026, 11, 21, static_cast<int>(random.below(24)), static_cast<int>(random.below(60)), 30};
    form.intervalText = random.oneOf(numbers);
    form.intervalUnit = static_cast<int>(random.below(5)) - 1;
    form.dayOfMonthText = random.oneOf(numbers);
    form.allowSuccessfulExit = random.coin();
    form.enableGlobbing = random.coin();
    form.priorityLevel = static_cast<int>(random.below(4)) - 1;
    form.niceLevel = static_cast<std::int64_t>(random.below(41)) - 20;
    for (auto* text : {&form.standardInPath, &form.standardOutPath, &form.standardErrorPath,
                       &form.workingDirectory, &form.rootDirectory, &form.queueDirectory})
        *text = field(random);
    form.alsoRunAtLoad = random.below(4) == 0;
    form.alsoRunOnVolumeMount = random.below(4) == 0;
    form.alsoRunOnPathChange = random.below(4) == 0;
    form.alsoRunPath = path(random);
    return form;
}

void show(const AgentForm& form, FormModel& model) {
    const auto state = [](bool on) { return on ? CheckState::On : CheckState::Off; };
    model.agentNameTextField.stringValue = form.name;
    model.agentTargetButton.selectedItem = form.targetType;
    model.agentTargetImageWell.toolTip = form.targetPath;
    model.scriptPopOverScriptField.stringValue = form.scriptText;
    model.scriptPopOverLanguageButton.selectedItem = form.scriptLanguage;
    model.agentActionButton.selectedItem = form.action;
    model.agentWatchPathImageWell.toolTip = form.watchPath;
    model.agentScheduleTypeButton.selectedItem = form.scheduleType;
    model.agentScheduleDatePicker.dateValue = form.scheduleTime;
    model.agentIntervalField.stringValue = form.intervalText;
    model.agentIntervalTypeButton.selectedItem = form.intervalUnit;
    model.onMonthTextField.stringValue = form.dayOfMonthText;
    model.allowSuccessfulExitCheckbox.state = state(form.allowSuccessfulExit);
    model.enableGlobbingCheckbox.state = state(form.enableGlobbing);
    model.priorityLevelButton.selectedItem = form.priorityLevel;
    model.niceLevelSlider.value = static_cast<double>(form.niceLevel);
    model.standardInPathField.stringValue = form.standardInPath;
    model.standardOutPathField.stringValue = form.standardOutPath;
    model.standardErrorPathField.stringValue = form.standardErrorPath;
    model.workingDirectoryField.stringValue = form.workingDirectory;
    model.rootDirectoryField.stringValue = form.rootDirectory;
    model.queueDirectoryField.stringValue = form.queueDirectory;
    model.alsoRunAtLoadCheckbox.state = state(form.alsoRunAtLoad);
    model.alsoRunVolumeCheckbox.state = state(form.alsoRunOnVolumeMount);
    model.alsoRunPathChangeCheckbox.state = state(form.alsoRunOnPathChange);
    model.alsoRunPathChangeImageWell.toolTip = form.alsoRunPath;
}

std::span<const RoundTripRule<AgentForm>> formRules() { return formRuleTable; }
std::span<const RoundTripRule<AgentPlist>> fileRules() { return fileRuleTable; }

} // namespace frimbolate::test
