#include "widgets/controls/dragged_path.h"

#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

namespace frimbolate {

namespace {

/// The action reported to the source; IgnoreAction where only a move is offered.
Qt::DropAction harmlessAction(const QDropEvent& event) {
    for (const Qt::DropAction action : {Qt::LinkAction, Qt::CopyAction})
        if (event.possibleActions() & action)
            return action;
    return Qt::IgnoreAction;
}

} // namespace

QString draggedPath(const QDropEvent& event) {
    if (QApplication::activeModalWidget() || harmlessAction(event) == Qt::IgnoreAction)
        return {};
    const QList<QUrl> urls = event.mimeData()->urls();
    if (urls.size() != 1 || !urls.first().isLocalFile())
        return {};
    const QString host = urls.first().host();
    if (!host.isEmpty() && host != "localhost")
        return {};
    // File managers may end a folder's path with a slash; panels never do.
    return QDir::cleanPath(urls.first().path(QUrl::FullyDecoded));
}

void answer(QDropEvent& event, bool isTaken) {
    event.setDropAction(harmlessAction(event));
    event.setAccepted(isTaken);
}

} // namespace frimbolate
