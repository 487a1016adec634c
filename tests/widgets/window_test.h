// The base of tests that use the real window.
#pragma once

#include "tests/widgets/scripted_window.h"

#include <QDialog>
#include <QTest>

#include <gtest/gtest.h>

namespace frimbolate::test {

class WindowTest : public testing::Test, protected ScriptedWindow {
  protected:
    void SetUp() override {
        start();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }
};

} // namespace frimbolate::test
