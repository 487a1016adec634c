// The file panels of the program, shown through the sheet queue: one at a time, window-modal.
//
// The dialogs are named "openPanel" and "savePanel", the line at their top "panelMessage". The
// question before a file is replaced is an alert on the panel, named "sheetAlert" like every alert;
// the sheet that names a new folder is "newFolderSheet".
#pragma once

#include "platform/file_panels.h"

class QWidget;

namespace frimbolate {

class SheetQueue;

class QtFilePanels : public FilePanels {
  public:
    /// Both arguments must outlive the panels.
    QtFilePanels(SheetQueue& queue, QWidget& mainWindow) : queue_(queue), mainWindow_(mainWindow) {}

    void open(const OpenPanel& panel, OpenCompletion completion) override;
    void save(const SavePanel& panel, SaveCompletion completion) override;

  private:
    SheetQueue& queue_;
    QWidget& mainWindow_;
};

} // namespace frimbolate
