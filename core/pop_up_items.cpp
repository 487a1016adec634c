#include "core/pop_up_items.h"

#include "core/weekdays.h"

namespace frimbolate {

namespace {

constexpr PopUpItem separatorItem{"", PopUpItem::Kind::Separator};

constexpr PopUpItem placeholder(std::string_view title) {
    return {title, PopUpItem::Kind::Choice, true};
}

constexpr PopUpItem targets[] = {
    placeholder("None"), separatorItem, {"Application or script\u2026"}, {"New script\u2026"}};

constexpr PopUpItem actions[] = {placeholder("Choose\u2026"),
                                 separatorItem,
                                 {"Launch on schedule"},
                                 {"Launch on schedule and keep alive"},
                                 {"Launch when a path is modified\u2026"},
                                 {"Launch when a volume is mounted"}};

constexpr PopUpItem every(std::size_t weekday) { return {weekdays[weekday].scheduleTitle}; }

constexpr PopUpItem schedules[] = {
    {"Every Day"},    separatorItem, every(0),          every(1),      every(2),
    every(3),         every(4),      every(5),          every(6),      separatorItem,
    {"Once a Month"}, separatorItem, {"On Login/Load"}, separatorItem, {"On Interval"}};

constexpr PopUpItem intervalUnits[] = {{"seconds"}, {"minutes"}, {"hours"}};

constexpr PopUpItem priorities[] = {{"Low"}, {"Normal"}};

// A typed script always runs under /bin/sh, so no other language is offered.
constexpr PopUpItem languages[] = {{"Shell (/bin/sh)"}};

constexpr PopUpItem globbing[] = {{"Expand wildcards"}, {"Leave wildcards as they are"}};

constexpr PopUpItem defaultPriorities[] = {{"Normal"}, {"Low"}};

} // namespace

std::span<const PopUpItem> agentTargetItems() { return targets; }
std::span<const PopUpItem> agentActionItems() { return actions; }
std::span<const PopUpItem> agentScheduleTypeItems() { return schedules; }
std::span<const PopUpItem> agentIntervalTypeItems() { return intervalUnits; }
std::span<const PopUpItem> priorityLevelItems() { return priorities; }
std::span<const PopUpItem> scriptLanguageItems() { return languages; }
std::span<const PopUpItem> globalGlobbingItems() { return globbing; }
std::span<const PopUpItem> globalPriorityItems() { return defaultPriorities; }

int itemWithTitle(std::span<const PopUpItem> items, std::string_view title) {
    for (std::size_t i = 0; i < items.size(); ++i)
        if (items[i].kind == PopUpItem::Kind::Choice && items[i].title == title)
            return static_cast<int>(i);
    return -1;
}

} // namespace frimbolate
