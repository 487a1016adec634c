#include "ui/actions.h"

namespace frimbolate {

namespace {

using Menu = Action::Menu;
using Send = void (AppDelegate::*)();

constexpr Action rows[] = {
    {"createNewAgent", "&New Agent", "New", "new", "Ctrl+N", "Start over with an empty form",
     Menu::File, static_cast<Send>(&AppDelegate::createNewAgent)},
    {"editLaunchAgent", "&Open Agent\u2026", "Edit", "edit", "Ctrl+O",
     "Open an agent made with Frimbolate and change it", Menu::File, &AppDelegate::editLaunchAgent},
    {"validateAgentConfig", "&Save Agent\u2026", "Save", "save", "Ctrl+S",
     "Check the form and save it as an agent", Menu::File, &AppDelegate::validateAgentConfig},
    {"loadLaunchAgent", "&Load\u2026", "Load", "load", "Ctrl+L",
     "Show the command that loads an agent", Menu::Agent, &AppDelegate::loadLaunchAgent},
    {"unloadLaunchAgent", "&Unload\u2026", "Unload", "unload", "Ctrl+Shift+L",
     "Show the command that unloads an agent", Menu::Agent, &AppDelegate::unloadLaunchAgent},
    {"onOffLaunchAgent", "Switch &On or Off\u2026", "On/Off", "power", "Ctrl+Shift+E",
     "Enable or disable an agent", Menu::Agent, &AppDelegate::onOffLaunchAgent},
    {"deleteLaunchAgent", "&Delete\u2026", "Delete", "trash", "Ctrl+Shift+Backspace",
     "Delete an agent", Menu::Agent, &AppDelegate::deleteLaunchAgent},
    {"showHideTips", "&Tips", "Tips", "tips", "Ctrl+T", "Show or hide the tips beside the form",
     Menu::View, &AppDelegate::showHideTips},
    {"advancedToolbarItem", "&Advanced", "Advanced", "advanced", "Ctrl+Shift+D",
     "Show or hide the advanced settings", Menu::View, &AppDelegate::sendAdvancedToolbarItem},
    {"preferencesMenuItem", "&Preferences\u2026", "", "", "Ctrl+,", "", Menu::Application,
     &AppDelegate::openPreferencesWindow},
};

} // namespace

std::span<const Action> actions() { return rows; }

} // namespace frimbolate
