#include "core/form_findings.h"

#include "core/agent_plist.h"
#include "tests/support/check_rows.h"
#include "tests/support/rows.h"

#include <gmock/gmock.h>

#include <functional>

namespace frimbolate::test {
namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;

constexpr std::optional<FormRow> drawer = std::nullopt;

/// A daily agent without a finding.
AgentForm daily() {
    AgentForm form;
    form.name = "Backup";
    form.targetType = TargetType::File;
    form.targetPath = "/usr/bin/tool";
    form.action = AgentAction::OnSchedule;
    form.scheduleTime.hour = 7;
    return form;
}

struct Expected {
    std::optional<FormRow> row;
    std::string text;
};

struct FormRowCase {
    std::string_view name;
    std::function<void(AgentForm&)> change;
    std::vector<Expected> findings;
};

class FormFindings : public testing::TestWithParam<FormRowCase> {};

CheckContext context() {
    auto context = machine();
    context.home = "/Users/maya";
    return context;
}

std::vector<FormFinding> findingsOf(const AgentForm& form) {
    return formFindings(form, validate(form), context());
}

TEST_P(FormFindings, BelongToTheRowOfTheValue) {
    auto form = daily();
    GetParam().change(form);
    std::vector<std::pair<std::optional<FormRow>, std::string>> found, expected;
    for (const auto& finding : findingsOf(form))
        found.emplace_back(finding.row, finding.text);
    for (const auto& [row, text] : GetParam().findings)
        expected.emplace_back(row, text);
    EXPECT_EQ(found, expected);
}

void keepRunning(AgentForm& form, int schedule) {
    form.action = AgentAction::KeepRunning;
    form.scheduleType = schedule;
}

void monthly(AgentForm& form, const char* day) {
    form.scheduleType = ScheduleType::OnceAMonth;
    form.dayOfMonthText = day;
}

const std::string tilde = " begins with “~”, which launchd does not expand: write /Users/maya/x";
const std::string adds = " adds nothing: KeepAlive keeps the agent running";
const std::string waits = "The agent waits for a first start by demand";

std::vector<FormRowCase> formRowCases() {
    return {
        {"Nothing", [](AgentForm&) {}, {}},
        {"ProgramMissing",
         [](AgentForm& f) { f.targetPath = "/usr/bin/none"; },
         {{FormRow::Target, "The program does not exist on this machine"}}},
        {"ProgramIsNoProgram",
         [](AgentForm& f) { f.targetPath = "/opt/notes.txt"; },
         {{FormRow::Target, "The program is not executable: run chmod +x"}}},
        {"ScriptMissing",
         [](AgentForm& f) { f.targetPath = "/opt/none.sh"; },
         {{FormRow::Target, "The script does not exist on this machine"}}},
        {"InterpreterMissing",
         [](AgentForm& f) { f.targetPath = "/opt/run.rb"; },
         {{FormRow::Target, "The interpreter does not exist on this machine"},
          {FormRow::Target, "The script does not exist on this machine"}}},
        {"ScriptFound", [](AgentForm& f) { f.targetPath = "/opt/run.sh"; }, {}},
        {"ProgramOnDesktop",
         [](AgentForm& f) { f.targetPath = "/Users/maya/Desktop/x"; },
         {{FormRow::Target, "The program is in Desktop, which privacy settings protect: the agent "
                            "may be unable to read it"}}},
        {"NotChosen", [](AgentForm& f) { f.targetPath.clear(); }, {}},
        {"TypedScript",
         [](AgentForm& f) {
             f.targetType = TargetType::Script;
             f.scriptText = "cd ~/src; echo $HOME";
         },
         {}},

        {"KeptRunningByCalendar",
         [](AgentForm& f) { keepRunning(f, ScheduleType::EveryDay); },
         {{FormRow::Action, waits + "; StartCalendarInterval does not make it, and no other key of "
                                    "the file does"}}},
        {"KeptRunningAtLoad", [](AgentForm& f) { keepRunning(f, ScheduleType::AtLoad); }, {}},
        {"WatchedPathInHome",
         [](AgentForm& f) {
             f.action = AgentAction::PathModified;
             f.watchPath = "~/x";
         },
         {{FormRow::Action, "The watched path" + tilde}}},
        {"AdditionalPathInHome",
         [](AgentForm& f) {
             f.alsoRunOnPathChange = true;
             f.alsoRunPath = "~/x";
         },
         {{drawer, "The watched path" + tilde}}},
        {"AdditionalMount",
         [](AgentForm& f) {
             keepRunning(f, ScheduleType::AtLoad);
             f.alsoRunOnVolumeMount = true;
         },
         {{drawer, "The mounting of a volume" + adds}}},
        {"Mount", [](AgentForm& f) { f.action = AgentAction::VolumeMounted; }, {}},
        {"NothingStartsIt",
         [](AgentForm& f) { f.action = 6; },
         {{FormRow::Action, "The agent has no key that starts it"}}},

        {"LastDay",
         [](AgentForm& f) { monthly(f, "31"); },
         {{FormRow::Schedule,
           "The day is 31; for a shorter month, launchd runs it early in the next one"}}},
        {"FirstDay", [](AgentForm& f) { monthly(f, "1"); }, {}},
        {"DayWithFault", [](AgentForm& f) { monthly(f, "32"); }, {}},
        {"IntervalOverflows",
         [](AgentForm& f) {
             f.scheduleType = ScheduleType::OnInterval;
             f.intervalUnit = IntervalUnit::Minutes;
             f.intervalText = "40000000";
         },
         {{FormRow::Action, "The agent has no key that starts it"},
          {FormRow::Schedule,
           "The interval is -1894967296; launchd ignores an interval of 0 and less"}}},

        {"IntervalWithFault", [](AgentForm& f) { f.scheduleType = ScheduleType::OnInterval; }, {}},

        {"Niceness",
         [](AgentForm& f) { f.niceLevel = -1; },
         {{drawer, "The nice level is -1; below 0 it needs root, and an agent runs as the user"}}},
        {"Root",
         [](AgentForm& f) { f.rootDirectory = "/srv"; },
         {{drawer, "The root folder needs root, and an agent runs as the user"}}},
        {"PathsOfTheDrawer",
         [](AgentForm& f) {
             f.workingDirectory = "~/x";
             f.queueDirectory = "~/x";
             f.standardInPath = "~/x";
             f.standardOutPath = "~/x";
             f.standardErrorPath = "~/x";
         },
         {{drawer, "The working folder" + tilde},
          {drawer, "The queue folder" + tilde},
          {drawer, "The standard input" + tilde},
          {drawer, "The standard output" + tilde},
          {drawer, "The standard error" + tilde}}},
    };
}

INSTANTIATE_TEST_SUITE_P(Table, FormFindings, testing::ValuesIn(formRowCases()), NamedAfterRow());

TEST(FormFindings, AreThoseOfTheFile) {
    for (const auto& row : formRowCases()) {
        auto form = daily();
        row.change(form);
        const auto file = checkAgent(buildAgentPlist(form, "com.frimbolate.Backup"), context());
        std::vector<Finding> found;
        for (const auto& finding : findingsOf(form))
            found.push_back(finding.finding);
        if (!row.findings.empty()) {
            EXPECT_EQ(found, file) << row.name;
        }
    }
}

TEST(FormFindings, LeaveOutTheFile) {
    auto asked = context();
    asked.mode = 0666;
    asked.ownedByUser = false;
    asked.filePath = "/x/other.plist";
    EXPECT_THAT(formFindings(daily(), {}, asked), IsEmpty());
}

TEST(FormFindings, GiveTheMostSevereOfARow) {
    const auto finding = [](Severity severity, std::optional<FormRow> row, const char* text) {
        return FormFinding{row, text, {"rule", severity, "Key", text}};
    };
    const std::vector<FormFinding> findings = {
        finding(Severity::Note, FormRow::Target, "a note"),
        finding(Severity::Suspicious, FormRow::Target, "the first"),
        finding(Severity::Suspicious, FormRow::Target, "the second"),
        finding(Severity::Refused, FormRow::Action, "of another row"),
        finding(Severity::Ignored, drawer, "of the drawer")};
    EXPECT_EQ(findingOfRow(findings, FormRow::Target)->text, "the first");
    EXPECT_EQ(findingOfRow(findings, FormRow::Action)->text, "of another row");
    EXPECT_EQ(findingOfRow(findings, drawer)->text, "of the drawer");
    EXPECT_FALSE(findingOfRow(findings, FormRow::Schedule));
    EXPECT_FALSE(findingOfRow({}, drawer));
}

} // namespace
} // namespace frimbolate::test
