// Asks for the name of a new folder and makes it: a sheet on a file panel.
//
// The dialog is named "newFolderSheet", its field "newFolderName", the line that tells why a name
// cannot be had "newFolderRefusal". It stays until the folder is there or the user gives up.
#pragma once

#include "widgets/sheets/sheet_dialog.h"

class QLineEdit;

namespace frimbolate {

class WrappedText;

class NewFolderSheet : public SheetDialog {
    Q_OBJECT

  public:
    /// \param folder in which the new one is made
    /// \param proposedName what the field holds at first, selected
    NewFolderSheet(const QString& folder, const QString& proposedName, QWidget* panel);

    /// Of the new folder; meaningful once accepted() was emitted.
    QString path() const;

  public slots:
    void accept() override;

  private:
    void addField(const QString& proposedName);
    void addButtons();

    QString folder_;
    QLineEdit* name_ = nullptr;
    WrappedText* rejectionLabel_ = nullptr;
};

} // namespace frimbolate
