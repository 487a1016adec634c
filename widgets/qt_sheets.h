// The program's own sheets by name: welcome, preferences and command, and the "about" box.
#pragma once

#include "platform/services.h"

namespace frimbolate {

class MainWindow;
class AppSheet;
class SheetDialog;
class SheetQueue;

class QtSheets : public Sheets {
  public:
    /// Builds the sheets and binds their controls; both arguments must outlive it.
    QtSheets(SheetQueue& queue, MainWindow& window);

    void begin(Sheet sheet) override;
    void end(Sheet sheet) override;
    void makeFirstResponder(Sheet sheet, std::string_view outlet) override;

  private:
    AppSheet* sheet(Sheet which) const { return sheets_[static_cast<int>(which)]; }
    void showAbout();

    SheetQueue& queue_;
    MainWindow& window_;
    AppSheet* sheets_[3]; ///< in the order of Sheet; owned by the window
};

} // namespace frimbolate
