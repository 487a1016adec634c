// A sheet that the platform shows itself, such as its file panels, as a member of the sheet queue.
#pragma once

#include <QDialog>

#include <functional>

namespace frimbolate {

/// Stands in the queue for a sheet that is no window of the toolkit: it is shown in its turn, and
/// the next sheet waits until it has left the screen. Deletes itself then.
class PlatformSheet : public QDialog {
    Q_OBJECT

  public:
    /// Shows the platform's sheet and returns at once. The function that it receives reports that
    /// the sheet has left the screen; it is called once, on the same thread.
    using Begin = std::function<void(std::function<void()> closed)>;

    PlatformSheet(Begin begin, QWidget* mainWindow);

    /// Shows the platform's sheet in place of this window, which never appears.
    void setVisible(bool visible) override;

  private:
    void leave();

    Begin begin_;
};

} // namespace frimbolate
