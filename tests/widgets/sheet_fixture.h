// A window with a toolbar, its sheet queue, and a journal of events.
#pragma once

#include "widgets/sheets/sheet_queue.h"

#include <QDialog>
#include <QMainWindow>
#include <QPushButton>
#include <QTest>
#include <QToolBar>

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace frimbolate {

class SheetFixture : public testing::Test {
  protected:
    SheetFixture() {
        qputenv("FRIMBOLATE_REDUCED_MOTION", "1"); // an earlier test may have unset it
        toolBar->setFixedHeight(64);
        window.setCentralWidget(new QWidget);
        window.setFixedSize(680, 472);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
        queue.setAfterCompletion([this] { journal.push_back("afterwards"); });
    }

    /// The visible dialog of this name, or null.
    template <typename Dialog = QDialog>
    Dialog* shown(const char* name) {
        for (auto* dialog : window.findChildren<Dialog*>(name))
            if (dialog->isVisible())
                return dialog;
        return nullptr;
    }

    static QPushButton* button(QWidget* parent, const QString& title) {
        for (auto* candidate : parent->findChildren<QPushButton*>())
            if (candidate->text() == title && candidate->isVisible())
                return candidate;
        return nullptr;
    }

    static void click(QWidget* parent, const QString& title) {
        QPushButton* found = button(parent, title);
        ASSERT_NE(found, nullptr) << "no button titled " << title.toStdString();
        QTest::mouseClick(found, Qt::LeftButton);
    }

    /// Processes events until the journal has this many entries; false on timeout.
    bool journalReaches(std::size_t entries) {
        return QTest::qWaitFor([&] { return journal.size() >= entries; });
    }
    /// Processes all pending events, so that an event delivered once too often is detected.
    static void settle() {
        for (int round = 0; round < 5; ++round)
            QCoreApplication::processEvents();
    }

    QMainWindow window;
    QToolBar* toolBar = window.addToolBar("Tools");
    SheetQueue queue{window};
    std::vector<std::string> journal;
};

} // namespace frimbolate
