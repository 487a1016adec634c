#include "tests/widgets/file_panel_fixture.h"

#include <QHeaderView>
#include <QPointer>
#include <QSettings>
#include <QToolButton>

#include <unistd.h>

namespace frimbolate {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

struct OpenRow {
    const char* name;
    OpenPanel panel;
    const char* typed;
    const char* chosen; ///< path inside the folder; null if the panel stays open
};

OpenPanel files(std::vector<std::string> types = {}) {
    OpenPanel panel;
    panel.allowedFileTypes = std::move(types);
    return panel;
}
OpenPanel filesAndFolders() {
    OpenPanel panel;
    panel.canChooseDirectories = true;
    return panel;
}
OpenPanel folders() {
    OpenPanel panel = filesAndFolders();
    panel.canChooseFiles = false;
    return panel;
}

const OpenRow openRows[] = {
    {"AFile", files(), "notes.txt", "notes.txt"},
    {"AFileInAFolder", files(), "folder/inner.plist", "folder/inner.plist"},
    {"AFileByDots", files(), "folder/../notes.txt", "notes.txt"},
    {"AFileOfAnAllowedType", files({"app", "plist"}), "agent.plist", "agent.plist"},
    {"NoFileOfAnotherType", files({"app", "plist"}), "notes.txt", nullptr},
    {"ABundleAsAFile", files({"sh", "app"}), "Foo.app", "Foo.app"},
    {"NoBundleOfAnotherType", files({"workflow"}), "Foo.app", nullptr},
    {"AWorkflowAsAFile", files({"sh", "workflow"}), "Tidy.workflow", "Tidy.workflow"},
    {"AFileNamedLikeABundle", files({"app"}), "file.app", "file.app"},
    {"NoFolderAsAFile", files(), "folder", nullptr},
    {"NoFolderNamedLikeAFile", files({"plist"}), "folder.plist", nullptr},
    {"NoFolderNamedLikeAScript", files({"sh", "app"}), "folder.sh", nullptr},
    {"NoBundleWhereOnlyFilesAreMeant", files({"plist"}), "Foo.app", nullptr},
    {"NothingThatIsNotThere", files(), "missing.plist", nullptr},
    {"AFolder", folders(), "folder", "folder"},
    {"TheFolderShown", folders(), "", ""},
    {"NoFileAsAFolder", folders(), "notes.txt", nullptr},
    {"AFileOfBoth", filesAndFolders(), "notes.txt", "notes.txt"},
    {"AFolderOfBoth", filesAndFolders(), "folder", "folder"},
    {"ABundleOfBoth", filesAndFolders(), "Foo.app", "Foo.app"},
};

class OpenChoice : public FilePanel, public testing::WithParamInterface<OpenRow> {};

TEST_P(OpenChoice, FollowsTheRulesOfThePanel) {
    const OpenRow& row = GetParam();
    make("Tidy.workflow/document.wflow");
    make("file.app");
    make("folder.plist/inner");
    make("folder.sh/inner");
    open(row.panel);
    type(row.typed);
    if (QPushButton* accept = button(dialog, "Select"); accept->isEnabled())
        accept->click();
    settle();
    if (!row.chosen) {
        EXPECT_THAT(journal, ElementsAre());
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_EQ(QApplication::activeModalWidget(), dialog);
        return;
    }
    const QString expected = QDir::cleanPath(QString::fromStdString(path(row.chosen)));
    EXPECT_THAT(journal, ElementsAre(expected.toStdString(), "afterwards"));
}
INSTANTIATE_TEST_SUITE_P(Table, OpenChoice, testing::ValuesIn(openRows),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(FilePanel, IsCancelledByButtonAndEscape) {
    open(files());
    click(dialog, "Cancel");
    ASSERT_TRUE(journalReaches(2));
    open(files());
    QTest::keyClick(dialog, Qt::Key_Escape);
    ASSERT_TRUE(journalReaches(4));
    settle();
    EXPECT_THAT(journal, ElementsAre("cancelled", "afterwards", "cancelled", "afterwards"));
}

TEST_F(FilePanel, ShowsItsMessageAndPrompt) {
    OpenPanel panel;
    panel.message = "Please choose:\n\n<one> of these";
    open(panel);
    auto* label = dialog->findChild<QLabel*>("panelMessage");
    EXPECT_TRUE(label->isVisible());
    EXPECT_EQ(label->text(), "Please choose:\n\n<one> of these");
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
    EXPECT_NE(button(dialog, "Select"), nullptr);
    EXPECT_EQ(button(dialog, "Open"), nullptr);
    EXPECT_EQ(dialog->windowModality(), Qt::WindowModal);
}

TEST_F(FilePanel, KeepsItsPromptWhateverIsTyped) {
    save({});
    for (const char* name : {"folder", "agent.plist", "", "x"}) {
        type(name);
        EXPECT_NE(button(dialog, "Save"), nullptr) << name;
    }
}

TEST_F(FilePanel, WaitsForTheSheetBeforeIt) {
    open(files());
    panels.save({}, [](const auto&) {});
    EXPECT_EQ(shown("savePanel"), nullptr);
    click(dialog, "Cancel");
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown("savePanel") != nullptr; }));
}

