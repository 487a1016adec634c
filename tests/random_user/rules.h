// What must hold after every step of a random user, as tables of named rules.
#pragma once

#include "core/form_presentation.h"
#include "tests/random_user/session.h"
#include "tests/random_user/step.h"

#include <optional>
#include <span>
#include <string>

namespace frimbolate::test {

/// What the rules look at after a step.
struct Seen {
    Session& session;
    const Step& step;
    const FormModel& form;
    const FormPresentation& shown; ///< derived anew from the form
    bool asks;                     ///< an alert or a panel is shown or waits
    const StoredFiles& before;     ///< the files before the step
    const StoredFiles& after;
};

struct Rule {
    const char* name;
    /// What is wrong; empty where the rule holds.
    std::string (*broken)(const Seen& seen);
};

/// The states of the form that its rules allow.
std::span<const Rule> formRules();
/// The state of the form right after its action or schedule was chosen.
std::span<const Rule> choiceRules();
/// The window shows what the model holds, and nothing of a closed sheet stays behind.
std::span<const Rule> windowRules();
/// The disk holds whole files, and a step changes no more than the one that it is about.
std::span<const Rule> fileRules();

struct BrokenRule {
    std::string name, detail;
};

/// The first rule that is broken; nothing where all hold.
std::optional<BrokenRule> brokenRule(Session& session, const Step& step, const StoredFiles& before,
                                     const StoredFiles& after);

} // namespace frimbolate::test
