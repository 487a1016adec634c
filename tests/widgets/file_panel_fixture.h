// A temporary folder with files, panels that show it, and a journal of their answers.
#pragma once

#include "tests/widgets/sheet_fixture.h"
#include "widgets/controls/wrapped_text.h"
#include "widgets/panels/panel_dialog.h"
#include "widgets/panels/qt_file_panels.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTreeView>

namespace frimbolate {

class FilePanel : public SheetFixture {
  protected:
    FilePanel() {
        make("agent.plist");
        make("notes.txt");
        make("Foo.app/Contents/Info.plist");
        make("folder/inner.plist");
    }

    std::string path(const std::string& name) const {
        return QDir(root.path()).canonicalPath().toStdString() + "/" + name;
    }
    void make(const std::string& name, const QByteArray& content = "old") {
        const QString file = QDir(root.path()).filePath(QString::fromStdString(name));
        QDir().mkpath(QFileInfo(file).path());
        QFile out(file);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        out.write(content);
    }

    PanelDialog* open(OpenPanel panel) {
        panel.prompt = "Select";
        if (!panel.directory)
            panel.directory = root.path().toStdString();
        panels.open(panel, [this](const std::optional<std::string>& chosen) {
            journal.push_back(chosen.value_or("cancelled"));
        });
        return dialog = onScreen(shown<PanelDialog>("openPanel"));
    }
    static SavePanel named(std::string name) {
        SavePanel panel;
        panel.nameFieldStringValue = std::move(name);
        return panel;
    }
    PanelDialog* save(SavePanel panel) {
        panel.prompt = "Save";
        if (!panel.directory)
            panel.directory = root.path().toStdString();
        panels.save(panel, [this](const std::optional<SaveLocation>& chosen) {
            journal.push_back(chosen ? chosen->path : "cancelled");
            if (chosen)
                journal.push_back(chosen->nameFieldStringValue);
        });
        return dialog = onScreen(shown<PanelDialog>("savePanel"));
    }

    static PanelDialog* onScreen(PanelDialog* panel) {
        EXPECT_TRUE(panel && QTest::qWaitForWindowExposed(panel));
        return panel;
    }
    QLineEdit* nameField() { return dialog->findChild<QLineEdit*>("fileNameEdit"); }
    void type(const std::string& name) {
        // While the field has no focus, the dialog replaces its text by the selected name.
        dialog->activateWindow();
        nameField()->setFocus();
        ASSERT_TRUE(QTest::qWaitFor([&] { return nameField()->hasFocus(); }));
        nameField()->setText(QString::fromStdString(name));
    }
    std::string rejectionReason() {
        auto* shown = dialog->findChild<WrappedText*>("panelRejection");
        return shown->isVisible() ? shown->text().toStdString() : "";
    }
    /// The alert that asks before a file is replaced, or null.
    AlertDialog* replaceAlert() {
        for (auto* alert : dialog->findChildren<AlertDialog*>("sheetAlert"))
            if (alert->isVisible())
                return alert;
        return nullptr;
    }
    /// The index of an item in the list; waits until the panel has listed it.
    QModelIndex item(const char* name) {
        auto* view = dialog->findChild<QTreeView*>("treeView");
        QModelIndex found;
        const auto isListed = [&] {
            for (int row = 0; row < view->model()->rowCount(view->rootIndex()); ++row)
                if (const auto index = view->model()->index(row, 0, view->rootIndex());
                    index.data().toString() == name)
                    found = index;
            return found.isValid();
        };
        EXPECT_TRUE(QTest::qWaitFor(isListed)) << name << " is not listed";
        return found;
    }
    void doubleClick(const char* name) {
        const QModelIndex index = item(name);
        emit dialog->findChild<QTreeView*>("treeView")->activated(index);
    }
    void select(const char* name) {
        const QModelIndex index = item(name);
        dialog->findChild<QTreeView*>("treeView")->setCurrentIndex(index);
    }

    QTemporaryDir root;
    QtFilePanels panels{queue, window};
    PanelDialog* dialog = nullptr;
};

} // namespace frimbolate
