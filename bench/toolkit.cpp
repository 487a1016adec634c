#include "bench/toolkit.h"

#include <QApplication>

namespace frimbolate {

void startToolkit() {
    static int argc = 1;
    static char name[] = "frimbolate_bench";
    static char* argv[] = {name, nullptr};
    if (qApp)
        return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    new QApplication(argc, argv);
}

} // namespace frimbolate
