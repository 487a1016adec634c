#include "core/pop_up_items.h"

#include "core/agent_form.h"
#include "tests/support/rows.h"

#include <gmock/gmock.h>

#include <set>

namespace frimbolate {

namespace {

using test::NamedAfterRow;

struct MenuRow {
    std::string_view name;
    std::span<const PopUpItem> items;
    std::size_t count;
    std::set<std::size_t> inert; ///< indexes that carry no meaning
};

class Menu : public testing::TestWithParam<MenuRow> {};

TEST_P(Menu, hasAnItemForEveryIndex) { EXPECT_EQ(GetParam().items.size(), GetParam().count); }

TEST_P(Menu, keepsInertIndexesUnchoosable) {
    for (std::size_t i = 0; i < GetParam().items.size(); ++i) {
        const bool choice = GetParam().items[i].kind == PopUpItem::Kind::Choice;
        EXPECT_EQ(choice, !GetParam().inert.contains(i)) << "index " << i;
    }
}

TEST_P(Menu, findsEveryChoiceByItsTitle) {
    for (std::size_t i = 0; i < GetParam().items.size(); ++i) {
        if (GetParam().inert.contains(i))
            continue;
        EXPECT_FALSE(GetParam().items[i].title.empty());
        EXPECT_EQ(itemWithTitle(GetParam().items, GetParam().items[i].title), static_cast<int>(i));
    }
}

TEST_P(Menu, findsNoOtherTitle) {
    EXPECT_EQ(itemWithTitle(GetParam().items, ""), -1);
    EXPECT_EQ(itemWithTitle(GetParam().items, "Every Other Day"), -1);
}

TEST_P(Menu, sparesThePlaceholdersColourForNothingChosen) {
    for (std::size_t i = 0; i < GetParam().items.size(); ++i)
        EXPECT_EQ(GetParam().items[i].isPlaceholder,
                  GetParam().items[i].title == "None" ||
                      GetParam().items[i].title == "Choose\u2026");
}

const MenuRow menus[] = {
    {"Target", agentTargetItems(), 4, {1}},
    {"Action", agentActionItems(), 6, {1}},
    {"Schedule", agentScheduleTypeItems(), 15, {1, 9, 11, 13}},
    {"IntervalUnit", agentIntervalTypeItems(), 3, {}},
    {"Priority", priorityLevelItems(), 2, {}},
    {"Language", scriptLanguageItems(), 1, {}},
    {"DefaultGlobbing", globalGlobbingItems(), 2, {}},
    {"DefaultPriority", globalPriorityItems(), 2, {}},
};

INSTANTIATE_TEST_SUITE_P(Menus, Menu, testing::ValuesIn(menus), NamedAfterRow());

struct TitleRow {
    std::string_view name;
    std::string_view title;
    int index;
    int enumerator;
};

class ScheduleTitle : public testing::TestWithParam<TitleRow> {};

TEST_P(ScheduleTitle, standsAtItsIndex) {
    EXPECT_EQ(itemWithTitle(agentScheduleTypeItems(), GetParam().title), GetParam().index);
    EXPECT_EQ(GetParam().enumerator, GetParam().index);
}

const TitleRow titles[] = {
    {"EveryDay", "Every Day", 0, ScheduleType::EveryDay},
    {"EverySunday", "Every Sunday", 2, ScheduleType::EverySunday},
    {"EveryMonday", "Every Monday", 3, ScheduleType::EveryMonday},
    {"EveryTuesday", "Every Tuesday", 4, ScheduleType::EveryTuesday},
    {"EveryWednesday", "Every Wednesday", 5, ScheduleType::EveryWednesday},
    {"EveryThursday", "Every Thursday", 6, ScheduleType::EveryThursday},
    {"EveryFriday", "Every Friday", 7, ScheduleType::EveryFriday},
    {"EverySaturday", "Every Saturday", 8, ScheduleType::EverySaturday},
    {"OnceAMonth", "Once a Month", 10, ScheduleType::OnceAMonth},
    {"AtLoad", "On Login/Load", 12, ScheduleType::AtLoad},
    {"OnInterval", "On Interval", 14, ScheduleType::OnInterval},
};

INSTANTIATE_TEST_SUITE_P(Titles, ScheduleTitle, testing::ValuesIn(titles), NamedAfterRow());

TEST(PopUpItems, lookTitlesUpExactly) {
    EXPECT_EQ(itemWithTitle(agentScheduleTypeItems(), "every day"), -1);
    EXPECT_EQ(itemWithTitle(agentScheduleTypeItems(), "Every Day "), -1);
    EXPECT_EQ(itemWithTitle({}, "Every Day"), -1);
}

TEST(PopUpItems, nameTheActionThatTheTipsReferTo) {
    EXPECT_EQ(itemWithTitle(agentActionItems(), "Launch on schedule and keep alive"),
              AgentAction::KeepRunning);
}

TEST(PopUpItems, keepTheirNumbers) {
    EXPECT_EQ(AgentAction::None, 0);
    EXPECT_EQ(AgentAction::OnSchedule, 2);
    EXPECT_EQ(AgentAction::KeepRunning, 3);
    EXPECT_EQ(AgentAction::PathModified, 4);
    EXPECT_EQ(AgentAction::VolumeMounted, 5);
    EXPECT_EQ(TargetType::None, 0);
    EXPECT_EQ(TargetType::File, 2);
    EXPECT_EQ(TargetType::Script, 3);
    EXPECT_EQ(IntervalUnit::Seconds, 0);
    EXPECT_EQ(IntervalUnit::Minutes, 1);
    EXPECT_EQ(IntervalUnit::Hours, 2);
    EXPECT_EQ(PriorityLevel::Low, 0);
    EXPECT_EQ(PriorityLevel::Normal, 1);
}

} // namespace

} // namespace frimbolate
