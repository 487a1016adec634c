// The sheet that shows a launchctl command to copy, and opens a terminal to paste it into.
#pragma once

#include "ui/widgets/own_sheet.h"

class QPlainTextEdit;

namespace frimbolate {

class CommandSheetView : public OwnSheet {
    Q_OBJECT

  public:
    CommandSheetView(FormMirror& mirror, QWidget& mainWindow);

  private:
    void addCommand();
    void addButtons();
    void showCommand(const TextView& command);

    QLabel* title_;
    QPlainTextEdit* command_ = nullptr;
};

} // namespace frimbolate
