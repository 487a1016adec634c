#include "widgets/panels/queued_file_panels.h"

#include "widgets/sheets/platform_sheet.h"
#include "widgets/sheets/sheet_queue.h"

#include <utility>

namespace frimbolate {
namespace {

/// \param show shows the panel and passes its result to the completion that it receives
template <typename Completion, typename Show>
void present(SheetQueue& queue, QWidget& mainWindow, Completion completion, Show show) {
    queue.present(new PlatformSheet(
        [&queue, completion = std::move(completion), show](std::function<void()> closed) {
            show([&queue, completion, closed = std::move(closed)](auto result) {
                queue.complete([completion, result = std::move(result)] { completion(result); });
                closed();
            });
        },
        &mainWindow));
}

} // namespace

void QueuedFilePanels::open(const OpenPanel& panel, OpenCompletion completion) {
    present(queue_, mainWindow_, std::move(completion),
            [this, panel](OpenCompletion answer) { panels_.open(panel, std::move(answer)); });
}

void QueuedFilePanels::save(const SavePanel& panel, SaveCompletion completion) {
    present(queue_, mainWindow_, std::move(completion),
            [this, panel](SaveCompletion answer) { panels_.save(panel, std::move(answer)); });
}

} // namespace frimbolate
