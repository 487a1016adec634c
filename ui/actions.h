// Every command of the menus and the toolbar in one list: name, words, icon, shortcut, action.
#pragma once

#include "ui/app_delegate.h"

#include <span>
#include <string_view>

namespace frimbolate {

struct Action {
    enum class Menu { Application, File, Agent, View };
    std::string_view name;      ///< object name: the action's, or its outlet's where it has one
    std::string_view title;     ///< in the menu, "&" before the mnemonic
    std::string_view toolTitle; ///< in the toolbar; empty where it does not stand there
    std::string_view icon;      ///< file in resources/icons without ".svg"; may be empty
    std::string_view shortcut;  ///< portable text such as "Ctrl+N"; may be empty
    std::string_view toolTip;
    Menu menu;
    void (AppDelegate::*send)();
};

/// In the order of the menus, and of the toolbar for those that stand there.
std::span<const Action> actions();

} // namespace frimbolate
