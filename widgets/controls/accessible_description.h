// The accessible description of a control.
#pragma once

class QString;
class QWidget;

namespace frimbolate {

/// Sets the accessible description, shortened as labelText() does. An unchanged description is not
/// set again, because screen readers announce every change event.
void updateAccessibleDescription(QWidget* control, const QString& description);

} // namespace frimbolate
