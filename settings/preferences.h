// The person's settings: every key with its stored form and default, and the preferences sheet.
#pragma once

#include "core/form_model.h"
#include "platform/services.h"

#include <string_view>

namespace frimbolate {

/// The keys of the preference store. Their values are strings, but for the last two.
namespace PreferenceKey {
inline constexpr std::string_view showWelcomeWindow = "ShowWelcomeWindow";
inline constexpr std::string_view autoCopyScripts = "AutoCopyScriptsKey";
inline constexpr std::string_view warnForSuccessfulExit = "WarnForSuccessfulExit";
inline constexpr std::string_view defaultGlobbing = "DefaultGlobbingKey";
inline constexpr std::string_view defaultPriority = "DefaultPriorityKey";
inline constexpr std::string_view warnForDelete = "WarnForDelete"; ///< a boolean
inline constexpr std::string_view bookmark = "Bookmark";           ///< data
} // namespace PreferenceKey

/// The two stored forms that decide whether the welcome sheet comes up; only the second, exactly,
/// keeps it away.
inline constexpr std::string_view welcomeShown = "True - 3.0";
inline constexpr std::string_view welcomeSuppressed = "False - 3.0";

/// Whether the store holds exactly this string under the key.
bool holdsString(Defaults& defaults, std::string_view key, std::string_view text);

class Preferences {
  public:
    Preferences(FormModel& form, Services& services) : form_(form), services_(services) {}

    /// Normalises the first five keys, logs what it found, and sets the preferences controls and
    /// the form's globbing and priority controls from them.
    void setUpDefaults();

    void openPreferencesWindow();
    /// Stores the sheet's controls and closes it; the form takes the new defaults at its next
    /// reset.
    void savePreferences();
    /// Closes the sheet; the controls keep what the person left in them.
    void closeWithoutSavingPrefs();
    /// Empties the store, starts the program anew and quits this one. Asks nothing.
    void resetPreferences();

  private:
    void setUpWelcome();
    void setUpCheckBox(std::string_view key, CheckBox& box, bool standard, std::string_view gap);
    void setUpGlobbing();
    void setUpPriority();
    void store(std::string_view key, std::string_view text);
    void storeCheckBox(std::string_view key, const CheckBox& box, std::string_view on,
                       std::string_view off);

    FormModel& form_;
    Services& services_;
};

} // namespace frimbolate
