// Undo and redo of the steps that empty the form.
#include "ui/app_delegate.h"

#include <utility>

namespace frimbolate {

void AppDelegate::undo() { restore(history_.undo(form_)); }

void AppDelegate::redo() { restore(history_.redo(form_)); }

void AppDelegate::restore(const std::optional<FormModel>& form) {
    if (!form)
        return;
    closeScriptPopOver();
    restoreForm(form_, *form);
}

void AppDelegate::resetForm(std::string_view step) {
    const bool isUnchanged = sameForm(form_, afterReset_);
    const FormModel before = form_;
    resetForm();
    if (!isUnchanged)
        history_.record(step, before, form_);
}

FormModel AppDelegate::takeFormBeforeInput() {
    return std::exchange(beforeInput_, std::nullopt).value_or(form_);
}

} // namespace frimbolate
