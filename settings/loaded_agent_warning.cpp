#include "settings/loaded_agent_warning.h"

#include "core/conversions.h"
#include "core/form_model.h"
#include "settings/preferences.h"

namespace frimbolate {

bool LoadedAgentWarning::isSuppressed() {
    services_.defaults.synchronize();
    const auto warns = services_.defaults.object(PreferenceKey::warnForDelete);
    // A value without a truth value was not stored by the check box.
    const bool hasTruth = warns && (warns->string() || warns->isNumber());
    return hasTruth && !toBool(*warns);
}

void LoadedAgentWarning::show(const std::function<void()>& onContinue,
                              const std::string& cancelLine) {
    if (isSuppressed()) {
        onContinue();
        return;
    }
    Alert alert;
    alert.messageText = "Important message:";
    alert.informativeText =
        "Frimbolate cannot determine if a launch agent is currently loaded/running. It is highly "
        "recommended that you unload a launch agent before editing or deleting it. \n\nFailure to "
        "unload an agent before editing or deleting it will result in the launch agent continuing "
        "to run, in its original configuration and as scheduled, until you logout or a reboot "
        "occurs.";
    alert.buttons = {"Continue", "Cancel"};
    alert.showsSuppressionButton = true;
    services_.alerts.show(
        alert, lifetime_.whileAlive([this, onContinue, cancelLine](AlertOutcome outcome) {
            if (outcome.answer != AlertAnswer::First) {
                services_.log.line(cancelLine);
                return;
            }
            if (outcome.suppressionState == CheckState::Off)
                services_.defaults.set(PreferenceKey::warnForDelete, true);
            else if (outcome.suppressionState == CheckState::On)
                services_.defaults.set(PreferenceKey::warnForDelete, false);
            onContinue();
        }));
}

} // namespace frimbolate
