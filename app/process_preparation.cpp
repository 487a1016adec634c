#include "app/process_preparation.h"

#include "posix/line_writer.h"
#include "posix/process_setup.h"
#include "qt/qt_messages.h"
#ifndef __APPLE__
#include "posix/bus_probe.h"
#include "qt/display_probe.h"
#endif

#include <algorithm>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace frimbolate {

namespace {

using Arguments = std::vector<std::string>;

#ifndef __APPLE__
/// The limit for the session bus and the accessibility bus together.
constexpr std::chrono::milliseconds busLimit{250};

bool contains(const Arguments& arguments, std::initializer_list<std::string_view> options) {
    return std::find_first_of(arguments.begin(), arguments.end(), options.begin(), options.end()) !=
           arguments.end();
}

void printError(const std::string& text) { LineWriter(STDERR_FILENO).write("frimbolate: " + text); }

void disableUnresponsiveBuses(const Arguments& arguments) {
    const DisplayProbe probe = DisplayProbe::ofThisProcess();
    BusAddresses addresses{
        .session = probe.variable("DBUS_SESSION_BUS_ADDRESS"),
        .accessibility = probe.variable("AT_SPI_BUS_ADDRESS"),
        .onXServer = textOnXServer(xDisplayName(arguments, probe), "AT_SPI_BUS"),
    };
    if (const std::string runtime = probe.variable("XDG_RUNTIME_DIR");
        addresses.session.empty() && !runtime.empty())
        addresses.session = "unix:path=" + runtime + "/bus";
    const UnresponsiveBuses buses = unresponsiveBuses(addresses, answerLimit(busLimit));
    // An address of an unknown kind: with an empty one, clients would try the default address.
    if (buses.session) {
        qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
        printError("the session bus does not answer, going on without it");
    }
    if (buses.accessibility) {
        qputenv("AT_SPI_BUS_ADDRESS", "disabled:");
        printError("the accessibility bus does not answer, going on without it");
    }
}
#endif

} // namespace

std::chrono::milliseconds answerLimit(std::chrono::milliseconds usual) {
    bool isNumber = false;
    const int chosen = qEnvironmentVariableIntValue("FRIMBOLATE_TIMEOUT_MS", &isNumber);
    return isNumber && chosen >= 0 ? std::chrono::milliseconds(chosen) : usual;
}

PreparedProcess prepareProcess(int argc, char* const argv[]) {
    openStandardStreams();
    surviveFailedWrites();
    routeQtMessages();
    fatalMessagesExit(1);
    PreparedProcess process{std::nullopt, QProcessEnvironment::systemEnvironment()};
    const Arguments arguments(argv, argv + argc);
    if (argc == 2 && arguments[1] == "--version") {
        std::cout << "Frimbolate " FRIMBOLATE_VERSION << std::endl;
        process.exitCode = 0;
        return process;
    }
#ifndef __APPLE__
    if (contains(arguments, {"-h", "--help", "--help-all", "-v", "--version"})) {
        qputenv("QT_QPA_PLATFORM", "offscreen"); // these options only print
    } else if (const auto missing = missingDisplay(arguments, DisplayProbe::ofThisProcess())) {
        printError(*missing);
        process.exitCode = 1;
    } else {
        disableUnresponsiveBuses(arguments);
    }
#endif
    return process;
}

} // namespace frimbolate
