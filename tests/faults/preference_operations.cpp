// Writing the preferences: the first time, single values, the sheet, a reset, a damaged file.
#include "tests/faults/fault_operations.h"
#include "tests/faults/scripted_desk.h"

#include "core/named_error.h"
#include "plist/property_list_reader.h"
#include "plist/xml_writer.h"
#include "posix/plist_defaults.h"

#include <functional>
#include <memory>

namespace frimbolate::test {

namespace {

constexpr const char* key = "config/com.qz.Frimbolate.plist";
constexpr const char* lockKey = "config/com.qz.Frimbolate.plist.lock";
constexpr const char* damaged = "<plist><dict><key>Bookmark</key><da";

Dictionary storedPreferences() {
    return {{"AutoCopyScriptsKey", "False"}, {"WarnForSuccessfulExit", "True"},
            {"DefaultGlobbingKey", "1"},     {"DefaultPriorityKey", "0"},
            {"ShowWelcomeWindow", "False"},  {"WarnForDelete", true},
            {"Bookmark", Data{{1, 2, 3}}}};
}

void prepareNoPreferences(const UserFolders&, const Variation&) {}

void preparePreferences(const UserFolders& place, const Variation& variation) {
    std::filesystem::create_directory(place / "config");
    writeBytes(place / key, xmlPropertyList(storedPreferences()));
    std::filesystem::permissions(place / key, std::filesystem::perms(0600));
    variation.ofFile(place / key);
}

void prepareDamaged(const UserFolders& place, const Variation& variation) {
    std::filesystem::create_directory(place / "config");
    writeBytes(place / key, damaged);
    variation.ofFile(place / key);
}

/// Does not wait between the tries for the lock.
FileLock::Patience impatient() {
    return {.tries = 3, .pause = [] {}};
}

/// Preferences and their log, kept until the state of the disk was looked at: their destructor
/// writes what could not be written before.
struct KeptPreferences {
    RecordingLog log;
    PlistDefaults defaults;
    explicit KeptPreferences(const std::string& path) : defaults(path, log, impatient()) {}
};

/// Runs a change of the preferences. No failure is shown to the user: each is one line of the log.
Told change(const UserFolders& place, const std::function<void(ScriptedDesk&)>& apply) {
    Told told{true, {}, nullptr};
    std::shared_ptr<KeptPreferences> kept;
    {
        const Armed armed;
        kept = std::make_shared<KeptPreferences>(place / key);
        ScriptedDesk desk(kept->defaults);
        apply(desk);
    }
    for (const auto& line : kept->log.lines) {
        told.text += line + "\n";
        told.success &= !line.starts_with("Could not ");
    }
    told.kept = std::move(kept);
    return told;
}

Told firstSave(const UserFolders& place) {
    return change(place, [](ScriptedDesk& desk) { desk.editor.setUpDefaults(); });
}

Told storeOneValue(const UserFolders& place) {
    return change(place, [](ScriptedDesk& desk) {
        desk.editor.form().autoCopyScriptsCheckbox2.state = CheckState::On;
        desk.editor.closeExecuteScriptWindow();
    });
}

Told saveSheet(const UserFolders& place) {
    return change(place, [](ScriptedDesk& desk) {
        auto& form = desk.editor.form();
        form.autoCopyScriptCheckbox.state = CheckState::On;
        form.warnSuccessfulExitCheckbox.state = CheckState::Off;
        form.globalGlobbingCheckbox.selectedItem = 0;
        form.globalPriorityCheckbox.selectedItem = 1;
        form.showWelcomeWindowCheckbox.state = CheckState::Off;
        desk.editor.savePreferences();
    });
}

Told reset(const UserFolders& place) {
    return change(place, [](ScriptedDesk& desk) { desk.editor.resetPreferences(); });
}

/// The dictionary of a content, or nothing where it is not exactly what the program writes.
std::optional<Dictionary> writtenDictionary(const Item* item) {
    if (!item)
        return Dictionary();
    try {
        const Value value = readPropertyList(item->content);
        const auto* dictionary = value.dictionary();
        if (dictionary && xmlPropertyList(*dictionary) == item->content)
            return *dictionary;
    } catch (const NamedError&) { // reported as nothing
    }
    return std::nullopt;
}

bool isSameValue(const Dictionary& one, const Dictionary& other, const std::string& name) {
    const Value* first = find(one, name);
    const Value* second = find(other, name);
    return first && second ? *first == *second : first == second;
}

/// Each value is written by itself, so each is the old or the new one.
std::string mixtureProblem(const Dictionary& before, const Dictionary& after,
                           const Dictionary& now) {
    for (const auto& [name, value] : now)
        if (!isSameValue(now, before, name) && !isSameValue(now, after, name))
            return "neither the old nor the new value: " + name;
    for (const auto& [name, value] : before)
        if (!find(now, name) && find(after, name))
            return "value is gone: " + name;
    return {};
}

std::string problemOfPreferences(const Seen& seen) {
    const auto changed = changedBesides(seen, {"config", key, lockKey});
    if (!changed.empty())
        return changed;
    const Item* item = itemAt(seen.now, key);
    const mode_t ofOthers = itemAt(seen.before, key) ? itemAt(seen.before, key)->mode & 077 : 0;
    if (item && (item->mode & 077 & ~ofOthers) != 0)
        return "others may read the preferences";
    if (!item && itemAt(seen.before, key))
        return "the preferences are gone";
    const auto before = writtenDictionary(itemAt(seen.before, key));
    const auto after = writtenDictionary(itemAt(seen.after, key));
    const auto now = writtenDictionary(item);
    if (!before || !after || !now)
        return "torn preferences";
    if (seen.told.success && !seen.killed)
        return isNew(seen, key) ? "" : "no failure told, but not new";
    return mixtureProblem(*before, *after, *now);
}

/// The damaged bytes are never lost: in their place, or set aside under the first free name.
std::string problemOfDamaged(const Seen& seen) {
    const std::string aside = "config/com.qz.Frimbolate.damaged-1.plist";
    const auto changed = changedBesides(seen, {"config", key, lockKey, aside});
    if (!changed.empty())
        return changed;
    const Item* now = itemAt(seen.now, key);
    const Item* kept = itemAt(seen.now, aside);
    if (kept && kept->content != damaged)
        return "the damaged file changed";
    if (!kept && !isOld(seen, key))
        return "the damaged file is lost";
    if (seen.told.text.find("are now") != std::string::npos && !kept)
        return "told to be set aside, but is not";
    if (now && now->content != damaged && !writtenDictionary(now))
        return "torn preferences";
    if (seen.told.success && !seen.killed)
        return isNew(seen, key) && kept ? "" : "no failure told, but not new";
    return {};
}

/// The next start of the program, which stores one more value.
void startAgain(const UserFolders& place) {
    RecordingLog log;
    PlistDefaults defaults(place / key, log, impatient());
    defaults.set("WarnForDelete", false);
    if (defaults.keys().empty() || !std::filesystem::exists(place / key))
        throw std::runtime_error("the next start stores nothing");
    if (std::filesystem::exists(place / "config/com.qz.Frimbolate.damaged-2.plist"))
        throw std::runtime_error("the damaged file was set aside twice");
}

} // namespace

void addPreferenceOperations(std::vector<Operation>& all) {
    const Operation made[] = {
        {"PreferencesFirst", 60, prepareNoPreferences, firstSave, problemOfPreferences, startAgain},
        {"PreferencesSingleValue", 20, preparePreferences, storeOneValue, problemOfPreferences,
         startAgain},
        {"PreferencesSheet", 60, preparePreferences, saveSheet, problemOfPreferences, startAgain},
        {"PreferencesReset", 60, preparePreferences, reset, problemOfPreferences, startAgain},
        {"PreferencesDamaged", 20, prepareDamaged, firstSave, problemOfDamaged, startAgain},
    };
    all.insert(all.end(), std::begin(made), std::end(made));
}

} // namespace frimbolate::test
