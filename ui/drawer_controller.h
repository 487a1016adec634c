// Opens and closes the advanced drawer, and notifies observers before.
#pragma once

#include "core/form_model.h"

#include <functional>
#include <vector>

namespace frimbolate {

/// Every part of the program may use it, not only the toolbar's actions. Observers run in the order
/// of registration, before the drawer changes. Opening an open drawer and closing a closed one do
/// nothing and notify no observer.
class DrawerController {
  public:
    using Observer = std::function<void()>;

    /// \param drawer must outlive the controller
    explicit DrawerController(Drawer& drawer) : drawer_(drawer) {}

    /// What an observer refers to must outlive the controller.
    void addWillOpenObserver(Observer observer);
    void addWillCloseObserver(Observer observer);

    /// \param edge of the window; 2 is the right one
    void openOnEdge(int edge);
    void close();

  private:
    Drawer& drawer_;
    std::vector<Observer> willOpen_, willClose_;
};

} // namespace frimbolate
