// The list of all commands of the menus and the toolbar.
#pragma once

#include "ui/app_delegate.h"

#include <span>
#include <string_view>

namespace frimbolate {

struct Action {
    enum class Menu { Application, File, Agent, View };
    std::string_view name;      ///< object name: that of the action, or of its outlet if it has one
    std::string_view title;     ///< in the menu; "&" before the mnemonic
    std::string_view toolTitle; ///< in the toolbar; empty for a command without toolbar item
    std::string_view icon;      ///< file in resources/icons without ".svg"; may be empty
    std::string_view shortcut;  ///< portable text such as "Ctrl+N"; may be empty
    std::string_view toolTip;
    Menu menu;
    void (AppDelegate::*send)();
};

/// In the order of the menus and of the toolbar.
std::span<const Action> actions();

} // namespace frimbolate
