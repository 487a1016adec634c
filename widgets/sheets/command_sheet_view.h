// The sheet that shows a launchctl command to copy, and opens a terminal to paste it into.
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
    /// Whether the command was copied, in words and on the button that copies it.
    void showCopied(bool hasCopied, bool isUnsafe);
    /// As high as the command needs, as far as the sheet has room for it.
    void fitCommand(const QString& command);

    QLabel* title_;
    ElidedLabel* agent_ = nullptr;
    WarningLabel* warning_ = nullptr;
    QLabel* state_ = nullptr;
    CommandText* command_ = nullptr;
    QToolButton* copy_ = nullptr;
};

} // namespace frimbolate
