// The advanced drawer, the toolbar item that toggles it, and the panels for its path fields.
#include "ui/app_delegate.h"

#include <algorithm>
#include <iterator>

namespace frimbolate {

using ItemAction = ToolbarItem::Action;

namespace {

struct PathField {
    std::string_view outlet;
    TextField FormModel::*field;
    bool isFolder;
};
constexpr PathField pathFields[] = {
    {"standardInPathField", &FormModel::standardInPathField, false},
    {"standardOutPathField", &FormModel::standardOutPathField, false},
    {"standardErrorPathField", &FormModel::standardErrorPathField, false},
    {"workingDirectoryField", &FormModel::workingDirectoryField, true},
    {"rootDirectoryField", &FormModel::rootDirectoryField, true},
    {"queueDirectoryField", &FormModel::queueDirectoryField, true},
};

OpenPanel pathPanel(bool forFolder) {
    OpenPanel panel;
    panel.canChooseFiles = !forFolder;
    panel.canChooseDirectories = forFolder;
    panel.canCreateDirectories = forFolder;
    panel.prompt = "Select";
    panel.message = forFolder ? "Please choose folder:" : "Please choose file:";
    return panel;
}

} // namespace

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

void AppDelegate::choosePath(std::string_view pathField) {
    const auto* row = std::ranges::find(pathFields, pathField, &PathField::outlet);
    if (row == std::end(pathFields))
        return;
    services_.filePanels.open(
        pathPanel(row->isFolder),
        lifetime_.whileAlive([this, field = row->field](const std::optional<std::string>& path) {
            if (path)
                (form_.*field).stringValue = *path;
        }));
}

} // namespace frimbolate
