// The welcome sheet at start: what the program does, in three steps.
#pragma once

#include "widgets/sheets/app_sheet.h"

class QBoxLayout;

namespace frimbolate {

class WelcomeSheet : public AppSheet {
    Q_OBJECT

  public:
    WelcomeSheet(FormBinder& binder, QWidget& mainWindow);

  private:
    QLabel* addText(QBoxLayout* column, const QString& text);
    void addStep(QBoxLayout* column, int number, const QString& title, const QString& text);
};

} // namespace frimbolate
