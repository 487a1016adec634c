#include "settings/preferences.h"

#include <string>

namespace frimbolate {

namespace {

constexpr std::string_view yes = "True";
constexpr std::string_view no = "False";

std::string foundLine(std::string_view key, std::string_view value) {
    return std::string("Found key found for ").append(key).append(", value of ").append(value);
}

std::string missingLine(std::string_view key, std::string_view standard) {
    return std::string("No key found for ")
        .append(key)
        .append(", writing default of ")
        .append(standard);
}

/// For the globbing and priority keys, which write their default also where it is stored already.
std::string missingOrStandardLine(std::string_view key, std::string_view standard) {
    return std::string("No key found or key is ")
        .append(standard)
        .append(" for ")
        .append(key)
        .append(", writing default of ")
        .append(standard);
}

/// \param gap the blanks before the dashes; their number differs between keys
std::string improperLine(std::string_view key, std::string_view standard, std::string_view gap,
                         const Value& found) {
    return std::string("Improper key found for ")
        .append(key)
        .append(", writing default of ")
        .append(standard)
        .append(gap)
        .append("-- Found: ")
        .append(description(found));
}

std::string indexText(const PopUp& popUp) { return std::to_string(popUp.selectedItem); }

bool equals(const std::optional<Value>& value, std::string_view expected) {
    return value && value->string() && *value->string() == expected;
}

} // namespace

bool holdsString(Defaults& defaults, std::string_view key, std::string_view text) {
    return equals(defaults.object(key), text);
}

void Preferences::setUpDefaults() {
    services_.defaults.synchronize();
    setUpWelcome();
    setUpCheckBox(PreferenceKey::autoCopyScripts, form_.autoCopyScriptCheckbox, false, "  ");
    setUpCheckBox(PreferenceKey::warnForSuccessfulExit, form_.warnSuccessfulExitCheckbox, true,
                  " ");
    setUpGlobbing();
    setUpPriority();
}

void Preferences::setUpWelcome() {
    constexpr auto key = PreferenceKey::showWelcomeWindow;
    const auto found = services_.defaults.object(key);
    auto& box = form_.showWelcomeWindowCheckbox;
    if (!found) {
        services_.log.line(missingLine(key, welcomeShown));
        store(key, welcomeShown);
        box.state = CheckState::On;
    } else if (equals(found, welcomeSuppressed)) {
        services_.log.line(foundLine(key, welcomeSuppressed));
        box.state = CheckState::Off;
    } else {
        // welcomeShown, which the welcome flow itself stores, counts as improper, too. The stored
        // replacement is neither of the two values and therefore shows the sheet.
        services_.log.line(improperLine(key, welcomeShown, "  ", *found));
        store(key, no);
        box.state = CheckState::On;
    }
}

void Preferences::setUpCheckBox(std::string_view key, CheckBox& box, bool standard,
                                std::string_view gap) {
    const auto found = services_.defaults.object(key);
    const auto standardText = standard ? yes : no;
    if (equals(found, yes) || equals(found, no)) {
        const bool on = equals(found, yes);
        services_.log.line(foundLine(key, on ? yes : no));
        box.state = on ? CheckState::On : CheckState::Off;
        return;
    }
    if (!found)
        services_.log.line(missingLine(key, standardText));
    else
        services_.log.line(improperLine(key, standardText, gap, *found));
    store(key, standardText);
    box.state = standard ? CheckState::On : CheckState::Off;
}

void Preferences::setUpGlobbing() {
    constexpr auto key = PreferenceKey::defaultGlobbing;
    const auto found = services_.defaults.object(key);
    const bool globs = equals(found, "0");
    form_.globalGlobbingCheckbox.selectedItem = globs ? 0 : 1;
    form_.enableGlobbingCheckbox.state = globs ? CheckState::On : CheckState::Off;
    if (globs) {
        services_.log.line(foundLine(key, "0"));
        return;
    }
    if (!found || equals(found, "1"))
        services_.log.line(missingOrStandardLine(key, "1"));
    else
        services_.log.line(improperLine(key, "1", " ", *found));
    store(key, "1");
}

void Preferences::setUpPriority() {
    constexpr auto key = PreferenceKey::defaultPriority;
    const auto found = services_.defaults.object(key);
    const bool low = equals(found, "1");
    form_.globalPriorityCheckbox.selectedItem = low ? 1 : 0;
    form_.priorityLevelButton.selectedItem = low ? PriorityLevel::Low : PriorityLevel::Normal;
    if (low) {
        services_.log.line(foundLine(key, "1"));
        return;
    }
    if (!found || equals(found, "0"))
        services_.log.line(missingOrStandardLine(key, "0"));
    else
        services_.log.line(improperLine(key, "0", " ", *found));
    store(key, "0");
}

void Preferences::openPreferencesWindow() { services_.sheets.begin(Sheet::preferencesWindow); }

void Preferences::savePreferences() {
    storeCheckBox(PreferenceKey::autoCopyScripts, form_.autoCopyScriptCheckbox, yes, no);
    storeCheckBox(PreferenceKey::warnForSuccessfulExit, form_.warnSuccessfulExitCheckbox, yes, no);
    store(PreferenceKey::defaultGlobbing, indexText(form_.globalGlobbingCheckbox));
    store(PreferenceKey::defaultPriority, indexText(form_.globalPriorityCheckbox));
    storeCheckBox(PreferenceKey::showWelcomeWindow, form_.showWelcomeWindowCheckbox, welcomeShown,
                  welcomeSuppressed);
    services_.sheets.end(Sheet::preferencesWindow);
}

void Preferences::closeWithoutSavingPrefs() { services_.sheets.end(Sheet::preferencesWindow); }

void Preferences::resetPreferences() {
    services_.sheets.end(Sheet::preferencesWindow);
    for (const auto& key : services_.defaults.keys())
        services_.defaults.remove(key);
    services_.defaults.synchronize();
    services_.workspace.launchNewInstance();
    services_.application.terminate();
}

void Preferences::store(std::string_view key, std::string_view text) {
    services_.defaults.set(key, Value(text));
}

void Preferences::storeCheckBox(std::string_view key, const CheckBox& box, std::string_view on,
                                std::string_view off) {
    if (box.state == CheckState::On)
        store(key, on);
    else if (box.state == CheckState::Off)
        store(key, off);
}

} // namespace frimbolate
