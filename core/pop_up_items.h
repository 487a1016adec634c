// The items of the form's pop-ups, in the order of their indexes.
//
// Some indexes carry no meaning: a separator, or an inert item where a separator is not allowed.
// They keep the numbers of the indexes after them.
#pragma once

#include <span>
#include <string_view>

namespace frimbolate {

struct PopUpItem {
    enum class Kind { Choice, Separator };
    std::string_view title; ///< shown to the user; schedule items are also looked up by it
    Kind kind = Kind::Choice;
    bool isPlaceholder = false; ///< means that nothing is chosen yet
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
