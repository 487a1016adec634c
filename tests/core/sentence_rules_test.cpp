// Rules that hold for the summary and the hints of every form.
#include "core/form_summary.h"
#include "tests/core/rendered_form.h"
#include "tests/support/rows.h"

#include <gmock/gmock.h>

#include <functional>

namespace frimbolate {

namespace {

using test::faultyRows;
using test::hintsOf;
using test::isCompletePlan;
using test::sentenceOf;

AgentForm completeForm() {
    AgentForm form;
    form.name = "Backup";
    form.targetType = TargetType::File;
    form.targetPath = "/Users/ada/bin/backup.sh";
    form.action = AgentAction::OnSchedule;
    return form;
}

/// Calls with every choice of the three pop-ups, each with and without its additional input.
void forEveryForm(const std::function<void(const AgentForm&)>& look) {
    for (const std::string path : {"", "/Users/ada/bin/backup.sh"})
        for (const std::string number : {"", "0", "12", "x"})
            for (int target = TargetType::None; target <= TargetType::Script; ++target)
                for (int action = AgentAction::None; action <= AgentAction::VolumeMounted + 1;
                     ++action)
                    for (int schedule = ScheduleType::NoSelection;
                         schedule <= ScheduleType::OnInterval + 1; ++schedule) {
                        auto form = completeForm();
                        form.name = path.empty() ? "" : "Backup";
                        form.targetType = target;
                        form.targetPath = form.scriptText = form.watchPath = path;
                        form.action = action;
                        form.scheduleType = schedule;
                        form.dayOfMonthText = form.intervalText = number;
                        form.alsoRunOnVolumeMount = number == "12";
                        look(form);
                    }
}

struct MissingRow {
    std::string_view name;
    std::function<void(AgentForm&)> change;
    std::string_view expected;
};

class Missing : public testing::TestWithParam<MissingRow> {};

TEST_P(Missing, IsListedInTheOrderOfTheRows) {
    auto form = completeForm();
    GetParam().change(form);
    EXPECT_EQ(sentenceOf(form), GetParam().expected);
    EXPECT_FALSE(isCompletePlan(form));
}

void dropDay(AgentForm& form) { form.scheduleType = ScheduleType::OnceAMonth; }

const MissingRow missingRows[] = {
    {"PathThenAction",
     [](AgentForm& form) { form.targetPath.clear(), form.action = AgentAction::None; },
     "Still needs something to launch and a choice of when to launch it."},
    {"PathThenDay", [](AgentForm& form) { form.targetPath.clear(), dropDay(form); },
     "Still needs something to launch and a day of the month."},
    {"NameThenWatchPathThenDay",
     [](AgentForm& form) {
         form.name.clear(), form.action = AgentAction::PathModified, dropDay(form);
     },
     "Still needs a name, a path to watch and a day of the month."},
    {"TheDrawersPathLast", [](AgentForm& form) { form.alsoRunOnPathChange = true, dropDay(form); },
     "Still needs a day of the month and a path to watch."},
    {"AllRows",
     [](AgentForm& form) {
         form = {};
         dropDay(form);
     },
     "Still needs a name, something to launch, a choice of when to launch it and a day of the "
     "month."},
};

INSTANTIATE_TEST_SUITE_P(Sentences, Missing, testing::ValuesIn(missingRows), test::NamedAfterRow());

TEST(Plan, IsCompleteExactlyWhenTheSentenceTellsWhatRuns) {
    int complete = 0;
    forEveryForm([&](const AgentForm& form) {
        const auto sentence = sentenceOf(form);
        EXPECT_EQ(isCompletePlan(form), sentence.starts_with("Runs ")) << sentence;
        complete += isCompletePlan(form);
    });
    EXPECT_GT(complete, 0);
}

TEST(Plan, IsNotCompleteForEveryFormThatPassesValidation) {
    auto form = completeForm();
    form.targetPath.clear();
    EXPECT_TRUE(validate(form).empty());
    EXPECT_FALSE(isCompletePlan(form));
    form.targetPath = "/bin/true";
    EXPECT_TRUE(isCompletePlan(form));
}

TEST(Hint, EndsWithoutFullStopOrDots) {
    constexpr std::string RowHints::*hints[] = {&RowHints::name, &RowHints::target,
                                                &RowHints::action, &RowHints::schedule};
    forEveryForm([&](const AgentForm& form) {
        for (const auto& markers : {RowFlags{}, faultyRows(form)})
            for (const auto hint : hints) {
                const auto text = hintsOf(form, markers).*hint;
                EXPECT_FALSE(text.empty());
                EXPECT_FALSE(text.ends_with(".") || text.ends_with("\u2026")) << text;
            }
    });
}

} // namespace

} // namespace frimbolate
