// The items of the form's pop-ups, in the order of their indexes.
//
// Some indexes carry no meaning: they are separators, or inert items where a separator may not
// stand, so that the indexes behind them keep their numbers.
#pragma once

#include <span>
#include <string_view>

namespace frimbolate {

struct PopUpItem {
    enum class Kind { Choice, Separator };
    std::string_view title; ///< shown to the person; the schedule's are also looked up by it
    Kind kind = Kind::Choice;
    bool isPlaceholder = false; ///< stands for nothing chosen yet
};

std::span<const PopUpItem> agentTargetItems();
std::span<const PopUpItem> agentActionItems();
std::span<const PopUpItem> agentScheduleTypeItems();
std::span<const PopUpItem> agentIntervalTypeItems();
std::span<const PopUpItem> priorityLevelItems();
std::span<const PopUpItem> scriptLanguageItems();
std::span<const PopUpItem> globalGlobbingItems();
std::span<const PopUpItem> globalPriorityItems();

/// The index of the item with exactly this title, or -1.
int itemWithTitle(std::span<const PopUpItem> items, std::string_view title);

} // namespace frimbolate
