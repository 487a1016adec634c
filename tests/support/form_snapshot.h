// Every property of every control, by name. A test states what a rule changes and finds whatever
// else the rule changed.
#pragma once

#include "core/form_model.h"

#include <map>
#include <string>
#include <vector>

namespace frimbolate::test {

/// "agentScheduleTypeButton.width" → "160", and so on. Booleans read "yes" and "no", texts stand
/// in quotes, images read "none", "resource …" or "icon of …".
using Snapshot = std::map<std::string, std::string>;

Snapshot snapshot(const FormModel& model);

/// A line "name: was -> is" for each property in which two snapshots differ.
std::vector<std::string> differences(const Snapshot& was, const Snapshot& is);

/// The snapshot with some properties replaced. A name that no control has fails the running test.
Snapshot with(Snapshot snapshot, const Snapshot& changes);

/// A form whose every control holds a value that no rule sets: texts and images are not empty,
/// boxes are not off, widths and indexes are unusual. \param flag the value of every "hidden",
/// "enabled" …; a test has to run with both, since a rule
///             that sets a flag to this value shows no difference
FormModel nonDefaultForm(bool flag);

/// A form that a test starts from. A rule that sets a control to the value of a new agent shows
/// only on a form that holds other values.
struct StartForm {
    const char* name;
    FormModel form;
};

} // namespace frimbolate::test
