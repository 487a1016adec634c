// The views of a file panel. They show the file system and never change it.
#pragma once

#include <QString>
#include <QUrl>

class QFileDialog;

namespace frimbolate {

/// Styles the views of the dialog, and disables every way to delete, rename, move or copy an entry
/// or a place of the side bar: keys, menus, editing in place, dragging.
void setUpPanelViews(QFileDialog& dialog);

/// The places of the side bar: home, desktop, applications and LaunchAgents, as far as they exist.
/// \param folder where the panel starts; identifies a LaunchAgents folder outside the home folder
QList<QUrl> panelPlaces(const QString& folder);

/// Highlights the entry of that path in the shown folder, now or as soon as it is listed.
void highlightEntry(QFileDialog& dialog, const QString& path);

} // namespace frimbolate
