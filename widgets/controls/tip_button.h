// The small round buttons that explain a section of the form.
#pragma once

#include "core/form_model.h"

#include <string_view>

class QString;
class QToolButton;

namespace frimbolate {

class FormBinder;

/// A button with this outlet's name, which shows the tip of that name when clicked. The caller owns
/// it; the binder must outlive it.
/// \param section what the tip is about, for tool tip and assistive tools
QToolButton* makeTipButton(FormBinder& binder, std::string_view outlet, Button FormModel::*member,
                           const QString& section);

} // namespace frimbolate
