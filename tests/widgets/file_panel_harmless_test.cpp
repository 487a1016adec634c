// File panels change nothing on the disk, except by creating a new folder.
#include "tests/widgets/file_panel_fixture.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QDirIterator>
#include <QDropEvent>
#include <QListView>
#include <QMap>
#include <QMenu>
#include <QMimeData>
#include <QTimer>

namespace frimbolate {
namespace {

struct HarmlessRow {
    std::string name;
    std::optional<OpenPanel> open; ///< none for a save panel
    std::string view;              ///< object name
};

std::vector<HarmlessRow> harmlessRows() {
    OpenPanel file;
    file.allowedFileTypes = {"plist"};
    OpenPanel grant;
    grant.canChooseFiles = false;
    grant.canChooseDirectories = true;
    grant.canCreateDirectories = true;
    OpenPanel watchPath = grant;
    watchPath.canChooseFiles = true;
    const std::pair<const char*, std::optional<OpenPanel>> panels[] = {
        {"File", file}, {"Grant", grant}, {"WatchPath", watchPath}, {"Save", std::nullopt}};
    std::vector<HarmlessRow> rows;
    for (const auto& [name, panel] : panels)
        for (const char* view : {"listView", "treeView", "sidebar"})
            rows.push_back({std::string(name) + "_" + view, panel, view});
    return rows;
}

class HarmlessPanel : public FilePanel, public testing::WithParamInterface<HarmlessRow> {
  protected:
    HarmlessPanel() {
        QObject::connect(&watch_, &QTimer::timeout, [this] { closeUnexpected(); });
    }

    void openPanel() {
        row.open ? open(*row.open) : save(named("new.plist"));
        dialog->setViewMode(row.view == "treeView" ? QFileDialog::Detail : QFileDialog::List);
        dialog->setSidebarUrls({QUrl::fromLocalFile(root.filePath("folder"))});
        view = dialog->findChild<QAbstractItemView*>(QString::fromStdString(row.view));
        item("folder"); // waits until the folder is listed
        watch_.start(0);
    }
    /// Focuses and selects an item of the view.
    void select(const char* name) {
        dialog->setDirectory(root.path()); // earlier keys may have changed the folder
        const QModelIndex index = row.view == "sidebar" ? view->model()->index(0, 0) : item(name);
        dialog->activateWindow();
        view->setFocus();
        ASSERT_TRUE(QTest::qWaitFor([&] { return view->hasFocus(); }));
        view->setCurrentIndex(index);
        view->selectionModel()->select(index, QItemSelectionModel::ClearAndSelect |
                                                  QItemSelectionModel::Rows);
    }
    /// Every file and folder below the root, with its content.
    QMap<QString, QByteArray> disk() const {
        QMap<QString, QByteArray> found;
        QDirIterator all(root.path(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
        while (all.hasNext()) {
            QFile file(all.next());
            found[file.fileName()] = file.open(QIODevice::ReadOnly) ? file.readAll() : "folder";
        }
        return found;
    }
    void expectNothingHappened() {
        settle();
        EXPECT_EQ(disk(), before_);
        EXPECT_EQ(unexpected_, QStringList());
        EXPECT_TRUE(view->findChildren<QLineEdit*>().isEmpty()) << "a name can be edited in place";
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_EQ(dialog->sidebarUrls(), QList{QUrl::fromLocalFile(root.filePath("folder"))});
        EXPECT_THAT(journal, testing::ElementsAre());
    }

    const HarmlessRow& row = GetParam();
    QAbstractItemView* view = nullptr;

  private:
    /// Closes modal dialogs: a question in a nested event loop would block the test forever.
    void closeUnexpected() {
        QWidget* up = QApplication::activePopupWidget();
        if (!up)
            up = QApplication::activeModalWidget();
        if (!up || up == dialog)
            return;
        unexpected_.append(up->metaObject()->className());
        up->close();
    }

    const QMap<QString, QByteArray> before_ = disk();
    QStringList unexpected_;
    QTimer watch_;
};

TEST_P(HarmlessPanel, ChangesNothingByAnyKey) {
    openPanel();
    const QKeyCombination keys[] = {
        Qt::Key_Delete,
        Qt::SHIFT | Qt::Key_Delete,
        Qt::CTRL | Qt::Key_Delete,
        Qt::Key_F2,
        Qt::SHIFT | Qt::Key_F2,
        Qt::CTRL | Qt::Key_Backspace,
        Qt::CTRL | Qt::Key_C,
        Qt::CTRL | Qt::Key_X,
        Qt::CTRL | Qt::Key_V,
        Qt::CTRL | Qt::Key_D,
        Qt::CTRL | Qt::Key_E,
        Qt::CTRL | Qt::Key_R,
        Qt::CTRL | Qt::Key_Z,
        Qt::CTRL | Qt::Key_N,
        Qt::CTRL | Qt::SHIFT | Qt::Key_N,
        Qt::CTRL | Qt::SHIFT | Qt::Key_Delete,
    };
    const bool listsFiles = !row.open || row.open->canChooseFiles;
    for (const char* name : {"folder", listsFiles ? "agent.plist" : "Foo.app"})
        for (const QKeyCombination key : keys) {
            select(name);
            QTest::keyClick(view, key.key(), key.keyboardModifiers());
            expectNothingHappened();
            if (HasFailure())
                FAIL() << name << ", " << QKeySequence(key).toString().toStdString();
            if (HasFailure())
                FAIL() << name << ", " << QKeySequence(key).toString().toStdString();
        }
}

TEST_P(HarmlessPanel, ChangesNothingByAMenuItem) {
    openPanel();
    select("folder");
    const QPoint place = view->visualRect(view->currentIndex()).center();
    QContextMenuEvent asked(QContextMenuEvent::Mouse, place, view->mapToGlobal(place));
    QApplication::sendEvent(view->viewport(), &asked);
    expectNothingHappened();
    for (auto* action : dialog->findChildren<QAction*>())
        if (action->objectName().contains("delete") || action->objectName().contains("rename"))
            action->trigger();
    expectNothingHappened();
}

TEST_P(HarmlessPanel, AllowsNoEditingInPlace) {
    openPanel();
    select("folder");
    QTest::ignoreMessage(QtWarningMsg, "edit: editing failed");
    view->edit(view->currentIndex());
    expectNothingHappened();
}

TEST_P(HarmlessPanel, MovesNothingByADrag) {
    openPanel();
    select("folder");
    EXPECT_FALSE(view->dragEnabled());
    EXPECT_FALSE(view->acceptDrops());
    QMimeData dragged;
    dragged.setUrls({QUrl::fromLocalFile(root.filePath("agent.plist"))});
    const QPoint place = view->visualRect(view->currentIndex()).center();
    QDragEnterEvent entering(place, Qt::MoveAction, &dragged, Qt::LeftButton, {});
    QApplication::sendEvent(view->viewport(), &entering);
    QDragMoveEvent moving(place, Qt::MoveAction, &dragged, Qt::LeftButton, {});
    QApplication::sendEvent(view->viewport(), &moving);
    QDropEvent dropped(place, Qt::MoveAction, &dragged, Qt::LeftButton, {});
    QApplication::sendEvent(view->viewport(), &dropped);
    expectNothingHappened();
}

INSTANTIATE_TEST_SUITE_P(Table, HarmlessPanel, testing::ValuesIn(harmlessRows()),
                         [](const auto& test) { return test.param.name; });

} // namespace
} // namespace frimbolate
