// The rules of the checks by name, and the list that their findings are collected in.
#pragma once

#include "core/agent_checks.h"

#include <array>
#include <cstdint>
#include <initializer_list>

namespace frimbolate {

/// The index of the rule in checkRules().
enum class Rule : std::uint8_t {
    // The file
    NoDictionary,
    FileWritable,
    FileOwner,
    FileName,
    // Names and types of keys
    MisspeltKey,
    MisplacedKey,
    UnknownKey,
    WrongType,
    EnvironmentType,
    // Keys that launchd does not read, or should not be given
    DaemonKey,
    DroppedKey,
    ReportedKey,
    EnabledKey,
    RetiredKey,
    DiscouragedKey,
    DisabledDefault,
    // Label and program
    LabelMissing,
    LabelEmpty,
    NoProgram,
    ArgumentsString,
    ArgumentsEmpty,
    ProgramRelative,
    ArgumentsRelative,
    ArgumentsSearched,
    ProgramNotFound,
    ProgramNotExecutable,
    ScriptNotFound,
    BundleProgram,
    // Paths
    Tilde,
    Variable,
    LogFolderMissing,
    ProtectedFolder,
    // Calendar and interval
    CalendarRange,
    CalendarMissingDay,
    CalendarLeapDay,
    CalendarShortMonth,
    CalendarWildcard,
    CalendarDayAndWeekday,
    CalendarWeekdayAndMonth,
    CalendarShadowed,
    IntervalNotPositive,
    // What starts the agent
    EmptyTrigger,
    NoTrigger,
    ShadowedTrigger,
    KeepAliveInterval,
    RunAtLoadOff,
    AfterInitialDemand,
    LaunchOnce,
    // How it runs
    PressuredExit,
    Debugger,
    NiceRange,
    NiceRoot,
    RootDirectory,
    UmaskDecimal,
    ProcessType,
    ExitTimeOut
};
inline constexpr std::size_t ruleCount = std::size_t(Rule::ExitTimeOut) + 1;

/// Collects findings, at most `mostPerRule` of one rule, so that a damaged file of any size yields
/// a list that can be read.
class FindingList {
  public:
    static constexpr int mostPerRule = 20;

    /// \param variant the index of the words in the row of the rule
    /// \param arguments take the places of %1, %2 … in the words; shortened where they are long,
    ///        without control characters
    void add(Rule rule, std::string key, std::size_t variant = 0,
             std::initializer_list<std::string_view> arguments = {});

    /// The findings in the order that checkAgent() promises.
    std::vector<Finding> takeSorted();

  private:
    std::vector<Finding> findings_;
    std::array<int, ruleCount> counts_{};
};

/// What a group of rules looks at.
struct CheckedAgent {
    const Dictionary& keys;
    const CheckContext& context;
    FindingList& findings;

    /// The value of a key of the file where it is of that kind, else nullptr.
    const std::string* string(std::string_view key) const;
    const std::int64_t* integer(std::string_view key) const;
    const Array* array(std::string_view key) const;
    const Dictionary* dictionary(std::string_view key) const;
    /// Whether the key is the boolean true.
    bool isSet(std::string_view key) const;
    /// Whether the file has this key, but in another case of its letters.
    bool hasInAnotherCase(std::string_view key) const;
    /// What stands at a path; Unknown where the first folder of the path is not on this machine.
    PathState pathState(std::string_view path) const;
};

/// Whether a key that names what to run has a value that can. One in other letters' case counts.
bool namesProgram(const CheckedAgent& agent);

// The groups of rules.
void checkFile(const CheckedAgent& agent);
void checkKeys(const CheckedAgent& agent);
void checkProgram(const CheckedAgent& agent);
void checkPaths(const CheckedAgent& agent);
void checkSchedule(const CheckedAgent& agent);
void checkTriggers(const CheckedAgent& agent);
void checkExecution(const CheckedAgent& agent);

/// "ProgramArguments[1]"
std::string elementPath(std::string_view key, std::size_t index);
/// "KeepAlive.Crashed"; the name alone where the parent is empty.
std::string entryPath(std::string_view parent, std::string_view name);

} // namespace frimbolate
