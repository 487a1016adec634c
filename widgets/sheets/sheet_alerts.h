// The alerts of the program as sheets on the main window.
//
// The dialog is named "sheetAlert", its parts "messageText", "informativeText" and
// "suppressionButton"; the push buttons carry their titles exactly. The first button is the default
// and stands in the corner. Escape and the window manager's close button press "Cancel" or an only
// button; an alert that has neither stays until one of its buttons is pressed.
#pragma once

#include "platform/alerts.h"
#include "widgets/sheets/sheet_dialog.h"

#include <optional>

class QCheckBox;

namespace frimbolate {

class SheetStack;

class AlertDialog : public SheetDialog {
    Q_OBJECT

  public:
    AlertDialog(const SheetAlert& alert, QWidget* mainWindow);

    /// What was answered; meaningful once finished() was emitted.
    AlertOutcome outcome() const;

  public slots:
    void reject() override;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    QWidget* texts(const SheetAlert& alert);
    void addButtons(const SheetAlert& alert);
    /// How much higher than the form the sheet would be; pixels.
    int excessHeight() const;
    void makeTextScroll();

    QCheckBox* suppressionButton_ = nullptr;
    std::optional<int> escapeAnswer_;
};

class SheetAlerts : public Alerts {
  public:
    SheetAlerts(SheetStack& stack, QWidget& mainWindow) : stack_(stack), mainWindow_(mainWindow) {}

    using Alerts::show;
    void show(const SheetAlert& alert, Completion completion) override;

  private:
    SheetStack& stack_;
    QWidget& mainWindow_;
};

} // namespace frimbolate
