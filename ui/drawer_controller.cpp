#include "ui/drawer_controller.h"

#include <utility>

namespace frimbolate {

void DrawerController::addWillOpenObserver(Observer observer) {
    willOpen_.push_back(std::move(observer));
}

void DrawerController::addWillCloseObserver(Observer observer) {
    willClose_.push_back(std::move(observer));
}

void DrawerController::openOnEdge(int edge) {
    if (drawer_.open)
        return;
    for (const auto& observer : willOpen_)
        observer();
    drawer_.edge = edge;
    drawer_.open = true;
}

void DrawerController::close() {
    if (!drawer_.open)
        return;
    for (const auto& observer : willClose_)
        observer();
    drawer_.open = false;
}

} // namespace frimbolate
