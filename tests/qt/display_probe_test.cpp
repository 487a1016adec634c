#include "posix/file_descriptor.h"
#include "qt/display_probe.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <sys/socket.h>
#include <sys/un.h>

namespace frimbolate::test {

namespace {

struct Row {
    const char* name;
    std::vector<std::string> arguments;
    std::map<std::string, std::string> variables;
    /// The reason why no window can be opened; empty where one can.
    std::string missing;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

class DisplayRule : public testing::TestWithParam<Row> {};

/// Only an X server at ":0" and a compositor at "/run/wayland-0" answer.
TEST_P(DisplayRule, TellsWhetherAWindowCanBeOpened) {
    const Row& row = GetParam();
    std::vector<std::string> arguments{"frimbolate"};
    arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
    const DisplayProbe probe{
        .variable =
            [&](const char* name) {
                const auto found = row.variables.find(name);
                return found == row.variables.end() ? std::string() : found->second;
            },
        .opensX = [](const std::string& display) { return display == ":0"; },
        .opensWayland = [](const std::string& socket) { return socket == "/run/wayland-0"; }};
    EXPECT_EQ(missingDisplay(arguments, probe).value_or(""), row.missing);
}

const std::string noDisplay = "there is no display; neither DISPLAY nor WAYLAND_DISPLAY names one";
const std::string closed = "the display \":9\" cannot be opened";
const std::string closedWayland = "the display \"/run/wayland-9\" cannot be opened";
const std::pair<const std::string, std::string> runtimeFolder{"XDG_RUNTIME_DIR", "/run"};

INSTANTIATE_TEST_SUITE_P(
    DisplayProbe, DisplayRule,
    testing::Values(
        Row{"Nothing", {}, {}, noDisplay}, Row{"X", {}, {{"DISPLAY", ":0"}}, ""},
        Row{"XThatIsGone", {}, {{"DISPLAY", ":9"}}, closed},
        Row{"Wayland", {}, {runtimeFolder, {"WAYLAND_DISPLAY", "wayland-0"}}, ""},
        Row{"WaylandByPath", {}, {{"WAYLAND_DISPLAY", "/run/wayland-0"}}, ""},
        Row{"WaylandThatIsGone",
            {},
            {runtimeFolder, {"WAYLAND_DISPLAY", "wayland-9"}},
            closedWayland},
        Row{"WaylandSession", {}, {runtimeFolder, {"XDG_SESSION_TYPE", "wayland"}}, ""},
        Row{"WaylandConnection", {}, {{"WAYLAND_SOCKET", "5"}}, ""},
        Row{"EitherWillDo",
            {},
            {runtimeFolder, {"WAYLAND_DISPLAY", "wayland-9"}, {"DISPLAY", ":0"}},
            ""},
        Row{"BothAreGone",
            {},
            {runtimeFolder, {"WAYLAND_DISPLAY", "wayland-9"}, {"DISPLAY", ":9"}},
            closed},
        Row{"PlatformWithoutADisplay", {}, {{"QT_QPA_PLATFORM", "offscreen"}}, ""},
        Row{"PlatformXWithoutADisplay", {}, {{"QT_QPA_PLATFORM", "xcb"}}, noDisplay},
        Row{"PlatformXWithOptions",
            {},
            {{"QT_QPA_PLATFORM", "xcb:some=option"}, {"DISPLAY", ":9"}},
            closed},
        Row{"PlatformXHasNoUseForWayland",
            {},
            {runtimeFolder, {"QT_QPA_PLATFORM", "xcb"}, {"WAYLAND_DISPLAY", "wayland-0"}},
            noDisplay},
        Row{"PlatformWaylandHasNoUseForX",
            {},
            {{"QT_QPA_PLATFORM", "wayland-egl"}, {"DISPLAY", ":0"}},
            noDisplay},
        Row{"SeveralPlatforms", {}, {{"QT_QPA_PLATFORM", "wayland;xcb"}, {"DISPLAY", ":0"}}, ""},
        Row{"ArgumentBeatsTheEnvironment",
            {"-platform", "offscreen"},
            {{"QT_QPA_PLATFORM", "xcb"}},
            ""},
        Row{"ArgumentWithTwoDashes", {"--platform", "offscreen"}, {}, ""},
        Row{"PlatformWithoutAName", {"-platform"}, {}, noDisplay},
        Row{"NamedDisplay", {"-display", ":0"}, {}, ""},
        Row{"NamedDisplayBeatsTheEnvironment", {"-display", ":9"}, {{"DISPLAY", ":0"}}, closed}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(DisplayProbeTest, ConnectsToCompositorsAndServers) {
    const TemporaryFolder folder;
    const DisplayProbe probe = DisplayProbe::ofThisProcess();
    const std::string path = folder / "wayland-0";
    EXPECT_FALSE(probe.opensWayland(path));
    const FileDescriptor compositor(::socket(AF_UNIX, SOCK_STREAM, 0));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(
        ::bind(compositor.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address),
        0);
    EXPECT_FALSE(probe.opensWayland(path)) << "nobody listens yet";
    ASSERT_EQ(::listen(compositor.number(), 1), 0);
    EXPECT_TRUE(probe.opensWayland(path));
    EXPECT_FALSE(probe.opensX("no display"));
    EXPECT_EQ(textOnXServer("no display", "AT_SPI_BUS"), "");
    EXPECT_EQ(textOnXServer("", "AT_SPI_BUS"), "");
    EXPECT_EQ(probe.variable("FRIMBOLATE_NO_SUCH_VARIABLE"), "");
}

} // namespace

} // namespace frimbolate::test
