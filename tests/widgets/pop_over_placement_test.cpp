#include "widgets/controls/pop_over_placement.h"

#include "tests/support/rows.h"

#include <gtest/gtest.h>

#include <string_view>

namespace frimbolate::test {
namespace {

constexpr QRect screen(0, 0, 1024, 600);
constexpr PopOverMeasures measures{
    .wanted = {360, 232}, .least = {280, 160}, .distance = 14, .corner = 20, .tipBelowTop = 32};

struct PopOverRow {
    std::string_view name;
    QRect anchor;
    QRect available;
    PopOverPlacement expected;
};

class PlacePopOver : public testing::TestWithParam<PopOverRow> {};

TEST_P(PlacePopOver, NeitherCoversItsAnchorNorLeavesTheScreen) {
    const PopOverRow& row = GetParam();
    const PopOverPlacement found = placePopOver(row.anchor, row.available, measures);
    EXPECT_EQ(found, row.expected)
        << found.panel.x() << ',' << found.panel.y() << ' ' << found.panel.width() << 'x'
        << found.panel.height() << " arrow " << found.arrow << " tip " << found.tip;
    EXPECT_TRUE(row.available.contains(found.panel));
    EXPECT_FALSE(found.panel.intersects(row.anchor));
}

QRect button(int x, int y) { return {x, y, 32, 32}; }

const PopOverRow popOverRows[] = {
    {"RoomAtTheRight", button(500, 200), screen, {{546, 184, 360, 232}, Qt::LeftEdge, 32}},
    {"JustEnoughAtTheRight", button(618, 200), screen, {{664, 184, 360, 232}, Qt::LeftEdge, 32}},
    {"OnePixelTooFarRight", button(619, 200), screen, {{245, 184, 360, 232}, Qt::RightEdge, 32}},
    {"AtTheRightEdge", button(992, 200), screen, {{618, 184, 360, 232}, Qt::RightEdge, 32}},
    {"AtTheTop", button(500, 2), screen, {{546, 0, 360, 232}, Qt::LeftEdge, 20}},
    {"AtTheBottom", button(500, 560), screen, {{546, 368, 360, 232}, Qt::LeftEdge, 208}},
    {"AtTheVeryBottom", button(500, 568), screen, {{546, 368, 360, 232}, Qt::LeftEdge, 211}},
    {"BelowOnANarrowScreen",
     button(180, 100),
     {0, 0, 480, 600},
     {{16, 146, 360, 232}, Qt::TopEdge, 180}},
    {"BelowAtTheLeftEdge",
     button(10, 100),
     {0, 0, 400, 600},
     {{0, 146, 360, 232}, Qt::TopEdge, 26}},
    {"AboveAtTheBottom",
     button(180, 540),
     {0, 0, 480, 600},
     {{16, 294, 360, 232}, Qt::BottomEdge, 180}},
    {"OfASecondScreen",
     button(2300, 200),
     {1400, 0, 1024, 600},
     {{1926, 184, 360, 232}, Qt::RightEdge, 32}},
    {"BesideAPanelOfTheDesktop",
     button(700, 60),
     {64, 40, 960, 560},
     {{326, 44, 360, 232}, Qt::RightEdge, 32}},
    {"SmallerWhereNothingHasRoom",
     button(300, 100),
     {0, 0, 640, 220},
     {{346, 0, 294, 220}, Qt::LeftEdge, 116}},
};

INSTANTIATE_TEST_SUITE_P(Table, PlacePopOver, testing::ValuesIn(popOverRows), NamedAfterRow());

TEST(PlacePopOver, KeepsItsLeastWidthIfEvenThatDoesNotFit) {
    const QRect tiny(0, 0, 300, 200);
    const PopOverPlacement found = placePopOver(button(150, 100), tiny, measures);
    EXPECT_EQ(found.panel.size(), QSize(280, 200));
    EXPECT_TRUE(tiny.contains(found.panel));
}

} // namespace
} // namespace frimbolate::test
