// The table of launchd's keys against a list of them, and the nearest key of a misspelt one.
#include "core/launchd_keys.h"

#include "tests/support/rows.h"

#include <gmock/gmock.h>

#include <fstream>
#include <map>
#include <set>
#include <sstream>

namespace frimbolate::test {
namespace {

struct ListedKey {
    std::string path, type, state;
};

std::vector<ListedKey> listedKeys() {
    std::ifstream file(FRIMBOLATE_LAUNCHD_KEYS);
    std::vector<ListedKey> keys;
    for (std::string line; std::getline(file, line);) {
        std::istringstream columns(line);
        ListedKey key;
        std::getline(columns, key.path, '\t');
        std::getline(columns, key.type, '\t');
        std::getline(columns, key.state, '\t');
        keys.push_back(key);
    }
    return keys;
}

const LaunchdKey* keyAtPath(const std::string& path) {
    const auto dot = path.rfind('.');
    return dot == std::string::npos ? launchdKey("", path)
                                    : launchdKey(path.substr(0, dot), path.substr(dot + 1));
}

const std::map<std::string, KeyState> states = {
    {"current", KeyState::Current},
    {"daemons only", KeyState::DaemonsOnly},
    {"discouraged", KeyState::Discouraged},
    {"no longer supported", KeyState::NotSupported},
    {"no longer does anything", KeyState::WithoutEffect},
    {"retired", KeyState::Retired},
    {"undocumented", KeyState::Undocumented},
    {"reported, not read", KeyState::Reported},
    {"unknown", KeyState::Unread}};

struct ExpectedType {
    std::string_view words;
    unsigned kinds = Kinds::Any, elements = Kinds::Any, entries = Kinds::Any;
};

constexpr unsigned dictionaryOrArray = Kinds::Dictionary | Kinds::Array;

const std::map<std::string, ExpectedType> types = {
    {"any", {""}},
    {"string", {"a string", Kinds::String}},
    {"boolean", {"a boolean", Kinds::Boolean}},
    {"integer", {"an integer", Kinds::Integer}},
    {"integer or string", {"an integer or a string", Kinds::Integer | Kinds::String}},
    {"array of string", {"an array of strings", Kinds::Array, Kinds::String}},
    {"string or array of string",
     {"a string or an array of strings", Kinds::String | Kinds::Array, Kinds::String}},
    {"dictionary", {"a dictionary", Kinds::Dictionary}},
    {"boolean or dictionary", {"a boolean or a dictionary", Kinds::Boolean | Kinds::Dictionary}},
    {"dictionary of array",
     {"a dictionary of arrays", Kinds::Dictionary, Kinds::Any, Kinds::Array}},
    {"dictionary of boolean",
     {"a dictionary of booleans", Kinds::Dictionary, Kinds::Any, Kinds::Boolean}},
    {"dictionary of string",
     {"a dictionary of strings", Kinds::Dictionary, Kinds::Any, Kinds::String}},
    {"dictionary of integer",
     {"a dictionary of integers", Kinds::Dictionary, Kinds::Any, Kinds::Integer}},
    {"dictionary of integer or array of them",
     {"a dictionary of integers, or an array of them", dictionaryOrArray, Kinds::Dictionary,
      Kinds::Integer}},
    {"dictionary of boolean or dictionary",
     {"a dictionary of booleans or dictionaries", Kinds::Dictionary, Kinds::Any,
      Kinds::Boolean | Kinds::Dictionary}},
    {"dictionary of dictionary or array of dictionary",
     {"a dictionary of dictionaries, or of arrays of them", Kinds::Dictionary, Kinds::Any,
      dictionaryOrArray}},
    {"dictionary of dictionary of dictionary",
     {"a dictionary of dictionaries", Kinds::Dictionary, Kinds::Any, Kinds::Dictionary}}};

/// The type without bounds, as "0-59" or "-20-20", which go to least and greatest.
std::string withoutBounds(const std::string& type, std::int64_t& least, std::int64_t& greatest) {
    const std::string integer = "integer ";
    if (!type.starts_with(integer) || type == "integer or string")
        return type;
    const auto bounds = type.substr(integer.size());
    const auto dash = bounds.find('-', 1);
    least = std::stoi(bounds.substr(0, dash));
    greatest = std::stoi(bounds.substr(dash + 1));
    return "integer";
}

TEST(LaunchdKeys, AgreeWithTheList) {
    const auto listed = listedKeys();
    ASSERT_EQ(listed.size(), 78U);
    for (const auto& [path, type, state] : listed) {
        const auto* key = keyAtPath(path);
        ASSERT_TRUE(key) << path;
        EXPECT_EQ(key->state, states.at(state)) << path;
        std::int64_t least = 0, greatest = 0;
        const auto& expected = types.at(withoutBounds(type, least, greatest));
        EXPECT_EQ(key->least, least) << path;
        EXPECT_EQ(key->greatest, greatest) << path;
        EXPECT_EQ(key->type.words, expected.words) << path;
        EXPECT_EQ(key->type.kinds, expected.kinds) << path;
        EXPECT_EQ(key->type.elements, expected.elements) << path;
        EXPECT_EQ(key->type.entries, expected.entries) << path;
    }
}

TEST(LaunchdKeys, HoldNoOthersButTheNamesOfLimitsAndSockets) {
    const std::set<std::string_view> limits = {"Core",
                                               "CPU",
                                               "Data",
                                               "FileSize",
                                               "MemoryLock",
                                               "NumberOfFiles",
                                               "NumberOfProcesses",
                                               "ResidentSetSize",
                                               "Stack"};
    const std::set<std::string_view> sockets = {
        "SockType",     "SockPassive",  "SockNodeName",        "SockServiceName", "SockFamily",
        "SockProtocol", "SockPathName", "SecureSocketWithKey", "SockPathOwner",   "SockPathGroup",
        "SockPathMode", "Bonjour",      "MulticastGroup"};
    std::map<std::string_view, std::set<std::string_view>> named;
    std::set<std::string> others;
    for (const auto& key : launchdKeys())
        if (key.parent.ends_with("ResourceLimits") || key.parent == "Sockets.*")
            named[key.parent].insert(key.name);
        else
            others.insert(std::string(key.parent).append(key.parent.empty() ? "" : ".") +
                          std::string(key.name));
    EXPECT_EQ(named, (std::map<std::string_view, std::set<std::string_view>>{
                         {"SoftResourceLimits", limits},
                         {"HardResourceLimits", limits},
                         {"Sockets.*", sockets}}));
    std::set<std::string> listed;
    for (const auto& key : listedKeys())
        listed.insert(key.path);
    EXPECT_EQ(others, listed);
}

struct NearestRow {
    std::string_view name;
    std::string_view parent;
    std::string_view written;
    std::string_view nearest; ///< empty for none
};

class NearestKey : public testing::TestWithParam<NearestRow> {};

TEST_P(NearestKey, IsTheOneThatIsMeant) {
    const auto* nearest = nearestLaunchdKey(GetParam().parent, GetParam().written);
    EXPECT_EQ(nearest ? nearest->name : std::string_view(), GetParam().nearest);
}

const NearestRow nearestRows[] = {
    {"OtherCase", "", "programarguments", "ProgramArguments"},
    {"OtherCaseOfAKeyWithoutUse", "", "onDemand", "OnDemand"},
    {"OneLetterOfFour", "", "Nicer", "Nice"},
    {"OtherLetterOfFour", "", "Nife", "Nice"},
    {"TwoOfFour", "", "Nifa", ""},
    {"Swapped", "", "Lable", "Label"},
    {"Plural", "", "WatchPath", "WatchPaths"},
    {"Singular", "", "QueueDirectory", "QueueDirectories"},
    {"FourOfSixteen", "", "ProgramArgumXXXX", "ProgramArguments"},
    {"FiveOfSixteen", "", "ProgramArguXXXXX", ""},
    {"NearerOfTwo", "", "StandardInnPath", "StandardInPath"},
    {"OutRatherThanIn", "", "StandardOuPath", "StandardOutPath"},
    {"FirstOfTwoAsNear", "", "HaftResourceLimits", "SoftResourceLimits"},
    {"NotARetiredKey", "", "ServiceIPX", ""},
    {"NotAReportedKey", "", "PIDD", ""},
    {"NotEnabled", "", "Enable", ""},
    {"Disable", "", "Disable", "Disabled"},
    {"Nothing", "", "", ""},
    {"WithinTheCalendar", "StartCalendarInterval", "Weekdays", "Weekday"},
    {"NotFromTheTop", "StartCalendarInterval", "Labels", ""},
    {"NotFromWithin", "", "Weekdays", ""},
    {"UnknownParent", "EnvironmentVariables", "Hour", ""},
    {"LongerThanAnyKey", "", "AssociatedBundleIdentifiersAssociatedBundleIdentifiers", ""},
    {"AtTheLongest", "", "LimitLoadToSessionTypeLimitLoadToSessionTypexxxx", ""},
};

INSTANTIATE_TEST_SUITE_P(Table, NearestKey, testing::ValuesIn(nearestRows), NamedAfterRow());

TEST(LaunchdKeys, ProposeNothingForAKeyOfTheTable) {
    for (const auto& key : launchdKeys())
        EXPECT_EQ(launchdKey(key.parent, key.name), &key);
}

TEST(LaunchdKeys, KnowWhereKeysAreKnown) {
    EXPECT_TRUE(hasKnownKeys(""));
    EXPECT_TRUE(hasKnownKeys("KeepAlive"));
    EXPECT_TRUE(hasKnownKeys("MachServices.*"));
    EXPECT_FALSE(hasKnownKeys("MachServices"));
    EXPECT_FALSE(hasKnownKeys("EnvironmentVariables"));
}

TEST(LaunchdKeys, NameKinds) {
    EXPECT_EQ(kindsInWords(Kinds::String), "a string");
    EXPECT_EQ(kindsInWords(Kinds::Integer | Kinds::String), "a string or an integer");
    EXPECT_EQ(kindsInWords(Kinds::Array | Kinds::Dictionary | Kinds::Boolean),
              "a boolean or an array or a dictionary");
    EXPECT_EQ(kindWithArticle(Value(UINT64_MAX)), "an integer");
    EXPECT_EQ(kindWithArticle(Value(1.5)), "a real");
    EXPECT_EQ(kindWithArticle(Value(Data{})), "data");
    EXPECT_FALSE(isOfKinds(Value(1.5), Kinds::Integer));
    EXPECT_TRUE(isOfKinds(Value(1.5), Kinds::Any));
    EXPECT_TRUE(isOfKinds(Value(UINT64_MAX), Kinds::Integer));
    EXPECT_FALSE(isOfKinds(Value(true), Kinds::Integer));
}

} // namespace
} // namespace frimbolate::test