TEST_F(FilePanel, ResolvesLinksOnlyIfRequested) {
    ASSERT_TRUE(QFile::link(root.filePath("agent.plist"), root.filePath("link.plist")));
    for (const bool resolves : {true, false}) {
        OpenPanel panel;
        panel.resolvesAliases = resolves;
        open(panel);
        type("link.plist");
        click(dialog, "Select");
        ASSERT_TRUE(journalReaches(2));
        const std::string expected = resolves ? "agent.plist" : "link.plist";
        EXPECT_THAT(journal.front(), testing::EndsWith("/" + expected));
        journal.clear();
    }
}

TEST_F(FilePanel, ChoosesABundleByDoubleClick) {
    open(files({"app"}));
    doubleClick("Foo.app");
    ASSERT_TRUE(journalReaches(2));
    EXPECT_EQ(journal.front(), path("Foo.app"));
}

TEST_F(FilePanel, ChoosesABundleBySelectingIt) {
    open(files({"app"}));
    select("Foo.app");
    EXPECT_EQ(nameField()->text(), "Foo.app");
    click(dialog, "Select");
    ASSERT_TRUE(journalReaches(2));
    EXPECT_EQ(journal.front(), path("Foo.app"));
}

TEST_F(FilePanel, SelectingAFilePutsItsNameIntoTheField) {
    open(files());
    select("notes.txt");
    EXPECT_EQ(nameField()->text(), "notes.txt");
}

TEST_F(FilePanel, KeepsTypedTextWhenTheWindowLosesTheFocus) {
    open(folders());
    select("folder"); // waits until the folder is listed
    dialog->findChild<QTreeView*>("treeView")->setFocus();
    for (const char* typed : {"folder", "Foo.app", "folder/"}) {
        nameField()->setText(typed);
        settle();
        EXPECT_EQ(nameField()->text(), typed);
    }
}

TEST_F(FilePanel, EntersAnOrdinaryFolderByDoubleClick) {
    open(files({"app"}));
    doubleClick("folder");
    settle();
    EXPECT_THAT(journal, ElementsAre());
    EXPECT_EQ(dialog->directory().dirName(), "folder");
}

TEST_F(FilePanel, ChoosesAFolderBySelectingItAndEntersItByDoubleClick) {
    open(filesAndFolders());
    select("folder");
    EXPECT_EQ(nameField()->text(), "folder");
    doubleClick("folder");
    EXPECT_EQ(dialog->directory().dirName(), "folder");
    EXPECT_EQ(nameField()->text(), "");
    click(dialog, "Select");
    ASSERT_TRUE(journalReaches(2));
    EXPECT_EQ(journal.front(), path("folder"));
}

