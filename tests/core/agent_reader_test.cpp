// Reading origin, name, target, action and RunAtLoad.
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

TEST_P(Origin, IsRecognizedByThePath) {
    EXPECT_EQ(agentOrigin(GetParam().path), GetParam().origin);
}

constexpr OriginRow origins[] = {
    {"Own", "/L/com.frimbolate.Backup.plist", AgentOrigin::Own},
    {"Earlier", "/L/com.fr\u0131mbolate.Backup.plist", AgentOrigin::EarlierVersion},
    {"Foreign", "/L/org.example.Backup.plist", AgentOrigin::Foreign},
    {"EmptyPath", "", AgentOrigin::Foreign},
    {"BothMarks", "/com.frimbolate.d/com.fr\u0131mbolate.B.plist", AgentOrigin::EarlierVersion},
    {"BothMarksReversed", "/com.fr\u0131mbolate./com.frimbolate.B", AgentOrigin::EarlierVersion},
    {"MarkInAFolder", "/com.frimbolate.things/other.plist", AgentOrigin::Own},
    {"MarkInMidName", "/L/my.com.frimbolate.x.plist", AgentOrigin::Own},
    {"WithoutTheLastDot", "/L/com.frimbolate", AgentOrigin::Foreign},
    {"OtherCase", "/L/com.Frimbolate.x.plist", AgentOrigin::Foreign},
    {"DottedCapital", "/L/com.fr\u0130mbolate.x.plist", AgentOrigin::Foreign}};
INSTANTIATE_TEST_SUITE_P(Reader, Origin, testing::ValuesIn(origins), NamedAfterRow());

// Name

struct NameRow {
    const char* name;
    const char* label;
    const char* expected;
};

class AgentNameFromLabel : public testing::TestWithParam<NameRow> {};

TEST_P(AgentNameFromLabel, IsTheLabelWithoutThreeParts) {
    EXPECT_EQ(agentNameFromLabel(GetParam().label), GetParam().expected);
}

TEST_P(AgentNameFromLabel, IsWhatTheFormShows) {
    for (const auto& start : startForms()) {
        SCOPED_TRACE(start.name);
        RecordingHost editor(start.form);
        AgentReader(editor).read({{"Label", Value(GetParam().label)}});
        EXPECT_EQ(editor.form().agentNameTextField.stringValue, GetParam().expected);
    }
}

constexpr NameRow agentNames[] = {
    {"Own", "com.frimbolate.Backup", "Backup"},
    {"Earlier", "com.fr\u0131mbolate.Backup", "Backup"},
    {"Foreign", "org.example.Backup", "org.example.Backup"},
    {"FileName", "com.frimbolate.Backup.plist", "Backup"},
    {"Empty", "", ""},
    {"PrefixAlone", "com.frimbolate.", ""},
    {"EveryPrefix", "com.frimbolate.a.com.frimbolate.b", "a.b"},
    {"EveryEarlierPrefix", "com.fr\u0131mbolate.com.fr\u0131mbolate.b", "b"},
    {"EverySuffix", ".plista.plist.plistb", "ab"},
    {"SuffixInTheMiddle", "com.frimbolate.x.plist.old", "x.old"},
    {"OtherCase", "COM.frimbolate.x.PLIST", "COM.frimbolate.x.PLIST"},
    {"OnePassOnly", "com.frimcom.frimbolate.bolate.x", "com.frimbolate.x"},
    // The three removals run in a fixed order: a part that one of them uncovers goes only if its
    // own removal is still to come.
    {"EarlierUncoveredByOwn", "com.fr\u0131mcom.frimbolate.bolate.x", "x"},
    {"OwnUncoveredByEarlier", "com.frimcom.fr\u0131mbolate.bolate.x", "com.frimbolate.x"},
    {"SuffixUncoveredByOwn", ".plicom.frimbolate.st", ""},
    {"OwnUncoveredBySuffix", "com.frim.plistbolate.x", "com.frimbolate.x"}};
INSTANTIATE_TEST_SUITE_P(Reader, AgentNameFromLabel, testing::ValuesIn(agentNames),
                         NamedAfterRow());

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

// Target, action and RunAtLoad, each with a daily schedule

class PrimaryKeys : public testing::TestWithParam<ReaderRow> {};

