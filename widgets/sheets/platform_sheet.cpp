#include "widgets/sheets/platform_sheet.h"

#include <QCoreApplication>
#include <QHideEvent>
#include <QPointer>

#include <utility>

namespace frimbolate {

PlatformSheet::PlatformSheet(Begin begin, QWidget* mainWindow)
    : QDialog(mainWindow), begin_(std::move(begin)) {}

void PlatformSheet::setVisible(bool visible) {
    if (!visible)
        return QDialog::setVisible(false);
    if (const Begin begin = std::exchange(begin_, nullptr))
        begin([self = QPointer(this)] {
            if (self)
                self->leave();
        });
}

/// The queue takes this event as the end of a sheet.
void PlatformSheet::leave() {
    QHideEvent event;
    QCoreApplication::sendEvent(this, &event);
    deleteLater();
}

} // namespace frimbolate
