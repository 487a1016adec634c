#include "widgets/panels/qt_file_panels.h"

#include "widgets/panels/panel_dialog.h"
#include "widgets/sheets/sheet_queue.h"

namespace frimbolate {
namespace {

/// Presents the panel and passes the result of `answer` to the completion.
template <typename Completion, typename Answer>
void present(SheetQueue& queue, PanelDialog* panel, Completion completion, Answer answer) {
    panel->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(panel, &QDialog::finished, &queue,
                     [&queue, panel, completion = std::move(completion), answer] {
                         queue.complete(
                             [completion, given = answer(*panel)] { completion(given); });
                     });
    queue.present(panel);
}

std::optional<std::string> chosenPath(const PanelDialog& panel) {
    if (!panel.chosenPath())
        return std::nullopt;
    return panel.chosenPath()->toStdString();
}

std::optional<SaveLocation> chosenLocation(const PanelDialog& panel) {
    if (!panel.chosenPath())
        return std::nullopt;
    return SaveLocation{panel.chosenPath()->toStdString(), panel.chosenName().toStdString()};
}

} // namespace

void QtFilePanels::open(const OpenPanel& panel, OpenCompletion completion) {
    present(queue_, new PanelDialog(panel, &mainWindow_), std::move(completion), chosenPath);
}

void QtFilePanels::save(const SavePanel& panel, SaveCompletion completion) {
    present(queue_, new PanelDialog(panel, &mainWindow_), std::move(completion), chosenLocation);
}

} // namespace frimbolate
