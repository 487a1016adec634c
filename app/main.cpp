#include "app/window_module.h"
#include "cli/terminal.h"

int main(int argc, char* argv[]) {
    using namespace frimbolate;
    return argc > 1 && isCommandWord(argv[1]) ? runInTerminal(argc, argv) : runWindow(argc, argv);
}
