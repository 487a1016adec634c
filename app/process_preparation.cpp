#include "app/process_preparation.h"

#include "platform/qt/process_setup.h"
#include "platform/qt/qt_messages.h"

#include <QtGlobal>

#include <iostream>
#include <string_view>

namespace frimbolate {

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
    return std::nullopt;
}

} // namespace frimbolate
