// The record of the agent in the editor, and the meaning of its pop-up indexes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace frimbolate {

/// The prefix of every label and file name that the program proposes, and by which it recognises
/// its own agents.
inline constexpr std::string_view labelPrefix = "com.frimbolate.";
/// The prefix of the earlier version: a dotless i (U+0131) in place of the first i.
inline constexpr std::string_view earlierLabelPrefix = "com.fr\u0131mbolate.";

// Pop-up selections are signed item indexes; -1 is no selection. The enumerators name the indexes
// that carry a meaning. The gaps are separators and inert items (see pop_up_items.h).

namespace AgentAction {
enum : int { None = 0, OnSchedule = 2, KeepRunning = 3, PathModified = 4, VolumeMounted = 5 };
}

namespace TargetType {
enum : int { None = 0, File = 2, Script = 3 };
}

namespace ScheduleType {
enum : int {
    NoSelection = -1,
    EveryDay = 0,
    EverySunday = 2,
    EveryMonday = 3,
    EveryTuesday = 4,
    EveryWednesday = 5,
    EveryThursday = 6,
    EveryFriday = 7,
    EverySaturday = 8,
    OnceAMonth = 10,
    AtLoad = 12,
    OnInterval = 14
};
}

namespace IntervalUnit {
enum : int { Seconds = 0, Minutes = 1, Hours = 2 };
}

namespace PriorityLevel {
enum : int { Low = 0, Normal = 1 };
}

/// No rule reads the script language: a typed script always runs under /bin/sh.
namespace ScriptLanguage {
enum : int { Shell = 0 };
}

/// A date and time of day in the user's calendar and time zone.
struct LocalDateTime {
    int year = 2000;
    int month = 1; ///< 1 to 12
    int day = 1;   ///< 1 to 31
    int hour = 0;  ///< 0 to 23
    int minute = 0;
    int second = 0;
    friend bool operator==(const LocalDateTime&, const LocalDateTime&) = default;
};

/// One launch agent as the form holds it. Built from the controls on demand, never stored.
/// Paths are UTF-8 bytes as the user chose or typed them; empty means none.
struct AgentForm {
    std::string name;
    int targetType = TargetType::None;
    std::string targetPath;
    std::string scriptText;
    int scriptLanguage = ScriptLanguage::Shell;
    int action = AgentAction::None;
    std::string watchPath;
    int scheduleType = ScheduleType::EveryDay;
    LocalDateTime scheduleTime; ///< only hour and minute matter
    std::string intervalText;   ///< as typed; digits expected
    int intervalUnit = IntervalUnit::Seconds;
    std::string dayOfMonthText; ///< as typed; digits expected
    bool allowSuccessfulExit = false;
    bool enableGlobbing = false;
    int priorityLevel = PriorityLevel::Normal;
    std::int64_t niceLevel = 0; ///< -20 (highest priority) to 20 (lowest), as on the slider
    std::string standardInPath;
    std::string standardOutPath;
    std::string standardErrorPath;
    std::string workingDirectory;
    std::string rootDirectory;
    std::string queueDirectory;
    bool alsoRunAtLoad = false;
    bool alsoRunOnVolumeMount = false;
    bool alsoRunOnPathChange = false;
    std::string alsoRunPath;
    friend bool operator==(const AgentForm&, const AgentForm&) = default;
};

} // namespace frimbolate