TEST_F(FilePanel, ChoosesAFileByDoubleClick) {
    open(files());
    doubleClick("notes.txt");
    ASSERT_TRUE(journalReaches(2));
    EXPECT_EQ(journal.front(), path("notes.txt"));
}

TEST_F(FilePanel, EntersAFolderNamedLikeAFileByDoubleClick) {
    make("folder.plist/inner");
    open(files({"plist"}));
    doubleClick("folder.plist");
    settle();
    EXPECT_THAT(journal, ElementsAre());
    EXPECT_EQ(dialog->directory().dirName(), "folder.plist");
}

TEST_F(FilePanel, StartsWithTheSuggestedEntrySelected) {
    OpenPanel panel = folders();
    panel.suggestedName = "folder";
    open(panel);
    EXPECT_EQ(nameField()->text(), "folder");
    EXPECT_EQ(nameField()->selectedText(), "folder");
    const auto isLit = [this](const QModelIndex& index) {
        return dialog->findChild<QTreeView*>("treeView")->selectionModel()->isSelected(index);
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return isLit(item("folder")); }));
    QTest::keyClick(nameField(), Qt::Key_Return);
    ASSERT_TRUE(journalReaches(2));
    EXPECT_EQ(journal.front(), path("folder"));
}

TEST_F(FilePanel, StartsWithNothingSelectedIfTheSuggestedEntryIsMissing) {
    OpenPanel panel = folders();
    panel.suggestedName = "LaunchAgents";
    open(panel);
    EXPECT_EQ(nameField()->text(), "");
    QTest::keyClick(nameField(), Qt::Key_Return);
    ASSERT_TRUE(journalReaches(2));
    EXPECT_EQ(journal.front() + "/", path(""));
}

struct TitleRow {
    const char* name;
    const char* message;
    const char* title;
};
class PanelTitle : public FilePanel, public testing::WithParamInterface<TitleRow> {};

TEST_P(PanelTitle, IsTheFirstSentenceOfTheMessage) {
    OpenPanel panel;
    panel.message = GetParam().message;
    open(panel);
    EXPECT_EQ(dialog->windowTitle(), GetParam().title);
    EXPECT_EQ(dialog->accessibleName(), GetParam().title);
}

