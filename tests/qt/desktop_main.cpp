// main() of the tests that need a QGuiApplication. Uses no screen and no real folder of the user.
#include "qt/qt_workspace.h"
#include "tests/support/temporary_folder.h"

#include <QGuiApplication>

#include <gmock/gmock.h>

int main(int count, char** arguments) {
    // Launched by a test of the workspace: writes its argument to the file and exits.
    if (const char* sign = std::getenv("FRIMBOLATE_TEST_SIGN"); sign && count == 2) {
        const std::string draft = std::string(sign) + ".draft";
        frimbolate::test::writeBytes(draft, arguments[1]);
        std::filesystem::rename(draft, sign);
        return 0;
    }
    const frimbolate::test::TemporaryFolder runtime;
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    ::setenv("XDG_RUNTIME_DIR", runtime.path().c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", runtime.path().c_str(), 1);
    testing::InitGoogleMock(&count, arguments);
    const QGuiApplication application(count, arguments);
    return RUN_ALL_TESTS();
}
