#include "core/pop_up_items.h"

#include "core/agent_form.h"
#include "tests/support/rows.h"

#include <gmock/gmock.h>

#include <vector>

namespace frimbolate {

namespace {

using test::NamedAfterRow;

struct MenuRow {
    std::string_view name;
    std::span<const PopUpItem> items;
    std::vector<std::string_view> titles; ///< by index; empty for an index without a meaning
};

class Menu : public testing::TestWithParam<MenuRow> {};

TEST_P(Menu, SaysAtEachIndexWhatItMeans) {
    std::vector<std::string_view> titles;
    for (const auto& item : GetParam().items)
        titles.push_back(item.title);
    EXPECT_EQ(titles, GetParam().titles);
}

TEST_P(Menu, KeepsInertIndexesUnchoosable) {
    for (const auto& item : GetParam().items)
        EXPECT_EQ(item.kind == PopUpItem::Kind::Separator, item.title.empty()) << item.title;
}

TEST_P(Menu, FindsEveryChoiceByItsTitle) {
    for (std::size_t i = 0; i < GetParam().titles.size(); ++i)
        if (const auto title = GetParam().titles[i]; !title.empty()) {
            EXPECT_EQ(itemWithTitle(GetParam().items, title), static_cast<int>(i));
        }
}

TEST_P(Menu, FindsNoOtherTitle) {
    EXPECT_EQ(itemWithTitle(GetParam().items, ""), -1);
    EXPECT_EQ(itemWithTitle(GetParam().items, "Every Other Day"), -1);
}

TEST_P(Menu, SparesThePlaceholdersColourForNothingChosen) {
    for (const auto& item : GetParam().items)
        EXPECT_EQ(item.isPlaceholder, item.title == "None" || item.title == "Choose\u2026");
}

const MenuRow menus[] = {
    {"Target", agentTargetItems(), {"None", "", "Application or script\u2026", "New script\u2026"}},
    {"Action",
     agentActionItems(),
     {"Choose\u2026", "", "Launch on schedule", "Launch on schedule and keep alive",
      "Launch when a path is modified\u2026", "Launch when a volume is mounted"}},
    {"Schedule",
     agentScheduleTypeItems(),
     {"Every Day", "", "Every Sunday", "Every Monday", "Every Tuesday", "Every Wednesday",
      "Every Thursday", "Every Friday", "Every Saturday", "", "Once a Month", "", "On Login/Load",
      "", "On Interval"}},
    {"IntervalUnit", agentIntervalTypeItems(), {"seconds", "minutes", "hours"}},
    {"Priority", priorityLevelItems(), {"Low", "Normal"}},
    {"Language", scriptLanguageItems(), {"Shell (/bin/sh)"}},
    {"DefaultGlobbing", globalGlobbingItems(), {"Expand wildcards", "Leave wildcards as they are"}},
    {"DefaultPriority", globalPriorityItems(), {"Normal", "Low"}},
};

INSTANTIATE_TEST_SUITE_P(Menus, Menu, testing::ValuesIn(menus), NamedAfterRow());

struct TitleRow {
    std::string_view name;
    std::string_view title;
    int index;
    int enumerator;
};

class ScheduleTitle : public testing::TestWithParam<TitleRow> {};

TEST_P(ScheduleTitle, StandsAtItsIndex) {
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

TEST(PopUpItems, LookTitlesUpExactly) {
    EXPECT_EQ(itemWithTitle(agentScheduleTypeItems(), "every day"), -1);
    EXPECT_EQ(itemWithTitle(agentScheduleTypeItems(), "Every Day "), -1);
    EXPECT_EQ(itemWithTitle({}, "Every Day"), -1);
}

TEST(PopUpItems, NameTheActionThatTheTipsReferTo) {
    EXPECT_EQ(itemWithTitle(agentActionItems(), "Launch on schedule and keep alive"),
              AgentAction::KeepRunning);
}

TEST(PopUpItems, KeepTheirNumbers) {
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
