#include "app/process_preparation.h"

#include "platform/qt/process_setup.h"
#include "platform/qt/qt_messages.h"

#include <iostream>
#include <string_view>

namespace frimbolate {

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
