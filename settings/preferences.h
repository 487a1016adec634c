// The user's settings: the keys with their stored values and defaults, and the preferences sheet.
#pragma once

#include "core/form_model.h"
#include "platform/services.h"

#include <string_view>

namespace frimbolate {

/// The keys of the preference store. The values are strings, except for the last two.
namespace PreferenceKey {
inline constexpr std::string_view showWelcomeWindow = "ShowWelcomeWindow";
inline constexpr std::string_view autoCopyScripts = "AutoCopyScriptsKey";
inline constexpr std::string_view warnForSuccessfulExit = "WarnForSuccessfulExit";
inline constexpr std::string_view defaultGlobbing = "DefaultGlobbingKey";
inline constexpr std::string_view defaultPriority = "DefaultPriorityKey";
inline constexpr std::string_view warnForDelete = "WarnForDelete"; ///< a boolean
inline constexpr std::string_view bookmark = "Bookmark";           ///< data
} // namespace PreferenceKey

/// The two stored values that decide whether the welcome sheet is shown. Only exactly the second
/// one suppresses it.
inline constexpr std::string_view welcomeShown = "True - 3.0";
inline constexpr std::string_view welcomeSuppressed = "False - 3.0";

/// Whether the value of the key is exactly this string.
bool holdsString(Defaults& defaults, std::string_view key, std::string_view text);

class Preferences {
  public:
    /// Both must outlive this.
    Preferences(FormModel& form, Services& services) : form_(form), services_(services) {}

    /// Normalises the first five keys, logs what it found, and sets the preferences controls and
    /// the form's globbing and priority controls from them.
    void setUpDefaults();

    /// Shows the preferences sheet.
    void openPreferencesWindow();
    /// Stores the controls of the sheet and closes it. The form uses the new defaults from its next
    /// reset on.
    void savePreferences();
    /// Closes the sheet without storing. The controls keep their unsaved state.
    void closeWithoutSavingPrefs();
    /// Closes the sheet, removes every stored value, starts a new instance and quits this one,
    /// without confirmation.
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
