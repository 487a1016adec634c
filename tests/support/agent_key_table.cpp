#include "tests/support/agent_key_table.h"

#include <limits>
#include <stdexcept>

namespace frimbolate::test {

namespace {

// In the order of the kinds: missing, four texts, two booleans, four integers, a real, data, a
// date, four arrays, two dictionaries.
constexpr std::string_view none = "....................";
constexpr std::string_view needsText = ".....AAAAAAAAAAAAAAA";
constexpr std::string_view needsTruth = "............AAAAAAAA";
constexpr std::string_view atLoad = "LLLLLLLLLLLLLLLLLLLL";
constexpr std::string_view everyDay = "DDDDDDDDDDDDDDDDDDDD";
constexpr std::string_view interval = "LIIIIIIIIIIIIIIIIIKL";
constexpr std::string_view hourAlone = "KDDDDDDDDDDDIIIIIIII";
constexpr std::string_view hourWeekly = "DWWWWWWWWWWWIIIIIIII";
constexpr std::string_view weekday = "DSSWSOSWSKKTIIIIIIII";

constexpr const char* calendar = "StartCalendarInterval";

constexpr KeyRow rows[] = {
    {"Label", "Label", nullptr, "!....!!!!!!!!!!!!!!!", "KLLLLKKKKKKKKKKKKKKK",
     "!....!!!!!!!!!!!!!!!", "KDDDDKKKKKKKKKKKKKKK"},
    {"ProgramArguments", "ProgramArguments", nullptr, ".....PPPPPPPPP..P.PP", atLoad,
     ".....PPPPPPPPP..P.PP", everyDay},
    {"KeepAlive", "KeepAlive", nullptr, none, atLoad, none, everyDay},
    {"SuccessfulExit", "SuccessfulExit", "KeepAlive", "............!!!!!!!!",
     "LLLLLLLLLLLLKKKKKKKK", "............!!!!!!!!", "DDDDDDDDDDDDKKKKKKKK"},
    {"RunAtLoad", "RunAtLoad", nullptr, needsTruth, atLoad, needsTruth, everyDay, true},
    {"StartInterval", "StartInterval", nullptr, none, interval, none, "DIIIIIIIIIIIIIIIIIDD", true},
    {"StartCalendarInterval", calendar, nullptr, none, interval, none, interval, true},
    {"Hour", "Hour", calendar, none, hourAlone, none, hourWeekly, true},
    {"Minute", "Minute", calendar, none, hourAlone, none, hourWeekly, true},
    {"Day", "Day", calendar, none, "DMMMMMMMMMMMIIIIIIII", none, "WKKKKKKKKKKKKKKKKKKK", true},
    {"Weekday", "Weekday", calendar, none, weekday, none, weekday, true},
    // A path that is no text fails only when the action has been taken from it already.
    {"WatchPaths", "WatchPaths", nullptr, ".AAAAAAAAAAAAA....AA", "LIIIIIIIIIIIIINNINII",
     ".AAAAAAAAAAAAA..A.AA", everyDay},
    {"StartOnMount", "StartOnMount", nullptr, needsTruth, "LNLNNNNNNNNNNNNNNNNN", needsTruth,
     everyDay},
    {"EnableGlobbing", "EnableGlobbing", nullptr, needsTruth, atLoad, needsTruth, everyDay},
    {"LowPriorityIo", "LowPriorityIO", nullptr, needsTruth, atLoad, needsTruth, everyDay},
    {"Nice", "Nice", nullptr, needsTruth, atLoad, needsTruth, everyDay},
    {"WorkingDirectory", "WorkingDirectory", nullptr, needsText, atLoad, needsText, everyDay},
    {"RootDirectory", "RootDirectory", nullptr, needsText, atLoad, needsText, everyDay},
    {"QueueDirectories", "QueueDirectories", nullptr, ".AAAAAAAAAAAAA.AA.AA", atLoad,
     ".AAAAAAAAAAAAA.AA.AA", everyDay},
    {"StandardIn", "StandardInPath", nullptr, needsText, atLoad, needsText, everyDay},
    {"StandardOut", "StandardOutPath", nullptr, needsText, atLoad, needsText, everyDay},
    {"StandardError", "StandardErrorPath", nullptr, needsText, atLoad, needsText, everyDay},
    {"AKeyNeverLookedAt", "Enabled", nullptr, none, atLoad, none, everyDay}};

constexpr bool areComplete() {
    for (const auto& row : rows)
        for (const auto& column :
             {row.failures, row.schedules, row.failuresBeside, row.schedulesBeside})
            if (column.size() != valueKindCount)
                return false;
    return true;
}
static_assert(areComplete());

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

int scheduleItem(char letter, int kept) {
    switch (letter) {
    case 'K':
        return kept;
    case 'D':
        return ScheduleType::EveryDay;
    case 'S':
        return ScheduleType::EverySunday;
    case 'O':
        return ScheduleType::EveryMonday;
    case 'T':
        return ScheduleType::EveryTuesday;
    case 'W':
        return ScheduleType::EveryWednesday;
    case 'M':
        return ScheduleType::OnceAMonth;
    case 'L':
        return ScheduleType::AtLoad;
    case 'I':
        return ScheduleType::OnInterval;
    case 'N':
        return ScheduleType::NoSelection;
    default:
        throw std::invalid_argument("no letter of the table");
    }
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
