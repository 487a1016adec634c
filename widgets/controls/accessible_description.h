// What assistive tools are told of a control beside its name.
#pragma once

class QString;
class QWidget;

namespace frimbolate {

/// Sets the accessible description, as a label would show it. An unchanged one is not set again:
/// screen readers announce each setting.
void updateAccessibleDescription(QWidget* control, const QString& description);

} // namespace frimbolate
