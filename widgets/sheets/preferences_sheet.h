// The sheet of the user's preferences. Its controls are bound to the form model; it stores nothing.
#pragma once

#include "widgets/sheets/app_sheet.h"

#include <span>

class QGridLayout;

namespace frimbolate {

struct PopUpItem;

class PreferencesSheet : public AppSheet {
    Q_OBJECT

  public:
    PreferencesSheet(FormBinder& binder, QWidget& mainWindow);

  private:
    QLabel* makeLabel(const QString& text);
    void addCheckBoxes();
    void addPopUps();

    QGridLayout* grid_;
};

} // namespace frimbolate
