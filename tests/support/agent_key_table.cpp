#include "tests/support/agent_key_table.h"

#include <limits>

namespace frimbolate::test {

namespace {

// The bits of a KindSet, in the order of valueKinds().
constexpr KindSet missing{1U << 0};
constexpr KindSet plainText{1U << 1}, emptyText{1U << 2}, numberText{1U << 3}, yesText{1U << 4};
constexpr KindSet trueValue{1U << 5}, falseValue{1U << 6};
constexpr KindSet three{1U << 7}, zero{1U << 8}, leastInteger{1U << 9}, greatestInteger{1U << 10};
constexpr KindSet real{1U << 11};
constexpr KindSet arrayOfText{1U << 14}, emptyArray{1U << 15}, arrayOfNumber{1U << 16};
constexpr KindSet arrayOfThreeTexts{1U << 17};
constexpr KindSet fullDictionary{1U << 18}, emptyDictionary{1U << 19};

constexpr KindSet textKinds = plainText | emptyText | numberText | yesText;
constexpr KindSet booleans = trueValue | falseValue;
constexpr KindSet numbers = three | zero | leastInteger | greatestInteger | real;
constexpr KindSet dictionaries = fullDictionary | emptyDictionary;
/// What has no truth value and is no number: data, dates, arrays and dictionaries.
constexpr KindSet noScalars = ~(missing | textKinds | booleans | numbers);

using Fails = PerKind<FailedStep>;
using Selects = PerKind<SelectedSchedule>;
using enum FailedStep;

constexpr Fails nothing(None);
constexpr Fails needsText = nothing.where(~(missing | textKinds), AdvancedKeys);
constexpr Fails needsTruth = nothing.where(noScalars, AdvancedKeys);
constexpr Fails needsLabel = nothing.where(~textKinds, WholeReading);
constexpr Fails needsArguments = nothing.where(
    ~(missing | textKinds | arrayOfText | emptyArray | arrayOfThreeTexts), ProgramArguments);
constexpr Fails needsExitTruth = nothing.where(noScalars, WholeReading);
constexpr Fails needsFolders =
    nothing.where(~(missing | arrayOfText | arrayOfThreeTexts), AdvancedKeys);
constexpr Fails needsArray = nothing.where(
    ~(missing | arrayOfText | emptyArray | arrayOfNumber | arrayOfThreeTexts), AdvancedKeys);
constexpr Fails needsPaths = needsArray.where(arrayOfNumber, AdvancedKeys);

constexpr Selects atLoad(ScheduleType::AtLoad);
constexpr Selects everyDay(ScheduleType::EveryDay);
constexpr Selects onInterval(ScheduleType::OnInterval);
constexpr Selects kept(keptSelection);
constexpr Selects interval = onInterval.where(missing | emptyDictionary, ScheduleType::AtLoad)
                                 .where(fullDictionary, keptSelection);
constexpr Selects timeOfDay =
    everyDay.where(missing, keptSelection).where(noScalars, ScheduleType::OnInterval);
constexpr Selects timeOfWeek = Selects(ScheduleType::EveryWednesday)
                                   .where(missing, ScheduleType::EveryDay)
                                   .where(noScalars, ScheduleType::OnInterval);
constexpr Selects dayOfMonth = Selects(ScheduleType::OnceAMonth)
                                   .where(missing, ScheduleType::EveryDay)
                                   .where(noScalars, ScheduleType::OnInterval);
constexpr Selects weekday = Selects(ScheduleType::EverySunday)
                                .where(missing, ScheduleType::EveryDay)
                                .where(trueValue, ScheduleType::EveryMonday)
                                .where(real, ScheduleType::EveryTuesday)
                                .where(numberText | three, ScheduleType::EveryWednesday)
                                .where(leastInteger | greatestInteger, keptSelection)
                                .where(noScalars, ScheduleType::OnInterval);
constexpr Selects watchedPaths =
    onInterval.where(missing, ScheduleType::AtLoad)
        .where(arrayOfText | emptyArray | arrayOfThreeTexts, ScheduleType::NoSelection);
constexpr Selects onMount =
    Selects(ScheduleType::NoSelection).where(missing | emptyText, ScheduleType::AtLoad);

constexpr const char* calendar = "StartCalendarInterval";

/// A key of the schedule: it never fails, and decides the selection.
constexpr KeyRow ofSchedule(const char* name, const char* key, const char* inside, Selects selects,
                            Selects selectsBeside) {
    return {name, key, inside, nothing, selects, nothing, selectsBeside, true};
}

/// A key that leaves the schedule as it is.
constexpr KeyRow beside(const char* name, const char* key, Fails fails) {
    return {name, key, nullptr, fails, atLoad, fails, everyDay};
}

constexpr KeyRow rows[] = {
    {"Label", "Label", nullptr, needsLabel, kept.where(textKinds, ScheduleType::AtLoad), needsLabel,
     kept.where(textKinds, ScheduleType::EveryDay)},
    beside("ProgramArguments", "ProgramArguments", needsArguments),
    beside("KeepAlive", "KeepAlive", nothing),
    {"SuccessfulExit", "SuccessfulExit", "KeepAlive", needsExitTruth,
     atLoad.where(noScalars, keptSelection), needsExitTruth,
     everyDay.where(noScalars, keptSelection)},
    {"RunAtLoad", "RunAtLoad", nullptr, needsTruth, atLoad, needsTruth, everyDay, true},
    ofSchedule("StartInterval", "StartInterval", nullptr, interval,
               onInterval.where(missing | dictionaries, ScheduleType::EveryDay)),
    ofSchedule("StartCalendarInterval", calendar, nullptr, interval, interval),
    ofSchedule("Hour", "Hour", calendar, timeOfDay, timeOfWeek),
    ofSchedule("Minute", "Minute", calendar, timeOfDay, timeOfWeek),
    ofSchedule("Day", "Day", calendar, dayOfMonth,
               kept.where(missing, ScheduleType::EveryWednesday)),
    ofSchedule("Weekday", "Weekday", calendar, weekday, weekday),
    // A path that is no text fails only when the action has been taken from it already.
    {"WatchPaths", "WatchPaths", nullptr, needsArray, watchedPaths, needsPaths, everyDay},
    {"StartOnMount", "StartOnMount", nullptr, needsTruth, onMount, needsTruth, everyDay},
    beside("EnableGlobbing", "EnableGlobbing", needsTruth),
    beside("LowPriorityIo", "LowPriorityIO", needsTruth),
    beside("Nice", "Nice", needsTruth),
    beside("WorkingDirectory", "WorkingDirectory", needsText),
    beside("RootDirectory", "RootDirectory", needsText),
    beside("QueueDirectories", "QueueDirectories", needsFolders),
    beside("StandardIn", "StandardInPath", needsText),
    beside("StandardOut", "StandardOutPath", needsText),
    beside("StandardError", "StandardErrorPath", needsText),
    beside("AKeyNeverLookedAt", "Enabled", nothing)};

} // namespace

std::span<const KeyRow> keyRows() { return rows; }

const std::array<ValueKind, valueKindCount>& valueKinds() {
    static const std::array<ValueKind, valueKindCount> kinds = {
        {{"missing", std::nullopt},
         {"text", "plain"},
         {"empty text", ""},
         {"number as text", "3"},
         {"yes as text", "YES"},
         {"true", true},
         {"false", false},
         {"integer", 3},
         {"zero", 0},
         {"least integer", std::numeric_limits<std::int64_t>::min()},
         {"greatest integer", std::numeric_limits<std::uint64_t>::max()},
         {"real", 2.5},
         {"data", Data{{1, 2}}},
         {"date", Date{1000000000}},
         {"array of a text", Array{Value("/a")}},
         {"empty array", Array{}},
         {"array of a number", Array{Value(1)}},
         {"array of three texts", Array{Value("a"), Value("b"), Value("c")}},
         {"dictionary", Dictionary{{"a", "b"}}},
         {"empty dictionary", Dictionary{}}}};
    return kinds;
}

AgentPlist agentWith(const KeyRow& row, const ValueKind& kind, bool beside) {
    const bool inCalendar = row.inside && std::string_view(row.inside) == calendar;
    AgentPlist file = {{"Label", "com.frimbolate.Odd"},
                       {"ProgramArguments", Array{Value("/bin/sh"), Value("/a.sh")}}};
    if (inCalendar || beside)
        file[calendar] = Dictionary{{"Hour", 7}, {"Minute", 5}};
    if (inCalendar && beside)
        file[calendar] = Dictionary{{"Hour", 7}, {"Minute", 5}, {"Weekday", 3}};

    Dictionary inner;
    if (row.inside) {
        const Value* found = find(file, row.inside);
        inner = found ? found->asDictionary() : Dictionary{};
    }
    auto& holder = row.inside ? inner : file;
    holder.erase(row.key);
    if (kind.value)
        holder.insert_or_assign(row.key, *kind.value);
    if (row.inside)
        file.insert_or_assign(row.inside, Value(inner));
    return file;
}

} // namespace frimbolate::test
