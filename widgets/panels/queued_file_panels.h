// The file panels of the platform, shown through the sheet queue: one sheet at a time.
#pragma once

#include "platform/file_panels.h"

class QWidget;

namespace frimbolate {

class SheetQueue;

class QueuedFilePanels : public FilePanels {
  public:
    /// \param panels shows a panel at once, whatever else is shown; like the others, it must
    /// outlive
    ///               this and every panel
    QueuedFilePanels(SheetQueue& queue, QWidget& mainWindow, FilePanels& panels)
        : queue_(queue), mainWindow_(mainWindow), panels_(panels) {}

    void open(const OpenPanel& panel, OpenCompletion completion) override;
    void save(const SavePanel& panel, SaveCompletion completion) override;

  private:
    SheetQueue& queue_;
    QWidget& mainWindow_;
    FilePanels& panels_;
};

} // namespace frimbolate
