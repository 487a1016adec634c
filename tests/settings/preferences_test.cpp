#include "settings/preferences.h"

#include "tests/support/scripted_platform.h"
#include "tests/support/stored_forms.h"

#include <gmock/gmock.h>

#include <array>

namespace frimbolate::test {

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using Lines = std::vector<std::string>;

enum : std::size_t { Welcome, AutoCopy, Warn, Globbing, Priority };

struct Key {
    const char* name;
    const char* valid;     ///< a stored text that a pass keeps
    const char* validLine; ///< the line that the pass logs for it
};

constexpr std::array<Key, 5> keys = {{
    {"ShowWelcomeWindow", "False - 3.0",
     "log: Found key found for ShowWelcomeWindow, value of False - 3.0"},
    {"AutoCopyScriptsKey", "True", "log: Found key found for AutoCopyScriptsKey, value of True"},
    {"WarnForSuccessfulExit", "True",
     "log: Found key found for WarnForSuccessfulExit, value of True"},
    {"DefaultGlobbingKey", "0", "log: Found key found for DefaultGlobbingKey, value of 0"},
    {"DefaultPriorityKey", "1", "log: Found key found for DefaultPriorityKey, value of 1"},
}};

/// One stored value of one key, and the effects of a pass on it.
struct Form {
    std::string name;
    std::size_t key;
    std::optional<Value> stored;
    std::string line;
    std::optional<std::string> written;
    int inSheet;    ///< state or item of the key's control in the sheet
    int inForm = 0; ///< state or item of its control in the form, for the last two keys
};

struct Improper {
    std::size_t key;
    const char* line;
    const char* written;
    int inSheet, inForm;
    std::vector<const char*> texts;
};

const std::vector<Improper>& improper() {
    static const std::vector<Improper> rows = {
        {Welcome,
         "Improper key found for ShowWelcomeWindow, writing default of True - 3.0  -- Found: ",
         "False",
         1,
         0,
         {"True - 3.0", "False", "True", "", "false - 3.0", "False - 3.0 ", "False  - 3.0",
          "False - 2.0"}},
        {AutoCopy,
         "Improper key found for AutoCopyScriptsKey, writing default of False  -- Found: ",
         "False",
         0,
         0,
         {"", "true", "TRUE", "False ", " True", "True - 3.0", "1", "YES"}},
        {Warn,
         "Improper key found for WarnForSuccessfulExit, writing default of True -- Found: ",
         "True",
         1,
         0,
         {"", "false", "FALSE", "False ", " True", "False - 3.0", "0", "NO"}},
        {Globbing,
         "Improper key found for DefaultGlobbingKey, writing default of 1 -- Found: ",
         "1",
         1,
         0,
         {"", "2", "-1", "00", "0 ", " 1", "1.0", "False"}},
        {Priority,
         "Improper key found for DefaultPriorityKey, writing default of 0 -- Found: ",
         "0",
         0,
         1,
         {"", "2", "-1", "01", "1 ", " 0", "0.0", "True"}},
    };
    return rows;
}

std::vector<Form> properForms() {
    const auto missing = std::nullopt;
    return {
        {"Missing", Welcome, missing,
         "No key found for ShowWelcomeWindow, writing default of True - 3.0", "True - 3.0", 1},
        {"Suppressed", Welcome, "False - 3.0",
         "Found key found for ShowWelcomeWindow, value of False - 3.0", missing, 0},
        {"Missing", AutoCopy, missing,
         "No key found for AutoCopyScriptsKey, writing default of "
         "False",
         "False", 0},
        {"True", AutoCopy, "True", "Found key found for AutoCopyScriptsKey, value of True", missing,
         1},
        {"False", AutoCopy, "False", "Found key found for AutoCopyScriptsKey, value of False",
         missing, 0},
        {"Missing", Warn, missing,
         "No key found for WarnForSuccessfulExit, writing default of True", "True", 1},
        {"True", Warn, "True", "Found key found for WarnForSuccessfulExit, value of True", missing,
         1},
        {"False", Warn, "False", "Found key found for WarnForSuccessfulExit, value of False",
         missing, 0},
        {"Missing", Globbing, missing,
         "No key found or key is 1 for DefaultGlobbingKey, writing default of 1", "1", 1, 0},
        {"One", Globbing, "1",
         "No key found or key is 1 for DefaultGlobbingKey, writing default of 1", "1", 1, 0},
        {"Zero", Globbing, "0", "Found key found for DefaultGlobbingKey, value of 0", missing, 0,
         1},
        {"Missing", Priority, missing,
         "No key found or key is 0 for DefaultPriorityKey, writing default of 0", "0", 0, 1},
        {"Zero", Priority, "0",
         "No key found or key is 0 for DefaultPriorityKey, writing default of 0", "0", 0, 1},
        {"One", Priority, "1", "Found key found for DefaultPriorityKey, value of 1", missing, 1, 0},
    };
}

std::vector<Form> forms() {
    auto result = properForms();
    for (auto& form : result)
        form.name = std::string(keys[form.key].name) + form.name;
    for (const auto& row : improper()) {
        const auto add = [&](const std::string& name, const Value& value, const std::string& text) {
            result.push_back({std::string(keys[row.key].name) + name, row.key, value,
                              row.line + text, row.written, row.inSheet, row.inForm});
        };
        int count = 0;
        for (const auto* text : row.texts)
            add("Text" + std::to_string(++count), text, text);
        for (const auto& other : formsOtherThanText())
            add("Wrong" + other.name, other.value, other.logged);
    }
    return result;
}

class PreferencesTest : public testing::Test {
  protected:
    PreferencesTest() {
        for (auto* box : {&form.showWelcomeWindowCheckbox, &form.autoCopyScriptCheckbox,
                          &form.warnSuccessfulExitCheckbox, &form.enableGlobbingCheckbox})
            box->state = CheckState::Mixed;
        for (auto* popUp : {&form.globalGlobbingCheckbox, &form.globalPriorityCheckbox,
                            &form.priorityLevelButton})
            popUp->selectedItem = -1;
    }

