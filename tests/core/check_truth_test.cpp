// The findings against what launchd does, and with any value.
#include "core/agent_checks.h"

#include "core/agent_plist.h"
#include "core/calendar_runs.h"
#include "core/launchd_keys.h"
#include "tests/support/check_rows.h"
#include "tests/support/random_values.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace frimbolate::test {
namespace {

using namespace std::chrono;
using testing::IsEmpty;

bool holds(const std::vector<Finding>& findings, std::string_view rule, std::string_view key) {
    return std::any_of(findings.begin(), findings.end(), [&](const Finding& finding) {
        return finding.rule == rule && finding.key == key;
    });
}

CalendarInterval intervalOf(const Dictionary& calendar) {
    const auto number = [&calendar](const char* key) {
        const auto* value = find(calendar, key);
        return value ? std::optional(static_cast<int>(*value->integer())) : std::nullopt;
    };
    return {number("Month"), number("Day"), number("Weekday"), number("Hour"), number("Minute")};
}

/// "3 March" for the first run after the year's beginning.
std::string firstRun(int month, int day, year inYear) {
    static constexpr const char* months[] = {"January",   "February", "March",    "April",
                                             "May",       "June",     "July",     "August",
                                             "September", "October",  "November", "December"};
    const auto run =
        nextCalendarRun({month, day, std::nullopt, 7, 5}, local_days(inYear / January / 1));
    const year_month_day date(floor<days>(*run));
    return std::to_string(unsigned(date.day())) + " " + months[unsigned(date.month()) - 1];
}

TEST(CheckTruth, TellsTheDayOnWhichLaunchdRunsAMissingOne) {
    int missing = 0;
    for (int month = 1; month <= 12; ++month)
        for (int day = 1; day <= 31; ++day) {
            const Dictionary calendar{{"Month", month}, {"Day", day}, {"Hour", 7}, {"Minute", 5}};
            const auto findings = checkAgent(at(calendar));
            const auto common = firstRun(month, day, year(2027));
            const auto leap = firstRun(month, day, year(2028));
            const auto asWritten = year(2028) / month / day;
            const bool comesInLeapYear = asWritten.ok();
            const bool comesInCommonYear = (year(2027) / month / day).ok();
            if (comesInCommonYear) {
                EXPECT_THAT(findings, IsEmpty()) << month << ' ' << day;
                continue;
            }
            ASSERT_THAT(findings, testing::SizeIs(1)) << month << ' ' << day;
            auto told = common;
            if (common != leap && !comesInLeapYear)
                told.append(" (").append(leap).append(" in a leap year)");
            EXPECT_TRUE(findings[0].text.ends_with("launchd runs it on " + told))
                << findings[0].text;
            EXPECT_EQ(findings[0].rule,
                      comesInLeapYear ? "calendar-leap-day" : "calendar-missing-day");
            ++missing;
        }
    EXPECT_EQ(missing, 7);
}

Dictionary randomCalendar(RandomValues& random) {
    Dictionary calendar;
    const auto put = [&](const char* key, std::size_t least, std::size_t count) {
        if (random.coin())
            calendar[key] = least + random.below(count);
    };
    put("Month", 2, 2);
    put("Day", 28, 4);
    put("Weekday", 0, 2);
    put("Hour", 22, 2);
    put("Minute", 58, 2);
    return calendar;
}

/// Whether the interval runs at a time, when launchd computes the run a minute, a day or some days
/// before. It computes the run on the day that stands for a missing one in the month before.
bool runsAt(const CalendarInterval& interval, LocalMinute time) {
    const LocalMinute day = floor<days>(time);
    const auto isNextFrom = [&](LocalMinute now) { return nextCalendarRun(interval, now) == time; };
    return isNextFrom(time - minutes(1)) || isNextFrom(day - minutes(1)) ||
           isNextFrom(day - days(4));
}

TEST(CheckTruth, CallsOnlyThoseTimesShadowedThatTheOthersRunAt) {
    RandomValues random(11);
    int shadowed = 0;
    for (int i = 0; i < 4000; ++i) {
        const auto first = randomCalendar(random), second = randomCalendar(random);
        const Value both = Array{Value(first), Value(second)};
        if (!holds(checkAgent(at(both)), "calendar-shadowed", "StartCalendarInterval[1]"))
            continue;
        ++shadowed;
        LocalMinute now = local_days(year(2027) / January / 30);
        for (int run = 0; run < 10; ++run) {
            const auto next = *nextCalendarRun(intervalOf(second), now);
            EXPECT_TRUE(runsAt(intervalOf(first), next)) << description(both);
            now = next + hours(static_cast<int>(random.below(1500)));
        }
    }
    EXPECT_GT(shadowed, 100);
}

TEST(CheckTruth, AcceptsAnyValue) {
    RandomValues random(12);
    const auto context = machine();
    std::size_t found = 0;
    for (int i = 0; i < 3000; ++i)
        found += checkAgent(random.value(4), context).size();
    EXPECT_GT(found, 3000U);
}

TEST(CheckTruth, AcceptsAnyValueOfAnyKey) {
    RandomValues random(13);
    const auto keys = launchdKeys();
    for (int i = 0; i < 1500; ++i) {
        Dictionary agent = backup();
        for (int edit = 0; edit < 3; ++edit) {
            const auto& key = random.oneOf(keys);
            if (key.parent.empty())
                agent[std::string(key.name)] = random.value(3);
            else
                agent[std::string(key.parent.substr(0, key.parent.find('.')))] =
                    Dictionary{{std::string(key.name), random.value(3)},
                               {random.text(), Dictionary{{std::string(key.name), 1}}}};
        }
        for (const auto& finding : checkAgent(agent, machine()))
            EXPECT_FALSE(finding.text.empty() || finding.text.ends_with('.')) << finding.text;
    }
}

TEST(CheckTruth, NeverCallsAKnownKeyMisspelt) {
    for (const auto& key : launchdKeys()) {
        if (!key.parent.empty())
            continue;
        for (const auto& finding : checkAgent(edited(backup(), {{std::string(key.name), 1}})))
            EXPECT_FALSE(finding.rule == "misspelt-key" || finding.rule == "unknown-key")
                << key.name;
    }
}

TEST(CheckTruth, AsksForNoRelativePath) {
    CheckContext context;
    std::vector<std::string> asked;
    context.pathState = [&asked](const std::string& path) {
        asked.push_back(path);
        return PathState::Folder;
    };
    for (const auto& row : checkRows())
        checkAgent(row.agent, context);
    EXPECT_GT(asked.size(), 100U);
    for (const auto& path : asked)
        EXPECT_EQ(path.front(), '/') << path;
}

/// What the program itself writes.
TEST(CheckTruth, FindsNothingInTheUsualAgentsOfThisProgram) {
    AgentForm form;
    form.name = "Backup";
    form.targetType = TargetType::File;
    form.targetPath = "/srv/backup.sh";
    form.action = AgentAction::OnSchedule;
    CheckContext context = homeContext();
    const auto findings = [&] { return checkAgent(buildAgentPlist(form, "com.x.y"), context); };
    EXPECT_THAT(findings(), IsEmpty());
    form.scheduleType = ScheduleType::EveryWednesday;
    EXPECT_THAT(findings(), IsEmpty());
    form.scheduleType = ScheduleType::AtLoad;
    EXPECT_THAT(findings(), IsEmpty());
    form.action = AgentAction::KeepRunning;
    EXPECT_THAT(findings(), IsEmpty());
    form.action = AgentAction::VolumeMounted;
    EXPECT_THAT(findings(), IsEmpty());
    form.targetType = TargetType::Script;
    form.scriptText = "cd ~/src && make PREFIX=$HOME";
    EXPECT_THAT(findings(), IsEmpty());
    form.action = AgentAction::KeepRunning;
    form.scheduleType = ScheduleType::EveryDay;
    EXPECT_TRUE(holds(findings(), "after-initial-demand", "KeepAlive.AfterInitialDemand"));
}

} // namespace
} // namespace frimbolate::test