const TitleRow titleRows[] = {
    {"OneLine", "Please choose a launch agent to load:", "Please choose a launch agent to load"},
    {"Parentheses", "Please choose a script (.sh, .py):", "Please choose a script"},
    {"Paragraphs", "The program needs your folder. Please select it. \n\n Or make one.",
     "The program needs your folder"},
    {"LinesOfOneSentence", "Choose one\n of these.", "Choose one of these"},
    {"FileName", "Choose agent.plist:", "Choose agent.plist"},
    {"Empty", "", ""},
};
INSTANTIATE_TEST_SUITE_P(Table, PanelTitle, testing::ValuesIn(titleRows),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(FilePanel, ListsPlacesInTheSideBar) {
    const QByteArray home = qgetenv("HOME");
    make("home/Desktop/x");
    make("home/Library/LaunchAgents/x");
    make("granted/LaunchAgents/x");
    qputenv("HOME", QFile::encodeName(root.filePath("home")));
    OpenPanel panel;
    panel.directory = path("granted/LaunchAgents");
    open(panel);
    QStringList places;
    for (const QUrl& place : dialog->sidebarUrls())
        places.append(place.toLocalFile());
    qputenv("HOME", home);
    const auto at = [this](const char* name) { return QString::fromStdString(path(name)); };
    places.removeIf([](const QString& place) {
        return place.endsWith("pplications"); // the path depends on the desktop
    });
    EXPECT_EQ(places, (QStringList{root.filePath("home"), root.filePath("home/Desktop"),
                                   root.filePath("home/Library/LaunchAgents"),
                                   at("granted/LaunchAgents")}));
}

TEST(FilePanelState, IsStoredInAFolderOfThisProcess) {
    const QString temporary = QDir::tempPath() + '/';
    const QString file = QSettings("QtProject").fileName(); // where the toolkit stores it
    EXPECT_TRUE(file.startsWith(temporary)) << file.toStdString();
    EXPECT_EQ(file, QFile::decodeName(qgetenv("XDG_CONFIG_HOME")) + "/QtProject.conf");
}

TEST_F(FilePanel, KeepsThePlacesOfOtherPrograms) {
    const QList<QUrl> places = {QUrl::fromLocalFile(root.filePath("folder"))};
    {
        QFileDialog other;
        other.setOption(QFileDialog::DontUseNativeDialog);
        other.setSidebarUrls(places);
        other.findChild<QTreeView*>("treeView")->showColumn(1);
    }
    open(files());
    EXPECT_NE(dialog->sidebarUrls(), places);
    const QPointer<PanelDialog> gone = dialog;
    click(dialog, "Cancel");
    ASSERT_TRUE(QTest::qWaitFor([&] { return gone.isNull(); }));
    QFileDialog next;
    next.setOption(QFileDialog::DontUseNativeDialog);
    EXPECT_EQ(next.sidebarUrls(), places);
    EXPECT_FALSE(next.findChild<QTreeView*>("treeView")->isColumnHidden(1));
}

TEST_F(FilePanel, OffersNewFoldersOnlyIfAllowed) {
    for (const bool allowed : {true, false}) {
        OpenPanel panel;
        panel.canCreateDirectories = allowed;
        open(panel);
        EXPECT_FALSE(dialog->findChild<QToolButton*>("newFolderButton")->isVisible());
        EXPECT_EQ(dialog->findChild<QToolButton*>("newFolder") != nullptr, allowed);
        click(dialog, "Cancel");
        ASSERT_TRUE(journalReaches(2));
        journal.clear();
    }
}

TEST_F(FilePanel, StartsElsewhereIfItsFolderIsMissing) {
    OpenPanel panel;
    panel.directory = root.filePath("missing").toStdString();
    open(panel);
    EXPECT_TRUE(dialog->directory().exists());
    EXPECT_EQ(dialog->directory().absolutePath(), QDir::homePath());
}

TEST_F(FilePanel, StartsInItsFolder) {
    OpenPanel panel;
    panel.directory = root.filePath("folder").toStdString();
    open(panel);
    EXPECT_EQ(dialog->directory().dirName(), "folder");
}

TEST_F(FilePanel, ShowsTheRejectionReason) {
    open(files({"plist"}));
    type("missing.plist");
    click(dialog, "Select");
    EXPECT_THAT(rejectionReason(), HasSubstr("missing.plist"));
    type("agent");
    EXPECT_EQ(rejectionReason(), "");
    type("notes.txt");
    click(dialog, "Select");
    EXPECT_THAT(rejectionReason(), HasSubstr("notes.txt"));
}

TEST_F(FilePanel, RejectsALinkToANameThatIsNotUtf8) {
    const QByteArray target = QFile::encodeName(root.path()) + "/na\xFFme.plist";
    FILE* file = std::fopen(target.constData(), "w");
    ASSERT_NE(file, nullptr);
    std::fclose(file);
    const QByteArray link = QFile::encodeName(root.path()) + "/link.plist";
    ASSERT_EQ(symlink(target.constData(), link.constData()), 0);
    open(files());
    type("link.plist");
    click(dialog, "Select");
    settle();
    EXPECT_THAT(rejectionReason(), HasSubstr("cannot be read as text"));
    EXPECT_THAT(journal, ElementsAre());
    ::unlink(target.constData()); // QTemporaryDir cannot remove a name that is not UTF-8
}

TEST_F(FilePanel, HasAccessibleNames) {
    open(files());
    EXPECT_FALSE(nameField()->accessibleName().isEmpty());
    EXPECT_FALSE(dialog->findChild<QTreeView*>("treeView")->accessibleName().isEmpty());
}

} // namespace
} // namespace frimbolate
