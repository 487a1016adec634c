// The sheet that shows a launchctl command, copies it and opens a terminal.
#pragma once

#include "widgets/sheets/app_sheet.h"

class QToolButton;

namespace frimbolate {

struct CommandPresentation;
class CommandText;
class ElidedLabel;
class WarningLabel;

class CommandSheetView : public AppSheet {
    Q_OBJECT

  public:
    CommandSheetView(FormBinder& binder, QWidget& mainWindow);

  private:
    void addWords();
    void addCommand();
    void addButtons();
    void showCommand(const FormModel& form, const CommandPresentation& shownBeside);
    /// Updates the status text and the copy button after a copy.
    void showCopied(bool hasCopied, bool isUnsafe);
    /// Sets the height that the command needs, limited by the space in the sheet.
    void fitCommand(const QString& command);

    QLabel* title_;
    ElidedLabel* agent_ = nullptr;
    WarningLabel* warning_ = nullptr;
    QLabel* state_ = nullptr;
    CommandText* command_ = nullptr;
    QToolButton* copy_ = nullptr;
};

} // namespace frimbolate
