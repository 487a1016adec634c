// The program's own sheets by name: welcome, preferences and command, and the "about" box.
#pragma once

#include "platform/services.h"

#include <array>

namespace frimbolate {

class MainWindow;
class AppSheet;
class SheetDialog;
class SheetQueue;

class QtSheets : public Sheets {
  public:
    /// Both arguments must outlive it. A sheet is built, and its controls are bound, when it is
    /// used for the first time: most starts show none.
    QtSheets(SheetQueue& queue, MainWindow& window);

    void begin(Sheet sheet) override;
    void end(Sheet sheet) override;
    void makeFirstResponder(Sheet sheet, std::string_view outlet) override;

    /// The sheet, which is built if it was not used yet. Owned by the window.
    AppSheet& sheet(Sheet which);

  private:
    void showAbout();

    SheetQueue& queue_;
    MainWindow& window_;
    std::array<AppSheet*, 3> sheets_{}; ///< in the order of Sheet; owned by the window
};

} // namespace frimbolate
