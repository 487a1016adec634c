// The program's own sheets, by their names: welcome, preferences, command, and the words about the
// program itself.
#pragma once

#include "platform/services.h"

namespace frimbolate {

class MainWindow;
class OwnSheet;
class SheetDialog;
class SheetStack;

class OwnSheets : public Sheets {
  public:
    /// Builds the sheets and binds their controls; both arguments must outlive it.
    OwnSheets(SheetStack& stack, MainWindow& window);

    void begin(Sheet sheet) override;
    void end(Sheet sheet) override;
    void makeFirstResponder(Sheet sheet, std::string_view outlet) override;

  private:
    OwnSheet* sheet(Sheet which) const { return sheets_[static_cast<int>(which)]; }
    void showAbout();

    SheetStack& stack_;
    MainWindow& window_;
    OwnSheet* sheets_[3]; ///< in the order of Sheet
};

} // namespace frimbolate
