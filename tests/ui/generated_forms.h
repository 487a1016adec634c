// Forms at random, and what each turns into when its agent is written and read back.
#pragma once

#include "core/agent_plist.h"
#include "core/form_model.h"
#include "tests/support/random_values.h"

#include <span>

namespace frimbolate::test {

/// A form of any selections and texts, reserved indexes among them; many pass validation.
AgentForm generatedForm(RandomValues& random);

/// Puts the record into the controls that it is read from.
void show(const AgentForm& form, FormModel& model);

/// A difference that the rules of reading and writing prescribe, in the order in which they apply.
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
