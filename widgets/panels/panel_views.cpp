#include "widgets/panels/panel_views.h"

#include "widgets/style/fonts.h"
#include "widgets/style/list_rows.h"

#include <QCompleter>
#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QStandardPaths>
#include <QTreeView>

namespace frimbolate {
namespace {

QString panelText(const char* words) { return QCoreApplication::translate("PanelDialog", words); }

/// Swallows the Delete key of the side bar, which would remove a place.
class DeleteKeyFilter : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease)
            return false;
        return static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete;
    }
};

void makeHarmless(QAbstractItemView& view) {
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setDragDropMode(QAbstractItemView::NoDragDrop);
    // The toolkit's context menus delete and rename, and run nested event loops.
    view.setContextMenuPolicy(Qt::NoContextMenu);
}

void setUpColumns(QTreeView& table) {
    // Name and date only; more columns do not fit into the panel.
    QHeaderView* columns = table.header();
    columns->setStretchLastSection(false);
    columns->setSectionResizeMode(0, QHeaderView::Stretch);
    columns->setSectionResizeMode(3, QHeaderView::ResizeToContents);
    columns->hideSection(1);
    columns->hideSection(2);
    columns->setHighlightSections(false);
    style::setFont(columns, style::FontRole::hint);
}

} // namespace

void setUpPanelViews(QFileDialog& dialog) {
    auto* rows = new style::RowDelegate(&dialog);
    for (const char* name : {"listView", "treeView", "sidebar"}) {
        auto* view = dialog.findChild<QAbstractItemView*>(name);
        makeHarmless(*view);
        view->setItemDelegate(rows);
        view->setMouseTracking(true);
        view->setAccessibleName(QByteArray(name) == "sidebar" ? panelText("Places")
                                                              : panelText("Files and folders"));
    }
    auto* places = dialog.findChild<QAbstractItemView*>("sidebar");
    places->installEventFilter(new DeleteKeyFilter(places));
    setUpColumns(*dialog.findChild<QTreeView*>("treeView"));
    auto* nameField = dialog.findChild<QLineEdit*>("fileNameEdit");
    if (QCompleter* completer = nameField->completer())
        completer->popup()->setItemDelegate(rows);
}

QList<QUrl> panelPlaces(const QString& folder) {
    const QString home = QDir::homePath();
    QStringList paths = {home, QStandardPaths::writableLocation(QStandardPaths::DesktopLocation)};
    QStringList applications = {"/Applications"};
    applications += QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
    for (const QString& path : applications)
        if (QFileInfo(path).isDir()) {
            paths.append(path);
            break;
        }
    paths.append(home + "/Library/LaunchAgents");
    if (QDir(folder).dirName() == "LaunchAgents")
        paths.append(folder);
    QList<QUrl> places;
    for (const QString& path : paths) {
        const QUrl place = QUrl::fromLocalFile(QDir::cleanPath(path));
        if (QFileInfo(path).isDir() && !places.contains(place))
            places.append(place);
    }
    return places;
}

void highlightEntry(QFileDialog& dialog, const QString& path) {
    auto* view = dialog.findChild<QTreeView*>("treeView");
    const auto* model = qobject_cast<const QFileSystemModel*>(view->model());
    view->setCurrentIndex(model->index(path));
}

} // namespace frimbolate
