// The advanced drawer, and the toolbar item that carries the opposite of its present state.
#include "ui/app_delegate.h"

namespace frimbolate {

using ItemAction = ToolbarItem::Action;

void AppDelegate::openAdvancedDrawer() {
    constexpr int rightEdge = 2;
    drawer_.openOnEdge(rightEdge);
    form_.advancedToolbarItem.action = ItemAction::closeAdvancedDrawer;
}

void AppDelegate::closeAdvancedDrawer() {
    drawer_.close();
    form_.advancedToolbarItem.action = ItemAction::openAdvancedDrawer;
}

void AppDelegate::advancedDrawerWillOpen() {
    constexpr int regularSize = 1;
    form_.advancedToolbarItem.action = ItemAction::closeAdvancedDrawer;
    form_.mainWindowToolbar.sizeMode = regularSize;
}

void AppDelegate::advancedDrawerDidClose() {
    form_.advancedToolbarItem.action = ItemAction::openAdvancedDrawer;
}

void AppDelegate::sendAdvancedToolbarItem() {
    if (form_.advancedToolbarItem.action == ItemAction::openAdvancedDrawer)
        openAdvancedDrawer();
    else
        closeAdvancedDrawer();
}

} // namespace frimbolate
