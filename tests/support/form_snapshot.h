// Every property of every control, by name, so that a test can say what a rule changes and be told
// of anything else that it changed.
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

/// A line "name: was → is" for each property in which two pictures differ.
std::vector<std::string> differences(const Snapshot& was, const Snapshot& is);

/// The picture with some properties replaced; a name that no control has fails the running test.
Snapshot with(Snapshot picture, const Snapshot& changes);

/// A form in which no control is as a rule leaves it: texts and images are set, boxes are not off,
/// widths and indexes are odd ones.
/// \param flag what every "hidden", "enabled" … is; only a test that runs with both sees each
///             rule that sets one
FormModel nonDefaultForm(bool flag);

/// A form that a test starts from. Only one that holds other values than a new agent shows a rule
/// that sets a control to what a new agent has.
struct StartForm {
    const char* name;
    FormModel form;
};

} // namespace frimbolate::test
