// The advanced drawer, and the toolbar item that carries the opposite of its present state.
#include "ui/app_delegate.h"

namespace frimbolate {

using ItemAction = ToolbarItem::Action;

void AppDelegate::openAdvancedDrawer() {
    openDrawer();
    form_.advancedToolbarItem.action = ItemAction::closeAdvancedDrawer;
}

void AppDelegate::closeAdvancedDrawer() {
    closeDrawer();
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

void AppDelegate::openDrawer() {
    constexpr int rightEdge = 2;
    if (form_.advancedDrawer.open)
        return; // harmless, and nobody is told
    if (drawerObservers_.willOpen)
        drawerObservers_.willOpen();
    form_.advancedDrawer.edge = rightEdge;
    form_.advancedDrawer.open = true;
}

void AppDelegate::closeDrawer() {
    if (!form_.advancedDrawer.open)
        return;
    if (drawerObservers_.willClose)
        drawerObservers_.willClose();
    form_.advancedDrawer.open = false;
}

} // namespace frimbolate
