// Reading the keys of the advanced drawer.
#include "tests/core/recording_host.h"
#include "tests/support/rows.h"

#include <gmock/gmock.h>

#include <limits>

namespace frimbolate::test {

namespace {

class AdvancedKeys : public testing::TestWithParam<ReaderRow> {};

/// Each row is read beside a daily schedule.
TEST_P(AdvancedKeys, ReadAs) {
    auto row = GetParam();
    row.keys.emplace("StartCalendarInterval", daily());
    row.sets = dailySnapshot() + row.sets;
    row.primary = dailyLines();
    expectReads(row);
}

const Snapshot drawerOpen = {{"advancedDrawer.open", "yes"}};

std::vector<ReaderRow> globbing() {
    const auto row = [](const char* name, Value value, bool on) {
        const Lines lines = {"log: Globbing key: " + description(value)};
        return ReaderRow{name,
                         {{"EnableGlobbing", value}},
                         {{"enableGlobbingCheckbox.state", on ? "1" : "0"}},
                         {},
                         lines};
    };
    return {row("Off", false, false), row("On", true, true), row("TextOn", "Yes", true),
            row("TextOff", "off", false), row("Number", 4, true)};
}
INSTANTIATE_TEST_SUITE_P(Globbing, AdvancedKeys, testing::ValuesIn(globbing()), NamedAfterRow());

std::vector<ReaderRow> priorities() {
    const Lines differs = {"log: Priority key: 0 is does not match default: 1, opening drawer",
                           "drawer"};
    const auto low = [&](const char* name, Value value) {
        const Lines lines = {"log: PriorityIO key: " + description(value)};
        return ReaderRow{name,
                         {{"LowPriorityIO", value}},
                         drawerOpen + Snapshot{{"priorityLevelButton.selectedItem", "0"}},
                         {},
                         lines + differs};
    };
    const auto normal = [](const char* name, Value value) {
        const Lines lines = {"log: PriorityIO key: " + description(value)};
        return ReaderRow{name,
                         {{"LowPriorityIO", value}},
                         {{"priorityLevelButton.selectedItem", "1"}},
                         {},
                         lines};
    };
    return {low("Low", true),        low("LowNumber", 3),     low("LowText", "t"),
            normal("Normal", false), normal("NormalZero", 0), normal("NormalText", "low")};
}
INSTANTIATE_TEST_SUITE_P(Priority, AdvancedKeys, testing::ValuesIn(priorities()), NamedAfterRow());

std::vector<ReaderRow> niceLevels() {
    const auto row = [](const char* name, Value value, const std::string& level,
                        const std::string& slider) {
        const Lines lines = {"log: Nice key: " + description(value)};
        const Snapshot sets = {{"niceLevelTextField.stringValue", '"' + description(value) + '"'},
                               {"niceLevelSlider.value", slider}};
        if (level == "0")
            return ReaderRow{name, {{"Nice", value}}, sets, {}, lines};
        return ReaderRow{name,
                         {{"Nice", value}},
                         sets + drawerOpen,
                         {},
                         lines +
                             Lines{"log: Nice key is not 0, opening drawer " + level, "drawer"}};
    };
    return {row("Zero", 0, "0", "0.000000"),
            row("MostFavoured", -20, "-20", "-20.000000"),
            row("LeastFavoured", 20, "20", "20.000000"),
            row("BeyondTheSlider", 99, "99", "99.000000"),
            row("Text", "5", "5", "5.000000"),
            row("Word", "nice", "0", "0.000000"),
            row("Fraction", 0.5, "0", "0.000000"),
            row("Boolean", true, "1", "1.000000"),
            row("Least", std::numeric_limits<std::int64_t>::min(), "-9223372036854775808",
                "-9223372036854775808.000000")};
}
INSTANTIATE_TEST_SUITE_P(Nice, AdvancedKeys, testing::ValuesIn(niceLevels()), NamedAfterRow());

std::vector<ReaderRow> texts() {
    const auto row = [](const char* name, const std::string& key, const std::string& field,
                        const std::string& text) {
        const Lines lines = {"log: " + key + " key: " + text, "drawer"};
        return ReaderRow{name,
                         {{key, text}},
                         drawerOpen + Snapshot{{field + ".stringValue", '"' + text + '"'}},
                         {},
                         lines};
    };
    return {row("WorkingDirectory", "WorkingDirectory", "workingDirectoryField", "/w"),
            row("RootDirectory", "RootDirectory", "rootDirectoryField", "/r"),
            row("In", "StandardInPath", "standardInPathField", "/i"),
            row("Out", "StandardOutPath", "standardOutPathField", "/o"),
            row("Error", "StandardErrorPath", "standardErrorPathField", "/e"),
            row("OnlyABlank", "StandardOutPath", "standardOutPathField", " "),
            row("EmptyIsPresent", "RootDirectory", "rootDirectoryField", "")};
}
INSTANTIATE_TEST_SUITE_P(Text, AdvancedKeys, testing::ValuesIn(texts()), NamedAfterRow());

std::vector<ReaderRow> queues() {
    const auto row = [](const char* name, Array folders, const Snapshot& sets,
                        const std::string& last, const std::string& effect) {
        const Value value(std::move(folders));
        const Lines lines = {
            "log: QueueDirectories key: " + description(value) + "\n Last Object: " + last, effect};
        return ReaderRow{name, {{"QueueDirectories", value}}, sets, {}, lines};
    };
    const auto shown = [](const std::string& path) {
        return drawerOpen + Snapshot{{"queueDirectoryField.stringValue", '"' + path + '"'}};
    };
    return {row("OneFolder", {Value("/q")}, shown("/q"), "/q", "drawer"),
            row("LastOfTwo", {Value("/q"), Value("/r s")}, shown("/r s"), "/r s", "drawer"),
            row("NoFolder", {}, {}, "(null)", keysAlert),
            row("ANumber", {Value("/q"), Value(5)}, {}, "5", keysAlert)};
}
INSTANTIATE_TEST_SUITE_P(Queue, AdvancedKeys, testing::ValuesIn(queues()), NamedAfterRow());

std::vector<ReaderRow> additional() {
    const auto watched = [](const std::string& path) {
        return drawerOpen + Snapshot{{"alsoRunPathChangeCheckbox.state", "1"},
                                     {"alsoRunPathChangeImageWell.toolTip", '"' + path + '"'},
                                     {"alsoRunPathChangeImageWell.image", "icon of " + path},
                                     {"alsoRunPathChangeImageWell.hidden", "no"}};
    };
    const Snapshot mounted = drawerOpen + Snapshot{{"alsoRunVolumeCheckbox.state", "1"}};
    const Value paths = Array{Value("/a"), Value("/b")};
    return {{"Mount", {{"StartOnMount", true}}, mounted, {}, {"drawer"}},
            {"MountText", {{"StartOnMount", "y"}}, mounted, {}, {"drawer"}},
            {"MountFalse", {{"StartOnMount", false}}, {}},
            {"MountEmptyText", {{"StartOnMount", ""}}, {}},
            {"MountDictionary", {{"StartOnMount", Dictionary{}}}, {}, {}, {keysAlert}},
            {"Watch", {{"WatchPaths", paths}}, watched("/b"), {}, {"drawer"}},
            {"WatchEmptyPath", {{"WatchPaths", Array{Value("")}}}, watched(""), {}, {"drawer"}},
            {"WatchNothing", {{"WatchPaths", Array{}}}, watched(""), {}, {"drawer"}},
            {"WatchText", {{"WatchPaths", "/b"}}, {}, {}, {keysAlert}},
            {"WatchNumber", {{"WatchPaths", Array{Value(1)}}}, {}, {}, {keysAlert}}};
}
INSTANTIATE_TEST_SUITE_P(Also, AdvancedKeys, testing::ValuesIn(additional()), NamedAfterRow());

/// The file lists the keys in another order.
TEST(AdvancedKeysTogether, AreReadInTheirOrder) {
    RecordingHost editor;
    const Value queue = Array{Value("/q")};
    AgentReader(editor).lookForAdvancedKeys({{"WatchPaths", Array{Value("/p")}},
                                             {"StartOnMount", true},
                                             {"RunAtLoad", true},
                                             {"StandardErrorPath", "/e"},
                                             {"StandardOutPath", "/o"},
                                             {"StandardInPath", "/i"},
                                             {"QueueDirectories", queue},
                                             {"RootDirectory", "/r"},
                                             {"WorkingDirectory", "/w"},
                                             {"Nice", 5},
                                             {"LowPriorityIO", true},
                                             {"EnableGlobbing", true}});
    EXPECT_EQ(editor.journal,
              (Lines{"log: Evaluating keys for advanced drawer...",
                     "log: Globbing key: 1",
                     "log: PriorityIO key: 1",
                     "log: Priority key: 0 is does not match default: 1, opening drawer",
                     "drawer",
                     "log: Nice key: 5",
                     "log: Nice key is not 0, opening drawer 5",
                     "drawer",
                     "log: WorkingDirectory key: /w",
                     "drawer",
                     "log: RootDirectory key: /r",
                     "drawer",
                     "log: QueueDirectories key: " + description(queue) + "\n Last Object: /q",
                     "drawer",
                     "log: StandardInPath key: /i",
                     "drawer",
                     "log: StandardOutPath key: /o",
                     "drawer",
                     "log: StandardErrorPath key: /e",
                     "drawer",
                     "drawer",
                     "drawer",
                     "drawer",
                     "log: Completed evaluating keys for advanced drawer"}));
}

/// Records the files whose advanced keys the reader asks for, and reads none of them.
class KeepingHost : public RecordingHost {
  public:
    void lookForAdvancedKeys(const AgentPlist& file) override { files.push_back(file); }
    std::vector<AgentPlist> files;
};

TEST(AdvancedKeysTogether, AreReadByTheEditorBeforeTheReadingEnds) {
    KeepingHost editor;
    const AgentPlist file = {
        {"Label", "com.frimbolate.Backup"}, {"StartCalendarInterval", daily()}, {"Nice", 5}};
    AgentReader(editor).read(file);
    EXPECT_THAT(editor.files, testing::ElementsAre(file));
    EXPECT_EQ(editor.journal, Lines{"target: "} + dailyLines() +
                                  Lines{"log: Completed evaluating primary keys for editing"});
}

TEST(AdvancedKeysTogether, EndAtTheFirstThatFails) {
    for (const auto& start : startForms()) {
        SCOPED_TRACE(start.name);
        RecordingHost editor(start.form);
        AgentReader(editor).lookForAdvancedKeys(
            {{"EnableGlobbing", true}, {"Nice", Array{}}, {"StandardInPath", "/i"}});
        EXPECT_EQ(editor.journal,
                  (Lines{"log: Evaluating keys for advanced drawer...", "log: Globbing key: 1",
                         keysAlert, "log: Completed evaluating keys for advanced drawer"}));
        const auto expected = with(snapshot(start.form), {{"enableGlobbingCheckbox.state", "1"}});
        EXPECT_THAT(differences(expected, snapshot(editor.form())), testing::IsEmpty());
    }
}

// The defaults of the preferences

struct DefaultRow {
    const char* name;
    std::optional<Value> standard;
    bool low;
    Lines more;
};

class PriorityDefault : public testing::TestWithParam<DefaultRow> {};

TEST_P(PriorityDefault, OpensTheDrawerWhereItDiffers) {
    const auto& row = GetParam();
    for (const auto& start : startForms()) {
        SCOPED_TRACE(start.name);
        RecordingHost editor(start.form);
        editor.preferences.erase("DefaultPriorityKey");
        if (row.standard)
            editor.preferences.emplace("DefaultPriorityKey", *row.standard);
        AgentReader(editor).lookForAdvancedKeys({{"LowPriorityIO", row.low}});
        EXPECT_EQ(editor.journal,
                  Lines{"log: Evaluating keys for advanced drawer..."} +
                      Lines{std::string("log: PriorityIO key: ") + (row.low ? "1" : "0")} +
                      row.more + Lines{"log: Completed evaluating keys for advanced drawer"});
    }
}

const Lines wasNormal = {"log: Priority key: 0 is does not match default: 1, opening drawer",
                         "drawer"};
const Lines wasLow = {"log: Priority key: 1 is does not match default: 0, opening drawer",
                      "drawer"};
const DefaultRow priorityDefaults[] = {{"NormalAndNormal", "0", false, {}},
                                       {"NormalAndLow", "0", true, wasNormal},
                                       {"LowAndNormal", "1", false, wasLow},
                                       {"LowAndLow", "1", true, {}},
                                       {"NoneAndNormal", std::nullopt, false, {}},
                                       {"NoneAndLow", std::nullopt, true, {}},
                                       {"NumberAndLow", 1, true, {}},
                                       {"WithoutTruth", Array{}, true, {keysAlert}}};
INSTANTIATE_TEST_SUITE_P(Reader, PriorityDefault, testing::ValuesIn(priorityDefaults),
                         NamedAfterRow());

void expectClosedDrawer(const StartForm& start) {
    for (const char* standard : {"0", "1"})
        for (const bool globs : {false, true}) {
            RecordingHost editor(start.form);
            editor.preferences.insert_or_assign("DefaultGlobbingKey", Value(standard));
            AgentReader(editor).lookForAdvancedKeys({{"EnableGlobbing", globs}});
            EXPECT_EQ(editor.journal,
                      (Lines{"log: Evaluating keys for advanced drawer...",
                             std::string("log: Globbing key: ") + (globs ? "1" : "0"),
                             "log: Completed evaluating keys for advanced drawer"}))
                << standard << globs << start.name;
        }
}

TEST(GlobbingDefault, NeverOpensTheDrawer) {
    for (const auto& start : startForms())
        expectClosedDrawer(start);
}

} // namespace

} // namespace frimbolate::test
