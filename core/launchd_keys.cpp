#include "core/launchd_keys.h"

#include <algorithm>
#include <array>

namespace frimbolate {

namespace {

using K = KeyType;
constexpr unsigned oneOrMore = Kinds::Dictionary | Kinds::Array;

constexpr K any{};
constexpr K string{Kinds::String, Kinds::Any, Kinds::Any, "a string"};
constexpr K boolean{Kinds::Boolean, Kinds::Any, Kinds::Any, "a boolean"};
constexpr K integer{Kinds::Integer, Kinds::Any, Kinds::Any, "an integer"};
constexpr K integerOrString{Kinds::Integer | Kinds::String, Kinds::Any, Kinds::Any,
                            "an integer or a string"};
constexpr K strings{Kinds::Array, Kinds::String, Kinds::Any, "an array of strings"};
constexpr K stringOrStrings{Kinds::String | Kinds::Array, Kinds::String, Kinds::Any,
                            "a string or an array of strings"};
constexpr K anyDictionary{Kinds::Dictionary, Kinds::Any, Kinds::Any, "a dictionary"};
constexpr K booleanOrDictionary{Kinds::Boolean | Kinds::Dictionary, Kinds::Any, Kinds::Any,
                                "a boolean or a dictionary"};
constexpr K arraysByName{Kinds::Dictionary, Kinds::Any, Kinds::Array, "a dictionary of arrays"};
constexpr K booleansByName{Kinds::Dictionary, Kinds::Any, Kinds::Boolean,
                           "a dictionary of booleans"};
constexpr K stringsByName{Kinds::Dictionary, Kinds::Any, Kinds::String, "a dictionary of strings"};
constexpr K integersByName{Kinds::Dictionary, Kinds::Any, Kinds::Integer,
                           "a dictionary of integers"};
constexpr K calendars{oneOrMore, Kinds::Dictionary, Kinds::Integer,
                      "a dictionary of integers, or an array of them"};
constexpr K services{Kinds::Dictionary, Kinds::Any, Kinds::Boolean | Kinds::Dictionary,
                     "a dictionary of booleans or dictionaries"};
constexpr K sockets{Kinds::Dictionary, Kinds::Any, oneOrMore,
                    "a dictionary of dictionaries, or of arrays of them"};
constexpr K events{Kinds::Dictionary, Kinds::Any, Kinds::Dictionary,
                   "a dictionary of dictionaries"};

using S = KeyState;
constexpr std::string_view inetd = "inetdCompatibility", keepAliveKey = "KeepAlive",
                           calendar = "StartCalendarInterval", service = "MachServices.*",
                           softLimits = "SoftResourceLimits", hardLimits = "HardResourceLimits",
                           socket = "Sockets.*";

constexpr LaunchdKey keyTable[] = {
    {"", "Label", string},
    {"", "Disabled", boolean},
    {"", "UserName", string, S::DaemonsOnly},
    {"", "GroupName", string, S::DaemonsOnly},
    {"", "inetdCompatibility", anyDictionary, S::Discouraged},
    {inetd, "Wait", boolean, S::Discouraged},
    {"", "LimitLoadToHosts", strings, S::NotSupported},
    {"", "LimitLoadFromHosts", strings, S::NotSupported},
    {"", "LimitLoadToSessionType", stringOrStrings},
    {"", "LimitLoadToHardware", arraysByName},
    {"", "LimitLoadFromHardware", arraysByName},
    {"", "Program", string},
    {"", "BundleProgram", string},
    {"", "ProgramArguments", strings},
    {"", "EnableGlobbing", boolean},
    {"", "EnableTransactions", boolean},
    {"", "EnablePressuredExit", boolean},
    {"", "OnDemand", boolean, S::Retired},
    {"", "ServiceIPC", boolean, S::Retired},
    {"", "KeepAlive", booleanOrDictionary},
    {keepAliveKey, "SuccessfulExit", boolean},
    {keepAliveKey, "NetworkState", boolean, S::WithoutEffect},
    {keepAliveKey, "PathState", booleansByName, S::Discouraged},
    {keepAliveKey, "OtherJobEnabled", booleansByName, S::Discouraged},
    {keepAliveKey, "OtherJobActive", booleansByName, S::Undocumented},
    {keepAliveKey, "Crashed", boolean},
    {keepAliveKey, "AfterInitialDemand", boolean, S::Undocumented},
    {"", "RunAtLoad", boolean},
    {"", "RootDirectory", string},
    {"", "WorkingDirectory", string},
    {"", "EnvironmentVariables", stringsByName},
    {"", "UserEnvironmentVariables", stringsByName, S::Undocumented},
    {"", "Umask", integerOrString},
    {"", "TimeOut", integer, S::WithoutEffect},
    {"", "ExitTimeOut", integer},
    {"", "ThrottleInterval", integer},
    {"", "InitGroups", boolean, S::DaemonsOnly},
    {"", "WatchPaths", strings},
    {"", "QueueDirectories", strings},
    {"", "StartOnMount", boolean},
    {"", "StartInterval", integer},
    {"", "StartCalendarInterval", calendars},
    {calendar, "Minute", integer, S::Current, 0, 59},
    {calendar, "Hour", integer, S::Current, 0, 23},
    {calendar, "Day", integer, S::Current, 1, 31},
    {calendar, "Weekday", integer, S::Current, 0, 7},
    {calendar, "Month", integer, S::Current, 1, 12},
    {"", "StandardInPath", string},
    {"", "StandardOutPath", string},
    {"", "StandardErrorPath", string},
    {"", "Debug", boolean},
    {"", "WaitForDebugger", boolean},
    {"", "SoftResourceLimits", integersByName},
    {softLimits, "Core", integer},
    {softLimits, "CPU", integer},
    {softLimits, "Data", integer},
    {softLimits, "FileSize", integer},
    {softLimits, "MemoryLock", integer},
    {softLimits, "NumberOfFiles", integer},
    {softLimits, "NumberOfProcesses", integer},
    {softLimits, "ResidentSetSize", integer},
    {softLimits, "Stack", integer},
    {"", "HardResourceLimits", integersByName},
    {hardLimits, "Core", integer},
    {hardLimits, "CPU", integer},
    {hardLimits, "Data", integer},
    {hardLimits, "FileSize", integer},
    {hardLimits, "MemoryLock", integer},
    {hardLimits, "NumberOfFiles", integer},
    {hardLimits, "NumberOfProcesses", integer},
    {hardLimits, "ResidentSetSize", integer},
    {hardLimits, "Stack", integer},
    {"", "Nice", integer, S::Current, -20, 20},
    {"", "ProcessType", string},
    {"", "AbandonProcessGroup", boolean},
    {"", "IgnoreProcessGroupAtShutdown", boolean, S::Undocumented},
    {"", "LowPriorityIO", boolean},
    {"", "LowPriorityBackgroundIO", boolean},
    {"", "MaterializeDatalessFiles", boolean},
    {"", "LaunchOnlyOnce", boolean},
    {"", "MachServices", services},
    {service, "ResetAtClose", boolean},
    {service, "HideUntilCheckIn", boolean},
    {"", "Sockets", sockets},
    {socket, "SockType", any},
    {socket, "SockPassive", any},
    {socket, "SockNodeName", any},
    {socket, "SockServiceName", any},
    {socket, "SockFamily", any},
    {socket, "SockProtocol", any},
    {socket, "SockPathName", any},
    {socket, "SecureSocketWithKey", any},
    {socket, "SockPathOwner", any},
    {socket, "SockPathGroup", any},
    {socket, "SockPathMode", any},
    {socket, "Bonjour", any},
    {socket, "MulticastGroup", any},
    {"", "LaunchEvents", events},
    {"", "HopefullyExitsFirst", string, S::WithoutEffect},
    {"", "HopefullyExitsLast", string, S::WithoutEffect},
    {"", "SessionCreate", boolean},
    {"", "LegacyTimers", boolean},
    {"", "AssociatedBundleIdentifiers", stringOrStrings},
    {"", "CFBundleIdentifier", string, S::Undocumented},
    {"", "Policies", anyDictionary, S::Undocumented},
    {"", "BonjourFDs", any, S::Undocumented},
    {"", "LastExitStatus", integer, S::Reported},
    {"", "PID", integer, S::Reported},
    {"", "Enabled", any, S::Unread},
};

/// Longer than any key within reach of a known one; bounds the work for a name of any length.
constexpr std::size_t longestName = 48;

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// The number of letters to insert, remove, replace or swap with their neighbour, without case.
/// \pre both names have at most longestName characters
std::size_t editDistance(std::string_view a, std::string_view b) {
    std::array<std::array<std::size_t, longestName + 1>, 3> rows;
    for (std::size_t j = 0; j <= b.size(); ++j)
        rows[0][j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        const auto& beforeLast = rows[(i + 1) % 3];
        const auto& last = rows[(i + 2) % 3];
        auto& current = rows[i % 3];
        current[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const bool same = lower(a[i - 1]) == lower(b[j - 1]);
            current[j] =
                std::min({last[j] + 1, current[j - 1] + 1, last[j - 1] + (same ? 0U : 1U)});
            const bool isSwap = i > 1 && j > 1 && lower(a[i - 1]) == lower(b[j - 2]) &&
                                lower(a[i - 2]) == lower(b[j - 1]);
            if (isSwap)
                current[j] = std::min(current[j], beforeLast[j - 2] + 1);
        }
    }
    return rows[a.size() % 3][b.size()];
}

bool isWorthWriting(const LaunchdKey& key) {
    return key.state == KeyState::Current || key.state == KeyState::Discouraged;
}

unsigned kindOf(const Value& value) {
    if (value.string())
        return Kinds::String;
    if (value.boolean())
        return Kinds::Boolean;
    if (value.integer() || value.bigInteger())
        return Kinds::Integer;
    if (value.array())
        return Kinds::Array;
    return value.dictionary() ? Kinds::Dictionary : Kinds::None;
}

} // namespace

bool areEqualWithoutCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return lower(x) == lower(y); });
}

