// Opens and closes the advanced drawer, and notifies observers before it does.
#pragma once

#include "core/form_model.h"

#include <functional>
#include <vector>

namespace frimbolate {

/// Anyone may open or close the drawer through it, not only the toolbar's actions. Observers run in
/// the order of registration, while the drawer is still as it was. Opening an open drawer and
/// closing a closed one are harmless and notify nobody.
class DrawerController {
  public:
    using Observer = std::function<void()>;

    /// \param drawer must outlive the controller
    explicit DrawerController(Drawer& drawer) : drawer_(drawer) {}

    void addWillOpenObserver(Observer observer);
    void addWillCloseObserver(Observer observer);

    /// \param edge of the window: 2 is the right one
    void openOnEdge(int edge);
    void close();

  private:
    Drawer& drawer_;
    std::vector<Observer> willOpen_, willClose_;
};

} // namespace frimbolate
