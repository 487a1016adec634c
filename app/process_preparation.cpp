#include "app/process_preparation.h"

#include "platform/qt/line_writer.h"
#include "platform/qt/process_setup.h"
#include "platform/qt/qt_messages.h"
#ifndef __APPLE__
#include "platform/qt/display_probe.h"
#endif

#include <QByteArray>

#include <algorithm>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace frimbolate {

namespace {

#ifndef __APPLE__
using Arguments = std::vector<std::string>;

bool contains(const Arguments& arguments, std::initializer_list<std::string_view> options) {
    return std::find_first_of(arguments.begin(), arguments.end(), options.begin(), options.end()) !=
           arguments.end();
}

void printError(const std::string& text) { LineWriter(STDERR_FILENO).write("frimbolate: " + text); }
#endif

} // namespace

std::chrono::milliseconds answerLimit(std::chrono::milliseconds usual) {
    bool isNumber = false;
    const int chosen = qEnvironmentVariableIntValue("FRIMBOLATE_TIMEOUT_MS", &isNumber);
    return isNumber && chosen >= 0 ? std::chrono::milliseconds(chosen) : usual;
}

std::optional<int> prepareProcess(int argc, char* const argv[]) {
    openStandardStreams();
    surviveFailedWrites();
    routeQtMessages();
    fatalMessagesExit(1);
    if (argc == 2 && std::string_view(argv[1]) == "--version") {
        std::cout << "Frimbolate " FRIMBOLATE_VERSION << std::endl;
        return 0;
    }
#ifndef __APPLE__
    const Arguments arguments(argv, argv + argc);
    if (contains(arguments, {"-h", "--help", "--help-all", "-v", "--version"})) {
        qputenv("QT_QPA_PLATFORM", "offscreen"); // only prints
    } else if (const auto missing = missingDisplay(arguments, DisplayProbe::ofThisProcess())) {
        printError(*missing);
        return 1;
    }
#endif
    return std::nullopt;
}

} // namespace frimbolate
