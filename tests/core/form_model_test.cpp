#include "core/form_model.h"

#include "tests/support/form_snapshot.h"
#include "tests/support/rows.h"

#include <gmock/gmock.h>

#include <functional>

namespace frimbolate {

namespace {

using test::NamedAfterRow;

/// A change of one control, and the change of the record that follows from it.
struct FieldRow {
    std::string_view name;
    std::function<void(FormModel&)> changeControl;
    std::function<void(AgentForm&)> changeField;
};

FieldRow row(std::string_view name, TextField FormModel::*outlet, std::string AgentForm::*field) {
    return {name, [=](FormModel& model) { (model.*outlet).stringValue = " typed"; },
            [=](AgentForm& form) { form.*field = " typed"; }};
}

FieldRow row(std::string_view name, ImageWell FormModel::*outlet, std::string AgentForm::*field) {
    return {name, [=](FormModel& model) { (model.*outlet).toolTip = "/chosen"; },
            [=](AgentForm& form) { form.*field = "/chosen"; }};
}

FieldRow row(std::string_view name, PopUp FormModel::*outlet, int AgentForm::*field) {
    return {name, [=](FormModel& model) { (model.*outlet).selectedItem = -1; },
            [=](AgentForm& form) { form.*field = -1; }};
}

FieldRow row(std::string_view name, CheckBox FormModel::*outlet, bool AgentForm::*field) {
    return {name, [=](FormModel& model) { (model.*outlet).state = CheckState::On; },
            [=](AgentForm& form) { form.*field = true; }};
}

class RecordField : public testing::TestWithParam<FieldRow> {};

TEST_P(RecordField, IsReadFromItsControlAlone) {
    for (const bool flag : {false, true}) {
        auto model = test::nonDefaultForm(flag);
        model.enableGlobbingCheckbox.state = CheckState::Off;
        auto expected = agentForm(model);
        GetParam().changeControl(model);
        GetParam().changeField(expected);
        EXPECT_EQ(agentForm(model), expected);
    }
}

TEST_P(RecordField, FollowsItsControl) {
    auto model = test::nonDefaultForm(false);
    model.enableGlobbingCheckbox.state = CheckState::Off;
    const auto before = agentForm(model);
    GetParam().changeControl(model);
    EXPECT_FALSE(agentForm(model) == before);
}

const FieldRow fields[] = {
    row("name", &FormModel::agentNameTextField, &AgentForm::name),
    row("targetType", &FormModel::agentTargetButton, &AgentForm::targetType),
    row("targetPath", &FormModel::agentTargetImageWell, &AgentForm::targetPath),
    row("scriptText", &FormModel::scriptPopOverScriptField, &AgentForm::scriptText),
    row("scriptLanguage", &FormModel::scriptPopOverLanguageButton, &AgentForm::scriptLanguage),
    row("action", &FormModel::agentActionButton, &AgentForm::action),
    row("watchPath", &FormModel::agentWatchPathImageWell, &AgentForm::watchPath),
    row("scheduleType", &FormModel::agentScheduleTypeButton, &AgentForm::scheduleType),
    {"scheduleTime",
     [](FormModel& model) { model.agentScheduleDatePicker.dateValue = {2024, 2, 29, 0, 1, 2}; },
     [](AgentForm& form) { form.scheduleTime = {2024, 2, 29, 0, 1, 2}; }},
    row("intervalText", &FormModel::agentIntervalField, &AgentForm::intervalText),
    row("intervalUnit", &FormModel::agentIntervalTypeButton, &AgentForm::intervalUnit),
    row("dayOfMonthText", &FormModel::onMonthTextField, &AgentForm::dayOfMonthText),
    row("allowSuccessfulExit", &FormModel::allowSuccessfulExitCheckbox,
        &AgentForm::allowSuccessfulExit),
    row("enableGlobbing", &FormModel::enableGlobbingCheckbox, &AgentForm::enableGlobbing),
    row("priorityLevel", &FormModel::priorityLevelButton, &AgentForm::priorityLevel),
    {"niceLevel", [](FormModel& model) { model.niceLevelSlider.value = 20.0; },
     [](AgentForm& form) { form.niceLevel = 20; }},
    row("standardInPath", &FormModel::standardInPathField, &AgentForm::standardInPath),
    row("standardOutPath", &FormModel::standardOutPathField, &AgentForm::standardOutPath),
    row("standardErrorPath", &FormModel::standardErrorPathField, &AgentForm::standardErrorPath),
    row("workingDirectory", &FormModel::workingDirectoryField, &AgentForm::workingDirectory),
    row("rootDirectory", &FormModel::rootDirectoryField, &AgentForm::rootDirectory),
    row("queueDirectory", &FormModel::queueDirectoryField, &AgentForm::queueDirectory),
    row("alsoRunAtLoad", &FormModel::alsoRunAtLoadCheckbox, &AgentForm::alsoRunAtLoad),
    row("alsoRunOnVolumeMount", &FormModel::alsoRunVolumeCheckbox,
        &AgentForm::alsoRunOnVolumeMount),
    row("alsoRunOnPathChange", &FormModel::alsoRunPathChangeCheckbox,
        &AgentForm::alsoRunOnPathChange),
    row("alsoRunPath", &FormModel::alsoRunPathChangeImageWell, &AgentForm::alsoRunPath),
};

INSTANTIATE_TEST_SUITE_P(Fields, RecordField, testing::ValuesIn(fields), NamedAfterRow());

struct BoxRow {
    std::string_view name;
    int state;
    bool isOn;
    bool globs;
};

class BoxState : public testing::TestWithParam<BoxRow> {};

TEST_P(BoxState, CountsAsOn) {
    const auto& [name, state, isOn, globs] = GetParam();
    FormModel model;
    for (auto* box : {&model.allowSuccessfulExitCheckbox, &model.enableGlobbingCheckbox,
                      &model.alsoRunAtLoadCheckbox, &model.alsoRunVolumeCheckbox,
                      &model.alsoRunPathChangeCheckbox})
        box->state = state;
    const auto form = agentForm(model);
    EXPECT_EQ(form.allowSuccessfulExit, isOn);
    EXPECT_EQ(form.alsoRunAtLoad, isOn);
    EXPECT_EQ(form.alsoRunOnVolumeMount, isOn);
    EXPECT_EQ(form.alsoRunOnPathChange, isOn);
    EXPECT_EQ(form.enableGlobbing, globs);
}

const BoxRow boxes[] = {
    {"Off", 0, false, false},
    {"On", 1, true, true},
    {"Mixed", -1, false, true},
    {"Beyond", 2, false, true},
};

INSTANTIATE_TEST_SUITE_P(States, BoxState, testing::ValuesIn(boxes), NamedAfterRow());

struct SliderRow {
    std::string_view name;
    double value;
    std::int64_t expected;
};

class NiceSlider : public testing::TestWithParam<SliderRow> {};

TEST_P(NiceSlider, GivesItsIntegerValue) {
    FormModel model;
    model.niceLevelSlider.value = GetParam().value;
    EXPECT_EQ(agentForm(model).niceLevel, GetParam().expected);
}

const SliderRow sliders[] = {
    {"Least", -20.0, -20},         {"Most", 20.0, 20}, {"FractionIsCutOff", 2.9, 2},
    {"NegativeFraction", -0.9, 0}, {"Zero", 0.0, 0},
};

INSTANTIATE_TEST_SUITE_P(Values, NiceSlider, testing::ValuesIn(sliders), NamedAfterRow());

TEST(Image, IsEqualWhenItIsTheSame) {
    EXPECT_EQ(Image::none(), Image());
    EXPECT_EQ(Image::resource("a"), Image::resource("a"));
    EXPECT_FALSE(Image::resource("a") == Image::iconForFile("a"));
    EXPECT_FALSE(Image::resource("a") == Image::resource("b"));
}

TEST(ImageWell, LosesItsImageAndPathButStaysVisible) {
    ImageWell well{Image::iconForFile("/a"), "/a", true};
    well.clear();
    EXPECT_EQ(well.image, Image::none());
    EXPECT_EQ(well.toolTip, "");
    EXPECT_TRUE(well.hidden);
}

} // namespace

} // namespace frimbolate