TEST_P(PrimaryKeys, ReadAs) {
    auto row = GetParam();
    row.keys.emplace("StartCalendarInterval", daily());
    row.sets = dailySnapshot() + row.sets;
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

/// The alert precedes the reset, which clears what was read before.
const Lines unreadableTarget = {
    "log: ProgramArguments key could not be read or key contained unexpected content.", keysAlert,
    "reset"};
const Snapshot noTarget = {{"agentNameTextField.stringValue", "\"\""}};

std::vector<ReaderRow> targets() {
    const Value sh("/bin/sh");
    const Value three{Dictionary{{"a", "1"}, {"b", "2"}, {"c", "3"}}};
    return {
        {"OneArgument", arguments(Array{Value("/a/tool")}), file("/a/tool"), {"target: /a/tool"}},
        {"TwoArguments", arguments(Array{sh, Value("/a.py")}), file("/a.py"), {"target: /a.py"}},
        {"ThreeArguments",
         arguments(Array{sh, Value("-c"), Value("ls\n")}),
         script("ls\n"),
         {"pop-over"}},
        {"ThreeEndingInAPath",
         arguments(Array{Value(1), Value(2), Value("/x.sh")}),
         script("/x.sh"),
         {"pop-over"}},
        {"ThreeEndingInNothing",
         arguments(Array{sh, Value("-c"), Value("")}),
         script(""),
         {"pop-over"}},
        {"FourArguments",
         arguments(Array{sh, Value("-c"), Value("x"), Value("/y")}),
         file("/y"),
         {"target: /y"}},
        {"NoArguments", arguments(Array{}), file(""), {"target: "}},
        {"ASingleText", arguments("/a/tool"), file("/a/tool"), {"target: /a/tool"}},
        {"AnEmptyText", arguments(""), file(""), {"target: "}},
        {"ANumberLast", arguments(Array{sh, Value(5)}), noTarget, unreadableTarget},
        {"ANumberLastOfThree", arguments(Array{sh, sh, Value(5)}), noTarget, unreadableTarget},
        {"ANumberFirst", arguments(Array{Value(5), Value("/x")}), file("/x"), {"target: /x"}},
        {"AnArrayLast", arguments(Array{Value(Array{sh})}), noTarget, unreadableTarget},
        {"ADictionary", arguments(Dictionary{{"a", "/x"}}), noTarget, unreadableTarget},
        {"ADictionaryOfThree", arguments(three), noTarget, unreadableTarget},
        {"ANumber", arguments(3), noTarget, unreadableTarget},
        {"Data", arguments(Data{{47}}), noTarget, unreadableTarget}};
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
    return {{"NotKeptAlive", {}, {}},
            {"KeptAlive", keepAlive(true), running, on},
            {"KeptAliveByANumber", keepAlive(-1), running, on},
            {"KeptAliveByAText", keepAlive("yes"), running, on},
            {"FalseStillKeepsRunning", keepAlive(false), odd, off},
            {"Zero", keepAlive(0), odd, off},
            {"ATextThatIsNoYes", keepAlive("no"), odd, off},
            {"AnArray", keepAlive(Array{Value(true)}), odd, off},
            {"KeepAliveData", keepAlive(Data{{1}}), odd, off},
            {"KeepAliveDate", keepAlive(Date{1}), odd, off},
            {"NoConditions", keepAlive(Dictionary{}), kept, dictionaryLines("(null)")},
            {"AfterDemand", keepAlive(Dictionary{{"AfterInitialDemand", true}}), kept,
             dictionaryLines("(null)")},
            {"ExitFalse", exit(false), allowed, drawn("0")},
            {"ExitZero", exit(0), allowed, drawn("0")},
            {"ExitTextNo", exit("NO"), allowed, drawn("NO")},
            {"ExitEmptyText", exit(""), allowed, drawn("")},
            {"ExitTrue", exit(true), kept, dictionaryLines("1")},
            {"ExitTextYes", exit("YES"), kept, dictionaryLines("YES")},
            {"ExitNumber", exit(7), kept, dictionaryLines("7")}};
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

/// Each row is read beside a daily schedule, which replaces the selection of RunAtLoad.
std::vector<ReaderRow> runAtLoad() {
    const auto key = [](Value value) { return Dictionary{{"RunAtLoad", std::move(value)}}; };
    const Snapshot also = {{"alsoRunAtLoadCheckbox.state", "1"},
                           {"alsoRunAtLoadCheckbox.enabled", "yes"},
                           {"advancedDrawer.open", "yes"}};
    const Snapshot off = {{"alsoRunAtLoadCheckbox.state", "0"},
                          {"alsoRunAtLoadCheckbox.enabled", "no"}};
    return {{"RunAtLoadTrue", key(true), also, {}, {"drawer"}},
            {"RunAtLoadNumber", key(2), also, {}, {"drawer"}},
            {"RunAtLoadText", key("TRUE"), also, {}, {"drawer"}},
            {"RunAtLoadFalse", key(false), off},
            {"RunAtLoadEmptyText", key(""), off},
            {"RunAtLoadArray", key(Array{}), off, {}, {keysAlert}}};
}
INSTANTIATE_TEST_SUITE_P(RunAtLoad, PrimaryKeys, testing::ValuesIn(runAtLoad()), NamedAfterRow());

} // namespace

} // namespace frimbolate::test
