// Creating a new folder in a file panel: it is named before it is created.
#include "tests/widgets/file_panel_fixture.h"
#include "widgets/sheets/new_folder_sheet.h"

#include <QToolButton>

namespace frimbolate {
namespace {

using testing::ElementsAre;

class NewFolder : public FilePanel {
  protected:
    static OpenPanel grant() {
        OpenPanel panel;
        panel.canChooseFiles = false;
        panel.canChooseDirectories = true;
        panel.canCreateDirectories = true;
        panel.suggestedName = "LaunchAgents";
        return panel;
    }
    NewFolderSheet* ask() {
        QTest::mouseClick(dialog->findChild<QToolButton*>("newFolder"), Qt::LeftButton);
        return sheet = dialog->findChild<NewFolderSheet*>("newFolderSheet");
    }
    QLineEdit* field() { return sheet->findChild<QLineEdit*>("newFolderName"); }
    std::string shownRejection() {
        auto* shown = sheet->findChild<WrappedText*>("newFolderRefusal");
        return shown->isVisible() ? shown->text().toStdString() : "";
    }
    bool isThere(const char* name) { return QFileInfo(root.filePath(name)).isDir(); }
    bool sheetIsGone() {
        return QTest::qWaitFor(
            [this] { return !dialog->findChild<NewFolderSheet*>("newFolderSheet"); });
    }

    NewFolderSheet* sheet = nullptr;
};

TEST_F(NewFolder, HasTheProposedNameAndIsChosenByReturn) {
    open(grant());
    ASSERT_NE(ask(), nullptr);
    EXPECT_EQ(QApplication::activeModalWidget(), sheet);
    EXPECT_EQ(field()->selectedText(), "LaunchAgents");
    EXPECT_FALSE(isThere("LaunchAgents")) << "made before it is named";
    QTest::keyClick(field(), Qt::Key_Return);
    ASSERT_TRUE(sheetIsGone());
    EXPECT_TRUE(isThere("LaunchAgents"));
    EXPECT_EQ(nameField()->text(), "LaunchAgents");
    EXPECT_THAT(journal, ElementsAre());
    QTest::keyClick(nameField(), Qt::Key_Return);
    ASSERT_TRUE(journalReaches(2));
    EXPECT_EQ(journal.front(), path("LaunchAgents"));
}

TEST_F(NewFolder, HasTheTypedName) {
    open(grant());
    ask();
    QTest::keyClicks(field(), "My agents");
    click(sheet, "Create");
    ASSERT_TRUE(sheetIsGone());
    EXPECT_TRUE(isThere("My agents"));
    EXPECT_FALSE(isThere("LaunchAgents"));
    EXPECT_EQ(nameField()->text(), "My agents");
}

TEST_F(NewFolder, IsEnteredByASavePanelWhichKeepsItsName) {
    save(named("new.plist"));
    ask();
    field()->setText("inner");
    click(sheet, "Create");
    ASSERT_TRUE(sheetIsGone());
    EXPECT_EQ(dialog->directory().dirName(), "inner");
    EXPECT_EQ(nameField()->text(), "new.plist");
    click(dialog, "Save");
    ASSERT_TRUE(journalReaches(3));
    EXPECT_EQ(journal.front(), path("inner/new.plist"));
}

TEST_F(NewFolder, IsNotCreatedIfTheSheetIsCancelled) {
    open(grant());
    const QStringList before = QDir(root.path()).entryList();
    for (const bool escaped : {true, false}) {
        ask();
        if (escaped)
            QTest::keyClick(field(), Qt::Key_Escape);
        else
            click(sheet, "Cancel");
        ASSERT_TRUE(sheetIsGone());
        EXPECT_EQ(QDir(root.path()).entryList(), before);
        EXPECT_TRUE(dialog->isVisible());
    }
    EXPECT_THAT(journal, ElementsAre());
}

TEST_F(NewFolder, IsRejectedIfItCannotBeCreated) {
    open(grant());
    ask();
    field()->setText("later");
    QDir(root.path()).removeRecursively();
    click(sheet, "Create");
    EXPECT_EQ(shownRejection(), "No folder can be made here.");
    EXPECT_EQ(field()->accessibleDescription(), "No folder can be made here.");
    EXPECT_TRUE(sheet->isVisible());
    field()->setText("another");
    EXPECT_EQ(shownRejection(), "");
    EXPECT_EQ(field()->accessibleDescription(), "");
}

struct NameRow {
    const char* name;
    std::string typed;
    const char* rejectionReason; ///< a substring of the shown reason
};
class NewFolderName : public NewFolder, public testing::WithParamInterface<NameRow> {};

TEST_P(NewFolderName, ThatIsInvalidIsRejected) {
    open(grant());
    const QStringList before = QDir(root.path()).entryList();
    ask();
    field()->setText(QString::fromStdString(GetParam().typed));
    QTest::keyClick(field(), Qt::Key_Return);
    EXPECT_THAT(shownRejection(), testing::HasSubstr(GetParam().rejectionReason));
    EXPECT_TRUE(sheet->isVisible());
    EXPECT_EQ(QDir(root.path()).entryList(), before);
}

const NameRow nameRows[] = {
    {"OfAFolderThatIsThere", "folder", "“folder” already exists."},
    {"OfAFileThatIsThere", "agent.plist", "already exists."},
    {"Dot", ".", "cannot be the name"},
    {"Dots", "..", "cannot be the name"},
    {"Path", "a/b", "cannot be the name"},
    {"PathElsewhere", "/tmp/x", "cannot be the name"},
    {"TooLong", std::string(256, 'x'), "too long"},
};
INSTANTIATE_TEST_SUITE_P(Table, NewFolderName, testing::ValuesIn(nameRows),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(NewFolder, NeedsAName) {
    open(grant());
    ask();
    field()->clear();
    EXPECT_FALSE(button(sheet, "Create")->isEnabled());
    QTest::keyClick(field(), Qt::Key_Return);
    EXPECT_TRUE(sheet->isVisible());
}

} // namespace
} // namespace frimbolate
