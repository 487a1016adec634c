// Random forms, and the rules by which writing and reading back changes a form.
#pragma once

#include "core/agent_plist.h"
#include "core/form_model.h"
#include "tests/support/random_values.h"

#include <span>

namespace frimbolate::test {

/// A form of random selections, reserved indexes included, and texts. Many pass validation.
AgentForm generatedForm(RandomValues& random);

/// Sets the controls that agentForm() reads to the values of the record.
void show(const AgentForm& form, FormModel& model);

/// A difference between what was written and what is read, which the rules of reading and writing
/// prescribe. Rules apply in the order of their table.
template <typename Subject>
struct RoundTripRule {
    const char* name;
    bool (*applies)(const Subject&);
    void (*change)(Subject&);
};

/// From the form that was written to the form that is read.
std::span<const RoundTripRule<AgentForm>> formRules();
/// From the file that was written to the file that is written again.
std::span<const RoundTripRule<AgentPlist>> fileRules();

} // namespace frimbolate::test