    void storeValidTexts() {
        for (const auto& key : keys)
            platform.defaults.contents[key.name] = key.valid;
    }

    /// The five controls of the sheet in the order of the keys, then the two of the form.
    std::array<int, 7> shown() const {
        return {form.showWelcomeWindowCheckbox.state,     form.autoCopyScriptCheckbox.state,
                form.warnSuccessfulExitCheckbox.state,    form.globalGlobbingCheckbox.selectedItem,
                form.globalPriorityCheckbox.selectedItem, form.enableGlobbingCheckbox.state,
                form.priorityLevelButton.selectedItem};
    }

    ScriptedPlatform platform;
    FormModel form;
    Services services = platform.services();
    Preferences preferences{form, services};
};

class StoredFormTest : public PreferencesTest, public testing::WithParamInterface<Form> {};

TEST_P(StoredFormTest, IsNormalised) {
    const auto& row = GetParam();
    const std::string name = keys[row.key].name;
    storeValidTexts();
    auto& stored = platform.defaults.contents;
    if (row.stored)
        stored[name] = *row.stored;
    else
        stored.erase(name);

    Lines lines = {"synchronize: defaults"};
    for (std::size_t key = 0; key < keys.size(); ++key)
        if (key == row.key) {
            lines.push_back("log: " + row.line);
            if (row.written)
                lines.push_back("set: " + name + " = " + *row.written);
        } else {
            lines.emplace_back(keys[key].validLine);
        }
    std::array<int, 7> controls = {0, 1, 1, 0, 1, 1, 0};
    controls[row.key] = row.inSheet;
    if (row.key >= Globbing)
        controls[row.key + 2] = row.inForm;
    auto kept = stored;
    if (row.written)
        kept[name] = *row.written;

    preferences.setUpDefaults();

    EXPECT_THAT(platform.journal.lines(), ElementsAreArray(lines));
    EXPECT_EQ(shown(), controls);
    EXPECT_EQ(platform.defaults.contents, kept);
}

INSTANTIATE_TEST_SUITE_P(Preferences, StoredFormTest, testing::ValuesIn(forms()),
                         [](const auto& row) { return row.param.name; });

const Lines firstPass = {
    "synchronize: defaults",
    "log: No key found for ShowWelcomeWindow, writing default of True - 3.0",
    "set: ShowWelcomeWindow = True - 3.0",
    "log: No key found for AutoCopyScriptsKey, writing default of False",
    "set: AutoCopyScriptsKey = False",
    "log: No key found for WarnForSuccessfulExit, writing default of True",
    "set: WarnForSuccessfulExit = True",
    "log: No key found or key is 1 for DefaultGlobbingKey, writing default of 1",
    "set: DefaultGlobbingKey = 1",
    "log: No key found or key is 0 for DefaultPriorityKey, writing default of 0",
    "set: DefaultPriorityKey = 0",
};

Lines laterPass(const std::string& foundWelcome) {
    return {
        "synchronize: defaults",
        "log: Improper key found for ShowWelcomeWindow, writing default of True - 3.0  -- Found: " +
            foundWelcome,
        "set: ShowWelcomeWindow = False",
        "log: Found key found for AutoCopyScriptsKey, value of False",
        "log: Found key found for WarnForSuccessfulExit, value of True",
        "log: No key found or key is 1 for DefaultGlobbingKey, writing default of 1",
        "set: DefaultGlobbingKey = 1",
        "log: No key found or key is 0 for DefaultPriorityKey, writing default of 0",
        "set: DefaultPriorityKey = 0",
    };
}

TEST_F(PreferencesTest, AnEmptyStoreGetsTheFiveDefaultsInOrder) {
    preferences.setUpDefaults();
    EXPECT_THAT(platform.journal.lines(), ElementsAreArray(firstPass));
    EXPECT_EQ(platform.defaults.contents, (Dictionary{{"ShowWelcomeWindow", "True - 3.0"},
                                                      {"AutoCopyScriptsKey", "False"},
                                                      {"WarnForSuccessfulExit", "True"},
                                                      {"DefaultGlobbingKey", "1"},
                                                      {"DefaultPriorityKey", "0"}}));
    EXPECT_EQ(shown(), (std::array<int, 7>{1, 0, 1, 1, 0, 0, 1}));
}

TEST_F(PreferencesTest, ThePassAfterTheFirstReplacesItsOwnWelcomeDefault) {
    preferences.setUpDefaults();
    for (const auto* found : {"True - 3.0", "False", "False"}) {
        platform.journal.clear();
        preferences.setUpDefaults();
        EXPECT_THAT(platform.journal.lines(), ElementsAreArray(laterPass(found)));
        EXPECT_EQ(platform.defaults.contents["ShowWelcomeWindow"], Value("False"));
        EXPECT_EQ(shown(), (std::array<int, 7>{1, 0, 1, 1, 0, 0, 1}));
    }
}

TEST_F(PreferencesTest, ThePassReadsEachKeyOnceAndInOrder) {
    const auto order =
        ElementsAre("ShowWelcomeWindow", "AutoCopyScriptsKey", "WarnForSuccessfulExit",
                    "DefaultGlobbingKey", "DefaultPriorityKey");
    preferences.setUpDefaults();
    EXPECT_THAT(platform.defaults.reads, order);
    platform.defaults.reads.clear();
    preferences.setUpDefaults();
    EXPECT_THAT(platform.defaults.reads, order);
}

TEST_F(PreferencesTest, ThePassLeavesEveryOtherKeyAlone) {
    const Dictionary others = {{"WarnForDelete", "neither true nor false"},
                               {"Bookmark", 7},
                               {"NSWindow Frame main", "0 0 640 480"}};
    platform.defaults.contents = others;
    preferences.setUpDefaults();
    for (const auto& [key, value] : others)
        EXPECT_EQ(platform.defaults.contents[key], value) << key;
}

struct TextCase {
    std::string name;
    std::optional<Value> stored;
    bool holds;
};

class HoldsStringTest : public testing::TestWithParam<TextCase> {};

TEST_P(HoldsStringTest, OnlyForExactlyThatText) {
    ScriptedPlatform platform;
    if (GetParam().stored)
        platform.defaults.contents["AutoCopyScriptsKey"] = *GetParam().stored;
    EXPECT_EQ(holdsString(platform.defaults, "AutoCopyScriptsKey", "True"), GetParam().holds);
    EXPECT_THAT(platform.journal.lines(), IsEmpty());
}

std::vector<TextCase> textCases() {
    std::vector<TextCase> cases = {
        {"Missing", std::nullopt, false}, {"TheText", "True", true}, {"LowerCase", "true", false},
        {"Longer", "True ", false},       {"Shorter", "Tru", false}, {"Empty", "", false},
    };
    for (const auto& other : formsOtherThanText())
        cases.push_back({other.name, other.value, false});
    return cases;
}

INSTANTIATE_TEST_SUITE_P(Preferences, HoldsStringTest, testing::ValuesIn(textCases()),
                         [](const auto& row) { return row.param.name; });

} // namespace

} // namespace frimbolate::test