std::span<const LaunchdKey> launchdKeys() { return keyTable; }

const LaunchdKey* launchdKey(std::string_view parent, std::string_view name) {
    for (const auto& key : keyTable)
        if (key.name == name && key.parent == parent)
            return &key;
    return nullptr;
}

bool hasKnownKeys(std::string_view parent) {
    return std::any_of(std::begin(keyTable), std::end(keyTable),
                       [parent](const LaunchdKey& key) { return key.parent == parent; });
}

const LaunchdKey* nearestLaunchdKey(std::string_view parent, std::string_view name) {
    for (const auto& key : keyTable)
        if (key.parent == parent && areEqualWithoutCase(key.name, name))
            return &key;
    if (name.size() > longestName)
        return nullptr;
    const LaunchdKey* nearest = nullptr;
    std::size_t least = longestName;
    for (const auto& key : keyTable) {
        const auto longer = std::max(key.name.size(), name.size());
        const auto shorter = std::min(key.name.size(), name.size());
        const auto most = std::max<std::size_t>(longer / 4, 1);
        if (key.parent != parent || !isWorthWriting(key) || longer - shorter > most)
            continue;
        if (const auto found = editDistance(key.name, name); found <= most && found < least) {
            nearest = &key;
            least = found;
        }
    }
    return nearest;
}

bool isOfKinds(const Value& value, unsigned kinds) {
    return kinds == Kinds::Any || (kindOf(value) & kinds) != 0;
}

std::string kindsInWords(unsigned kinds) {
    static constexpr std::string_view names[] = {"a string", "a boolean", "an integer", "an array",
                                                 "a dictionary"};
    std::string text;
    for (std::size_t i = 0; i < std::size(names); ++i)
        if ((kinds >> i & 1U) != 0)
            text.append(text.empty() ? "" : " or ").append(names[i]);
    return text;
}

std::string kindWithArticle(const Value& value) {
    const auto kind = value.kind();
    if (value.data())
        return std::string(kind);
    const bool isVowel =
        !kind.empty() && std::string_view("aeiou").find(kind.front()) != std::string_view::npos;
    return std::string(isVowel ? "an " : "a ").append(kind);
}

} // namespace frimbolate
