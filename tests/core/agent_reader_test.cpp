// Origin, name, target, action and run at load.
#include "tests/core/recording_host.h"
#include "tests/support/rows.h"

#include "core/named_error.h"

#include <gmock/gmock.h>

namespace frimbolate::test {

namespace {

// Origin

struct OriginRow {
    const char* name;
    const char* path;
    AgentOrigin origin;
};

class Origin : public testing::TestWithParam<OriginRow> {};

TEST_P(Origin, IsToldByThePath) { EXPECT_EQ(agentOrigin(GetParam().path), GetParam().origin); }

constexpr OriginRow origins[] = {
    {"own", "/L/com.frimbolate.Backup.plist", AgentOrigin::Own},
    {"earlier", "/L/com.fr\u0131mbolate.Backup.plist", AgentOrigin::EarlierVersion},
    {"foreign", "/L/org.example.Backup.plist", AgentOrigin::Foreign},
    {"empty_path", "", AgentOrigin::Foreign},
    {"both_marks", "/com.frimbolate.d/com.fr\u0131mbolate.B.plist", AgentOrigin::EarlierVersion},
    {"both_marks_reversed", "/com.fr\u0131mbolate./com.frimbolate.B", AgentOrigin::EarlierVersion},
    {"mark_in_a_folder", "/com.frimbolate.things/other.plist", AgentOrigin::Own},
    {"mark_in_mid_name", "/L/my.com.frimbolate.x.plist", AgentOrigin::Own},
    {"without_the_last_dot", "/L/com.frimbolate", AgentOrigin::Foreign},
    {"other_case", "/L/com.Frimbolate.x.plist", AgentOrigin::Foreign},
    {"dotted_capital", "/L/com.fr\u0130mbolate.x.plist", AgentOrigin::Foreign}};
INSTANTIATE_TEST_SUITE_P(Reader, Origin, testing::ValuesIn(origins), NamedAfterRow());

// Name

struct NameRow {
    const char* name;
    const char* label;
    const char* expected;
};

class BareName : public testing::TestWithParam<NameRow> {};

TEST_P(BareName, IsTheLabelWithoutThreeParts) {
    EXPECT_EQ(agentNameFromLabel(GetParam().label), GetParam().expected);
}

TEST_P(BareName, IsWhatTheFormShows) {
    for (const auto& start : startForms()) {
        SCOPED_TRACE(start.name);
        RecordingHost editor(start.form);
        AgentReader(editor).read({{"Label", Value(GetParam().label)}});
        EXPECT_EQ(editor.form().agentNameTextField.stringValue, GetParam().expected);
    }
}

constexpr NameRow bareNames[] = {
    {"own", "com.frimbolate.Backup", "Backup"},
    {"earlier", "com.fr\u0131mbolate.Backup", "Backup"},
    {"foreign", "org.example.Backup", "org.example.Backup"},
    {"file_name", "com.frimbolate.Backup.plist", "Backup"},
    {"empty", "", ""},
    {"prefix_alone", "com.frimbolate.", ""},
    {"every_prefix", "com.frimbolate.a.com.frimbolate.b", "a.b"},
    {"every_earlier_prefix", "com.fr\u0131mbolate.com.fr\u0131mbolate.b", "b"},
    {"every_suffix", ".plista.plist.plistb", "ab"},
    {"suffix_in_the_middle", "com.frimbolate.x.plist.old", "x.old"},
    {"other_case", "COM.frimbolate.x.PLIST", "COM.frimbolate.x.PLIST"},
    {"one_pass_only", "com.frimcom.frimbolate.bolate.x", "com.frimbolate.x"},
    // The order of the three removals shows where one uncovers another.
    {"earlier_uncovered_by_own", "com.fr\u0131mcom.frimbolate.bolate.x", "x"},
    {"own_uncovered_by_earlier", "com.frimcom.fr\u0131mbolate.bolate.x", "com.frimbolate.x"},
    {"suffix_uncovered_by_own", ".plicom.frimbolate.st", ""},
    {"own_uncovered_by_suffix", "com.frim.plistbolate.x", "com.frimbolate.x"}};
INSTANTIATE_TEST_SUITE_P(Reader, BareName, testing::ValuesIn(bareNames), NamedAfterRow());

TEST(AgentReader, HasNoNameWithoutALabel) {
    for (const auto& start : startForms()) {
        SCOPED_TRACE(start.name);
        RecordingHost editor(start.form);
        try {
            AgentReader(editor).read({{"ProgramArguments", Array{Value("/a")}}});
            ADD_FAILURE() << "was read";
        } catch (const NamedError& failure) {
            EXPECT_EQ(failure.name(), "Missing value");
            EXPECT_EQ(failure.reason(), "The agent has no label");
        }
        EXPECT_THAT(editor.journal, testing::IsEmpty());
        EXPECT_THAT(differences(snapshot(start.form), snapshot(editor.form())), testing::IsEmpty());
    }
}

// Target, action and run at load, each with a daily schedule

class PrimaryKeys : public testing::TestWithParam<ReaderRow> {};

TEST_P(PrimaryKeys, ReadAs) {
    auto row = GetParam();
    row.keys.emplace("StartCalendarInterval", daily());
    row.sets = dailyPicture() + row.sets;
    row.primary = row.primary + dailyLines();
    expectReads(row);
}

Dictionary arguments(Value value) { return {{"ProgramArguments", std::move(value)}}; }

Snapshot file(const std::string& path) {
    return {{"agentTargetButton.selectedItem", "2"},
            {"agentTargetImageWell.toolTip", '"' + path + '"'}};
}

Snapshot script(const std::string& text) {
    return {{"agentTargetButton.selectedItem", "3"},
            {"scriptPopOverScriptField.stringValue", '"' + text + '"'},
            {"showPopOverScriptButton.hidden", "no"},
            {"popoverScriptObject.shown", "yes"}};
}

/// The alert comes before the reset that empties what was read until then.
const Lines unreadableTarget = {
    "log: ProgramArguments key could not be read or key contained unexpected content.", keysAlert,
    "reset"};
const Snapshot noTarget = {{"agentNameTextField.stringValue", "\"\""}};

std::vector<ReaderRow> targets() {
    const Value sh("/bin/sh");
    const Value three{Dictionary{{"a", "1"}, {"b", "2"}, {"c", "3"}}};
    return {
        {"one_argument", arguments(Array{Value("/a/tool")}), file("/a/tool"), {"target: /a/tool"}},
        {"two_arguments", arguments(Array{sh, Value("/a.py")}), file("/a.py"), {"target: /a.py"}},
        {"three_arguments",
         arguments(Array{sh, Value("-c"), Value("ls\n")}),
         script("ls\n"),
         {"pop-over"}},
        {"three_ending_in_a_path",
         arguments(Array{Value(1), Value(2), Value("/x.sh")}),
         script("/x.sh"),
         {"pop-over"}},
        {"three_ending_in_nothing",
         arguments(Array{sh, Value("-c"), Value("")}),
         script(""),
         {"pop-over"}},
        {"four_arguments",
         arguments(Array{sh, Value("-c"), Value("x"), Value("/y")}),
         file("/y"),
         {"target: /y"}},
        {"no_arguments", arguments(Array{}), file(""), {"target: "}},
        {"a_single_text", arguments("/a/tool"), file("/a/tool"), {"target: /a/tool"}},
        {"an_empty_text", arguments(""), file(""), {"target: "}},
        {"a_number_last", arguments(Array{sh, Value(5)}), noTarget, unreadableTarget},
        {"a_number_last_of_three", arguments(Array{sh, sh, Value(5)}), noTarget, unreadableTarget},
        {"a_number_first", arguments(Array{Value(5), Value("/x")}), file("/x"), {"target: /x"}},
        {"an_array_last", arguments(Array{Value(Array{sh})}), noTarget, unreadableTarget},
        {"a_dictionary", arguments(Dictionary{{"a", "/x"}}), noTarget, unreadableTarget},
        {"a_dictionary_of_three", arguments(three), noTarget, unreadableTarget},
        {"a_number", arguments(3), noTarget, unreadableTarget},
        {"data", arguments(Data{{47}}), noTarget, unreadableTarget}};
}
INSTANTIATE_TEST_SUITE_P(Target, PrimaryKeys, testing::ValuesIn(targets()), NamedAfterRow());

Dictionary keepAlive(Value value) { return {{"KeepAlive", std::move(value)}}; }

std::vector<ReaderRow> actions() {
    const Snapshot kept = {{"agentActionButton.selectedItem", "3"},
                           {"allowSuccessfulExitCheckbox.enabled", "yes"}};
    const Snapshot running = kept + Snapshot{{"allowSuccessfulExitCheckbox.state", "0"}};
    const Snapshot odd = {{"agentActionButton.selectedItem", "3"},
                          {"allowSuccessfulExitCheckbox.enabled", "no"}};
    const Snapshot allowed =
        kept + Snapshot{{"allowSuccessfulExitCheckbox.state", "1"}, {"advancedDrawer.open", "yes"}};
    const auto exit = [](Value value) {
        return keepAlive(Dictionary{{"AfterInitialDemand", true}, {"SuccessfulExit", value}});
    };
    const auto dictionaryLines = [](const std::string& value) {
        return Lines{"log: KeepAlive key is dictionary",
                     "log: SuccessfulExit key value is: " + value};
    };
    const auto drawn = [&](const std::string& value) {
        return dictionaryLines(value) + Lines{"drawer"};
    };
    const Lines on = {"log: KeepAlive key is bool, key is true and does not allow successful exit"};
    const Lines off = {"log: KeepAlive key does not exist or has unexpected value"};
    return {{"not_kept_alive", {}, {}},
            {"kept_alive", keepAlive(true), running, on},
            {"kept_alive_by_a_number", keepAlive(-1), running, on},
            {"kept_alive_by_a_text", keepAlive("yes"), running, on},
            {"false_still_keeps_running", keepAlive(false), odd, off},
            {"zero", keepAlive(0), odd, off},
            {"a_text_that_is_no_yes", keepAlive("no"), odd, off},
            {"an_array", keepAlive(Array{Value(true)}), odd, off},
            {"keep_alive_data", keepAlive(Data{{1}}), odd, off},
            {"keep_alive_date", keepAlive(Date{1}), odd, off},
            {"no_conditions", keepAlive(Dictionary{}), kept, dictionaryLines("(null)")},
            {"after_demand", keepAlive(Dictionary{{"AfterInitialDemand", true}}), kept,
             dictionaryLines("(null)")},
            {"exit_false", exit(false), allowed, drawn("0")},
            {"exit_zero", exit(0), allowed, drawn("0")},
            {"exit_text_no", exit("NO"), allowed, drawn("NO")},
            {"exit_empty_text", exit(""), allowed, drawn("")},
            {"exit_true", exit(true), kept, dictionaryLines("1")},
            {"exit_text_yes", exit("YES"), kept, dictionaryLines("YES")},
            {"exit_number", exit(7), kept, dictionaryLines("7")}};
}
INSTANTIATE_TEST_SUITE_P(Action, PrimaryKeys, testing::ValuesIn(actions()), NamedAfterRow());

TEST(AgentReader, LeavesTheStepOfTheActionWhenAConditionHasNoTruth) {
    RecordingHost editor;
    const AgentPlist agent = {{"Label", "com.frimbolate.Backup"},
                              {"KeepAlive", Dictionary{{"SuccessfulExit", Data{{1}}}}}};
    EXPECT_THROW(AgentReader(editor).read(agent), NamedError);
    EXPECT_EQ(editor.journal, (Lines{"target: ", "log: KeepAlive key is dictionary",
                                     "log: SuccessfulExit key value is: <01>"}));
    EXPECT_EQ(editor.form().agentActionButton.selectedItem, AgentAction::KeepRunning);
}

/// Beside a daily schedule, which takes the selection of run at load away again.
std::vector<ReaderRow> runAtLoad() {
    const auto key = [](Value value) { return Dictionary{{"RunAtLoad", std::move(value)}}; };
    const Snapshot also = {{"alsoRunAtLoadCheckbox.state", "1"},
                           {"alsoRunAtLoadCheckbox.enabled", "yes"},
                           {"advancedDrawer.open", "yes"}};
    const Snapshot off = {{"alsoRunAtLoadCheckbox.state", "0"},
                          {"alsoRunAtLoadCheckbox.enabled", "no"}};
    return {{"run_at_load_true", key(true), also, {}, {"drawer"}},
            {"run_at_load_number", key(2), also, {}, {"drawer"}},
            {"run_at_load_text", key("TRUE"), also, {}, {"drawer"}},
            {"run_at_load_false", key(false), off},
            {"run_at_load_empty_text", key(""), off},
            {"run_at_load_array", key(Array{}), off, {}, {keysAlert}}};
}
INSTANTIATE_TEST_SUITE_P(RunAtLoad, PrimaryKeys, testing::ValuesIn(runAtLoad()), NamedAfterRow());

} // namespace

} // namespace frimbolate::test
