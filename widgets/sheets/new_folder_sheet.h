// A sheet on a file panel that asks for the name of a new folder and creates it.
//
// The dialog is named "newFolderSheet", its field "newFolderName", the line with the reason why a
// name is rejected "newFolderRefusal". It stays open until the folder exists or the user cancels.
#pragma once

#include "widgets/sheets/sheet_dialog.h"

class QLineEdit;

namespace frimbolate {

class WrappedText;

class NewFolderSheet : public SheetDialog {
    Q_OBJECT

  public:
    /// \param folder the parent of the new folder
    /// \param proposedName the initial content of the field, selected
    /// \param panel becomes the parent of the sheet
    NewFolderSheet(const QString& folder, const QString& proposedName, QWidget* panel);

    /// The path of the new folder; valid after accepted() was emitted.
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
