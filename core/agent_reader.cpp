#include "core/agent_reader.h"

#include "core/conversions.h"
#include "core/form_widths.h"
#include "core/named_error.h"
#include "core/pop_up_items.h"
#include "core/weekdays.h"

namespace frimbolate {

namespace {

std::int64_t integerOrZero(const Value* value) { return value ? toInteger(*value) : 0; }

/// The time of day of hours and minutes; both wrap around outside their usual bounds.
LocalDateTime timeOfDay(std::int64_t hour, std::int64_t minute) {
    constexpr std::int64_t minutesPerDay = 1440;
    const auto minutes = (hour % 24) * 60 + minute % minutesPerDay;
    const auto inDay = ((minutes % minutesPerDay) + minutesPerDay) % minutesPerDay;
    LocalDateTime time;
    time.hour = static_cast<int>(inDay / 60);
    time.minute = static_cast<int>(inDay % 60);
    return time;
}

/// The last element of an array, nullptr when it is empty.
/// \throws NamedError when the value is no array
const Value* lastElement(const Value& array) {
    const auto& elements = array.asArray();
    return elements.empty() ? nullptr : &elements.back();
}

std::string textOrEmpty(const Value* text) { return text ? text->asString() : std::string(); }

} // namespace

AgentOrigin agentOrigin(std::string_view path) {
    if (path.find(earlierLabelPrefix) != std::string_view::npos)
        return AgentOrigin::EarlierVersion;
    if (path.find(labelPrefix) != std::string_view::npos)
        return AgentOrigin::Own;
    return AgentOrigin::Foreign;
}

std::string agentNameFromLabel(std::string_view labelOrFileName) {
    const auto withoutPrefix = removeAll(labelOrFileName, labelPrefix);
    return removeAll(removeAll(withoutPrefix, earlierLabelPrefix), ".plist");
}

void AgentReader::read(const AgentPlist& file) {
    readName(file);
    readTarget(file);
    readAction(file);
    readRunAtLoad(file);
    readSchedule(file);
    host_.lookForAdvancedKeys(file);
    host_.log("Completed evaluating primary keys for editing");
}

void AgentReader::readName(const AgentPlist& file) {
    const Value* label = find(file, "Label");
    if (!label)
        throw NamedError("Missing value", "The agent has no label");
    host_.form().agentNameTextField.stringValue = agentNameFromLabel(label->asString());
}

void AgentReader::readTarget(const AgentPlist& file) {
    constexpr std::size_t typedScriptArguments = 3;
    auto& form = host_.form();
    const Value none{Array{}};
    const Value* found = find(file, "ProgramArguments");
    const Value& arguments = found ? *found : none;
    const auto showFile = [&](const std::string& path) {
        host_.evaluateScriptExtension(path);
        form.agentTargetButton.selectedItem = TargetType::File;
    };
    try {
        const auto last = textOrEmpty(lastElement(arguments));
        if (arguments.array()->size() != typedScriptArguments) {
            showFile(last);
            return;
        }
        form.agentTargetButton.selectedItem = TargetType::Script;
        form.scriptPopOverScriptField.stringValue = last;
        form.showPopOverScriptButton.hidden = false;
        host_.showPopOverScript();
        return;
    } catch (const NamedError&) {
    }
    if (const auto* path = arguments.string()) {
        showFile(*path);
        return;
    }
    host_.log("ProgramArguments key could not be read or key contained unexpected content.");
    host_.showAlertThatResets("This launch agent could not be read.",
                              "An error occurred while reading some key values.");
    host_.createNewAgent();
}

void AgentReader::readAction(const AgentPlist& file) {
    auto& form = host_.form();
    const Value* keepAlive = find(file, "KeepAlive");
    if (!keepAlive) {
        form.agentActionButton.selectedItem = AgentAction::OnSchedule;
        return;
    }
    auto& box = form.allowSuccessfulExitCheckbox;
    form.agentActionButton.selectedItem = AgentAction::KeepRunning;
    box.enabled = true;
    if (const auto* conditions = keepAlive->dictionary()) {
        host_.log("KeepAlive key is dictionary");
        const Value* successfulExit = find(*conditions, "SuccessfulExit");
        host_.log("SuccessfulExit key value is: " + description(successfulExit));
        if (successfulExit && !toBool(*successfulExit)) {
            box.state = CheckState::On;
            host_.openAdvancedDrawer();
        }
    } else if (toBoolOrFalse(*keepAlive)) {
        host_.log("KeepAlive key is bool, key is true and does not allow successful exit");
        box.state = CheckState::Off;
    } else {
        host_.log("KeepAlive key does not exist or has unexpected value");
        box.enabled = false;
    }
}

void AgentReader::readRunAtLoad(const AgentPlist& file) {
    if (find(file, "RunAtLoad")) // presence counts, not the value
        selectAtLoad();
}

void AgentReader::readSchedule(const AgentPlist& file) {
    const Value* interval = find(file, "StartInterval");
    if (interval && !interval->dictionary()) {
        readInterval(file);
        return;
    }
    try {
        readCalendar(file);
    } catch (const NamedError&) {
        // No message: a value that is no calendar is read as an interval.
        readInterval(file);
    }
}

void AgentReader::readCalendar(const AgentPlist& file) {
    static const Dictionary none;
    auto& form = host_.form();
    const Value* value = find(file, "StartCalendarInterval");
    const Dictionary& calendar = value ? value->asDictionary() : none;
    const Value* hour = find(calendar, "Hour");
    const Value* minute = find(calendar, "Minute");
    const Value* day = find(calendar, "Day");

    form.agentIntervalField.hidden = true;
    form.agentScheduleDatePicker.width = normalDatePickerWidth;
    host_.log("Agent Hour key is: " + description(hour));
    host_.log("Agent Minute key is: " + description(minute));
    form.agentScheduleDatePicker.set(timeOfDay(integerOrZero(hour), integerOrZero(minute)));

    if (calendar.empty()) {
        readOnDemand(file);
    } else if (calendar.size() == 2) {
        host_.log("Agent runs on every day on a schedule");
        selectScheduleTitled("Every Day");
        form.agentScheduleDatePicker.hidden = false;
        form.onMonthTextBox.hidden = true;
        form.agentScheduleTypeButton.width = normalScheduleWidth;
    } else if (calendar.size() == 3) {
        host_.log("Agent runs on a specific day - or monthly - on a schedule");
        if (day)
            readDayOfMonth(*day);
        else
            readWeekday(find(calendar, "Weekday"));
    }
}

void AgentReader::readDayOfMonth(const Value& day) {
    auto& form = host_.form();
    host_.log("Agent runs once a month " + description(day));
    form.onMonthTextField.stringValue = toDisplayString(day);
    form.agentScheduleDatePicker.width = narrowDatePickerWidth;
    selectScheduleTitled("Once a Month");
    form.agentScheduleDatePicker.hidden = false;
    form.onMonthTextBox.hidden = false;
    form.agentScheduleTypeButton.width = normalScheduleWidth;
}

void AgentReader::readWeekday(const Value* weekday) {
    auto& form = host_.form();
    host_.log("Agent runs once a week on day : " + description(weekday));
    // launchd numbers Sunday both 0 and 7.
    constexpr auto sundayAgain = static_cast<std::int64_t>(weekdays.size());
    const auto number = integerOrZero(weekday);
    if (number >= 0 && number <= sundayAgain)
        selectScheduleTitled(
            weekdays[static_cast<std::size_t>(number % sundayAgain)].scheduleTitle);
    form.agentScheduleTypeButton.width = normalScheduleWidth;
    form.agentScheduleDatePicker.hidden = false;
}

void AgentReader::readOnDemand(const AgentPlist& file) {
    auto& form = host_.form();
    const Value* interval = find(file, "StartInterval");
    const bool oddInterval = interval && *interval != Value(Dictionary{});
    if (oddInterval || form.agentScheduleTypeButton.selectedItem == ScheduleType::AtLoad)
        return;
    host_.log("Agent has no schedule and runs on demand instead.");
    if (const Value* paths = find(file, "WatchPaths")) {
        const Value* last = lastElement(*paths);
        host_.log("Agent contains a WatchPath key: " + description(last));
        disableSchedule(AgentAction::PathModified);
        showPath(form.agentWatchPathImageWell, last);
    } else if (const Value* mount = find(file, "StartOnMount"); mount && *mount != Value("")) {
        host_.log("Agent contains StartOnMount key: " + description(mount));
        disableSchedule(AgentAction::VolumeMounted);
    } else {
        selectAtLoad();
    }
}

void AgentReader::readInterval(const AgentPlist& file) {
    auto& form = host_.form();
    host_.log("Agent runs on interval");
    form.agentScheduleDatePicker.hide();
    form.agentIntervalTypeButton.hidden = false;
    form.agentIntervalField.hidden = false;
    form.onMonthTextBox.hidden = true;
    form.agentScheduleTypeButton.width = normalScheduleWidth;
    const Value* seconds = find(file, "StartInterval");
    form.agentIntervalField.stringValue = seconds ? description(*seconds) : std::string();
    selectScheduleTitled("On Interval");
}

void AgentReader::selectAtLoad() {
    auto& form = host_.form();
    form.agentScheduleTypeButton.selectedItem = ScheduleType::AtLoad;
    form.agentScheduleDatePicker.hide();
    form.alsoRunAtLoadCheckbox.state = CheckState::Off;
    form.alsoRunAtLoadCheckbox.enabled = false;
    form.agentScheduleTypeButton.width = wideScheduleWidth;
}

void AgentReader::selectScheduleTitled(std::string_view title) {
    host_.form().agentScheduleTypeButton.selectedItem =
        itemWithTitle(agentScheduleTypeItems(), title);
}

void AgentReader::disableSchedule(int action) {
    auto& form = host_.form();
    form.agentScheduleTypeButton.selectedItem = ScheduleType::NoSelection;
    form.agentScheduleTypeButton.enabled = false;
    form.agentScheduleDatePicker.hide();
    form.agentScheduleTypeButton.width = wideScheduleWidth;
    form.agentActionButton.selectedItem = action;
}

void AgentReader::showPath(ImageWell& well, const Value* path) {
    well.toolTip = textOrEmpty(path);
    well.image = Image::iconForFile(well.toolTip);
    well.hidden = false;
}

} // namespace frimbolate
