// The nice level: a file may hold any number, the slider only -20 to 20.
#include "tests/support/rows.h"
#include "tests/widgets/window_test.h"
#include "widgets/controls/elided_label.h"

#include <QLineEdit>
#include <QSlider>

#include <limits>

namespace frimbolate::test {
namespace {

struct NiceRow {
    std::string_view name;
    double value;
    int position;
};

class NiceSlider : public WindowTest, public testing::WithParamInterface<NiceRow> {};

TEST_P(NiceSlider, ShowsTheNearestPosition) {
    const auto& [name, value, position] = GetParam();
    show([value = value](FormModel& model) {
        model.niceLevelSlider.value = value;
        model.niceLevelTextField.stringValue = "as the rules say";
    });
    EXPECT_EQ(find<QSlider>("niceLevelSlider")->value(), position);
    EXPECT_EQ(find<QLineEdit>("niceLevelTextField")->text(), "as the rules say");
    EXPECT_EQ(form().niceLevelSlider.value, value) << "the model keeps its number";
}

constexpr double most64Bits = 9223372036854775807.0;

const NiceRow niceRows[] = {
    {"Zero", 0, 0},
    {"LowestEnd", -20, -20},
    {"HighestEnd", 20, 20},
    {"JustBelow", -21, -20},
    {"JustAbove", 21, 20},
    {"Beyond32Bits", 99999999999.0, 20},
    {"Below32Bits", -99999999999.0, -20},
    {"Largest", most64Bits, 20},
    {"Smallest", -most64Bits, -20},
    {"Infinite", std::numeric_limits<double>::infinity(), 20},
};

INSTANTIATE_TEST_SUITE_P(Table, NiceSlider, testing::ValuesIn(niceRows), NamedAfterRow());

struct NiceHintRow {
    std::string_view name;
    double value;
    bool needsRoot;
};

class NiceHint : public WindowTest, public testing::WithParamInterface<NiceHintRow> {};

TEST_P(NiceHint, SaysThatLessThanZeroNeedsRoot) {
    show([](FormModel& model) {
        model.advancedDrawer.open = true;
        model.niceLevelSlider.value = GetParam().value;
    });
    const bool needsRoot = GetParam().needsRoot;
    const QString words = needsRoot ? "Only root may go below 0, and an agent runs as you" : "";
    for (const char* outlet : {"niceLevelSlider", "niceLevelTextField"}) {
        EXPECT_EQ(find(outlet)->toolTip(), words) << outlet;
        EXPECT_EQ(find(outlet)->accessibleDescription(), words) << outlet;
    }
    EXPECT_EQ(find("niceLevelTextField")->property("faulty").toBool(), needsRoot);
    const auto* hint = find<ElidedLabel>("pathHint");
    EXPECT_EQ(hint->isVisible(), needsRoot);
    EXPECT_EQ(hint->text(), needsRoot ? "Nice level: below 0 needs root" : "");
}

const NiceHintRow niceHints[] = {
    {"Zero", 0, false},    {"Highest", 20, false},           {"JustBelowZero", -1, true},
    {"Lowest", -20, true}, {"Beyond", -99999999999.0, true},
};

INSTANTIATE_TEST_SUITE_P(Table, NiceHint, testing::ValuesIn(niceHints), NamedAfterRow());

} // namespace
} // namespace frimbolate::test
