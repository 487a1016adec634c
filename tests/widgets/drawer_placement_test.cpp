#include "widgets/drawer/drawer_placement.h"

#include "tests/support/rows.h"

#include <gtest/gtest.h>

#include <string_view>

namespace frimbolate::test {
namespace {

struct PlacementRow {
    std::string_view name;
    QRect available;
    QRect frame;
    DrawerPlacement expected;
};

class PlaceDrawer : public testing::TestWithParam<PlacementRow> {};

TEST_P(PlaceDrawer, KeepsTheWindowOnTheScreen) {
    const PlacementRow& row = GetParam();
    constexpr int drawerWidth = 400;
    const DrawerPlacement placement = placeDrawer(row.available, row.frame, drawerWidth);
    EXPECT_EQ(placement, row.expected)
        << placement.isBesideForm << ' ' << placement.topLeft.x() << ',' << placement.topLeft.y();
}

constexpr QRect wide(0, 0, 1400, 900), narrow(0, 0, 1024, 600), doubled(0, 0, 960, 540);
constexpr QSize framed(682, 496);

QRect at(int x, int y) { return {QPoint(x, y), framed}; }

const PlacementRow placementRows[] = {
    {"RoomAtTheRight", wide, at(100, 50), {true, {100, 50}}},
    {"ExactlyAtTheEdge", wide, at(318, 50), {true, {318, 50}}},
    {"OnePixelBeyond", wide, at(319, 50), {true, {318, 50}}},
    {"FarAtTheRight", wide, at(1390, 50), {true, {318, 50}}},
    {"AtTheBottom", wide, at(100, 800), {true, {100, 404}}},
    {"LeftOfTheScreen", wide, at(-300, 50), {true, {-300, 50}}},
    {"JustWideEnough", {0, 0, 1082, 600}, at(200, 50), {true, {0, 50}}},
    {"OnePixelTooNarrow", {0, 0, 1081, 600}, at(200, 50), {false, {200, 50}}},
    {"Narrow", narrow, at(171, 52), {false, {171, 52}}},
    {"NarrowAndBeyondItsRight", narrow, at(700, 52), {false, {342, 52}}},
    {"NarrowAndBelow", narrow, at(171, 300), {false, {171, 104}}},
    {"DoubledScale", doubled, at(139, 22), {false, {139, 22}}},
    {"BesideAPanelOfTheDesktop", {64, 28, 1216, 772}, at(400, 100), {true, {198, 100}}},
    {"OfASecondScreen", {1400, 0, 1024, 600}, at(2000, 10), {false, {1742, 10}}},
    {"LargerThanTheScreen", {10, 20, 512, 300}, at(40, 60), {false, {10, 20}}},
};

INSTANTIATE_TEST_SUITE_P(Table, PlaceDrawer, testing::ValuesIn(placementRows), NamedAfterRow());

} // namespace
} // namespace frimbolate::test
