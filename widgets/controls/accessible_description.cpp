#include "widgets/controls/accessible_description.h"

#include "widgets/controls/long_text.h"

#include <QWidget>

namespace frimbolate {

void updateAccessibleDescription(QWidget* control, const QString& description) {
    const QString shown = labelText(description);
    if (shown != control->accessibleDescription())
        control->setAccessibleDescription(shown);
}

} // namespace frimbolate
