// The alerts of the program as sheets on the main window.
//
// The dialog is named "sheetAlert", its parts "messageText", "informativeText" and
// "suppressionButton"; the push buttons show their titles exactly. The first button is the default
// and lies in the corner. Escape and the window manager's close button press "Cancel" or an only
// button; an alert that has neither stays until one of its buttons is pressed.
#pragma once

#include "platform/alerts.h"
#include "widgets/sheets/sheet_dialog.h"

#include <optional>

class QCheckBox;

namespace frimbolate {

class SheetQueue;

class AlertDialog : public SheetDialog {
    Q_OBJECT

  public:
    AlertDialog(const Alert& alert, QWidget* mainWindow);

    /// The user's answer; valid after finished() was emitted.
    AlertOutcome outcome() const;

  public slots:
    void reject() override;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    QWidget* texts(const Alert& alert);
    void addButtons(const Alert& alert);
    /// By how much the sheet would exceed the form's height; pixels.
    int excessHeight() const;
    void makeTextScroll();

    QCheckBox* suppressionButton_ = nullptr;
    std::optional<int> escapeAnswer_;
};

class QtAlerts : public Alerts {
  public:
    /// Both arguments must outlive the alerts.
    QtAlerts(SheetQueue& queue, QWidget& mainWindow) : queue_(queue), mainWindow_(mainWindow) {}

    using Alerts::show;
    void show(const Alert& alert, Completion completion) override;

  private:
    SheetQueue& queue_;
    QWidget& mainWindow_;
};

} // namespace frimbolate
