// The base of the program's own sheets: their buttons send actions, and Escape sends the closing
// action. Only the action hides the sheet.
#pragma once

#include "widgets/controls/form_binder.h"
#include "widgets/sheets/sheet_dialog.h"

class QLabel;

namespace frimbolate {

class AppSheet : public SheetDialog {
    Q_OBJECT

  public:
    /// The binder must outlive the sheet; the main window becomes the parent.
    /// \param panelWidth in pixels of the 1x layout
    /// \param close the action of the closing button, which Escape sends too
    AppSheet(const QString& outlet, int panelWidth, FormBinder& binder, QWidget& mainWindow,
             FormBinder::Send close);

  public slots:
    void reject() override { binder_.send(close_); }

  protected:
    /// Adds the sheet's title to the body.
    QLabel* addTitle(const QString& title);
    /// A button whose object name is the action it sends.
    QPushButton* makeButton(const char* name, const QString& title, const FormBinder::Send& send);
    FormBinder& formBinder() { return binder_; }

  private:
    FormBinder& binder_;
    FormBinder::Send close_;
};

} // namespace frimbolate
