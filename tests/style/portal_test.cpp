// The style follows the desktop's settings portal, at the start and while the program runs.
#include "tests/style/running_portal.h"
#include "widgets/style/install.h"
#include "widgets/style/system_appearance.h"
#include "widgets/style/tokens.h"

#include <QApplication>
#include <QStyle>
#include <QTest>

#include <gtest/gtest.h>

namespace frimbolate::style {
namespace {

const QString appearance = "org.freedesktop.appearance", gnome = "org.gnome.desktop.interface";

struct Row {
    const char* name;
    Settings settings;
    bool isDark, isMotionReduced;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

class AtTheStart : public testing::TestWithParam<Row> {};

TEST_P(AtTheStart, TheDesktopIsAsked) {
    RunningPortal portal(GetParam().settings);
    const SystemAppearance system(nullptr);
    EXPECT_EQ(system.isDark(), GetParam().isDark);
    EXPECT_EQ(system.isMotionReduced(), GetParam().isMotionReduced);
}

INSTANTIATE_TEST_SUITE_P(
    Portal, AtTheStart,
    testing::Values(Row{"SaysNothing", {}, false, false},
                    Row{"NoPreference", {{appearance + " color-scheme", 0u}}, false, false},
                    Row{"Dark", {{appearance + " color-scheme", 1u}}, true, false},
                    Row{"Light", {{appearance + " color-scheme", 2u}}, false, false},
                    Row{"ReducedMotion", {{appearance + " reduced-motion", 1u}}, false, true},
                    Row{"OrdinaryMotion", {{appearance + " reduced-motion", 0u}}, false, false},
                    Row{"NoAnimations", {{gnome + " enable-animations", false}}, false, true},
                    Row{"Animations", {{gnome + " enable-animations", true}}, false, false},
                    Row{"DarkAndStill",
                        {{appearance + " color-scheme", 1u}, {gnome + " enable-animations", false}},
                        true,
                        true}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(WhileRunning, WithoutAPortalThePlatformDecides) {
    const SystemAppearance system(nullptr);
    EXPECT_FALSE(system.isDark());
    EXPECT_FALSE(system.isMotionReduced());
}

TEST(WhileRunning, TheEnvironmentHasTheLastWordOnColours) {
    qputenv("FRIMBOLATE_COLOR_SCHEME", "light");
    RunningPortal portal({{appearance + " color-scheme", 1u}});
    EXPECT_FALSE(SystemAppearance(nullptr).isDark());
    qunsetenv("FRIMBOLATE_COLOR_SCHEME");
}

TEST(WhileRunning, TheWindowChangesItsColours) {
    RunningPortal portal({});
    install(*qApp);
    const auto isDark = [] { return &tokens(QApplication::palette()) == &tokens(true); };
    ASSERT_FALSE(isDark());
    portal.tell(appearance, "color-scheme", 1u);
    EXPECT_TRUE(QTest::qWaitFor(isDark));
    portal.tell(appearance, "color-scheme", 0u);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isDark(); }));
}

TEST(WhileRunning, TheWindowComesToRest) {
    RunningPortal portal({});
    install(*qApp);
    const auto isAnimated = [] {
        return QApplication::style()->styleHint(QStyle::SH_Widget_Animate) != 0;
    };
    ASSERT_TRUE(isAnimated());
    portal.tell(gnome, "enable-animations", false);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isAnimated(); }));
    portal.tell(gnome, "enable-animations", true);
    EXPECT_TRUE(QTest::qWaitFor(isAnimated));
}

} // namespace
} // namespace frimbolate::style

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QPA_PLATFORMTHEME", "");
    qputenv("XDG_CURRENT_DESKTOP", "");
    qunsetenv("FRIMBOLATE_COLOR_SCHEME");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
