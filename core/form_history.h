// The forms before the steps that emptied the form, so that each can be undone and redone.
#pragma once

#include "core/form_model.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace frimbolate {

/// Whether two models hold the same form: form, drawer, script and error markers. Window, toolbar,
/// sheets, tips and the pop-over do not belong to it. Of dates only hour and minute count.
bool sameForm(const FormModel& one, const FormModel& other);

/// Replaces the form of a model, and leaves what does not belong to it.
void restoreForm(FormModel& model, const FormModel& form);

/// Keeps whole forms. What does not belong to the form is ignored.
class FormHistory {
  public:
    /// With more steps the oldest is forgotten.
    static constexpr std::size_t mostSteps = 20;

    /// Records a step and forgets those that were undone. A step that changed nothing is ignored.
    /// \param name of the step, as it stands behind "Undo"
    void record(std::string_view name, const FormModel& before, const FormModel& after);

    /// The form before the last step; nothing without one. The step can be redone then.
    /// \param current the form that redo() brings back
    std::optional<FormModel> undo(const FormModel& current);
    /// The form before the last undo(); nothing without one. The step can be undone then.
    /// \param current the form that undo() brings back
    std::optional<FormModel> redo(const FormModel& current);

    /// The name of the step that undo() or redo() would take; empty without one. Valid until the
    /// next change.
    std::string_view undoName() const { return nameOfLast(done_); }
    std::string_view redoName() const { return nameOfLast(undone_); }

  private:
    struct Step {
        std::string name;
        FormModel form; ///< to be brought back
    };
    using Steps = std::vector<Step>; // the latest last

    static std::string_view nameOfLast(const Steps& steps) {
        return steps.empty() ? std::string_view() : steps.back().name;
    }
    static std::optional<FormModel> exchange(Steps& from, Steps& to, const FormModel& current);

    Steps done_, undone_;
};

} // namespace frimbolate
